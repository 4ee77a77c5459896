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

// What a solution depends on in the network; a check may change it and leave the results.
std::vector<float> Network_Values(const Database& db) {
  std::vector<float> values;
  const auto add = [&](auto... numbers) { (values.push_back(static_cast<float>(numbers)), ...); };
  for (int i = 1; i <= db.Node_Total; ++i) {
    add(db.Node_Elev[i], db.Node_JuncCount[i]);
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      add(db.Node_Junc(j, i), db.Root_Resist(j, i), db.Root_Area(j, i), db.Root_Peri(j, i),
          db.Root_Length(j, i), db.Root_Time(j, i), db.Root_Heat(j, i), db.Root_Wet(j, i));
    }
  }
  for (int k = 1; k <= db.Inlet_Total; ++k) add(db.Inlet_Node[k]);
  for (int f = 1; f <= db.MFan_Total; ++f) {
    add(db.MFan_Suction[f], db.MFan_Discharge[f], db.MFan_Ratio[f]);
    for (int k = 1; k <= db.MFan_HQCount[f]; ++k) {
      add(db.MFan_HQ_Flow(k, f), db.MFan_HQ_Head(k, f));
    }
  }
  for (int k = 1; k <= db.AFan_Total; ++k) {
    add(db.AFan_Suction[k], db.AFan_Discharge[k], db.AFan_Head[k], db.AFan_Flow[k]);
  }
  for (int k = 1; k <= db.Thermo_Total; ++k) {
    add(db.Thermo_Node1[k], db.Thermo_Node2[k], db.Thermo_Cond[k], db.Thermo_Density[k],
        db.Thermo_Specific[k], db.Thermo_RockTemp[k]);
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
  return {.switches = db.Root_Switch,
          .parameters = Physical_Parameters(db),
          .network = Network_Values(db)};
}

std::string Result_Basis::Inputs::changed(const Database& db) const {
  if (network != Network_Values(db)) return "the network was changed";
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
