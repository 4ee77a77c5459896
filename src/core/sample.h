// The defaults that a new database and a file read share, and the sample network's pieces.
#pragma once

#include "core/database.h"

namespace branok {

/// A database without anything in it: all counters 0, all texts empty, comments of airways blank.
const Database& Empty_Database();

/// Calculation parameters, options, colours and graphic parameters as a new database has them.
void Set_Default_Parameters(Database& db);

/// What a file read starts from where it differs from a new database: the graphic ranges, and the
/// fourth resistance mark.
void Set_File_Presets(Database& db);

/// Main fan `f`'s default table: five points of head 100 mmH2O up to 8000 m3/min at 500 r.p.m., and
/// `limit_flow` in m3/min.
void Set_Default_Fan(Database& db, int f, float limit_flow);

/// Fills the edit copy of main fan `f`, as its page of the Database window shows it: node numbers,
/// r.p.m., limit flow, and the table as text with rows above MFan_HQCount empty.
void Fill_Fan_Page(Database& db, int f);

/// Clears all node and connection cells, as an unused node and an unused slot have them.
void Clear_Network(Database& db);

/// What a new airway is given in slot `slot` of node `i`.
void Set_Default_Airway(Database& db, int i, int slot);

}  // namespace branok
