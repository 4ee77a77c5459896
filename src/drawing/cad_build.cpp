// The lists of the CAD picture.
#include <algorithm>
#include <cmath>

#include "airflow/flow_run.h"
#include "core/pictures.h"
#include "core/text.h"
#include "drawing/cad.h"
#include "drawing/cad_drawing.h"
#include "drawing/paint.h"
#include "drawing/trap.h"

namespace branok {

namespace {

constexpr Picture whole("0");
constexpr Picture tenths("0.#");

Drawing Drawing_Of(const Database& db, Cad& cad, std::string_view word = "draw") {
  Drawing d = Cad_Drawing(db, cad, db.Node_CadX, db.Node_CadY, cad.Lists);
  d.erase = word != "draw";
  if (!d.erase) d.directions = &cad.Dirs;
  return d;
}

bool Is_Shown(const Database& db, const Cad& cad, int node) {
  return db.Node_Used[node] != 0 && db.Node_JuncCount[node] > 0 && Is_Placed(db, cad, node);
}

// An underground fan points to its discharge node. As long as that one is not in the picture, not
// placed yet or deleted, there is nothing to point to.
bool Lacks_Discharge(const Database& db, const Cad& cad, int node) {
  if (db.Node_Type[node] != node_class::underground_fan) return false;
  for (int f = 1; f <= db.MFan_Total; ++f) {
    if (db.MFan_Suction[f] != node) continue;
    const int discharge = db.MFan_Discharge[f];
    return db.Node_JuncCount[discharge] <= 0 || !Is_Placed(db, cad, discharge);
  }
  return false;
}

// round(10 x value) / 10: "1.4", "10".
std::string Tenths(double value) {
  std::string text = tenths(Round(10 * value) * 0.1).text();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string Label_Text(const Database& db, Airway_Info what, int node, int slot) {
  switch (what) {
    case Airway_Info::resistance:
      return Tenths(db.Root_Resist(slot, node));
    case Airway_Info::flow:  // m3/min
      if (db.Flag_Results == 0) return "0";
      return whole(Round(60 * std::abs(double{db.Root_Flow(slot, node)}))).text();
    case Airway_Info::temperature:
      return Tenths(db.Root_Temp(slot, node));
    case Airway_Info::friction:  // factor x 1000
      return Tenths(1000 * double{db.Root_Fric(slot, node)});
    case Airway_Info::note:
      return To_Utf8(db.Root_Comm(slot, node));
    default:
      return {};
  }
}

// An airway is labelled once: seen from the end that its air comes from, or, when that is not
// known, from its lower end in the picture.
bool Has_Label(const Drawing& d, int node, int slot, const Airway_Vector& v) {
  if (!Has_Label_Room(d.db, node, slot) || v.len < 3 * d.S) return false;
  const int sign = d.db.Flag_Results != 0 ? d.db.Root_FlowSign(slot, node) : 0;
  if (sign != 0) return sign > 0;
  return v.dy < 0 || (v.dy == 0 && v.dx < 0);
}

void Add_Label(const Drawing& d, const Cad& cad, const Airway_Vector& v, std::string_view text) {
  const double a =
      v.dx != 0 ? Round(36 * std::atan(-v.dy / v.dx)) / 36 : Sign(-v.dy) * 0.5 * drawing_pi;
  const double base = cad.Cad_Mark_Base;
  const Point shift{-(0.9 * std::sin(a) - 0.2) * base, -(std::abs(std::cos(a)) + 0.15) * base};
  d.info(0.5 * (v.a + v.b) + shift, 0.5 * base, base, a, text);
}

}  // namespace

Drawing Cad_Drawing(const Database& db, const Cad& cad, const Node_Table<float>& X,
                    const Node_Table<float>& Y, Primitive_Lists& lists) {
  return {.db = db,
          .X = X,
          .Y = Y,
          .S = cad.Cad_Mark_Size,
          .trim = 1.05,  // line and circle do not touch
          .colors = db.Cad_Color,
          .lists = lists};
}

double Mark_Base_Of(const Database& db) {
  return std::min(0.025, 1.0 / (db.Node_Total + 16) + 0.0033);
}

void Set_Mark_Size(const Database& db, Cad& cad) {
  cad.Cad_Mark_Base = static_cast<float>(Mark_Base_Of(db));
  cad.Cad_Mark_Size = cad.Cad_Mark_Base * static_cast<float>(cad.Cad_Mark_Attach);
}

std::string Cad_Build(Database& db, Cad& cad) {
  cad.Lists.clear();
  cad.Dirs.clear();
  return Trap([&] {
    Set_Mark_Size(db, cad);
    Cad_Frame(db, cad);
    if (db.Flag_Results != 0) Set_Flow_Sign(db);
    for (int i = 1; i <= db.Node_Total; ++i) {
      if (!Is_Shown(db, cad, i)) continue;
      Cad_Node(db, cad, i, "draw");
      for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
        const int slot = db.Node_UpSlot(k, i);
        Cad_Airway(db, cad, i, db.Node_Junc(slot, i), slot, "draw");
      }
    }
    if (cad.Cad_Airway_Info != Airway_Info::none) Cad_Info_Build(db, cad);
  });
}

void Cad_Frame(const Database& db, Cad& cad) {
  const Drawing d = Drawing_Of(db, cad);
  for (int k = 0; k <= 10; ++k) {
    const double x = 0.04 + 0.092 * k;
    const double y = 0.05 + 0.09 * k;
    d.polyline({{x, 0.05}, {x, 0.95}}, color::grid);
    d.polyline({{0.04, y}, {0.96, y}}, color::grid);
  }
}

void Cad_Node(const Database& db, Cad& cad, int node, std::string_view word) {
  if (cad.Cad_Mark_Attach != 1) return;
  const auto build = Lacks_Discharge(db, cad, node) ? Build_Plain_Node : Build_Node;
  build(Drawing_Of(db, cad, word), node);
}

void Cad_Airway(const Database& db, Cad& cad, int node, int far, int slot, std::string_view word) {
  if (db.Node_Junc(slot, node) != far) return;
  if (!Is_Placed(db, cad, node) || !Is_Placed(db, cad, far)) return;
  Drawing d = Drawing_Of(db, cad, word);
  if (far < node) d.directions = nullptr;  // picking reads those of the lower-numbered end
  Build_Airway(d, node, slot);
}

void Cad_Info_Build(const Database& db, Cad& cad) {
  cad.Lists.Info.clear();
  if (cad.Cad_Airway_Info == Airway_Info::none) return;
  const Drawing d = Drawing_Of(db, cad);
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (!Is_Shown(db, cad, i)) continue;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      const int far = db.Node_Junc(j, i);
      if (!Is_Placed(db, cad, far)) continue;
      const Airway_Vector v = Vector_Of(d, i, far);
      if (Has_Label(d, i, j, v)) Add_Label(d, cad, v, Label_Text(db, cad.Cad_Airway_Info, i, j));
    }
  }
}

