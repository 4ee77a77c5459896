// Edits of the CAD picture: placing and moving nodes, the frame, and the one that reaches into the
// network: taking a node out of it.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "core/messages.h"
#include "drawing/cad.h"
#include "drawing/cad_drawing.h"

namespace branok {

namespace {

// --- Placing and moving

Point Within_Picture(Point at) {
  return {std::clamp(at.x, node_low, node_high), std::clamp(at.y, node_low, node_high)};
}

// A fan whose air leaves at its own node is a surface fan, whatever its node was marked as.
void Mark_Surface_Fan(Database& db, int node) {
  if (db.Node_Type[node] != node_class::underground_fan) return;
  for (int f = 1; f <= db.MFan_Total; ++f) {
    if (db.MFan_Suction[f] != node || db.MFan_Discharge[f] != node) continue;
    db.Node_Type[node] = node_class::surface_fan;
  }
}

// Hands each airway of the node to `enter`(node, far, slot) from its lower-numbered end, as the
// picture has it. An airway that only the higher-numbered end knows is in no picture.
template <class Enter>
void For_Each_Airway(const Database& db, int node, Enter enter) {
  for (int j = 1; j <= db.Node_JuncCount[node]; ++j) {
    const int far = db.Node_Junc(j, node);
    if (far > node) {
      enter(node, far, j);
    } else if (const int back = Find_Slot(db, far, node)) {
      enter(far, node, back);
    }
  }
}

// --- Deleting

// What moves with an airway into another slot. Shape and height are not among them: behind a
// removed airway they stay in their slots, and the airway that moves there takes them over. The
// switch is: another airway must not be closed by it.
constexpr std::array moving_numbers = {
    &Database::Root_Resist, &Database::Root_Area, &Database::Root_Peri, &Database::Root_Length,
    &Database::Root_Time,   &Database::Root_Heat, &Database::Root_Wet,  &Database::Root_Fric};
constexpr std::array moving_integers = {&Database::Root_Wind, &Database::Root_Kind,
                                        &Database::Root_Switch, &Database::Node_Junc};

void Move_Slot(Database& db, int node, int from, int to) {
  for (const auto table : moving_numbers) (db.*table)(to, node) = (db.*table)(from, node);
  for (const auto table : moving_integers) (db.*table)(to, node) = (db.*table)(from, node);
  db.Root_Comm(to, node) = db.Root_Comm(from, node);
  for (int p = 1; p <= max_pictures; ++p) db.Root_Pict(p, to, node) = db.Root_Pict(p, from, node);
}

void Clear_Slot(Database& db, int node, int slot) {
  for (const auto table : moving_numbers) (db.*table)(slot, node) = 0;
  for (const auto table : moving_integers) (db.*table)(slot, node) = 0;
  db.Root_Comm(slot, node) = blank_comment;
  for (int p = 1; p <= max_pictures; ++p) db.Root_Pict(p, slot, node).clear();
}

// The slots that lead to a higher-numbered node, by their order.
void Set_Up_Slots(Database& db, int node) {
  db.Node_UpCount[node] = 0;
  for (int j = 1; j <= db.Node_JuncCount[node]; ++j) {
    if (db.Node_Junc(j, node) <= node) continue;
    db.Node_UpSlot(++db.Node_UpCount[node], node) = static_cast<std::int16_t>(j);
  }
}

// The node loses its airway to `far`; the slots behind it move down.
void Remove_Airway(Database& db, int node, int far) {
  const int removed = Find_Slot(db, node, far);
  if (removed == 0) return;
  const int last = db.Node_JuncCount[node];
  for (int j = removed; j < last; ++j) Move_Slot(db, node, j + 1, j);
  db.Node_Junc(last, node) = 0;
  db.Root_Switch(last, node) = 0;
  db.Node_JuncCount[node] = static_cast<std::int16_t>(last - 1);
  if (last == 1) db.Node_Used[node] = 0;
  Set_Up_Slots(db, node);
}

void Clear_Deleted_Node(Database& db, int node) {
  db.Node_JuncCount[node] = db.Node_UpCount[node] = db.Node_Used[node] = db.Node_Elev[node] = 0;
  db.Node_SN[node] = db.Node_EW[node] = 0;
  db.Node_Comm[node].clear();
  for (int p = 1; p <= max_pictures; ++p) db.Node_Pict(p, node).clear();
}

// Numbers above the highest node with airways are free again.
void Lower_Total(Database& db) {
  int highest = db.Node_Total;
  while (highest > 0 && db.Node_JuncCount[highest] <= 0) --highest;
  if (highest < 2 || highest == db.Node_Total) return;
  db.Node_Total = db.Node_Max = static_cast<std::int16_t>(highest);
}

// --- Frame

// One coordinate with a space before it and one behind it.
float Framed(double position, double before, double behind) {
  const float moved = To_Single((before + position) / (1 + before));
  return To_Single(moved / (1 + behind));
}

}  // namespace

int Cad_Place_Node(Database& db, Cad& cad, Point at) {
  const int node = cad.Cad_InputNode + 1;
  if (node > db.Node_Total) return 0;
  cad.Cad_InputNode = node;
  const bool connected = db.Node_JuncCount[node] > 0;
  db.Node_Used[node] = connected ? 1 : 0;
  if (connected) {
    const Point place = Within_Picture(at);
    db.Node_CadX[node] = To_Single(place.x);
    db.Node_CadY[node] = To_Single(place.y);
    Mark_Surface_Fan(db, node);
    Cad_Node_Parts(db, cad, node, "draw");
  }
  if (node == db.Node_Total) {
    db.Flag_Cad = flag_true;
    if (const std::string fault = Cad_Build(db, cad); !fault.empty()) throw Run_Time_Error(fault);
  }
  return connected ? node : 0;
}

bool Turns_Other_Marks(const Database& db, int node) {
  for (int f = 1; f <= db.MFan_Total; ++f) {
    if (db.MFan_Discharge[f] == node) return true;
  }
  for (int j = 1; j <= db.Node_JuncCount[node]; ++j) {
    const int type = db.Node_Type[db.Node_Junc(j, node)];
    if (type == node_class::inlet || type == node_class::surface_fan) return true;
  }
  return false;
}

bool Cad_Complete(Database& db, const Cad& cad) {
  const bool all = db.Node_Total > 0 && cad.Cad_InputNode >= db.Node_Total;
  if (db.Flag_Cad != 0 || !all) return false;
  db.Flag_Cad = flag_true;
  return true;
}

void Cad_Node_Parts(const Database& db, Cad& cad, int node, std::string_view word) {
  Cad_Node(db, cad, node, word);
  For_Each_Airway(db, node,
                  [&](int from, int far, int slot) { Cad_Airway(db, cad, from, far, slot, word); });
}

Primitive_Lists Cad_Moved_Node(const Database& db, const Cad& cad, int node, Point at) {
  const Point place = Within_Picture(at);
  Node_Table<float> X = db.Node_CadX;
  Node_Table<float> Y = db.Node_CadY;
  X[node] = To_Single(place.x);
  Y[node] = To_Single(place.y);
  Primitive_Lists lists;
  const Drawing d = Cad_Drawing(db, cad, X, Y, lists);
  if (cad.Cad_Mark_Attach == 1) Build_Node(d, node);
  // The moved node itself is out of the picture; what counts is the node at the other end.
  For_Each_Airway(db, node, [&](int from, int far, int slot) {
    if (Is_Placed(db, cad, from == node ? far : from)) Build_Airway(d, from, slot);
  });
  return lists;
}

std::string Cad_Move_Node(Database& db, Cad& cad, int node, Point to) {
  const Point place = Within_Picture(to);
  db.Node_CadX[node] = To_Single(place.x);
  db.Node_CadY[node] = To_Single(place.y);
  return Cad_Build(db, cad);
}

int Ask_Deleted_Node(const Database& db, Dialogue& dialogue) {
  const auto text = dialogue.ask(messages::delete_node_prompt, messages::delete_node_title);
  if (!text) return 0;
  const std::optional<double> number = Number_In(*text);
  if (!number || *number < 1 || *number > db.Node_Total) return 0;
  const int node = To_Int16(*number);
  return dialogue.show(messages::Ask_Delete_Node(node)) == Answer::ok ? node : 0;
}

void Delete_Node(Database& db, int node) {
  if (node < 1) Outside_Table(node, max_nodes);
  if (node > db.Node_Total) return;
  const int count = db.Node_JuncCount[node];
  // A number outside its table ends the command before anything has changed.
  for (int j = 1; j <= count; ++j) Find_Slot(db, db.Node_Junc(j, node), node);
  db.Flag_Results = 0;
  for (int j = 1; j <= count; ++j) {
    const int far = db.Node_Junc(j, node);
    if (far != node) Remove_Airway(db, far, node);
    Clear_Slot(db, node, j);
  }
  Clear_Deleted_Node(db, node);
  Lower_Total(db);
  Refresh_Regulator_Classes(db);
}

void Edit_Frame(Database& db, const Frame_Space& percent) {
  // On copies: a position that is none leaves the whole drawing as it was.
  Node_Table<float> X = db.Node_CadX;
  Node_Table<float> Y = db.Node_CadY;
  for (int i = 1; i <= db.Node_Total; ++i) {
    X[i] = Framed(X[i], 0.01 * percent.left, 0.01 * percent.right);
    Y[i] = Framed(Y[i], 0.01 * percent.up, 0.01 * percent.down);
  }
  db.Node_CadX = X;
  db.Node_CadY = Y;
}

}  // namespace branok
