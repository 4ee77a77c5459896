// Check and Fix Data: the one way from the grids into the tables.
//
// The folders are gone through in a fixed order. A folder that was edited since the last check is
// tested row by row; its blank cells take their defaults; then it is committed. The first fault
// stops the check with its message: the folder at fault and those behind it stay as they are.
#pragma once

#include <optional>
#include <string_view>

#include "core/dialogue.h"
#include "prep/edit_copy.h"

namespace branok {

struct Check_Result {
  bool passed = false;
  /// Where the fault stands; nothing when it stands in no cell (a node with a single airway is
  /// pointed at by its row in the node grid).
  std::optional<Edit_Place> place;
};

/// The whole check: tests and commits the edited folders, rebuilds the connections, asks about
/// airways that have come or gone, tells the outcome through messages, and counts in Check_Count.
/// What has been committed shows in its grid again, typed digits as they were typed; rows of the
/// airway grid that are no airway yet stand behind the others.
/// The busy pointer is shown meanwhile. Raises Run_Time_Error when the tables themselves hold an
/// impossible number.
Check_Result Check_Data(Database& db, Edit_Copy& copy, Dialogue& dialogue);

/// Marks all folders as edited, so that the next check examines them all.
void Mark_All_Edited(Database& db);

/// The tests of a main fan that its diagram needs (standard and driving r.p.m., head-flow table),
/// with their messages. On success the page's speeds, limit flow and table have been written to
/// `db`, which should be a copy of the tables, and MFan_Total reaches the fan.
Check_Result Check_Fan_For_Diagram(Database& db, Edit_Copy& copy, int fan, Dialogue& dialogue);

/// Asks, then writes the tables back to the grids of nodes, airways, thermal rows, intakes and
/// assist fans: all edits since the last check are taken back. Main fan pages stay, but a mine
/// without main fans has none afterwards. False when the answer was No.
bool Reset_To_Last_Check(Database& db, Edit_Copy& copy, Dialogue& dialogue);

/// The filling of that, without the question.
void Refill_All_Grids(const Database& db, Edit_Copy& copy);

}  // namespace branok
