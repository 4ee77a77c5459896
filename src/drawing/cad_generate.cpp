// The positions of a new drawing, and how they come to the unit square.
#include <algorithm>
#include <cmath>

#include "core/messages.h"
#include "drawing/cad_drawing.h"

namespace branok {

namespace {

// What a position, or a drawing's extent, is below.
constexpr double beyond = 1e10;

void Set_Positions(Database& db, Cad_Source source) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    db.Node_Used[i] = db.Node_JuncCount[i] > 0 ? 1 : 0;
    if (db.Node_Used[i] == 0) continue;
    if (source == Cad_Source::graphic) {
      db.Node_CadX[i] = db.Node_GraphX[i];
      db.Node_CadY[i] = db.Node_GraphY[i];
    } else {
      db.Node_CadX[i] = static_cast<float>(db.Node_EW[i]);
      db.Node_CadY[i] = static_cast<float>(db.Node_SN[i]);
    }
  }
}

void Empty(Cad& cad) {
  cad.Lists.clear();
  cad.Dirs.clear();
  cad.View = {};
  cad.Selected = {};
  cad.Cad_InputNode = 0;
}

}  // namespace

bool Is_Position(Point at) { return std::abs(at.x) < beyond && std::abs(at.y) < beyond; }

bool Is_Placed(const Database& db, const Cad& cad, int node) {
  if (node == cad.Cad_MoveNode) return false;
  return db.Flag_Cad != 0 || node <= cad.Cad_InputNode;
}

bool Cad_Generate(Database& db, Cad& cad, Cad_Source source, Dialogue& dialogue,
                  const std::function<void()>& keep_old) {
  if (db.Flag_Cad != 0) {
    if (dialogue.show(messages::Ask_Clear_Cad()) != Answer::yes) return false;
    keep_old();
  }
  // The marks come first: a number outside its table ends the command before a position is lost.
  Derive_Marks(db);
  Empty(cad);
  Set_Positions(db, source);
  db.Flag_Cad = flag_true;
  dialogue.show(messages::Cad_Generated());
  return true;
}

void Cad_Normalize(Database& db) {
  constexpr double filled = 0.8;       // of the unit square
  constexpr double least_span = 1e-5;  // all nodes may lie at one spot
  Point low{beyond, beyond};
  Point high{-beyond, -beyond};
  for (int i = 1; i <= db.Node_Total; ++i) {
    const Point at{db.Node_CadX[i], db.Node_CadY[i]};
    if (db.Node_JuncCount[i] <= 0 || !Is_Position(at)) continue;
    low = {std::min(low.x, at.x), std::min(low.y, at.y)};
    high = {std::max(high.x, at.x), std::max(high.y, at.y)};
  }
  const double w = std::max(high.x - low.x + least_span, high.y - low.y + least_span);
  const Point centre = 0.5 * (low + high);
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] <= 0) continue;
    const Point at{db.Node_CadX[i], db.Node_CadY[i]};
    const Point from_centre = Is_Position(at) ? at - centre : Point{};
    db.Node_CadX[i] = static_cast<float>(from_centre.x * filled / w + 0.5);
    db.Node_CadY[i] = static_cast<float>(from_centre.y * filled / w + 0.5);
  }
}

}  // namespace branok
