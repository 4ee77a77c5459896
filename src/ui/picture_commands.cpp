// What the Graphic and the CAD window have in common in the main window: how they are opened,
// picked, saved, and how they follow the mine.
#include <QAction>
#include <QFileDialog>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QToolBar>

#include "core/messages.h"
#include "paint/picture_file.h"
#include "ui/cad_window.h"
#include "ui/full_screen_picture.h"
#include "ui/graphic_window.h"
#include "ui/icon.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/status_bar.h"

namespace branok {

// What a picture tells the main window.
void BRANOK60::connect_picture(Picture_Window& window, const char* menu) {
  connect(&window, &Picture_Window::mode_changed, this, &BRANOK60::show_command_state);
  connect(&window, &Picture_Window::hint, this,
          [this](const QString& text) { status_->show_hint(text); });
  connect(&window, &Picture_Window::fault, this,
          [this](const QString& text) { status_->show_remark(text); });
  connect(&window, &Picture_Window::picked, this,
          [this](const Pick& pick) { run([&] { show_picked(pick); }, "Show View menu"); });
  connect(&window, &Picture_Window::menu_wanted, this,
          [this, menu](const QPoint& place) { findChild<QMenu*>(menu)->popup(place); });
}

void BRANOK60::add_picture(Picture_Window* window, const char* icon) {
  QMdiSubWindow* const frame = area_->addSubWindow(window);
  frame->setAttribute(Qt::WA_DeleteOnClose);
  frame->setWindowIcon(Icon_Of(icon));
  connect(frame, &QObject::destroyed, this, &BRANOK60::window_activated);
  frame->showMaximized();
}

// What was picked in a picture is to be viewed.
void BRANOK60::show_picked(const Pick& pick) {
  if (pick.node == 0) {
    // The pointer reads without marks, a click does not.
    if (!tool("mark attach")->isChecked()) {
      dialogue_.remark("Marks are off: with Mark Attach nodes and airways can be picked");
    }
    dialogue_.show(messages::Nothing_Picked());
    return;
  }
  dialogue_.show(messages::Not_Available_Yet("The viewer of " + Pick_Text(project_.db, pick)));
}

Picture_Window* BRANOK60::picture_on_top() const {
  if (window_tag() == "graphic") return graphic_;
  if (window_tag() == "cad") return cad_;
  return nullptr;
}

void BRANOK60::Refresh_Active_Picture() {
  if (Picture_Window* const top = picture_on_top()) top->data_changed();
}

// Pictures follow the mine. Those out of sight wait until they are seen.
void BRANOK60::refresh_pictures() {
  if (graphic_ != nullptr) graphic_->data_changed();
  if (cad_ != nullptr) cad_->data_changed();
}

// After a load: each picture begins anew.
void BRANOK60::load_pictures() {
  placed_nodes_ = 0;
  graphic_seen_ = graphic_ != nullptr;
  if (graphic_ != nullptr) graphic_->load();
  if (cad_ != nullptr) cad_->load();
}

// What a file stores of the pictures has changed.
void BRANOK60::drawing_edited() {
  drawing_edited_ = true;
  refresh_pictures();
}

void BRANOK60::show_picture_tools(const std::string& mode, bool marks) {
  set_edit_tag(window_tag());
  Set_Edit_Menu_State(true, true, false, true, false);
  Set_Toolbar_State(true, true, false, true, false, true, true, true);
  tool("zoomin")->setChecked(mode == "zoom");
  tool("rect")->setChecked(mode == "area");
  tool("mark attach")->setChecked(marks);
}

void BRANOK60::save_picture(Picture_Window& window, const std::filesystem::path& file) {
  constexpr double ratio = 2;  // of a bitmap: it can be enlarged a little
  const QSize size = window.frame_size();
  const auto paint = [&](QPainter& painter) { window.paint_shown(painter, {{0, 0}, size}, ratio); };
  Write_Page(file, {To_Utf8(project_.db.Mine_Name), size, ratio, paint});
}

// The picture as the frame shows it. The bitmap comes first; other kinds by the name's ending.
void BRANOK60::Picture_Save(int) {
  Picture_Window* const window = picture_on_top();
  if (window == nullptr) return;
  const bool cad = window_tag() == "cad";
  QFileDialog dialog(this, "'Save Picture...'");
  dialog.setObjectName("cmnDlgBRANOK");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters({cad ? "BitMap Files (*.bmp)" : "BitMap Data (*.bmp)",
                         "PNG picture (*.png)", "SVG drawing (*.svg)", "PDF page (*.pdf)"});
  const auto take_suffix = [&] {
    // The ending of the chosen kind: "PNG picture (*.png)".
    dialog.setDefaultSuffix(dialog.selectedNameFilter().chopped(1).right(3));
  };
  connect(&dialog, &QFileDialog::filterSelected, &dialog, take_suffix);
  take_suffix();
  dialog.setDirectory(Name_To_Qt(save_folder()));
  const std::string view = cad ? "cad" : graphic_->graphic().view;
  const std::string mine = project_.file.empty() ? "mine" : project_.file.stem().string();
  dialog.selectFile(Name_To_Qt(mine + "-" + view));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  const std::filesystem::path file = To_Path(dialog.selectedFiles().first());
  const Busy busy(dialogue_);
  save_picture(*window, file);
  dialogue_.remark("Saved " + file.string());
}

// The picture fills the screen it is on: drawn for it, so that from a small window the lines do not
// grow as thick as the marks.
void BRANOK60::Picture_Max(int) {
  Picture_Window* const window = picture_on_top();
  if (window == nullptr) return;
  const QSizeF screen = this->screen()->size();
  const QSizeF frame = window->frame_size().expandedTo({1, 1});
  const QRectF place(QPointF(0, 0), frame.scaled(screen, Qt::KeepAspectRatio));
  const double ratio = devicePixelRatioF();
  QImage image((place.size() * ratio).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  QPainter painter(&image);
  window->paint_shown(painter, place, ratio);
  painter.end();
  DlgMax(QPixmap::fromImage(image), image.pixelColor(0, 0), this).exec();
}

}  // namespace branok
