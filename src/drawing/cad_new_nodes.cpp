// Where nodes come to lie that the network got after its drawing was made.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "drawing/cad_drawing.h"

namespace branok {

namespace {

bool Has_Position(const Database& db, int node) {
  const Point at{db.Node_CadX[node], db.Node_CadY[node]};
  return at != Point{} && Is_Position(at);
}

double Distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

// The drawing as it is, and the nodes that find a place in it one by one.
class New_Nodes {
 public:
  New_Nodes(Database& db, const Node_Table<std::int16_t>& before, int last);
  void place_all();

 private:
  [[nodiscard]] Point place(int node) const { return {db_.Node_CadX[node], db_.Node_CadY[node]}; }
  [[nodiscard]] bool keeps_place(int node) const;
  void measure();
  [[nodiscard]] std::vector<int> placed_neighbours(int node) const;
  [[nodiscard]] double room_at(Point at) const;
  [[nodiscard]] Point free_place(Point wanted, bool itself) const;
  void put(int node, const std::vector<int>& neighbours);

  Database& db_;
  std::vector<int> placed_, waiting_;
  Point low_{node_low, node_low}, high_{node_high, node_high};  // where nodes may lie
  double step_ = 0;  // to a neighbour, so that the airway shows
};

New_Nodes::New_Nodes(Database& db, const Node_Table<std::int16_t>& before, int last) : db_(db) {
  for (int i = 1; i <= std::min<int>(db.Node_Total, last); ++i) {
    if (db.Node_JuncCount[i] <= 0) continue;
    const bool stays = before[i] > 0 || keeps_place(i);
    if (stays && !Is_Position(place(i))) continue;  // nothing is near what lies nowhere
    (stays ? placed_ : waiting_).push_back(i);
  }
  measure();
}

// A node that was away for a while returns to where it lay, if that is a place of its own within
// the drawing.
bool New_Nodes::keeps_place(int node) const {
  const Point at = place(node);
  if (!Has_Position(db_, node) || at.x < 0 || at.y < 0 || at.x > 1 || at.y > 1) return false;
  for (int i = 1; i <= db_.Node_Total; ++i) {
    if (i != node && place(i) == at) return false;
  }
  return true;
}

// Positions may still be metres: then the drawing's own extent is the measure.
void New_Nodes::measure() {
  constexpr double steps = 6;  // marks from node to node
  step_ = steps * Mark_Base_Of(db_);
  constexpr double infinite = std::numeric_limits<double>::infinity();
  Point low{infinite, infinite};
  Point high{-infinite, -infinite};
  for (const int i : placed_) {
    const Point at = place(i);
    low = {std::min(low.x, at.x), std::min(low.y, at.y)};
    high = {std::max(high.x, at.x), std::max(high.y, at.y)};
  }
  if (placed_.empty() || (low.x >= 0 && low.y >= 0 && high.x <= 1 && high.y <= 1)) return;
  const double extent = std::max({high.x - low.x, high.y - low.y, 1e-5});
  step_ *= extent;
  const Point margin{0.1 * extent, 0.1 * extent};
  low_ = low - margin;
  high_ = high + margin;
}

std::vector<int> New_Nodes::placed_neighbours(int node) const {
  std::vector<int> found;
  for (int j = 1; j <= db_.Node_JuncCount[node]; ++j) {
    const int far = db_.Node_Junc(j, node);
    if (std::find(placed_.begin(), placed_.end(), far) != placed_.end()) found.push_back(far);
  }
  return found;
}

double New_Nodes::room_at(Point at) const {
  double room = std::numeric_limits<double>::infinity();
  for (const int i : placed_) room = std::min(room, Distance(place(i), at));
  return room;
}

// The wanted place itself, or the roomiest on the nearest ring round it that has room.
Point New_Nodes::free_place(Point wanted, bool itself) const {
  constexpr int rings = 8;
  constexpr int directions = 16;
  constexpr double enough = 0.9;  // of a step
  Point best = wanted;
  double most = itself ? room_at(wanted) : 0;
  for (int ring = 1; ring <= rings && most < enough * step_; ++ring) {
    for (int k = 0; k < directions; ++k) {
      const double angle = 2 * std::numbers::pi * k / directions;
      const Point at = wanted + ring * step_ * Point{std::cos(angle), std::sin(angle)};
      if (at.x < low_.x || at.y < low_.y || at.x > high_.x || at.y > high_.y) continue;
      const double room = room_at(at);
      if (room <= most) continue;
      best = at;
      most = room;
    }
  }
  return best;
}

void New_Nodes::put(int node, const std::vector<int>& neighbours) {
  Point sum;
  for (const int i : neighbours) sum = sum + place(i);
  const auto count = static_cast<double>(neighbours.size());
  const Point wanted = neighbours.empty() ? 0.5 * (low_ + high_) : 1 / count * sum;
  const Point at = free_place(wanted, neighbours.size() != 1);
  db_.Node_CadX[node] = To_Single(at.x);
  db_.Node_CadY[node] = To_Single(at.y);
  placed_.push_back(node);
}

// Those with neighbours in the drawing first: a new road grows from where it is tied to the mine.
void New_Nodes::place_all() {
  while (!waiting_.empty()) {
    auto next = waiting_.begin();
    std::vector<int> neighbours;
    for (auto it = waiting_.begin(); it != waiting_.end() && neighbours.empty(); ++it) {
      neighbours = placed_neighbours(*it);
      if (!neighbours.empty()) next = it;
    }
    put(*next, neighbours);
    waiting_.erase(next);
  }
}

}  // namespace

void Cad_Place_New_Nodes(Database& db, const Node_Table<std::int16_t>& before, int last) {
  New_Nodes(db, before, last).place_all();
}

}  // namespace branok