void Cad_Paint(const Database& db, const Cad& cad, Surface& surface) {
  Cad_Print(db, cad, surface, 1);
}

void Cad_Print(const Database& db, const Cad& cad, Surface& surface, double factor) {
  Paint_Lists(cad.Lists, surface, factor);
  if (cad.Cad_Airway_Info == Airway_Info::none) return;
  Paint_Info(cad.Lists, surface, db.Cad_Color[color::marking], factor);
}

void Cad_Info_Paint(const Database& db, const Cad& cad, Surface& surface, std::string_view word) {
  const int pen = word == "draw" ? color::marking : color::back;
  Paint_Info(cad.Lists, surface, db.Cad_Color[pen]);
}

void Cad_SetView(const Database& db, Cad& cad, double side) {
  Set_View(cad.View, side);
  Set_Mark_Size(db, cad);
}

std::string Cad_Zoom_Out(Database& db, Cad& cad, double side) {
  cad.View = {};
  Cad_SetView(db, cad, side);
  return Cad_Build(db, cad);
}

Pick_Ground Ground_Of(const Database& db, const Cad& cad) {
  return {.db = db,
          .X = db.Node_CadX,
          .Y = db.Node_CadY,
          .directions = cad.Dirs,
          .S = cad.Cad_Mark_Size,
          .last = db.Flag_Cad != 0 ? max_nodes : cad.Cad_InputNode};
}

}  // namespace branok
