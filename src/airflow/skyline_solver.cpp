#include "airflow/skyline_solver.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "airflow/branches.h"
#include "airflow/likely_causes.h"
#include "airflow/main_fans.h"
#include "airflow/skyline_matrix.h"
#include "core/faults.h"
#include "core/messages.h"

namespace branok {

namespace {

constexpr float divergence = 1e7F;    // m3/min
constexpr float least_head = 1e-10F;  // mmH2O: keeps the conductance of a branch at rest finite

constexpr Picture pass_picture("##0");
constexpr Picture seconds_picture("###0.0");
constexpr Picture press_picture("##0.0#");
constexpr Picture flow_picture("####0.0");
constexpr Picture imbalance_picture("0.00E-00");

// Which nodes the solution holds at a given pressure.
std::vector<int> Held_Nodes(const Database& db) {
  std::vector<int> held;
  for (int f = 1; f <= db.MFan_Total; ++f) held.push_back(db.MFan_Suction[f]);
  for (int k = 1; k <= db.Inlet_Total; ++k) held.push_back(db.Inlet_Node[k]);
  for (const int p : held) {
    if (p < 0 || p > max_nodes) Outside_Table(p, max_nodes);
  }
  return held;
}

// One solution of the network. Everything that a pass needs stands here side by side; the tables of
// the database are read at entry and written at the end.
class Solution {
 public:
  Solution(Database& db, Panel& panel);
  Flow_End iterate();
  void publish();
  [[nodiscard]] Flow_Result result(Flow_End end) const;

 private:
  void prepare_matrix();
  void pin_intakes();
  void branch_law();
  void balance();
  void display();
  void assemble();
  void correct();
  void remember();

