// What the present results were calculated from, so that the status bar can tell when the data have
// changed since: results that are out of date must never look like current ones.
#pragma once

#include <string>
#include <vector>

#include "core/database.h"

namespace branok {

/// Whether all air has the intake's annual average, as Set Const. Temp and a flow run from fresh
/// start values leave it.
bool Has_Constant_Temp(const Database& db);

class Result_Basis {
 public:
  /// Flows and temperatures are those of the database: after a load.
  void take_all(const Database& db);
  /// The flows have just been solved for the database as it is; `converged` or not.
  void take_flow(const Database& db, bool converged = true);
  /// The temperatures have just been calculated; `complete` or left half way.
  void take_temperatures(const Database& db, bool complete = true);

  /// A season has been calculated on top of the annual temperatures, which stay what they were.
  void take_season(const Database& db, bool complete);

  /// Why the results no longer fit the data: "an airway was switched"; empty when they do.
  [[nodiscard]] std::string outdated(const Database& db) const;

  /// The season of seasonal results; the parameters name the one to calculate next.
  [[nodiscard]] const std::string& season() const { return season_; }

 private:
  // What a result depends on and a command may change while it stays.
  struct Inputs {
    Root_Table<std::int16_t> switches;
    std::vector<double> parameters;
    std::vector<float> network;  // the airways, nodes, intakes, fans and rock rows
    [[nodiscard]] std::string changed(const Database& db) const;
  };
  static Inputs Inputs_Of(const Database& db);

  Inputs flow_, temperatures_;
  Root_Table<float> flow_temp_;  // the temperatures that the flows were solved for
  std::string wet_tag_, season_;
  bool flow_converged_ = true, temperatures_complete_ = true;
};

}  // namespace branok
