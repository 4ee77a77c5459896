// A grid of the Database window: a folder of the edit copy, typed into through an editor that lies
// over the current cell.
#pragma once

#include <QLineEdit>
#include <QPoint>
#include <optional>
#include <string_view>

#include "prep/edit_copy.h"
#include "ui/frozen_grid_view.h"

namespace branok {

/// The background of a field whose text the check would refuse.
QColor Doubt_Color(const QPalette& palette);

/// Rows and columns are the grid's own: row 1 is the first data row, column 0 the title. What is
/// selected in the grid always is the block on the screen, from its upper left cell on.
class Edit_Grid : public Frozen_Grid_View {
  Q_OBJECT
 public:
  /// Database and copy must outlive the grid.
  Edit_Grid(Database& db, Edit_Copy& copy, Folder folder, QWidget* parent);

  [[nodiscard]] QLineEdit* editor() { return editor_; }
  [[nodiscard]] bool editing() const { return editing_; }

  /// Shows the folder's grid as it is now, with the selection that the grid has; the place in view
  /// stays.
  void refresh();

  /// Makes a cell current, brings it into view and gives it the keyboard. A row or column outside
  /// the grid means the nearest one.
  void show_cell(int row, int col);

  /// Opens the editor on the current cell: with its text, or with what was typed in its place. The
  /// caret stands at the end.
  void Show_Cell_Editor(const std::optional<QString>& typed = std::nullopt);
  /// Closes the editor and keeps what it holds. True when that has changed the cell.
  bool commit_editor();
  /// Closes the editor; the cell stays as it was.
  void discard_editor();

  /// Selection by cells, rows or columns as the options say (the airway grid alone follows them).
  void apply_options();

  /// Gives the grid the cell where a paste of this text begins. It is the corner of the selection;
  /// where whole rows are selected the current column, if the text fits from there, and where whole
  /// columns are selected the current row.
  void take_paste_place(std::string_view text);
  /// Gives the grid the row that row commands are for: the first selected one; where whole columns
  /// are selected the current one.
  void take_current_row();

 signals:
  /// An act has changed cells.
  void edited();
  /// The first change of a text in the editor.
  void keystroke();
  /// Another row may be current.
  void current_changed();
  /// The editor has got or lost the keyboard.
  void editor_focus();
  /// The user asks for the menu of what is selected, at a place of the screen.
  void context_menu(const QPoint& global);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void updateGeometries() override;
  void currentChanged(const QModelIndex& now, const QModelIndex& before) override;
  void selectionChanged(const QItemSelection& now, const QItemSelection& before) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  [[nodiscard]] int least_characters(int col) const override;

 private:
  void set_up_columns();
  void make_editor();
  void make_header_menus();
  void open_editor(const std::optional<QString>& typed);
  void take_cell_text(const QModelIndex& at, const std::optional<QString>& typed);
  bool Editor_Key(int key);
  void place_editor();
  void show_doubt(const QString& text);
  void close_editor();
  void note_keystroke();
  [[nodiscard]] bool keyboard_has_gone(const QFocusEvent& event) const;
  void move(int rows, int cols);
  bool move_on(int step);
  void empty_cells();
  void take_grid_selection(QPoint current);
  [[nodiscard]] QVariant look(int row, int col, int role) const;

  Database& db_;
  Edit_Copy& copy_;
  Folder folder_;
  QLineEdit* editor_ = nullptr;
  bool editing_ = false;
  bool typed_ = false;   // the text in the editor is no longer the cell's
  QString text_before_;  // of the cell
  QPoint cell_;          // of the editor: column and row of the view
  bool refreshing_ = false;
};

}  // namespace branok
