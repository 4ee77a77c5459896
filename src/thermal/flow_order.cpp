#include "thermal/flow_order.h"

#include <cmath>

namespace branok {

namespace {

constexpr Picture plain_number("0");

std::string Right_Aligned(int number) {
  std::string text = "   " + plain_number(number).text();
  return text.substr(text.size() - 3);
}

}  // namespace

Flow_Order::Flow_Order(const Database& db) : left_before_(db.Node_Total) {
  if (db.Node_Total < 0) Outside_Table(db.Node_Total, max_nodes);
  const std::size_t size = static_cast<std::size_t>(db.Node_Total) + 1;
  Node_Inflow.assign(size, 0);
  Node_State.assign(size, 1);
  first_.assign(size + 1, 0);
  inflows_.reserve(size * 2);
  pending_.reserve(size);
  for (int i = 1; i <= db.Node_Total; ++i) {
    first_[static_cast<std::size_t>(i)] = static_cast<int>(inflows_.size());
    if (db.Node_JuncCount[i] > 0) collect(db, i);
  }
  first_[size] = static_cast<int>(inflows_.size());
}

void Flow_Order::collect(const Database& db, int i) {
  const auto node = static_cast<std::size_t>(i);
  float sum = 1e-5F;
  for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
    const int u = db.Node_Junc(j, i);
    if (u < 1 || u > db.Node_Total) Outside_Table(u, db.Node_Total);
    const float flow = db.Root_Flow(j, i);
    if (!(flow < 0)) continue;
    sum = static_cast<float>(double{sum} - flow);
    inflows_.push_back({.slot = j, .from = u, .back = Find_Slot(db, u, i), .flow = flow});
  }
  Node_Inflow[node] = sum;
  Node_State[node] = 0;
  pending_.push_back(i);
}

std::span<const Inflow> Flow_Order::inflows(int node) const {
  const auto i = static_cast<std::size_t>(node);
  const auto first = static_cast<std::size_t>(first_[i]);
  return std::span(inflows_).subspan(first, static_cast<std::size_t>(first_[i + 1]) - first);
}

void Flow_Order::set_intake(int node) {
  const int last = static_cast<int>(Node_State.size()) - 1;
  if (node < 1 || node > last) Outside_Table(node, last);
  Node_State[static_cast<std::size_t>(node)] = 1;
}

bool Flow_Order::begin_pass() {
  if (passes_ == most_passes) return false;
  ++passes_;
  left_ = 0;
  read_ = kept_ = 0;
  current_ = 0;
  return true;
}

int Flow_Order::next_ready() {
  if (current_ != 0) {
    std::int16_t& state = Node_State[static_cast<std::size_t>(current_)];
    state = ignored_ == 1 ? 2 : 1;
    if (state == 2) pending_[kept_++] = current_;
    current_ = 0;
  }
  while (read_ < pending_.size()) {
    const int i = pending_[read_++];
    if (Node_State[static_cast<std::size_t>(i)] == 1) continue;
    if (ready(i)) return current_ = i;
    pending_[kept_++] = i;
    ++left_;
  }
  pending_.resize(kept_);
  return 0;
}

bool Flow_Order::ready(int i) {
  const auto node = static_cast<std::size_t>(i);
  const bool may_ignore = Node_State[node] == 0;
  const double all = Node_Inflow[node];
  ignored_ = 0;
  for (const Inflow& inflow : inflows(i)) {
    if (may_ignore && inflow.flow / all > double{Recirc_Ratio_}) {
      ++ignored_;
    } else if (Node_State[static_cast<std::size_t>(inflow.from)] == 0) {
      return false;
    }
  }
  return ignored_ <= 1;
}

bool Flow_Order::another_pass() {
  if (left_ == left_before_) {
    if (Recirc_Ratio_ == 0) ++Recirc_Count_;
    Recirc_Ratio_ = static_cast<float>(double{Recirc_Ratio_} - 0.01);
  } else {
    Recirc_Ratio_ = 0;
  }
  if (left_ > 0) {
    left_before_ = left_;
    return true;
  }
  // A loop was opened: once more, now that all is known.
  const bool again = Recirc_Count_ > 0;
  Recirc_Count_ = 0;
  return again;
}

// The node in hand is ready: what it still lacks is smaller than the allowed share.
bool Flow_Order::left_out(const Inflow& inflow) const {
  return Node_State[static_cast<std::size_t>(inflow.from)] == 0;
}

void Flow_Order::log_left_out(Label& label, std::string_view gap, const Picture& ratio) {
  std::string line = Right_Aligned(Recirc_Count_) + "   " + Right_Aligned(current_);
  line += gap;
  line += ratio(std::abs(Recirc_Ratio_)).view();
  line += '\n';
  if (lines_.empty()) {
    label.set(line);
  } else {
    label.append(line);
  }
  lines_.push_back(std::move(line));
}

}  // namespace branok
