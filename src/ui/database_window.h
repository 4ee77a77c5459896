// The Database window: the mine as texts in the grids of seven pages. What is typed here reaches
// the tables through the check of the data alone.
#pragma once

#include <QPointer>
#include <QTabWidget>
#include <QWidget>
#include <array>
#include <optional>
#include <string>

#include "prep/edit_history.h"
#include "ui/edit_grid.h"
#include "ui/picture_box.h"

class QLabel;

namespace branok {

class Fan_Page_View;

class MDIData : public QWidget {
  Q_OBJECT
 public:
  /// Database, copy and history must outlive the window. It shows what they hold once it is loaded.
  MDIData(Database& db, Edit_Copy& copy, Edit_History& history, QWidget* parent = nullptr);
  MDIData(const MDIData&) = delete;
  MDIData& operator=(const MDIData&) = delete;
  MDIData(MDIData&&) = delete;
  MDIData& operator=(MDIData&&) = delete;
  ~MDIData() override;

  /// Shows another mine, as the copy holds it, from the first page on. What was being typed belongs
  /// to the mine before and is dropped.
  void load();
  /// Shows the texts as they are after a command.
  void refresh();

  /// The page on show: "network", "airway", "node", "Inlet", "mainfan", "assistfan", "thermal".
  [[nodiscard]] std::string page_tag() const;
  /// Its folder; none on the first page.
  [[nodiscard]] std::optional<Folder> folder() const;
  /// What the Edit commands work on: the page's tag, or a text field: "datatext1" to "datatext6" on
  /// the pages of the folders, "datatextM" and "datatextT" for name and date of the mine.
  [[nodiscard]] std::string edit_tag() const;
  /// The text field that has the keyboard, also while a menu is open; null when none has.
  [[nodiscard]] QLineEdit* focused_text() const;
  /// The grid of the page on show, null where it has none.
  [[nodiscard]] Edit_Grid* grid_view() const;

  /// Keeps what is being typed, wherever it is. Called before every command.
  void finish_typing();
  /// Gives the grid on show the selection that is seen.
  void take_selection();
  /// Copies the selected text of a field, or the selected cells.
  void copy_selection();

  /// Goes to a place of the copy; without a row, to its page.
  void show_place(const Edit_Place& place);

  [[nodiscard]] QSize sizeHint() const override { return {940, 600}; }

  void apply_font(const QFont& font);
  /// The data options have changed.
  void apply_options();

 signals:
  /// The page or what the Edit commands work on has changed.
  void target_changed();
  /// A text changes while it is typed.
  void typed();
  /// An act has been done; the history has it.
  void edited();
  /// A command of the main window.
  void command(const QString& name);
  /// The user asks for the menu of what is selected in a grid, at a place of the screen.
  void context_menu(const QPoint& global);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct Folder_Page {
    Edit_Grid* grid = nullptr;
    Picture_Box* pictures = nullptr;
    std::size_t picture_row = 0;  // whose names are listed
  };

  QWidget* make_network_page();
  QLineEdit* make_text(const char* name, std::string Database::*field);
  QWidget* make_folder_page(Folder folder, const char* grid_name);
  QWidget* make_fan_page();
  void make_pictures(Folder folder, Folder_Page& page);
  void make_page_keys();
  void page_turned();
  void note_focus(QWidget* now);
  void come_back();
  void tell_target();
  void note_act();
  void show_mine();
  void show_pictures(Folder folder);
  [[nodiscard]] const Folder_Page& page(Folder folder) const;
  [[nodiscard]] QWidget* first_field() const;

  Database& db_;
  Edit_Copy& copy_;
  Edit_History& history_;
  QTabWidget* tabData;
  QLabel* lblDataVer = nullptr;
  QLineEdit *txtMine = nullptr, *txtTime = nullptr;
  Picture_Box* cboView5 = nullptr;
  Fan_Page_View* fan_page_ = nullptr;
  std::array<Folder_Page, folder_count> pages_;
  std::string target_;            // as it was told last
  QPointer<QWidget> last_focus_;  // while the window was in sight
  bool away_ = false;
  bool shown_before_ = false;
  bool by_arrows_ = false;  // a key turns the page on the tabs
};

}  // namespace branok
