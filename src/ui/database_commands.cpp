// The Database menu, and the Edit menu in all windows that it works in.
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <algorithm>
#include <array>

#include "core/messages.h"
#include "prep/calculators.h"
#include "prep/check.h"
#include "prep/edit_commands.h"
#include "ui/analysis_window.h"
#include "ui/cad_window.h"
#include "ui/data_option_dialog.h"
#include "ui/database_window.h"
#include "ui/diagram_dialog.h"
#include "ui/edit_grid.h"
#include "ui/grid_clipboard.h"
#include "ui/icon.h"
#include "ui/main_window.h"
#include "ui/picture_window.h"
#include "ui/status_bar.h"

namespace branok {

namespace {

// The words of the pages, for the status bar.
QString Page_Name(Folder folder) {
  constexpr std::array names = {"Airways",   "Nodes",       "Intake",
                                "Main Fans", "Assist Fans", "Thermal Cond."};
  return names.at(static_cast<std::size_t>(folder));
}

// A typed whole number; one too large for any table stays large. Nothing when it is no number.
std::optional<int> Typed_Count(std::string_view text) {
  constexpr double large = 1e6;
  const std::optional<double> number = Number_In(text);
  if (!number) return std::nullopt;
  return static_cast<int>(Round(std::clamp(*number, -large, large)));
}

// The first fan whose table gives a curve; the first of all when none does.
int First_Fan_With_Curve(const Database& db) {
  for (int fan = 1; fan <= db.MFan_Total; ++fan) {
    try {
      (void)Make_Diagram(db, Diagram_Kind::fan, fan);
      return fan;
    } catch (const Run_Time_Error&) {
      continue;
    }
  }
  return 1;
}

}  // namespace

MDIData& BRANOK60::database_window() {
  if (data_ != nullptr) return *data_;
  data_ = new MDIData(project_.db, edit_, history_, area_);
  connect(data_, &MDIData::command, this, [this](const QString& name) {
    if (name == "cmdPlus") {
      run([this] { add_fan(); }, "Plus Total Fan Number command");
    } else if (name == "cmdMinus") {
      run([this] { delete_fan(); }, "Minus Total Fan Number command");
    } else {
      give_command(name);
    }
  });
  connect(data_, &MDIData::edited, this, &BRANOK60::data_edited);
  connect(data_, &MDIData::typed, this, &BRANOK60::show_command_state);
  connect(data_, &MDIData::context_menu, this,
          [this](const QPoint& place) { findChild<QMenu*>("mnuEditCom")->popup(place); });
  connect(data_, &MDIData::target_changed, this, &BRANOK60::show_command_state);
  QMdiSubWindow* const frame = area_->addSubWindow(data_);
  frame->setAttribute(Qt::WA_DeleteOnClose);
  frame->setWindowIcon(Icon_Of("window-database"));
  connect(frame, &QObject::destroyed, this, &BRANOK60::window_activated);
  if (font_) data_->apply_font(*font_);
  data_->load();
  frame->showMaximized();
  return *data_;
}

// After a load: the grids hold the present mine's texts, or nothing when they cannot be filled.
void BRANOK60::fill_grids() {
  edit_ = Edit_Copy();
  history_.start(edit_);
  if (data_ != nullptr) data_->load();
  take_saved_head();
  Fill_Database_Window(project_.db, edit_);
  history_.start(edit_);
  if (data_ != nullptr) data_->load();
}

// One act of the user in the grids: what was being typed is kept first, then the act works on what
// is selected. It is one step of the history, also when it ends in a fault.
void BRANOK60::edit(const std::function<void()>& act) {
  MDIData& window = database_window();
  window.finish_typing();
  window.take_selection();
  try {
    act();
  } catch (...) {
    edit_done();
    throw;
  }
  edit_done();
}

void BRANOK60::edit_done() {
  history_.note(edit_);
  if (data_ != nullptr) data_->refresh();
  data_edited();
}

// An act on the rows of airways that are selected, or on all: they are brought to the front.
void BRANOK60::edit_airways(const std::function<void()>& act) {
  database_window().show_place({.folder = Folder::airway});
  edit(act);
}

// Texts of the grids have changed, and results may have ended with that.
void BRANOK60::data_edited() {
  if (analysis_ != nullptr && panel_.result_state != "none" && project_.db.Flag_Results == 0) {
    analysis_->Set_Result_State("none");
    Analysis_Display(0);
  }
  show_command_state();
  refresh_status();
}

void BRANOK60::show_unchecked() {
  QStringList pages;
  for (const Folder folder : Unchecked_Folders(project_.db, edit_)) pages << Page_Name(folder);
  status_->show_unchecked(pages);
}

bool BRANOK60::has_unsaved_edits() const {
  const bool head_changed =
      Trim(project_.db.Mine_Name) != saved_name_ || Trim(project_.db.Mine_Date) != saved_date_;
  return head_changed || check_ran_ || drawing_edited_ || placed_nodes_ > 0 ||
         !Unchecked_Folders(project_.db, edit_).empty();
}

// The name and date that a file, or a new mine, has.
void BRANOK60::take_saved_head() {
  saved_name_ = Trim(project_.db.Mine_Name);
  saved_date_ = Trim(project_.db.Mine_Date);
  check_ran_ = false;
  drawing_edited_ = false;
}

// --- The Database menu

void BRANOK60::Data_Check(int) {
  if (data_ != nullptr) data_->finish_typing();
  Check_Result result;
  check_ran_ = true;  // one that stops has taken in the folders before
  const Node_Table<std::int16_t> before = project_.db.Node_JuncCount;
  try {
    result = Check_Data(project_.db, edit_, dialogue_);
  } catch (...) {
    place_new_nodes(before);
    edit_done();
    throw;
  }
  place_new_nodes(before);
  if (result.passed) history_.start(edit_);
  edit_done();
  if (analysis_ != nullptr) Analysis_Display(0);
  if (result.place) show_place(*result.place);
}

void BRANOK60::show_place(const Edit_Place& place) {
  MDIData& window = database_window();
  bring_up(window);
  window.show_place(place);
}

void BRANOK60::Data_Find(int) {
  MDIData& window = database_window();
  window.finish_typing();
  const std::optional<std::string> text = dialogue_.ask("Please input nodal number.", "Find node");
  if (!text) return;
  const std::optional<int> number = Typed_Count(*text);
  if (!number) {
    dialogue_.show(messages::Not_Numeric());
    return;
  }
  // Only airways and nodes have the numbers in their rows; from other pages the node is shown.
  const Folder folder = window.folder() == Folder::airway ? Folder::airway : Folder::node;
  const int row = Find_Row(project_.db, edit_, folder, *number);
  window.show_place({.folder = folder, .row = row, .col = 1});
}

// The diagram shows what the pages hold, checked or not.
void BRANOK60::Fan_Diagram(int) {
  const Database& db = project_.db;
  if (data_ != nullptr) data_->finish_typing();
  const bool on_page = data_ != nullptr && window_tag() == "database";
  const int front = on_page ? edit_.fan_in_front : 0;
  if (db.Edit_MFan == 0) {
    Draw_Fan_Diagram(this, db.MFan_Total, front > 0 ? front : First_Fan_With_Curve(db),
                     [&db](int fan) { return Make_Diagram(db, Diagram_Kind::fan, fan); });
    return;
  }
  if (edit_.MFan_GridTotal == 0) {
    dialogue_.remark("This mine has no main fan");
    return;
  }
  const int first = std::max(front, 1);
  const Check_Result result = check_fan_page(first).result;
  if (!result.passed) {
    if (result.place) show_place(*result.place);
    return;
  }
  Draw_Fan_Diagram(this, edit_.MFan_GridTotal, first, [this](int fan) {
    const Fan_Trial trial = check_fan_page(fan);
    if (!trial.result.passed) throw Run_Time_Error("the page has a fault");
    return Make_Diagram(trial.db, Diagram_Kind::fan, fan);
  });
}

// The mine with a main fan as its page has it. The test may have taken a speed back.
BRANOK60::Fan_Trial BRANOK60::check_fan_page(int fan) {
  const Busy busy(dialogue_);
  Fan_Trial trial{.db = project_.db, .result = {}};
  trial.result = Check_Fan_For_Diagram(trial.db, edit_, fan, dialogue_);
  edit_done();
  return trial;
}

void BRANOK60::Data_Calc(int index) {
  std::optional<Edit_Place> stopped;
  edit_airways(
      [&] { stopped = Calculate(project_.db, edit_, static_cast<Calculator>(index), dialogue_); });
  if (stopped) show_place(*stopped);
}

void BRANOK60::set_in_rows(bool (*set)(Database&, Edit_Copy&, int), int value) {
  bool any = false;
  edit_airways([&] { any = set(project_.db, edit_, value); });
  if (!any) dialogue_.remark("Select the rows of airways first");
}

void BRANOK60::Data_Wend(int index) { set_in_rows(Set_Winding, index); }
void BRANOK60::Data_Kind(int index) { set_in_rows(Set_Kind, index); }
void BRANOK60::Data_Shape(int index) { set_in_rows(Set_Shape, index); }

void BRANOK60::Data_Option(int) {
  if (data_ != nullptr) data_->finish_typing();
  if (DlgData_Option(project_.db, dialogue_, this).exec() != QDialog::Accepted) return;
  if (data_ != nullptr) data_->apply_options();
  refresh_pictures();  // the limits decide on the marks
}

void BRANOK60::Data_Reset(int) {
  edit([&] { Reset_To_Last_Check(project_.db, edit_, dialogue_); });
}

void BRANOK60::add_fan() {
  bool added = false;
  edit([&] { added = Add_Fan_Page(project_.db, edit_); });
  const std::string most = std::to_string(max_main_fans);
  if (!added) dialogue_.show(messages::Out_Of_Range("Total Number", "Main Fan", "0", most));
}

void BRANOK60::delete_fan() {
  if (edit_.fan_in_front < 1) return;
  if (dialogue_.show(messages::Ask_Delete_Fan(edit_.fan_in_front)) != Answer::yes) return;
  edit([&] { Remove_Fan_Page(project_.db, edit_); });
}

// --- The Edit menu. A text field that has the focus is what its commands are for.

void BRANOK60::Edit_Undo(int) {
  if (window_tag() == "cad") return cad_->undo();
  QLineEdit* const field = focused_text();
  if (field != nullptr && field->isUndoAvailable()) return field->undo();
  move_in_history(&Edit_History::undo);
}

void BRANOK60::Edit_Redo(int) {
  if (window_tag() == "cad") return cad_->redo();
  QLineEdit* const field = focused_text();
  if (field != nullptr && field->isRedoAvailable()) return field->redo();
  move_in_history(&Edit_History::redo);
}

void BRANOK60::move_in_history(History_Move way) {
  MDIData& window = database_window();
  window.finish_typing();
  const std::optional<Edit_Place> place = (history_.*way)(project_.db, edit_);
  window.refresh();
  if (place) window.show_place(*place);
  data_edited();
}

QLineEdit* BRANOK60::focused_text() const {
  return window_tag() == "database" ? data_->focused_text() : nullptr;
}

void BRANOK60::Edit_Cut(int) {
  if (QLineEdit* const field = focused_text()) {
    if (!field->isReadOnly()) field->cut();
    return;
  }
  const std::optional<Folder> folder = database_window().folder();
  if (!folder) return;
  edit([&] {
    data_->copy_selection();
    Empty_Cells(project_.db, edit_, *folder);
  });
}

void BRANOK60::Edit_Copy_Command(int) {
  if (QLineEdit* const field = focused_text()) return field->copy();
  if (Picture_Window* const picture = picture_on_top()) return picture->copy_picture();
  if (window_tag() == "analysis") analysis_window().copy_selection();
  if (window_tag() == "database") database_window().copy_selection();
}

void BRANOK60::Edit_Paste(int) {
  if (QLineEdit* const field = focused_text()) {
    if (!field->isReadOnly()) field->paste();
    return;
  }
  if (Picture_Window* const picture = picture_on_top()) {
    if (picture->paste_picture()) return;
    const bool unread = QGuiApplication::clipboard()->mimeData()->hasImage();
    dialogue_.remark(unread ? "The picture on the clipboard is too large to be read"
                            : "There is no picture on the clipboard");
    return;
  }
  const std::string text = From_Clipboard(Clipboard_Text());
  Paste_Result done;
  if (window_tag() == "analysis") {
    done = analysis_window().paste(text);
  } else if (const std::optional<Folder> folder = database_window().folder()) {
    edit([&] {
      data_->grid_view()->take_paste_place(text);
      done = Paste_Folder(project_.db, edit_, *folder, text);
    });
  }
  tell_paste(done);
}

void BRANOK60::Edit_Paste_Insert(int) {
  const std::string text = From_Clipboard(Clipboard_Text());
  Paste_Result done;
  edit([&] {
    data_->grid_view()->take_paste_place(text);
    done = Paste_Insert(project_.db, edit_, text);
  });
  tell_paste(done);
}

void BRANOK60::tell_paste(const Paste_Result& done) {
  if (done.no_room) {
    dialogue_.show(messages::Out_Of_Range("Total Number of rows", "the grid", "0",
                                          std::to_string(max_grid_rows)));
  } else if (done.rows == 0) {
    dialogue_.remark("Nothing was pasted: a grid takes rows that end with a line end");
  } else if (done.tail_left) {
    dialogue_.remark("The last line of the clipboard has no line end and was not pasted");
  }
}

void BRANOK60::Edit_Insert1(int) { insert_rows(1); }
void BRANOK60::Edit_Del1(int) { delete_rows(1); }

void BRANOK60::Edit_Inserts(int) {
  if (const auto count = ask_rows("insert", "Insert rows")) insert_rows(*count);
}

void BRANOK60::Edit_Dels(int) {
  if (const auto count = ask_rows("delete", "Delete rows")) delete_rows(*count);
}

std::optional<int> BRANOK60::ask_rows(const std::string& verb, const std::string& title) {
  database_window().finish_typing();
  const auto text = dialogue_.ask("Please input any rows to " + verb + ".", title);
  if (!text) return std::nullopt;
  const std::optional<int> count = Typed_Count(*text);
  if (!count) dialogue_.show(messages::Not_Numeric());
  return count;
}

void BRANOK60::insert_rows(int count) {
  if (count <= 0) return;
  int added = 0;
  edit([&] {
    data_->grid_view()->take_current_row();
    added = Insert_Rows(project_.db, edit_, count);
  });
  if (added < count)
    dialogue_.remark("The grid is full: " + std::to_string(max_grid_rows) + " rows");
}

void BRANOK60::delete_rows(int count) {
  if (count <= 0) return;
  edit([&] {
    data_->grid_view()->take_current_row();
    Delete_Rows(project_.db, edit_, count);
  });
}

}  // namespace branok
