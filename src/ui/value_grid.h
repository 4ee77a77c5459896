// A grid of titles and values, one to a row: values are typed over in their cells, as in a
// spreadsheet.
#pragma once

#include <QStringList>
#include <QTableWidget>

class QLineEdit;

namespace branok {

/// A row's title in its two parts: "Rock Temp Gradient" and "(°C/m)".
struct Row_Title {
  QString name;
  QString unit;  ///< with its parentheses; empty without one
};
Row_Title Split_Title(const QString& title);

/// A key typed on a cell replaces its text; Enter and F2 open it with the caret behind the text, a
/// double click with the text selected. In the open cell (the line edit txtEdit) Enter, Down and Up
/// keep what was typed and go to the row below or above, Tab to the next typed row and behind the
/// last one to the next control; Escape leaves the cell as it was.
class Value_Grid : public QTableWidget {
  Q_OBJECT
 public:
  explicit Value_Grid(const QStringList& titles, QWidget* parent = nullptr);

  [[nodiscard]] QString value(int row) const;
  void set_value(int row, const QString& text);

  /// Rows that are not typed: a quiet one shows what follows from others, a chosen one what is
  /// chosen elsewhere.
  void set_quiet(int row);
  void set_chosen(int row);

  /// Opens the cell of a row, its text selected.
  void open_row(int row);
  /// Keeps what was typed in an open cell, and closes it.
  void end_editing();

  /// For the open cell: a key that leaves it. False for any other key.
  bool leave_cell(int key);

 signals:
  /// The user wants to change the value of a row that is not typed.
  void change_wanted(int row);

 protected:
  using QTableWidget::edit;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyboardSearch(const QString& search) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;
  void initViewItemOption(QStyleOptionViewItem* option) const override;
  [[nodiscard]] QSize viewportSizeHint() const override;

 private:
  [[nodiscard]] bool is_typed(int row) const;
  [[nodiscard]] QLineEdit* open_cell() const;
  bool go_to_typed(int row, int step);
  void paste();
  void fit();
};

}  // namespace branok
