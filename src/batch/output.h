// What branok-batch gives back: CSV files, summaries of steps, result tables.
#pragma once

#include <string>

#include "airflow/skyline_solver.h"
#include "core/database.h"

namespace branok {

/// nodes.csv: the columns of the nodal results, every number in full precision with a point, a head
/// line, lines ended by LF.
std::string Nodes_Csv(const Database& db);

/// airways.csv: the columns of the airway results, the same way; comments as UTF-8.
std::string Airways_Csv(const Database& db);

/// Both result tables for a reader's eye, in the pictures of the result grids.
std::string Result_Tables(const Database& db);

/// What the mine holds: name, numbers of things, kind of results.
std::string Mine_Summary(const Database& db);

/// How a flow solution ended: passes, largest imbalance and its node, fans, intake flow in all.
std::string Flow_Summary(const Database& db, const Flow_Result& result);

/// The range of the air temperatures along the airways and of the flow in all.
std::string Temperature_Summary(const Database& db);

}  // namespace branok
