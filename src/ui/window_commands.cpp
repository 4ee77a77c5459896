// The Option, Window and Help menus, and the toolbar buttons that go by the window on top.
#include <QFontDialog>
#include <QMdiSubWindow>
#include <QToolBar>

#include "ui/about_dialog.h"
#include "ui/analysis_window.h"
#include "ui/cad_window.h"
#include "ui/database_window.h"
#include "ui/graphic_window.h"
#include "ui/help_window.h"
#include "ui/main_window.h"
#include "ui/picture_window.h"

namespace branok {

void BRANOK60::Option_Tool(int) { tlbBRANOK_->setVisible(action("mnuOptionComTool")->isChecked()); }

void BRANOK60::Option_Font(int) {
  QFontDialog dialog(font_.value_or(font()), this);
  dialog.setObjectName("cmnDlgBRANOK");
  if (dialog.exec() != QDialog::Accepted) return;
  const QFont chosen = dialog.selectedFont();
  font_ = QFont(chosen.family(), chosen.pointSize(), chosen.bold() ? QFont::Bold : QFont::Normal,
                chosen.italic());
  if (window_tag() == "analysis") analysis_window().apply_font(*font_);
  if (window_tag() == "database") database_window().apply_font(*font_);
  // Numbers and labels in a picture have their own face, in the size of its marks.
  if (Picture_Window* const picture = picture_on_top()) picture->setFont(*font_);
}

void BRANOK60::Window_Cascade(int) { area_->cascadeSubWindows(); }

void BRANOK60::Window_Tile(int) { area_->tileSubWindows(); }

// Minimised windows stand side by side along the lower edge.
void BRANOK60::Window_Icon(int) {
  int x = 0;
  for (QMdiSubWindow* const window : area_->subWindowList()) {
    if (!window->isMinimized()) continue;
    window->move(x, area_->viewport()->height() - window->height());
    x += window->width();
  }
}

void BRANOK60::Window_Select(int index) {
  enum { database, analysis, graphic, cad };
  if (index == database) return bring_up(database_window());
  if (index == graphic || index == cad) {
    bring_up(index == cad ? static_cast<QWidget&>(cad_window()) : graphic_window());
    return Refresh_Active_Picture();
  }
  const bool was_open = analysis_ != nullptr;
  bring_up(analysis_window());
  if (was_open) Analysis_Display(0);
}

// Brings a child window to the top, out of its icon too.
void BRANOK60::bring_up(QWidget& window) {
  auto* const frame = qobject_cast<QMdiSubWindow*>(window.parentWidget());
  if (frame->isMinimized()) frame->showNormal();
  area_->setActiveSubWindow(frame);
}

void BRANOK60::Help_BRN(int) {
  if (help_ == nullptr) {
    help_ = new Help_Window(folders_.installed_file("branok.hlp"), this);
    help_->setAttribute(Qt::WA_DeleteOnClose);
  }
  help_->show_index();
}

void BRANOK60::Help_About(int) { DlgAbout(this).exec(); }

void BRANOK60::Tool_Zoom_In(int) {
  if (window_tag() == "cad") give_command("mnuCADComIn");
  if (window_tag() == "graphic") give_command("mnuGraphComIn");
}

void BRANOK60::Tool_Zoom_Out(int) {
  if (window_tag() == "cad") give_command("mnuCADComOut");
  if (window_tag() == "graphic") give_command("mnuGraphComOut");
}

void BRANOK60::Tool_Rect(int) {
  if (window_tag() == "cad") give_command("mnuCADComArea");
  if (window_tag() == "graphic") give_command("mnuGraphComArea");
}

void BRANOK60::Tool_Mark_Attach(int) {
  if (window_tag() == "cad") give_command("mnuCADComAttach");
  if (window_tag() == "graphic") give_command("mnuGraphComAttach");
}

void BRANOK60::Tool_Refresh(int) {
  if (window_tag() == "analysis") give_command("mnuAnalysisComDisp");
  if (window_tag() == "graphic") give_command("mnuGraphComClear");
  if (window_tag() == "cad") give_command("mnuCADComClear");
}

}  // namespace branok
