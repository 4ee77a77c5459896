#include "airflow/main_fans.h"

#include <algorithm>
#include <cmath>

namespace branok {

Main_Fans::Main_Fans(const Database& db, const Branches& branches) {
  for (int f = 1; f <= db.MFan_Total; ++f) {
    const int s = db.MFan_Suction[f];
    const int d = db.MFan_Discharge[f];
    Fan fan{.suction = s,
            .discharge = d,
            .branch = -1,
            .back_branch = -1,
            .n = db.MFan_Ratio[f],
            .c0 = db.MFan_Coef(0, f),
            .c1 = db.MFan_Coef(1, f),
            .c2 = db.MFan_Coef(2, f),
            .c3 = db.MFan_Coef(3, f),
            .limit = db.MFan_LimitFlow[f] / 60.0,
            .resist = 0};
    if (s != d) {
      const int a = Find_Slot(db, s, d);
      fan.branch = branches.find(s, a);
      fan.back_branch = branches.find(d, Find_Slot(db, d, s));
      if (a > 0) fan.resist = db.Root_Resist(a, s) * 0.001;
    }
    press[static_cast<std::size_t>(f)] = db.MFan_Press[f];
    fans_.push_back(fan);
  }
}

// The flow drawn through the suction node at the present pressures, m3/s.
double Main_Fans::drawn_flow(const Fan& fan, const Branches& branches,
                             const std::vector<double>& press) {
  const auto s = static_cast<std::size_t>(fan.suction);
  if (fan.suction < 1 || fan.suction > branches.nodes) return 0;
  double sum = 0;
  for (auto b = static_cast<std::size_t>(branches.first[s]);
       b < static_cast<std::size_t>(branches.first[s + 1]); ++b) {
    const int far = branches.far[b];
    if (far == fan.discharge) continue;
    const double h =
        static_cast<double>(static_cast<float>(press[s] - press[static_cast<std::size_t>(far)])) +
        branches.head[b];
    sum += Sign(h) * std::sqrt(std::max(std::abs(h), 1e-10) / branches.r[b]);
  }
  return std::abs(sum);
}

// A Newton step towards the crossing of the fan curve and the mine's parabola through the present
// working point. The step starts from the drawn flow, not from the clamped one, and its result is
// not clamped again.
float Main_Fans::newton_flow(const Fan& fan, double drawn, float clamped, double fan_press) {
  const double Q = clamped;
  const double F = std::abs(fan_press);
  const double x = F / (Q * Q);
  const double g = head(fan, Q) - F;
  const double slope = 3 * Q * Q * fan.c3 / fan.n + 2 * Q * fan.c2 + fan.c1 * fan.n - 2 * x * Q;
  double delta = g / slope;
  if (std::abs(delta) > 0.05 * Q) delta = Sign(delta) * 0.05 * Q;
  return static_cast<float>(drawn - delta);
}

// The pressure in front of an underground fan follows from the one behind it, its own pressure and
// the drop along its airway. The two head entries are not mirror images: the discharge end negates
// the natural head as well, so that its row shows the fan's flow.
void Main_Fans::set_suction(const Fan& fan, double fan_press, double Q, Branches& branches,
                            std::vector<double>& press) {
  const auto s = static_cast<std::size_t>(fan.suction);
  if (fan.suction == fan.discharge) {
    press[s] = -fan_press;
    return;
  }
  double drop = 0;
  double nat_head = 0;
  if (fan.branch >= 0) {
    const auto a = static_cast<std::size_t>(fan.branch);
    drop = Q * fan.resist * Q;
    branches.head[a] = static_cast<float>(branches.nat_head[a] + fan_press);
  }
  if (fan.back_branch >= 0) {
    const auto b = static_cast<std::size_t>(fan.back_branch);
    nat_head = branches.nat_head[b];
    branches.head[b] = static_cast<float>(-(nat_head + fan_press));
  }
  press[s] = press[static_cast<std::size_t>(fan.discharge)] - fan_press - nat_head + drop;
}

void Main_Fans::update(Branches& branches, std::vector<double>& node_press,
                       std::vector<double>& press_init, bool first_pass, int previous_pass) {
  double before = 0;  // suction pressure of the last fan, before this update
  std::size_t f = 0;
  for (const Fan& fan : fans_) {
    ++f;
    const double drawn = drawn_flow(fan, branches, node_press);
    auto Q = static_cast<float>(drawn);
    if (Q > fan.limit) Q = static_cast<float>(fan.limit);
    const double least = 0.1 * fan.limit;
    if (Q < least) Q = static_cast<float>(least);

    int weight = fans_.size() == 1 ? 1 : 2;
    if (previous_pass < 50) {
      Q = newton_flow(fan, drawn, Q, press[f]);
    } else {
      weight = 3;
    }
    double H = head(fan, Q);
    // A fan never falls below 15 % of its shut-off pressure.
    H = std::max(H, 0.15 * fan.c0 * fan.n * fan.n);
    if (fans_.size() == 1) weight = 1;
    const double old = first_pass ? H : press[f];
    press[f] = (weight * old + H) / (1 + weight);
    flow[f] = Q;

    const auto s = static_cast<std::size_t>(fan.suction);
    before = node_press[s];
    set_suction(fan, press[f], Q, branches, node_press);
    press_init[s] = node_press[s];
  }

  // With a single fan the whole field follows its suction pressure in proportion.
  if (fans_.size() != 1) return;
  const auto s = static_cast<std::size_t>(fans_[0].suction);
  const double scale = node_press[s] / before;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(branches.nodes); ++i) {
    if (i == s) continue;
    node_press[i] *= scale;
    press_init[i] *= scale;
  }
}

}  // namespace branok
