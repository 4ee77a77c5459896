// One sweep of the annual run: set-up, the passes over the nodes, mixing, damping.
#include <chrono>
#include <cmath>

#include "core/faults.h"
#include "core/messages.h"
#include "thermal/annual.h"
#include "thermal/flow_order.h"
#include "thermal/march.h"
#include "thermal/moist_air.h"
#include "thermal/rock.h"

namespace branok {

namespace {

constexpr Picture whole("##0");
constexpr Picture one_decimal("##0.0");
constexpr Picture two_decimals("##0.00");
constexpr Picture four_decimals("0.0000");
constexpr Picture ratio_picture("0.00");

constexpr const char* at_start = "the start of the sweep";
constexpr double least_inflow = 0.1;  // m3/s, of a node whose temperature counts
constexpr float least_age = 0.1F;     // years

// Sums over the inflows of the node in hand.
struct Mixture {
  double M = 0;     // mass
  double Mx = 0;    // moisture
  double Mh = 0;    // heat content
  double wall = 0;  // wall temperature times flow
  double Qn = 1e-5;

  void add(const Airway_Air& air) {
    const double mass = double{air.rho} * air.Qs;
    Qn += air.Qs;
    M += mass;
    Mx += mass * air.x;
    Mh += Humid_Heat(air.x) * mass * air.T;
    wall += double{air.Qs} * air.T_wall;
  }
};

class Sweep {
 public:
  Sweep(Database& db, Panel& panel)
      : db_(db),
        panel_(panel),
        order_(db),
        Node_Atm(order_.Node_State.size()),
        Node_Abs(Node_Atm.size()),
        Node_Wall(Node_Atm.size()),
        march_({}) {}

  Annual_Sweep run();

 private:
  using Clock = std::chrono::steady_clock;

  void set_up();
  void set_node(int i);
  void set_intake(int n, float phi0);
  void set_densities(int i);
  void compute(int i);
  Airway_Air march_airway(const Inflow& inflow, int i, const Float_Faults& faults);
  void mix(int i, Mixture& sums, const Float_Faults& faults);
  void show_node(int i, float h);
  float damp();

