// The order in which a temperature sweep visits the nodes: downstream, as the flow itself tells.
//
// A node is ready when all air that flows into it comes from nodes already computed. Nodes are
// looked at in ascending number, again and again, until none is left. Where air circulates no node
// of the loop is ever ready: then the sweep may leave out an inflow whose share of the node's air
// is small, and after every pass that got nowhere it allows 1 % more, until the loop opens. Such a
// node is computed once more when all of its inflows are known.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/database.h"
#include "core/panel.h"

namespace branok {

/// Air that flows into a node through one of its slots.
struct Inflow {
  int slot = 0;    ///< of the receiving node
  int from = 0;    ///< the supplying node
  int back = 0;    ///< the first slot of the supplying node that leads back; 0 when none does
  float flow = 0;  ///< Root_Flow of the slot, m3/s, negative
};

class Flow_Order {
 public:
  static constexpr int most_passes = 1000;

  /// Takes the inflows of all nodes from Root_Flow. Nodes without connections count as computed.
  /// Raises Run_Time_Error when a connection leads to a number outside 1..Node_Total.
  explicit Flow_Order(const Database& db);

  /// Nodes 1..Node_Total, as the next members; index 0 is unused.
  [[nodiscard]] std::span<const Inflow> inflows(int node) const;

  /// 1e-5 plus the magnitudes of all inflows to a node, m3/s; 0 for a node without connections.
  std::vector<float> Node_Inflow;

  /// 0 not computed, 1 computed, 2 computed without one small inflow, to be computed again.
  std::vector<std::int16_t> Node_State;

  /// Marks an intake: its air is known and is never computed. Raises Run_Time_Error when the number
  /// is outside 1..Node_Total.
  void set_intake(int node);

  /// Starts a pass; false when 1000 have been made.
  bool begin_pass();

  /// The next node of the pass that can be computed, 0 at its end. The node before counts as
  /// computed from here on.
  int next_ready();

  /// Ends a pass: the allowance widens or falls back. Whether another pass is due.
  bool another_pass();

  /// Whether this inflow of the node in hand is left out, because it is small and its air is not
  /// yet known. (An inflow of just the allowed share keeps its node waiting.)
  [[nodiscard]] bool left_out(const Inflow& inflow) const;

  /// Remembers a left-out inflow of the node in hand, as one line: the count of standstills, the
  /// node, `gap`, and the allowed share in `ratio`. Shows it in `label`, after the lines before it.
  void log_left_out(Label& label, std::string_view gap, const Picture& ratio);

  [[nodiscard]] int passes() const { return passes_; }
  [[nodiscard]] int left() const { return left_; }  ///< nodes that the last pass could not compute
  [[nodiscard]] float allowance() const { return Recirc_Ratio_; }  ///< 0 or below
  [[nodiscard]] const std::vector<std::string>& recirculation() const { return lines_; }

 private:
  void collect(const Database& db, int i);
  bool ready(int i);

  std::vector<Inflow> inflows_;  // of all nodes, one after the other
  std::vector<int> first_;       // where a node's inflows start; one more than there are nodes
  std::vector<int> pending_;     // connected nodes that are not computed for good, ascending
  std::size_t read_ = 0;         // next of pending_ to look at
  std::size_t kept_ = 0;         // how many of those seen stay pending
  int current_ = 0;              // the node in hand
  int ignored_ = 0;              // its small inflows
  int passes_ = 0;
  int left_ = 0;
  int left_before_ = 0;
  float Recirc_Ratio_ = 0;
  int Recirc_Count_ = 0;
  std::vector<std::string> lines_;
};

}  // namespace branok
