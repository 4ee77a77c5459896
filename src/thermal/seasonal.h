// The seasonal temperature run: what the air temperature is at every node and airway in a chosen
// month.
//
// It marches no heat balances. The year's intake temperature is a sine wave about the annual mean;
// the wave is sent through the network, attenuated and delayed by the rock of each airway, on top
// of the annual temperatures in Node_TempInit and Root_TempInit. Humidity has no seasonal part.
// The labels it writes are told in annual.h.
#pragma once

#include <string>
#include <vector>

#include "thermal/annual.h"

namespace branok {

enum class Season_End {
  complete,         ///< temperatures and flow of the month
  without_flow,     ///< temperatures of the month; the user did not want the flow
  needs_annual,     ///< no annual run has converged
  declined,         ///< the user kept the annual data
  too_many_passes,  ///< the sweep could not open the loops of the flow
  flow_failed,      ///< temperatures of the month; the flow solution failed
  fault,            ///< a run-time fault
};

/// What the sweep came to.
struct Season_Sweep {
  Season_End end = Season_End::fault;
  int passes = 0;
  float max_change = 0;  ///< largest part of the wave at a node with 0.1 m3/s or more, deg C
  std::vector<std::string> recirculation;
  std::string fault;

  [[nodiscard]] bool ok() const { return end == Season_End::complete; }
};

/// What a run came to.
struct Season_Result {
  Season_End end = Season_End::fault;
  std::vector<std::string> recirculation;
  Flow_Result flow;  ///< of complete and flow_failed
  std::string fault;

  [[nodiscard]] bool ok() const {
    return end == Season_End::complete || end == Season_End::without_flow;
  }
};

/// Temperature of the intake air in month `m` (the index of its season, a part of a month
/// allowed), deg C: highest at 7.05, lowest at 1.05.
double Intake_Temperature(const Database& db, double m);

/// Prepares the panel's fields for a seasonal run. Raises Run_Time_Error when Para_Month is no
/// season.
void Init_Disp_Season(const Database& db, Panel& panel);

/// The sweep for `month` from Node_TempInit, Root_TempInit, Root_Temp, Root_Density and Root_Flow.
/// Writes Node_DBT, Node_TLeng, Root_Temp, Root_Density, the traces, and raises Root_Time to 0.3
/// year. Flag_Season is 1 after it, Flag_Annual 0; the annual tables stay, so that one annual run
/// serves any number of months. Reports its own failures; then Flag_Season is 0 and the tables are
/// half written. Never throws Run_Time_Error.
Season_Sweep Calc_Season_Temp(Database& db, Dialogue& dialogue, Panel& panel, int month);

/// The seasonal run for Para_Month: asks whether the annual data may be replaced, sweeps, asks
/// whether the flow is wanted, and solves it. Reports all failures itself. Never throws
/// Run_Time_Error.
Season_Result Ana_Season_Temp(Database& db, Dialogue& dialogue, Panel& panel,
                              const Flow_Solver& solve = Calc_Press_Flow);

}  // namespace branok
