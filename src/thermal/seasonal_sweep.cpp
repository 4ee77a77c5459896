// The sweep of the seasonal run: the year's wave along the airways, and the traces for the diagram.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>

#include "core/faults.h"
#include "core/messages.h"
#include "thermal/flow_order.h"
#include "thermal/moist_air.h"
#include "thermal/rock.h"
#include "thermal/seasonal.h"

namespace branok {

namespace {

constexpr Picture whole("##0");
constexpr Picture one_decimal("##0.0");
constexpr Picture node_picture(" ##0");
constexpr Picture length_picture(" #####0");
constexpr Picture value_picture(" ##0.0#");
constexpr Picture ratio_picture("0.0#");

constexpr double two_pi = 2 * std::numbers::pi;
constexpr double year_frequency = 0.000717;  // radians per hour
constexpr double least_inflow = 0.1;         // m3/s, of a node that counts in the report
constexpr float least_age = 0.3F;            // years

std::size_t At(int i) { return static_cast<std::size_t>(i); }

double Phase(double m) { return two_pi * ((m - 4.05) / 12 + 1); }

// The wave in an airway: its attenuation and delay per unit of exposure to the rock.
struct Wave {
  double amplitude = 0;  // deg C, at the intake
  double A = 0;
  double D = 0;

  [[nodiscard]] double at(double m, double tau) const {
    return amplitude * std::exp(-A * tau) * std::sin(Phase(m) - D * tau);
  }
};

// From the Biot number B and the frequency number F of the airway.
Wave Wave_In(double amplitude, double B, double F) {
  const double Lb = std::max(std::log10(std::clamp(B, 0.0001, 10000.0)), 0.000001);
  return {.amplitude = amplitude,
          .A = (0.571 + 0.515 * std::pow(Lb, 0.2416)) *
               std::pow(F, 0.167 + 0.118 * std::pow(Lb, 0.2115)),
          .D = (0.122 + 0.388 * std::pow(Lb, 0.6476)) *
               std::pow(F, 0.111 + 0.247 * std::pow(Lb, 0.4255))};
}

// Sums over the inflows of the node in hand, by flow.
struct Sums {
  double Q = 1e-5;
  double L = 0;
  double Tau = 0;
  double dT = 0;
};

class Sweep {
 public:
  Sweep(Database& db, Panel& panel, int month)
      : db_(db), panel_(panel), month_(month), order_(db), Node_Tau(order_.Node_State.size()) {}

  Season_Sweep run();

 private:
  using Clock = std::chrono::steady_clock;

  void set_up();
  void compute(int i);
  void carry_wave(const Inflow& inflow, int i, Sums& sums, const Float_Faults& faults);
  void trace(int i, int u, double L_mid, const Wave& wave, double tau_end, float annual);
  void show_node(int i);
  void show_pass();
  [[nodiscard]] float largest_change() const;

