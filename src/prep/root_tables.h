// The connection tables, built anew from the rows of the airway grid.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/dialogue.h"
#include "prep/edit_copy.h"

namespace branok {

/// Compares the airways that the tables hold with those of the marked grid rows, asks about each
/// that has come or gone, and builds the tables anew: the slots of every node in ascending order of
/// their far nodes. Results of airways that stay go with them. A missing node number is asked for,
/// and the answer is written into the row's name. Then the grids of airways and nodes show the
/// tables; rows that name no airway keep their texts behind them. A fault ends the check through
/// Check_Fault; nothing in the tables has changed then. Raises Run_Time_Error when a table holds a
/// node number that is none. Returns what is to be said of the rows that name no airway.
std::string Build_Root_Tables(Database& db, Edit_Copy& copy,
                              const std::vector<std::uint8_t>& Grid_RootBad, Dialogue& dialogue);

}  // namespace branok
