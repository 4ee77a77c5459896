// The File menu: new, open, save, recent files, exit.
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeView>

#include "core/messages.h"
#include "ui/cad_window.h"
#include "ui/database_window.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr const char* data_files = "BRANOK Data (*.abk)";

// The name that the user gives in the file dialog, or nothing.
std::filesystem::path Ask_File(QFileDialog& dialog, const std::filesystem::path& folder) {
  dialog.setObjectName("cmnDlgBRANOK");
  dialog.setNameFilter(data_files);
  dialog.setDefaultSuffix("abk");
  dialog.resize(dialog.sizeHint().expandedTo({860, 540}));
  if (auto* const list = dialog.findChild<QTreeView*>("treeView")) {
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  }
  if (!folder.empty()) dialog.setDirectory(Name_To_Qt(folder));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return To_Path(dialog.selectedFiles().first());
}

bool Is_Writable(const std::filesystem::path& folder) {
  return QFileInfo(Name_To_Qt(folder)).isWritable();
}

}  // namespace

// Whether the present mine may go: edits that are in no file are asked about.
bool BRANOK60::may_leave_mine() {
  if (data_ != nullptr) data_->finish_typing();
  return !has_unsaved_edits() || dialogue_.show(messages::Ask_Leave_Mine()) == Answer::yes;
}

void BRANOK60::File_New(int) {
  if (!may_leave_mine()) return;
  const Busy busy(dialogue_);
  unload_windows();
  project_ = Project();
  New_Database(project_.db, Today());
  refresh_windows();
  database_window();
}

void BRANOK60::File_Open(int) {
  if (data_ != nullptr) data_->finish_typing();
  QFileDialog dialog(this, "Open File  - Select '*.abk' -  ");
  dialog.setFileMode(QFileDialog::ExistingFile);
  const std::filesystem::path file = Ask_File(dialog, last_folder_);
  if (file.empty()) return;
  last_folder_ = file.parent_path();
  if (may_leave_mine()) read_file(file);
}

void BRANOK60::open_file(const std::filesystem::path& file) {
  run(
      [&] {
        if (may_leave_mine()) read_file(file);
      },
      "'Open...'");
}

void BRANOK60::read_file(const std::filesystem::path& file) {
  opened(Open_Project(project_, file, folders_, settings_, dialogue_));
}

void BRANOK60::File_Recent(int row) {
  if (!may_leave_mine()) return;
  const std::optional<Read_Result> result =
      Open_Recent(project_, row, folders_, settings_, dialogue_);
  if (result) opened(*result);
}

// The mine has been read, or reading has failed and left an empty one; either is shown.
void BRANOK60::opened(const Read_Result& result) {
  if (result.ok) {
    last_folder_ = project_.file.parent_path();
    take_file();
  }
  rebuild_recent_menu();
  refresh_windows();
  if (result.ok && area_->subWindowList().isEmpty()) analysis_window();
  if (result.ok && cad_ != nullptr) offer_cad();
}

// The open mine's file heads the recent ones, where it can be one.
void BRANOK60::take_file() {
  if (settings_.Recent_File[0] == project_.file) files_.push_back(project_.file);
}

void BRANOK60::File_Save(int) {
  const bool never_saved = project_.db.Data_Ver == 0 || project_.file.empty();
  save(never_saved ? Save_Command::save_as : Save_Command::save);
}

void BRANOK60::File_Save_As(int) { save(Save_Command::save_as); }

void BRANOK60::save(Save_Command command) {
  if (data_ != nullptr) data_->finish_typing();
  if (project_.db.Check_Count == 0 &&
      dialogue_.show(messages::Ask_Check_Before_Save()) == Answer::yes) {
    give_command("mnuDataComCheck");
  }
  const std::filesystem::path file =
      command == Save_Command::save ? project_.file : ask_save_name();
  if (file.empty()) return;
  last_folder_ = file.parent_path();
  if (!Save_Project(project_, file, folders_, settings_, dialogue_, command)) return;
  take_file();
  take_saved_head();
  std::string remark = "Saved ";
  if (!Unchecked_Folders(project_.db, edit_).empty()) {
    remark = "Saved without the unchecked edits (F9 takes them in): ";
  } else if (placed_nodes_ > 0) {
    remark = "Saved without the drawing, of which " + std::to_string(placed_nodes_) + " of " +
             std::to_string(project_.db.Node_Total) + " nodes are placed: ";
  }
  dialogue_.remark(remark + project_.file.string());
  rebuild_recent_menu();
  refresh_status();
}

// The dialog starts beside the open file, else in the last folder, else at home: where it can
// write.
std::filesystem::path BRANOK60::save_folder() const {
  for (const std::filesystem::path& folder : {project_.file.parent_path(), last_folder_}) {
    if (!folder.empty() && Is_Writable(folder)) return folder;
  }
  return To_Path(QDir::homePath());
}

std::filesystem::path BRANOK60::ask_save_name() {
  QFileDialog dialog(this, "Save As");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDirectory(Name_To_Qt(save_folder()));
  // A stroke in the mine's name is no folder, and a mine without a name is no hidden file.
  const QString name = To_Qt(Default_File_Name(project_.db)).replace('/', '-');
  dialog.selectFile(name == ".abk" ? QString("mine.abk") : name);
  return Ask_File(dialog, {});
}

void BRANOK60::File_Exit(int) { close(); }

}  // namespace branok
