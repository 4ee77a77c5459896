// The Graphic menu.
#include <QAction>
#include <array>

#include "ui/color_dialog.h"
#include "ui/graphic_parameter_dialog.h"
#include "ui/graphic_window.h"
#include "ui/index_dialog.h"
#include "ui/level_dialog.h"
#include "ui/main_window.h"

namespace branok {

namespace {

constexpr std::array views = {"3d", "3d", "2dh", "2dew", "2dns"};  // by index of mnuGraphDim

}  // namespace

MDIGraph& BRANOK60::graphic_window() {
  if (graphic_ != nullptr) return *graphic_;
  graphic_ = new MDIGraph(project_.db, area_);
  connect_picture(*graphic_, "mnuGraphcom");
  add_picture(graphic_, "window-graphic");
  graphic_->load();
  graphic_seen_ = true;
  return *graphic_;
}

void BRANOK60::show_graphic_state() {
  const bool graphic = graphic_ != nullptr && window_tag() == "graphic";
  Set_Graph_Menu_State(graphic, graphic);
  if (!graphic) return;
  const Graphic& state = graphic_->graphic();
  show_picture_tools(graphic_->mode(), state.Mark_Attach == 1);
  action("mnuGraphComAttach")->setChecked(state.Mark_Attach == 1);
  action("mnuGraphComDim")->setProperty("Tag", QString::fromStdString(state.view));
  for (int i = 0; i < static_cast<int>(views.size()); ++i) {
    action("mnuGraphDim", i)->setChecked(state.view == views.at(static_cast<std::size_t>(i)));
  }
  for (int i = 0; i <= static_cast<int>(Node_Info::ew); ++i) {
    action("mnuGraphNode_Info", i)->setChecked(i == static_cast<int>(state.Graph_NodeInfo));
  }
  action("mnuGraphComIn")->setChecked(graphic_->mode() == "zoom");
  action("mnuGraphComArea")->setChecked(graphic_->mode() == "area");
  action("mnuGraphComView")->setChecked(graphic_->mode() == "view");
}

void BRANOK60::Graphic_Clear(int) { graphic_window().redraw(); }

void BRANOK60::Graphic_In(int) { graphic_window().toggle_mode("zoom"); }

void BRANOK60::Graphic_Out(int) { graphic_window().zoom_out(); }

void BRANOK60::Graphic_Attach(int) {
  MDIGraph& window = graphic_window();
  window.attach_marks(window.graphic().Mark_Attach == 0);
  show_command_state();
}

void BRANOK60::Graphic_Area(int) { graphic_window().toggle_mode("area"); }

void BRANOK60::Graphic_View(int) { graphic_window().toggle_mode("view"); }

void BRANOK60::Graphic_Dim(int index) {
  constexpr int last_3d = 1;
  if (index <= last_3d) {
    Not_Available_Yet(index);
  } else {
    graphic_window().show_view(views.at(static_cast<std::size_t>(index)));
  }
  show_command_state();
}

void BRANOK60::Graphic_Node_Info(int index) {
  graphic_window().show_info(static_cast<Node_Info>(index));
  show_command_state();
}

void BRANOK60::Graphic_Color(int) {
  Database& db = project_.db;
  DlgColor dialog(Take_Colors(db, Color_Set::graphic), Color_Set::graphic, this);
  if (dialog.exec() != QDialog::Accepted) return;
  Put_Colors(db, Color_Set::graphic, dialog.colors());
  drawing_edited();
}

// A scale needs temperatures; a flow run alone leaves none.
void BRANOK60::Graphic_Temp(int) {
  if (!Has_Temperatures(project_.db)) {
    dialogue_.remark("There are no temperatures yet: run Annual Temp. and Flow");
    return;
  }
  Graphic& state = graphic_window().graphic();
  DlgIndex dialog(project_.db, state.GType == "display", dialogue_, this);
  if (dialog.exec() == QDialog::Accepted) state.GType = dialog.Index_On() ? "display" : "none";
}

void BRANOK60::Graphic_Para(int) {
  MDIGraph& window = graphic_window();
  DlgGPara dialog(project_.db, window.graphic(), dialogue_, this);
  if (dialog.exec() != QDialog::Accepted) return;
  drawing_edited();
  window.project_anew();
}

void BRANOK60::Graphic_Lvl(int) {
  MDIGraph& window = graphic_window();
  if (DlgLevel(project_.db, window.graphic(), dialogue_, this).exec() != QDialog::Accepted) return;
  window.rebuild();
}

void BRANOK60::Graphic_Create(int) {
  (void)graphic_window();
  generate_cad(Cad_Source::graphic);
}

}  // namespace branok