  Float_Faults faults_;  // of the set-up
  Database& db_;
  Panel& panel_;
  int month_;
  Flow_Order order_;
  std::vector<float> Node_Tau;  // flow-weighted rock exposure of the air, dimensionless
  float rho0_ = 0;
  Clock::time_point start_;
};

void Sweep::set_up() {
  panel_.lblDisp[7].set("No Recirculate");
  Set_RockData(db_);
  start_ = Clock::now();
  rho0_ = Calc_Density(db_.Para_IntakeTemp, 0);
  for (int k = 1; k <= max_traces; ++k) {
    db_.Trace_Dist[k] = static_cast<std::int16_t>((k - 1) * 500);
  }
  for (int i = 1; i <= db_.Node_Total; ++i) db_.Node_TLeng[i] = 0;
  const float T_in = To_Single(Intake_Temperature(db_, month_));
  faults_.check("the intake's temperature");
  for (int k = 1; k <= db_.Inlet_Total; ++k) {
    const int n = db_.Inlet_Node[k];
    order_.set_intake(n);
    db_.Node_DBT[n] = T_in;
  }
  db_.Trace_Count = 0;
  faults_.check("the start of the sweep");
}

Season_Sweep Sweep::run() {
  set_up();
  Season_Sweep result;
  result.end = Season_End::too_many_passes;
  while (order_.begin_pass()) {
    while (const int i = order_.next_ready()) compute(i);
    show_pass();
    if (order_.another_pass()) continue;
    result.end = Season_End::complete;
    result.max_change = largest_change();
    break;
  }
  result.passes = order_.passes();
  result.recirculation = order_.recirculation();
  return result;
}

void Sweep::show_pass() {
  const int left = order_.left();
  if (db_.Node_Total == 0) throw Run_Time_Error("division by zero in a network without nodes");
  panel_.lblDisp[9].set(left, whole);
  panel_.pgbPercent[1] = 100 * (db_.Node_Total - left) / db_.Node_Total;
  panel_.refresh();
}

void Sweep::compute(int i) {
  // The two titles say the reverse: node and number of unknowns have changed places.
  panel_.lblDisp[11].set(i, node_picture);
  const Float_Faults faults;
  Sums sums;
  for (const Inflow& inflow : order_.inflows(i)) {
    if (order_.left_out(inflow)) {
      order_.log_left_out(panel_.lblDisp[7], "    ", ratio_picture);
    } else {
      carry_wave(inflow, i, sums, faults);
    }
  }
  const float length = To_Single(sums.L / sums.Q);
  const float tau = To_Single(sums.Tau / sums.Q);
  const float T = To_Single(sums.dT / sums.Q + db_.Node_TempInit[i]);
  faults.check("the wave at a node");
  db_.Node_TLeng[i] = length;
  Node_Tau[At(i)] = tau;
  db_.Node_DBT[i] = T;
  show_node(i);
}

// Nothing is stored that a fault has touched or that is no number.
void Sweep::carry_wave(const Inflow& inflow, int i, Sums& sums, const Float_Faults& faults) {
  const int j = inflow.slot;
  const int u = inflow.from;
  const double cond = db_.Root_RockCond(j, i);
  const double length = db_.Root_Length(j, i);
  const double area = db_.Root_Area(j, i);
  const double Qs = static_cast<float>(-double{inflow.flow} * db_.Root_Density(j, i) / rho0_);
  const double Q3600 = 3600 * Qs;
  const double tau_u = Node_Tau[At(u)];
  const double L_u = db_.Node_TLeng[u];
  const double tau_end = two_pi * cond * length / (Q3600 * db_.Root_Density(j, i) * 0.24) + tau_u;
  sums.Q += Qs;
  sums.L += (length + L_u) * Qs;
  sums.Tau += tau_end * Qs;

  const double r = std::sqrt(1.27 * area) / 2;
  // Without an area r is 0, so that the speed assumed then has no effect.
  const double alpha = Heat_Transfer(Air_Speed(Qs, area, 5.0), db_.Root_Kind(j, i));
  const Wave wave = Wave_In(db_.Para_TempDiff / 2.0, r * alpha / cond,
                            year_frequency * r * r / db_.Para_RockDiff);

  // From here on the density is that of the temperatures before this month.
  const float rho = Calc_Density(db_.Root_Temp(j, i), db_.Node_Elev[u]);
  const double tau_mid = two_pi * cond * 0.5 * length / (rho * 0.24 * Q3600) + tau_u;
  const float annual = db_.Root_TempInit(j, i);
  const float T_mid = To_Single(wave.at(month_, tau_mid) + annual);
  sums.dT += wave.at(month_, tau_end) * Qs;
  faults.check("the wave in an airway");

  Raise_Age(db_, j, i, least_age);
  db_.Root_Density(j, i) = rho;
  db_.Root_Temp(j, i) = T_mid;
  if (inflow.back != 0) db_.Root_Temp(inflow.back, u) = T_mid;
  trace(i, u, 0.5 * length + L_u, wave, tau_end, annual);
}

// Records for a year the first airway met whose middle lies beyond the next trace's distance.
void Sweep::trace(int i, int u, double L_mid, const Wave& wave, double tau_end, float annual) {
  const int k = db_.Trace_Count + 1;
  if (k > max_traces || !(L_mid > db_.Trace_Dist[k])) return;
  const double amplitude = wave.amplitude * std::exp(-wave.A * tau_end);
  const double delay = wave.D * tau_end;
  for (int s = 1; s <= trace_steps; ++s) {
    db_.Trace_Temp(s, k) =
        To_Single(amplitude * std::sin(Phase(month_ + 0.2 * s) - delay) + annual);
  }
  db_.Trace_Node1[k] = static_cast<std::int16_t>(i);
  db_.Trace_Node2[k] = static_cast<std::int16_t>(u);
  db_.Trace_Count = static_cast<std::int16_t>(k);
}

void Sweep::show_node(int i) {
  const std::chrono::duration<double> elapsed = Clock::now() - start_;
  panel_.lblDisp[8].set(elapsed.count(), one_decimal);
  panel_.lblDisp[12].set(db_.Node_TLeng[i], length_picture);
  panel_.lblDisp[13].set(db_.Node_DBT[i], value_picture);
  panel_.lblDisp[14].set(100 * db_.Node_Hum[i], value_picture);
  panel_.refresh();
}

float Sweep::largest_change() const {
  float largest = 0;
  for (int i = 1; i <= db_.Node_Total; ++i) {
    if (order_.Node_Inflow[At(i)] < least_inflow) continue;
    largest = std::max(largest, std::abs(db_.Node_DBT[i] - db_.Node_TempInit[i]));
  }
  return largest;
}

}  // namespace

double Intake_Temperature(const Database& db, double m) {
  return db.Para_IntakeTemp + db.Para_TempDiff / 2.0 * std::sin(Phase(m));
}

Season_Sweep Calc_Season_Temp(Database& db, Dialogue& dialogue, Panel& panel, int month) {
  Season_Sweep result;
  db.Flag_Season = 0;
  try {
    result = Sweep(db, panel, month).run();
    if (result.ok()) {
      db.Flag_Annual = 0;
      db.Flag_Season = 1;
    } else {
      dialogue.show(messages::Calculation_Error("Seasonal Temp. Calc.Iteration#(> 200)"));
    }
  } catch (const Run_Time_Error& error) {
    db.Flag_Season = 0;
    result.fault = error.what();
    dialogue.show(messages::Calculation_Error("Seasonal Temp. Var."));
  }
  return result;
}

}  // namespace branok
