// How the main fans move towards their working points from pass to pass.
#pragma once

#include <array>
#include <vector>

#include "airflow/branches.h"

namespace branok {

/// The main fans of one solution: pressures are relaxed from pass to pass, flows are an output.
class Main_Fans {
 public:
  Main_Fans(const Database& db, const Branches& branches);

  /// Sets every fan for the coming pass from the pressures of the one before: its pressure (mmH2O)
  /// and flow (m3/s), the pressure of its suction node in `press` and `press_init`, and of an
  /// underground fan the heads of its airway. `first_pass`: no pressure of this call to relax from.
  /// `previous_pass`: the number of the pass before (from 50 on the flow takes no Newton step).
  /// With a single fan all other pressures are scaled with that of its suction node.
  void update(Branches& branches, std::vector<double>& press, std::vector<double>& press_init,
              bool first_pass, int previous_pass);

  std::array<double, max_main_fans + 1> press{};  ///< MFan_Press
  std::array<float, max_main_fans + 1> flow{};    ///< MFan_Flow

 private:
  struct Fan {
    int suction, discharge;
    int branch;       // of the suction node towards the discharge node, -1 when there is none
    int back_branch;  // of the discharge node towards the suction node
    double n, c0, c1, c2, c3;
    double limit;   // m3/s
    double resist;  // of its own airway without the switch, mmH2O per (m3/s)2
  };
  [[nodiscard]] static double head(const Fan& fan, double Q) {
    return fan.c3 * Q * Q * Q / fan.n + fan.c2 * Q * Q + fan.c1 * Q * fan.n +
           fan.c0 * fan.n * fan.n;
  }
  static double drawn_flow(const Fan& fan, const Branches& branches,
                           const std::vector<double>& press);
  static float newton_flow(const Fan& fan, double drawn, float clamped, double fan_press);
  static void set_suction(const Fan& fan, double fan_press, double Q, Branches& branches,
                          std::vector<double>& press);

  std::vector<Fan> fans_;
};

}  // namespace branok
