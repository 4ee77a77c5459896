#include "thermal/result_basis.h"

#include "thermal/parameters.h"

namespace branok {

namespace {

// The parameters that results depend on: not the month of the next season, and not how exactly and
// how fast the solver works.
std::vector<double> Physical_Parameters(const Database& db) {
  std::vector<double> values;
  for (const Parameter& parameter : Calculation_Parameters()) {
    if (parameter.name == "Para_Month" || parameter.name == "Para_FlowTol" ||
        parameter.name == "Para_Accel" || parameter.entry == Entry::derived) {
      continue;
    }
    values.push_back(parameter.get(db));
  }
  return values;
}

}  // namespace

bool Has_Constant_Temp(const Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] > 0 && db.Node_DBT[i] != db.Para_IntakeTemp) return false;
  }
  return true;
}

Result_Basis::Inputs Result_Basis::Inputs_Of(const Database& db) {
  return {.switches = db.Root_Switch, .parameters = Physical_Parameters(db)};
}

std::string Result_Basis::Inputs::changed(const Database& db) const {
  if (switches != db.Root_Switch) return "an airway was switched";
  if (parameters != Physical_Parameters(db)) return "parameters were changed";
  return {};
}

void Result_Basis::take_all(const Database& db) {
  take_flow(db);
  take_temperatures(db);
}

void Result_Basis::take_flow(const Database& db, bool converged) {
  flow_ = Inputs_Of(db);
  flow_temp_ = db.Root_Temp;
  flow_converged_ = converged;
}

void Result_Basis::take_temperatures(const Database& db, bool complete) {
  temperatures_ = Inputs_Of(db);
  wet_tag_ = db.Wet_Tag;
  season_ = Trim(Season_Of(db));
  temperatures_complete_ = complete;
}

void Result_Basis::take_season(const Database& db, bool complete) {
  season_ = Trim(Season_Of(db));
  temperatures_complete_ = complete;
}

std::string Result_Basis::outdated(const Database& db) const {
  if (db.Flag_Results == 0) return {};
  if (!flow_converged_) return "the last flow solution did not converge";
  if (std::string changed = flow_.changed(db); !changed.empty()) return changed;
  const bool constant = Has_Constant_Temp(db);
  const bool calculated = (db.Flag_Annual == 1 || db.Flag_Season == 1) && !constant;
  if (!temperatures_complete_ && !constant) return "the last temperature run failed";
  if (flow_temp_ != db.Root_Temp) {
    return constant ? "constant temperatures were set" : "the flow is not of these temperatures";
  }
  if (!calculated) return {};
  if (wet_tag_ != db.Wet_Tag) return "the wetness selection was changed";
  return temperatures_.changed(db);
}

}  // namespace branok
