#include "drawing/picking.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/pictures.h"
#include "core/text.h"
#include "drawing/marks.h"

namespace branok {

namespace {

constexpr Picture flow_picture("####0.0");
constexpr Picture temperature_picture("##0.0");

// How far the point, (px, py) from the airway's node, lies from the airway; -1 when it is not
// beside it.
double Distance(double dx, double dy, double len, double px, double py, double S) {
  if (std::sqrt(px * px + py * py) - len + S > 0) return -1;
  if (Sign(dx) * Sign(px) + Sign(dy) * Sign(py) < 0) return -1;
  if (std::abs(dx * px) > S * S) return std::abs(dy / dx * px - py);
  if (std::abs(dy * py) > S * S) return std::abs(dx / dy * py - px);
  return -1;
}

std::string Node_Kind(const Database& db, int node) {
  switch (db.Node_Type[node]) {
    case node_class::inlet:
      return " (intake)";
    case node_class::surface_fan:
      return " (surface fan)";
    case node_class::underground_fan:
      return " (underground fan)";
    default:
      return {};
  }
}

std::string Comment(const std::string& text) {
  const std::string_view words = Trim(text);
  return words.empty() ? std::string() : "  " + To_Utf8(words);
}

std::string Degrees(float temperature) {
  return ", " + temperature_picture(temperature).text() + " \u00B0C";
}

std::string Node_Text(const Database& db, int node) {
  std::string text = "Node " + std::to_string(node) + Node_Kind(db, node);
  if (db.Flag_Results != 0) text += Degrees(db.Node_DBT[node]);
  return text + Comment(db.Node_Comm[node]);
}

// The airway in the direction in which its air flows.
std::string Airway_Text(const Database& db, const Pick& pick) {
  const int far = db.Node_Junc(pick.slot, pick.node);
  const bool results = db.Flag_Results != 0;
  const float flow = db.Root_Flow(pick.slot, pick.node);
  const bool back = results && flow < 0;
  std::string text = "Airway " + std::to_string(back ? far : pick.node) + " -> " +
                     std::to_string(back ? pick.node : far);
  if (db.Root_Switch(pick.slot, pick.node) == 1) text += " (closed)";
  if (results) {
    text += ", " + flow_picture(std::abs(60.0 * flow)).text() + " m\u00B3/min" +
            Degrees(db.Root_Temp(pick.slot, pick.node));
  }
  return text + Comment(db.Root_Comm(pick.slot, pick.node));
}

}  // namespace

int Pick_Node(const Pick_Ground& ground, Point at) {
  for (int i = 1; i <= std::min<int>(ground.db.Node_Total, ground.last); ++i) {
    if (!ground.bare && ground.db.Node_JuncCount[i] <= 0) continue;
    const double X = ground.X[i];
    const double Y = ground.Y[i];
    const double S = ground.S;
    if (X - S < at.x && at.x < X + S && Y - S < at.y && at.y < Y + S) return i;
  }
  return 0;
}

Pick Pick_Airway(const Pick_Ground& ground, Point at) {
  double best = 2 * ground.S;
  Pick nearest;
  for (int i = 1; i <= ground.db.Node_Total; ++i) {
    for (int k = 1; k <= ground.db.Node_UpCount[i]; ++k) {
      const int slot = ground.db.Node_UpSlot(k, i);
      const double e = Distance(ground.directions.DirX(slot, i), ground.directions.DirY(slot, i),
                                ground.directions.DirLen(slot, i), at.x - ground.X[i],
                                at.y - ground.Y[i], ground.S);
      if (e < 0 || e >= best) continue;
      best = e;
      nearest = {i, slot};
    }
  }
  return nearest;
}

Pick Pick_At(const Pick_Ground& ground, Point at) {
  if (const int node = Pick_Node(ground, at)) return {node, 0};
  return Pick_Airway(ground, at);
}

std::string Pick_Text(const Database& db, const Pick& pick) {
  if (pick.node == 0) return {};
  return pick.slot == 0 ? Node_Text(db, pick.node) : Airway_Text(db, pick);
}

}  // namespace branok