  Float_Faults faults_;  // of the set-up
  Database& db_;
  Panel& panel_;
  Flow_Order order_;
  std::vector<float> Node_Atm;   // atm
  std::vector<float> Node_Abs;   // humidity ratio
  std::vector<float> Node_Wall;  // flow-weighted wall temperature, deg C
  March march_;
  Clock::time_point start_;
};

std::size_t At(int i) { return static_cast<std::size_t>(i); }

void Sweep::set_up() {
  panel_.lblDisp[7].set("No Recirculate");
  Set_RockData(db_);
  const auto phi0 = static_cast<float>(db_.Para_IntakeHum * 0.01);
  start_ = Clock::now();
  march_ = March({.rho0 = Calc_Density(db_.Para_IntakeTemp, 0),
                  .rock_temp = db_.Para_RockTemp,
                  .rock_grad = db_.Para_RockGrad,
                  .rock_diff = db_.Para_RockDiff,
                  .wet_mode = db_.Para_WetMode});
  for (int i = 1; i <= db_.Node_Total; ++i) set_node(i);
  for (int k = 1; k <= db_.Inlet_Total; ++k) set_intake(db_.Inlet_Node[k], phi0);
  for (int i = 1; i <= db_.Node_Total; ++i) set_densities(i);
  faults_.check(at_start);
}

void Sweep::set_node(int i) {
  if (db_.Node_JuncCount[i] == 0) {
    db_.Node_DBT[i] = db_.Node_WBT[i] = 0;
    return;
  }
  const float T = db_.Node_TempInit[i];
  const auto P = static_cast<float>(Air_Pressure(db_.Node_Elev[i]));
  const float x = Calc_AbsHum(P, T, db_.Node_Hum[i]);
  const float wet_bulb = Calc_WetBulb(P, T, x);
  faults_.check(at_start);
  db_.Node_DBT[i] = T;
  db_.Node_WBT[i] = wet_bulb;
  Node_Atm[At(i)] = P;
  Node_Abs[At(i)] = x;
  for (int j = 1; j <= db_.Node_JuncCount[i]; ++j) db_.Root_Temp(j, i) = db_.Root_TempInit(j, i);
}

void Sweep::set_intake(int n, float phi0) {
  order_.set_intake(n);
  const float P = Node_Atm[At(n)];
  const float T = db_.Para_IntakeTemp;
  const float x = Calc_AbsHum(P, T, phi0);
  const float wet_bulb = Calc_WetBulb(P, T, x);
  faults_.check(at_start);
  db_.Node_DBT[n] = Node_Wall[At(n)] = T;
  db_.Node_Hum[n] = phi0;
  db_.Node_WBT[n] = wet_bulb;
  Node_Abs[At(n)] = x;
}

void Sweep::set_densities(int i) {
  for (int j = 1; j <= db_.Node_JuncCount[i]; ++j) {
    const int u = db_.Node_Junc(j, i);
    const int mean = static_cast<int>(Int(0.5 * (db_.Node_Elev[i] + db_.Node_Elev[u])));
    const float density = Calc_Density(db_.Root_Temp(j, i), mean);
    faults_.check(at_start);
    db_.Root_Density(j, i) = density;
  }
}

Annual_Sweep Sweep::run() {
  set_up();
  Annual_Sweep result;
  result.end = Annual_End::too_many_passes;
  while (order_.begin_pass()) {
    while (const int i = order_.next_ready()) compute(i);
    panel_.lblDisp[9].set(order_.left(), whole);
    panel_.refresh();
    if (order_.another_pass()) continue;
    result.max_change = damp();
    result.end = Annual_End::converged;
    break;
  }
  result.passes = order_.passes();
  result.recirculation = order_.recirculation();
  return result;
}

void Sweep::compute(int i) {
  panel_.lblDisp[9].set(i, whole);
  const Float_Faults faults;
  Mixture sums;
  for (const Inflow& inflow : order_.inflows(i)) {
    if (order_.left_out(inflow)) {
      order_.log_left_out(panel_.lblDisp[7], "   ", ratio_picture);
    } else {
      sums.add(march_airway(inflow, i, faults));
    }
  }
  mix(i, sums, faults);
}

// Nothing is stored that a fault has touched or that is no number.
Airway_Air Sweep::march_airway(const Inflow& inflow, int i, const Float_Faults& faults) {
  const int j = inflow.slot;
  const int u = inflow.from;
  const Airway_Air air = march_.run({.T = db_.Node_DBT[u],
                                     .x = Node_Abs[At(u)],
                                     .phi = db_.Node_Hum[u],
                                     .from_elev = db_.Node_Elev[u],
                                     .to_elev = db_.Node_Elev[i],
                                     .press_drop = db_.Node_Press[u] - db_.Node_Press[i],
                                     .VRT = db_.Node_VRT[i],
                                     .flow = -inflow.flow,
                                     .density = db_.Root_Density(j, i),
                                     .length = db_.Root_Length(j, i),
                                     .area = db_.Root_Area(j, i),
                                     .peri = db_.Root_Peri(j, i),
                                     .age = Raise_Age(db_, j, i, least_age),
                                     .heat = db_.Root_Heat(j, i),
                                     .wet = db_.Root_Wet(j, i),
                                     .rock_cond = db_.Root_RockCond(j, i),
                                     .kind = db_.Root_Kind(j, i)});
  faults.check("the air of an airway");
  const float T_mid = To_Single(air.T_mid);
  db_.Root_Temp(j, i) = T_mid;
  db_.Root_Hum(j, i) = air.phi_mid;
  if (inflow.back != 0) {
    db_.Root_Temp(inflow.back, u) = T_mid;
    db_.Root_Hum(inflow.back, u) = air.phi_mid;
  }
  return air;
}

void Sweep::mix(int i, Mixture& sums, const Float_Faults& faults) {
  const float P = Node_Atm[At(i)];
  // Without any inflow the node stays at 0 deg C and dry; the density only keeps it defined.
  if (sums.M == 0) sums.M = sums.Qn * db_.Root_Density(db_.Node_JuncCount[i], i);
  auto x = static_cast<float>(sums.Mx / sums.M);
  float T = To_Single(sums.Mh / sums.M / Humid_Heat(x));
  auto h = static_cast<float>(Enthalpy(T, x));
  float x_s = Calc_SatHum(P, Calc_SatPress(T));
  if (x > x_s) {
    T = Calc_SatTemp(P, h);
    x_s = Calc_SatHum(P, Calc_SatPress(T));
    x = x_s;
    h = static_cast<float>(Enthalpy(T, x));
  }
  const float phi = To_Single(double{x} / x_s * (x_s + 0.622) / (x + 0.622));
  const float wet_bulb = Calc_WetBulb(P, T, x);
  const float wall = To_Single(sums.wall / sums.Qn);
  faults.check("the air of a node");
  db_.Node_DBT[i] = T;
  db_.Node_Hum[i] = phi;
  db_.Node_WBT[i] = wet_bulb;
  Node_Abs[At(i)] = x;
  Node_Wall[At(i)] = wall;
  show_node(i, h);
}

void Sweep::show_node(int i, float h) {
  const std::chrono::duration<double> elapsed = Clock::now() - start_;
  panel_.lblDisp[8].set(elapsed.count(), one_decimal);
  panel_.lblDisp[10].set(march_.Tr(), one_decimal);
  panel_.lblDisp[11].set(Node_Wall[At(i)], two_decimals);
  panel_.lblDisp[12].set(db_.Node_DBT[i], two_decimals);
  panel_.lblDisp[13].set(db_.Node_WBT[i], two_decimals);
  panel_.lblDisp[14].set(100 * db_.Node_Hum[i], two_decimals);
  panel_.lblDisp[15].set(h, two_decimals);
  panel_.lblDisp[16].set(Node_Abs[At(i)], four_decimals);
  panel_.refresh();
}

// The flow solution and the next sweep start from damped temperatures; the change is measured
// before. Nodes with almost no air do not count.
float Sweep::damp() {
  const Float_Faults faults;
  float max_change = 0;
  for (int i = 1; i <= db_.Node_Total; ++i) {
    if (db_.Node_JuncCount[i] == 0) continue;
    for (int j = 1; j <= db_.Node_JuncCount[i]; ++j) {
      db_.Root_TempInit(j, i) = db_.Root_Temp(j, i) =
          static_cast<float>(0.6 * db_.Root_TempInit(j, i) + 0.4 * db_.Root_Temp(j, i));
    }
    const float T = db_.Node_DBT[i];
    const float before = db_.Node_TempInit[i];
    if (order_.Node_Inflow[At(i)] >= least_inflow) {
      max_change = std::max(max_change, std::abs(T - before));
    }
    db_.Node_TempInit[i] = db_.Node_DBT[i] = static_cast<float>(0.4 * T + 0.6 * before);
  }
  faults.check("the end of the sweep");
  return max_change;
}

}  // namespace

Annual_Sweep Calc_Annual_Temp(Database& db, Dialogue& dialogue, Panel& panel) {
  Annual_Sweep result;
  db.Flag_Annual = 0;
  try {
    result = Sweep(db, panel).run();
    if (result.ok()) {
      db.Flag_Annual = 1;
      db.Flag_Season = 0;
    } else {
      dialogue.show(messages::Calculation_Error("Aunual Temp. Calc.Iteration#(> 1000)"));
    }
  } catch (const Run_Time_Error& error) {
    result.fault = error.what();
    dialogue.show(messages::Calculation_Error("Annual Temp."));
  }
  return result;
}

}  // namespace branok