  Database& db_;
  Panel& panel_;
  Float_Faults faults_;
  Branches branches_;
  Skyline_Matrix matrix_;
  Main_Fans fans_;
  std::vector<int> held_;
  std::vector<char> free_;        // by node: has a balance equation in the matrix
  std::vector<int> entry_;        // by branch: where -Root_G goes in Sky_A, -1 nowhere
  std::vector<double> press_;     // Node_Press
  std::vector<double> init_;      // Node_PressInit
  std::vector<double> head_now_;  // by branch: pressure difference and head, mmH2O
  std::vector<float> imbal_;      // Node_Imbal, m3/s
  // What the last whole pass left, for a run that ends in a fault.
  std::vector<double> kept_press_, kept_init_;
  std::vector<float> kept_flow_;
  Main_Fans kept_fans_;
  int pass_ = 0;
  float largest_ = 0;  // m3/min
  int max_node_ = 0;
  std::array<float, max_passes + 2> pass_imbalance_{};
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

Solution::Solution(Database& db, Panel& panel)
    : db_(db),
      panel_(panel),
      branches_(db),
      matrix_(Set_Skyline_Index(db)),
      fans_(db, branches_),
      held_(Held_Nodes(db)),
      kept_fans_(fans_) {
  const auto nodes = static_cast<std::size_t>(max_nodes) + 1;
  press_.assign(db.Node_Press.cells().begin(), db.Node_Press.cells().end());
  init_.assign(db.Node_PressInit.cells().begin(), db.Node_PressInit.cells().end());
  imbal_.resize(nodes);
  head_now_.resize(branches_.far.size());
  for (std::size_t b = 0; b < branches_.far.size(); ++b) {
    branches_.flow[b] = db.Root_Flow(branches_.slot[b], branches_.node[b]);
  }
  remember();
  Set_Natural_Heads(db, branches_);
  Add_Assist_Fans(db, branches_);
  prepare_matrix();
  faults_.check("the densities and resistances");
}

// Which entries of the matrix are written in every pass, and which stay zero because they belong to
// a held node. An entry of the last row in a held node's column is not cleared: that node then gets
// a correction, which pin_intakes and the fans overwrite in the next pass.
void Solution::prepare_matrix() {
  const int last = matrix_.order();
  free_.assign(static_cast<std::size_t>(max_nodes) + 1, 0);
  for (int i = 1; i <= last; ++i) free_[static_cast<std::size_t>(i)] = db_.Node_JuncCount[i] >= 2;
  std::vector<char> is_held(free_.size(), 0);
  for (const int p : held_) {
    is_held[static_cast<std::size_t>(p)] = 1;
    free_[static_cast<std::size_t>(p)] = 0;
  }
  entry_.assign(branches_.far.size(), -1);
  for (std::size_t b = 0; b < branches_.far.size(); ++b) {
    const int i = branches_.node[b];
    const int m = branches_.far[b];
    if (m >= i || !free_[static_cast<std::size_t>(i)]) continue;
    if (is_held[static_cast<std::size_t>(m)] && i != last) continue;
    entry_[b] = matrix_.position(i, m);
    matrix_.use(i, m);
  }
}

void Solution::pin_intakes() {
  for (int k = 1; k <= db_.Inlet_Total; ++k) {
    const auto node = static_cast<std::size_t>(db_.Inlet_Node[k]);
    press_[node] = init_[node] = 0;
  }
}

// The square law of every branch: its flow and its conductance. A branch at rest keeps a finite
// conductance and carries no flow.
void Solution::branch_law() {
  const std::size_t count = branches_.far.size();
  for (std::size_t b = 0; b < count; ++b) {
    head_now_[b] = press_[static_cast<std::size_t>(branches_.node[b])] -
                   press_[static_cast<std::size_t>(branches_.far[b])] + branches_.head[b];
  }
  const double* const h = head_now_.data();
  const float* const r = branches_.r.data();
  float* const g = branches_.g.data();
  float* const flow = branches_.flow.data();
  for (std::size_t b = 0; b < count; ++b) {
    const double a = std::max(std::abs(h[b]), double{least_head});
    const double q = std::sqrt(a / r[b]);
    g[b] = static_cast<float>(q / a);
    flow[b] = static_cast<float>(h[b] == 0 ? 0 : std::copysign(q, h[b]));
  }
}

// The flows leaving each free node; the largest imbalance and the lowest node that has it.
void Solution::balance() {
  for (int i = 1; i <= branches_.nodes; ++i) {
    const auto node = static_cast<std::size_t>(i);
    const int begin = branches_.first[node];
    const int end = branches_.first[node + 1];
    double sum = 0;
    if (end - begin > 1) {
      for (int b = begin; b < end; ++b) sum += branches_.flow[static_cast<std::size_t>(b)];
    }
    imbal_[node] = static_cast<float>(sum);
  }
  for (const int p : held_) imbal_[static_cast<std::size_t>(p)] = 0;

  largest_ = 0;
  for (int i = 1; i <= branches_.nodes; ++i) {
    const auto e = static_cast<float>(60 * std::abs(double{imbal_[static_cast<std::size_t>(i)]}));
    if (e > largest_) {
      largest_ = e;
      max_node_ = i;
    }
  }
}

// What the engineer watches while it runs.
void Solution::display() {
  pass_imbalance_[static_cast<std::size_t>(pass_)] = largest_;
  db_.Iter_Error[pass_] = largest_;
  std::array<float, max_main_fans + 1> press{};
  std::array<float, max_main_fans + 1> flow{};
  for (int f = 1; f <= db_.MFan_Total; ++f) {
    const auto fan = static_cast<std::size_t>(f);
    press[fan] = static_cast<float>(-fans_.press[fan]);
    flow[fan] = 60 * fans_.flow[fan];
  }
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start_;
  panel_.lblDisp[1].set(pass_, pass_picture);
  panel_.lblDisp[2].set(elapsed.count(), seconds_picture);
  panel_.lblDisp[3].set_lines(press.data() + 1, db_.MFan_Total, press_picture);
  panel_.lblDisp[4].set_lines(flow.data() + 1, db_.MFan_Total, flow_picture);
  panel_.lblDisp[5].set(largest_, imbalance_picture);
  panel_.lblDisp[6].set(max_node_, pass_picture);
  const double part = largest_ != 0 ? std::min(1.0, double{db_.Para_FlowTol} / largest_) : 0.0;
  panel_.pgbPercent[0] = static_cast<int>(100 * std::sqrt(std::sqrt(std::max(part, 0.0))));
  panel_.pass_ended({pass_, largest_, max_node_});
  panel_.refresh();
}

// Rows of the free nodes: the conductances of their branches, off the diagonal negated. All other
// rows stay the unit rows that they were made as.
void Solution::assemble() {
  float* const a = matrix_.Sky_A();
  float* const diag = matrix_.Sky_Diag();
  float* const rhs = matrix_.Sky_Rhs();
  for (int i = 1; i <= branches_.nodes; ++i) {
    const auto node = static_cast<std::size_t>(i);
    if (!free_[node]) continue;
    double sum = 0;
    for (auto b = static_cast<std::size_t>(branches_.first[node]);
         b < static_cast<std::size_t>(branches_.first[node + 1]); ++b) {
      sum += branches_.g[b];
      if (entry_[b] >= 0) a[entry_[b]] = -branches_.g[b];
    }
    diag[i] = static_cast<float>(sum);
    rhs[i] = -imbal_[node];
  }
}

void Solution::correct() {
  const float* const x = matrix_.Sky_X();
  const double accel = db_.Para_Accel;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(branches_.nodes); ++i) {
    press_[i] = init_[i] + accel * x[i];
    init_[i] = press_[i];
  }
}

void Solution::remember() {
  kept_press_ = press_;
  kept_init_ = init_;
  kept_flow_ = branches_.flow;
  kept_fans_ = fans_;
}

Flow_End Solution::iterate() {
  for (;;) {
    pin_intakes();
    fans_.update(branches_, press_, init_, pass_ == 0, db_.Iter_No);
    ++pass_;
    db_.Iter_No = static_cast<std::int16_t>(pass_);
    branch_law();
    balance();
    faults_.check("the flows");
    remember();
    display();
    if (pass_ > max_passes) return Flow_End::too_many_passes;
    if (largest_ > divergence) return Flow_End::diverged;
    if (largest_ < db_.Para_FlowTol) return Flow_End::converged;
    assemble();
    matrix_.factor_and_solve();
    correct();
    faults_.check("the corrections of the pressures");
  }
}

void Solution::publish() {
  for (std::size_t i = 0; i < kept_press_.size(); ++i) {
    db_.Node_Press[static_cast<int>(i)] = kept_press_[i];
    db_.Node_PressInit[static_cast<int>(i)] = kept_init_[i];
  }
  for (std::size_t b = 0; b < kept_flow_.size(); ++b) {
    db_.Root_Flow(branches_.slot[b], branches_.node[b]) = kept_flow_[b];
  }
  for (int f = 1; f <= db_.MFan_Total; ++f) {
    db_.MFan_Press[f] = kept_fans_.press[static_cast<std::size_t>(f)];
    db_.MFan_Flow[f] = kept_fans_.flow[static_cast<std::size_t>(f)];
  }
}

Flow_Result Solution::result(Flow_End end) const {
  Flow_Result result;
  result.end = end;
  result.passes = pass_;
  result.imbalance = largest_;
  result.node = max_node_;
  result.fans = db_.MFan_Total;
  result.fan_press = kept_fans_.press;
  result.fan_flow = kept_fans_.flow;
  result.pass_imbalance = pass_imbalance_;
  return result;
}

// Makes the solution and runs it; a fault before the first pass leaves pressures and flows as they
// were.
Flow_Result Solve(Database& db, Panel& panel) {
  Solution solution(db, panel);
  try {
    const Flow_End end = solution.iterate();
    solution.publish();
    return solution.result(end);
  } catch (const Run_Time_Error& error) {
    solution.publish();
    Flow_Result result = solution.result(Flow_End::fault);
    result.fault = error.what();
    return result;
  }
}

Message Message_Of(Flow_End end) {
  switch (end) {
    case Flow_End::too_many_passes:
      return messages::Too_Many_Passes();
    case Flow_End::diverged:
      return messages::Divergence();
    case Flow_End::converged:
    case Flow_End::fault:
      break;
  }
  return messages::Calculation_Error("Nodal Pressure");
}

}  // namespace

Flow_Result Calc_Press_Flow(Database& db, Dialogue& dialogue, Panel& panel) {
  Flow_Result result;
  try {
    if (Set_Skyline_Index(db).profile >= memory_message_profile) {
      dialogue.show(messages::Memory_Over());
    }
    result = Solve(db, panel);
  } catch (const Run_Time_Error& error) {
    result.fault = error.what();
  }
  if (result.ok()) {
    if (result.passes < 2) panel.mnuAnalysisComDiagram = false;
    return result;
  }
  result.likely_causes = Likely_Causes(db);
  for (const std::string& cause : result.likely_causes) dialogue.remark(cause);
  if (!result.fault.empty()) dialogue.remark(result.fault);
  dialogue.show(Message_Of(result.end));
  return result;
}

}  // namespace branok
