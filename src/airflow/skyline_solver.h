// The nodal pressure solver: pressures and flows of the whole network for given air temperatures.
//
// Unknowns are the pressures of all nodes. Intakes are held at 0 and main-fan suction nodes at the
// value that the fan model sets anew in every pass; every airway obeys the square law. A pass
// computes all flows, forms the imbalance of every free node, assembles a symmetric conductance
// matrix in skyline (profile) storage, factors it as L D Lt without pivoting, and corrects the
// pressures by the solution times the acceleration coefficient.
//
// Limits: matrix rows are held in single precision, sums of products in double. Positions in the
// profile are 16-bit numbers: a network whose numbering makes the profile longer than that ends in
// a message, and renumbering its nodes cures it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/database.h"
#include "core/dialogue.h"
#include "core/panel.h"

namespace branok {

inline constexpr int max_passes = 100;

enum class Flow_End {
  converged,
  too_many_passes,
  diverged,
  fault,  ///< a run-time fault: overflow, division by zero, a number outside its table
};

/// What a flow solution came to.
struct Flow_Result {
  Flow_End end = Flow_End::fault;
  std::string fault;    ///< detail of a run-time fault
  int passes = 0;       ///< Iter_No at the end
  float imbalance = 0;  ///< largest nodal imbalance of the last pass, m3/min
  int node = 0;         ///< the lowest-numbered node that has it
  int fans = 0;
  std::array<double, max_main_fans + 1> fan_press{};   ///< mmH2O, by fan number
  std::array<float, max_main_fans + 1> fan_flow{};     ///< m3/s, by fan number
  std::array<float, max_passes + 2> pass_imbalance{};  ///< m3/min, by pass number
  std::vector<std::string> likely_causes;  ///< of a failure, as far as the network shows

  [[nodiscard]] bool ok() const { return end == Flow_End::converged; }
};

/// Solves the network from the start values in Node_Press, Node_PressInit and MFan_Press, with the
/// densities that Root_Temp and the first intake's Node_DBT give. Writes Node_Press, MFan_Press,
/// Root_Flow (m3/s at outside density), Root_Density, Iter_No and Iter_Error. Reports its own
/// failures; the tables then hold what the last pass left. Never throws Run_Time_Error.
Flow_Result Calc_Press_Flow(Database& db, Dialogue& dialogue, Panel& panel);

}  // namespace branok
