// The check of each folder: tests that end the check through a Check_Fault, and the commits of what
// has passed. The order they are called in stands in check.cpp.
#pragma once

#include "prep/edit_copy.h"

namespace branok {

// --- Nodes and airways

/// Tests the node rows and puts them into the tables. A wholly blank row is passed over.
void Check_Node_Rows(Database& db, const Edit_Copy& copy);

/// Which rows of the airway grid carry an airway (1) and which do not (0), by grid row.
std::vector<std::uint8_t> Mark_Airway_Rows(const Text_Grid& grdRoot);

/// Tests all marked rows of the airway grid up to the first faulty one. Blank cells are filled.
void Check_Root_Rows(Edit_Copy& copy, const std::vector<std::uint8_t>& Grid_RootBad);

/// Tests one row of the airway grid, its columns in order: a blank cell is given what it takes.
void Check_Root_Row(Edit_Copy& copy, int row);

// --- Intakes, assist fans, special thermal rows

void Check_Inlets(const Database& db, const Edit_Copy& copy);
void Commit_Inlets(Database& db, Edit_Copy& copy);
void Check_Assist_Fans(const Database& db, const Edit_Copy& copy);
void Commit_Assist_Fans(Database& db, Edit_Copy& copy);
void Check_Thermal_Rows(const Database& db, const Edit_Copy& copy);
void Commit_Thermal_Rows(Database& db, Edit_Copy& copy);

// --- Main fans

/// Copies a page's 20 rows to MFan_GridFlow and MFan_GridHead.
void Get_Fan_Grid(Database& db, const Edit_Copy& copy, int f);

/// Tests all pages, one after the other. Only the fans' work copy in the tables changes; a speed
/// that cannot be is taken back on its page, and blank rows of a page that has more than 20 go.
void Check_Main_Fans(Database& db, Edit_Copy& copy);

/// The tests of one page that its diagram needs: its speeds and its table.
void Check_Fan_Curve(Database& db, Edit_Copy& copy, int f);

void Commit_Main_Fans(Database& db, Edit_Copy& copy);

/// The commit of what a fan's diagram shows: speeds, limit flow and table.
void Commit_Fan_Curve(Database& db, int f);

/// Puts the work copy's speeds and limit flow into the fan's tables, and their ratio.
void Set_MFan_Ratio(Database& db, int f);

}  // namespace branok
