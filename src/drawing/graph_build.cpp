// The lists of the Graphic picture.
#include <algorithm>
#include <cmath>

#include "airflow/flow_run.h"
#include "core/pictures.h"
#include "drawing/graphic.h"
#include "drawing/paint.h"
#include "drawing/trap.h"

namespace branok {

namespace {

constexpr Picture grid_number("#####0");

Drawing Drawing_Of(const Database& db, Graphic& g) {
  return {.db = db,
          .X = db.Node_GraphX,
          .Y = db.Node_GraphY,
          .S = g.Mark_Size,
          .colors = db.Graph_Color,
          .lists = g.Graph,
          .directions = &g.Root};
}

// Beside the line's first end, along the line.
void Grid_Number(const Drawing& d, const Graphic& g, int row) {
  const Grid_Segment& s = g.Grid_Row[row];
  const double span = double{s.X1} - s.X2;
  const double angle = std::atan(-(double{s.Y1} - s.Y2) / (span == 0 ? 1.0E-6 : span));
  const Point at = 0.9 * Point{s.X1, s.Y1} + 0.1 * Point{s.X2, s.Y2};
  // Every line is numbered by the E-W positions and the S-N centre, whichever axis it belongs to.
  const double value = Int(g.Grid_EW[row] + double{g.Centre_SN});
  d.text(at, color::marking, 0.5 * d.S, d.S, angle, grid_number(static_cast<std::int64_t>(value)));
}

void Build_Grid(const Drawing& d, const Graphic& g) {
  const auto segment = [&](int row, int color) {
    const Grid_Segment& s = g.Grid_Row[row];
    d.polyline({{s.X1, s.Y1}, {s.X2, s.Y2}}, color);
  };
  for (int row = 1; row <= g.Grid_Count; ++row) {
    segment(row, color::grid);
    if (d.S > 0) Grid_Number(d, g, row);
  }
  for (int k = 1; k <= g.Arrow_Count; ++k) segment(g.Grid_Count + k, color::number);
}

bool Is_Shown(const Database& db, const Graphic& g, int node) {
  return db.Node_Used[node] != 0 && db.Node_JuncCount[node] > 0 && In_Band(db, g, node);
}

// A junction is labelled on its upward airways only.
bool Has_Label(const Database& db, int node, int slot, const Airway_Vector& v, double unit) {
  if (!Has_Label_Room(db, node, slot) || v.len <= 4 * unit) return false;
  return db.Node_JuncCount[node] <= 1 || v.dy < 0 || (v.dy == 0 && v.dx < 0);
}

std::string Label_Text(const Database& db, Node_Info what, int node) {
  switch (what) {
    case Node_Info::level:
      return std::to_string(db.Node_Elev[node]);
    case Node_Info::sn:
      return std::to_string(db.Node_SN[node]);
    case Node_Info::ew:
      return std::to_string(db.Node_EW[node]);
    default:
      return {};
  }
}

void Add_Label(const Drawing& d, const Graphic& g, int node, const Airway_Vector& v) {
  constexpr double steep = 0.005;
  const double a = std::abs(v.dx) >= steep ? Round(16 * std::atan(-v.dy / v.dx)) / 16
                                           : Sign(-v.dy) * drawing_pi / 2;
  const double base = g.Mark_Base;
  const Point shift{-0.75 * std::sin(a) * base, -1.25 * std::cos(a) * base};
  d.info(0.75 * v.a + 0.25 * v.b + shift, 0.5 * base, base, a,
         Label_Text(d.db, g.Graph_NodeInfo, node));
}

}  // namespace

bool In_Band(const Database& db, const Graphic& g, int node) {
  const int level = db.Node_Elev[node];
  return Sign(level - g.Band_Low) * Sign(level - g.Band_High) <= 0;
}

void Set_Mark_Size(const Database& db, Graphic& g) {
  g.Mark_Base = static_cast<float>(std::min(0.015, (1.0 / (db.Node_Total + 16) + 0.0033) * 0.75));
  g.Mark_Size = g.Mark_Base * static_cast<float>(g.Mark_Attach);
}

std::string Graph_Build(Database& db, Graphic& g) {
  g.Graph.clear();
  g.Root.clear();
  return Trap([&] {
    g.Mark_Size = g.Mark_Base * static_cast<float>(g.Mark_Attach);
    const Drawing d = Drawing_Of(db, g);
    Build_Grid(d, g);
    if (db.Flag_Results != 0) Set_Flow_Sign(db);
    for (int i = 1; i <= db.Node_Total; ++i) {
      if (!Is_Shown(db, g, i)) continue;
      if (g.Mark_Attach == 1) Build_Node(d, i);
      for (int k = 1; k <= db.Node_UpCount[i]; ++k) Build_Airway(d, i, db.Node_UpSlot(k, i));
    }
    if (g.Graph_NodeInfo != Node_Info::none) Graph_Info(db, g);
  });
}

void Graph_Info(const Database& db, Graphic& g) {
  g.Graph.Info.clear();
  if (g.Graph_NodeInfo == Node_Info::none) return;
  const Drawing d = Drawing_Of(db, g);
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (!Is_Shown(db, g, i) || db.Node_UpCount[i] == 0) continue;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      const Airway_Vector v = Vector_Of(d, i, db.Node_Junc(j, i));
      if (Has_Label(db, i, j, v, g.Mark_Size)) Add_Label(d, g, i, v);
    }
  }
}

void Graph_Paint(const Database& db, const Graphic& g, Surface& surface) {
  Graph_Print(db, g, surface, 1);
}

void Graph_Print(const Database& db, const Graphic& g, Surface& surface, double factor) {
  Paint_Lists(g.Graph, surface, factor);
  if (g.Graph_NodeInfo == Node_Info::none) return;
  Paint_Info(g.Graph, surface, db.Graph_Color[color::marking], factor);
}

void Graph_Info_Paint(const Database& db, const Graphic& g, Surface& surface,
                      std::string_view word) {
  const int pen = word == "draw" ? color::marking : color::back;
  Paint_Info(g.Graph, surface, db.Graph_Color[pen]);
}

void Graph_SetView(const Database& db, Graphic& g, double side) {
  Set_View(g.View, side);
  Set_Mark_Size(db, g);
}

Pick_Ground Ground_Of(const Database& db, const Graphic& g) {
  return {.db = db,
          .X = db.Node_GraphX,
          .Y = db.Node_GraphY,
          .directions = g.Root,
          .S = g.Mark_Size,
          .bare = true};
}

}  // namespace branok
