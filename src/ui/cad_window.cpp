#include "ui/cad_window.h"

#include <algorithm>

#include "drawing/paint.h"
#include "drawing/trap.h"
#include "paint/painter_surface.h"
#include "ui/qt_text.h"

namespace branok {

MDICad::MDICad(Database& db, QWidget* parent) : Picture_Window(parent), db_(db) {
  setObjectName("MDICad");
  setWindowTitle("CAD Window");
}

void MDICad::load() {
  cad_ = Cad();
  start_anew();
  if (db_.Flag_Cad != 0) Cad_Normalize(db_);
  forget_steps();
  set_view(side());
  rebuild();
  view_changed();
}

void MDICad::data_changed() {
  if (Cad_Complete(db_, cad_)) {
    forget_steps();  // a step back would ask for nodes that are not there any more
    emit edited();
  }
  rebuild();
}

void MDICad::resume(int placed) {
  cad_.Cad_InputNode = std::min<int>(placed, db_.Node_Total);
  forget_steps();
  rebuild();
  show_cursor();
}

void MDICad::paint(Surface& surface, bool labels) const {
  if (labels) return Cad_Paint(db_, cad_, surface);
  Paint_Lists(cad_.Lists, surface);
}

void MDICad::paint_labels(Surface& surface, std::string_view word) const {
  Cad_Info_Paint(db_, cad_, surface, word);
}

QColor MDICad::back_color() const { return Color_Of(db_.Cad_Color[color::back]); }

void MDICad::zoom_out() {
  (void)Cad_Zoom_Out(db_, cad_, side());
  rebuild();
  view_changed();
}

void MDICad::attach_marks(bool on) {
  cad_.Cad_Mark_Attach = on ? 1 : 0;
  Set_Mark_Size(db_, cad_);
  rebuild();
}

void MDICad::show_info(Airway_Info info) {
  change_labels([&] {
    cad_.Cad_Airway_Info = info;
    Cad_Info_Build(db_, cad_);
  });
}

// --- A new drawing by mouse

bool MDICad::places_nodes() const {
  return db_.Flag_Cad == 0 && cad_.Cad_InputNode < db_.Node_Total;
}

QString MDICad::notice() const {
  if (!places_nodes()) return {};
  const int next = cad_.Cad_InputNode + 1;
  const QString total = QString::number(db_.Node_Total);
  if (mode() != "none") {  // whose clicks are for something else
    return "Press Escape to go on with node " + QString::number(next) + " of " + total;
  }
  if (db_.Node_JuncCount[next] == 0) {
    return "Node " + QString::number(next) + " has no airways: click once to pass it over";
  }
  return "Click where node " + QString::number(next) + " of " + total + " lies";
}

// Only what is new is painted, as long as the drawing grows and no mark of a node placed before
// turns with it.
void MDICad::place_node(Point at) {
  const List_Ends before = Ends_Of(cad_.Lists);
  bool turns = false;
  const std::string broken =
      Trap([&] { turns = Turns_Other_Marks(db_, Cad_Place_Node(db_, cad_, at)); });
  if (db_.Flag_Cad != 0 || turns || !broken.empty()) {
    rebuild();
  } else {
    paint_on_picture([&](Surface& surface) { Paint_New(cad_.Lists, before, surface); });
  }
  show_cursor();
  note_edit();  // after a fault too: the node counts as placed
  if (!broken.empty()) emit fault(To_Qt(broken));
}

// --- Moving a node: it leaves the picture and follows the pointer.

bool MDICad::press(Point at) {
  if (mode() == "none" && places_nodes()) {
    place_node(at);
    return false;
  }
  if (mode() != "move") return false;
  cad_.Cad_MoveNode = Pick_Node(ground(), at);
  if (cad_.Cad_MoveNode == 0) return false;
  rebuild();
  drag(at);
  return true;
}

void MDICad::drag(Point to) {
  moved_ = Cad_Moved_Node(db_, cad_, cad_.Cad_MoveNode, to);
  update_over();
}

void MDICad::release(Point at) {
  const int node = cad_.Cad_MoveNode;
  cancel_drag();
  (void)Cad_Move_Node(db_, cad_, node, at);
  note_edit();
}

void MDICad::cancel_drag() {
  cad_.Cad_MoveNode = 0;
  moved_.clear();
  rebuild();
}

// --- Undo

void MDICad::note_edit() {
  history_.note(db_, cad_);
  emit edited();
}

void MDICad::forget_steps() { history_.start(db_, cad_); }

void MDICad::undo() { move_in_history(&Cad_History::undo); }

void MDICad::redo() { move_in_history(&Cad_History::redo); }

void MDICad::move_in_history(void (Cad_History::*way)(Database&, Cad&)) {
  if (cad_.Cad_MoveNode != 0) return;
  (history_.*way)(db_, cad_);
  rebuild();
  show_cursor();
  emit edited();
}

void MDICad::paint_over(Surface& surface) const { Paint_Lists(moved_, surface); }

QCursor MDICad::own_cursor() const {
  if (mode() == "move") return Qt::SizeAllCursor;
  return places_nodes() ? Qt::CrossCursor : Qt::ArrowCursor;
}

}  // namespace branok
