// The CAD menu, and how a drawing comes to be.
#include <QAction>

#include "core/messages.h"
#include "files/cad_member.h"
#include "ui/cad_window.h"
#include "ui/color_dialog.h"
#include "ui/frame_dialog.h"
#include "ui/graphic_window.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"

namespace branok {

// Without a drawing the engineer chooses between a rough one and placing each node.
MDICad& BRANOK60::cad_window() {
  if (cad_ != nullptr) return *cad_;
  cad_ = new MDICad(project_.db, area_);
  connect_picture(*cad_, "mnuCADCom");
  connect(cad_, &MDICad::edited, this, [this] {
    drawing_edited_ = true;
    placed_nodes_ = project_.db.Flag_Cad != 0 ? 0 : cad_->cad().Cad_InputNode;
    show_command_state();
  });
  add_picture(cad_, "window-cad");
  cad_->load();
  cad_->resume(placed_nodes_);
  offer_cad();
  return *cad_;
}

void BRANOK60::offer_cad() {
  if (project_.db.Flag_Cad != 0) return;
  const Cad_Source source = graphic_seen_ ? Cad_Source::graphic : Cad_Source::survey;
  const bool graphic = source == Cad_Source::graphic;
  if (dialogue_.show(messages::Ask_Cad_Source(graphic)) == Answer::yes) generate_cad(source);
}

// The old drawing is kept beside the mine; when that fails it stays as it is.
bool BRANOK60::generate_cad(Cad_Source source) {
  struct Not_Kept {};
  Database& db = project_.db;
  const auto keep_old = [&] {
    try {
      Write_Cad_Member(db, save_folder() / "bakfile.cad", Today());
    } catch (const Run_Time_Error& fault) {
      dialogue_.remark(fault.what());
      dialogue_.show(messages::File_Error("Save Check CAD File"));
      throw Not_Kept();
    }
  };
  // The mine may have changed since its picture was seen and closed: the plan as it is now.
  if (Graphic plan; source == Cad_Source::graphic && graphic_ == nullptr) {
    (void)Graph_Range(db, plan);
    (void)Graph_Project(db, plan);
  }
  Cad passing;
  try {
    if (!Cad_Generate(db, passing, source, dialogue_, keep_old)) return false;
  } catch (const Not_Kept&) {
    return false;
  }
  placed_nodes_ = 0;
  if (cad_ != nullptr) cad_->load();
  drawing_edited();
  return true;
}

// Nodes that a check has brought in lie where they are seen, in a drawing that there is or grows.
void BRANOK60::place_new_nodes(const Node_Table<std::int16_t>& before) {
  Database& db = project_.db;
  Cad_Place_New_Nodes(db, before, db.Flag_Cad != 0 ? max_nodes : placed_nodes_);
  // A check that left the nodes as they were takes no step back from the engineer.
  if (cad_ != nullptr && db.Node_JuncCount != before) cad_->forget_steps();
}

void BRANOK60::show_cad_state() {
  const Cad& state = cad_->cad();
  show_picture_tools(cad_->mode(), state.Cad_Mark_Attach == 1);
  action("mnuCADComAttach")->setChecked(state.Cad_Mark_Attach == 1);
  for (int i = 0; i <= static_cast<int>(Airway_Info::note); ++i) {
    action("mnuCADAirway_Info", i)->setChecked(i == static_cast<int>(state.Cad_Airway_Info));
  }
  action("mnuCADComIn")->setChecked(cad_->mode() == "zoom");
  action("mnuCADComArea")->setChecked(cad_->mode() == "area");
  action("mnuCADComView")->setChecked(cad_->mode() == "view");
  action("mnuCADComMove")->setChecked(cad_->mode() == "move");
  enable("mnuEditComUndo", cad_->can_undo());
  enable("mnuEditComRedo", cad_->can_redo());
}

void BRANOK60::CAD_Clear(int) { cad_window().redraw(); }

void BRANOK60::CAD_In(int) { cad_window().toggle_mode("zoom"); }

void BRANOK60::CAD_Out(int) { cad_window().zoom_out(); }

void BRANOK60::CAD_Attach(int) {
  MDICad& window = cad_window();
  window.attach_marks(window.cad().Cad_Mark_Attach == 0);
  show_command_state();
}

void BRANOK60::CAD_Area(int) { cad_window().toggle_mode("area"); }

void BRANOK60::CAD_View(int) { cad_window().toggle_mode("view"); }

void BRANOK60::CAD_Move(int) { cad_window().toggle_mode("move"); }

void BRANOK60::CAD_Color(int) {
  Database& db = project_.db;
  DlgColor dialog(Take_Colors(db, Color_Set::cad), Color_Set::cad, this);
  if (dialog.exec() != QDialog::Accepted) return;
  Put_Colors(db, Color_Set::cad, dialog.colors());
  drawing_edited();
}

void BRANOK60::CAD_Airway_Info(int index) {
  cad_window().show_info(static_cast<Airway_Info>(index));
  show_command_state();
}

// The one drawing command that edits the tables of the network.
void BRANOK60::CAD_Del(int) {
  Database& db = project_.db;
  const int node = Ask_Deleted_Node(db, dialogue_);
  if (node == 0) return;
  Delete_Node(db, node);
  if (cad_ != nullptr) cad_->forget_steps();
  drawing_edited();
  data_edited();
  dialogue_.remark("Node " + std::to_string(node) +
                   " is deleted. The grids of the Database window show it until the mine is opened "
                   "again");
}

void BRANOK60::CAD_Frm(int) {
  DlgFrame dialog(dialogue_, this);
  if (dialog.exec() != QDialog::Accepted) return;
  Edit_Frame(project_.db, dialog.space());
  drawing_edited();
  cad_window().note_edit();
}

}  // namespace branok
