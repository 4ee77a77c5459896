// A grid on the screen: headings in two lines that stay when the rows scroll, row titles that stay
// when the columns scroll, blocks that can be selected and copied.
#pragma once

#include <QTableView>
#include <set>

#include "ui/text_grid_model.h"

namespace branok {

class Grid_View : public QTableView {
  Q_OBJECT
 public:
  explicit Grid_View(Text_Grid& grid, QWidget* parent = nullptr);

  [[nodiscard]] Text_Grid_Model& rows() { return model_; }
  [[nodiscard]] const Text_Grid_Model& rows() const { return model_; }

  /// Shows the grid as it is now, with columns as wide as their texts need, and keeps the place in
  /// view when the number of rows has stayed.
  void show_grid();

  /// What stands in the middle of an empty grid: what to do next.
  void set_empty_text(const QString& text);

  /// Makes a grid row (1 is the first data row) current and scrolls it into view.
  void go_to_row(int row);

  /// Gives the grid the current cell and selection that the user has set on the screen.
  void take_selection();

  /// Puts the selected block on the clipboard, in the forms that spreadsheets and word processors
  /// take.
  void copy_selection();

  /// Fits columns and row height to the present font. Columns that the user has dragged keep their
  /// widths until the font changes.
  void fit_columns();

 signals:
  /// The grid has got the keyboard.
  void focused();

 protected:
  /// A grid whose headings stand in a header of its own kind.
  Grid_View(Text_Grid& grid, QHeaderView* headings, QWidget* parent);
  /// The first column that can be current: titles are no cells, unless they are shown as such.
  [[nodiscard]] int first_column() const;
  /// True when there is nothing but, at most, a blank row to type in.
  [[nodiscard]] bool is_empty() const;

  /// Room that a column has at least, in digits.
  [[nodiscard]] virtual int least_characters(int col) const;
  /// Makes a column wide enough for its texts, unless the user has dragged it.
  void widen_column(int col);
  /// The part of the view, from its left edge, that other columns pass under.
  [[nodiscard]] virtual int frozen_width() const { return 0; }
  /// Draws what stays in view while columns pass under it.
  virtual void paint_frozen(QPainter& painter);

  void focusInEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void paint_corner();
  void paint_empty_text(QPainter& painter);
  void paint_current_cell(QPainter& painter);
  void make_texts_give_way();
  [[nodiscard]] int text_width(int col) const;
  [[nodiscard]] int heading_width(int col) const;

  Text_Grid_Model model_;
  int shown_rows_ = 0;
  QString empty_text_;
  QWidget* corner_ = nullptr;
  std::set<int> dragged_;  // columns whose width is the user's
  bool fitting_ = false;
};

}  // namespace branok
