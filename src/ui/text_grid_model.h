// Shows a Text_Grid to Qt's views.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "core/text_grid.h"

namespace branok {

/// All columns of the grid, title columns too, and its data rows; the heading row is the horizontal
/// header, the first title column the vertical one, or the rows' numbers where titles are cells.
class Text_Grid_Model : public QAbstractTableModel {
  Q_OBJECT
 public:
  /// The grid must outlive the model. Whoever changes it calls `rows_changed` or `row_changed`.
  explicit Text_Grid_Model(Text_Grid& grid, QObject* parent = nullptr);

  [[nodiscard]] Text_Grid& grid() { return *grid_; }
  [[nodiscard]] const Text_Grid& grid() const { return *grid_; }

  /// Shows another grid of the same columns.
  void show(Text_Grid& grid);
  /// The grid has been filled anew.
  void rows_changed();
  /// Rows have come at the end.
  void rows_added();
  /// Texts of one grid row (counted with the heading row) have changed.
  void row_changed(int row);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  /// Of a long text its first 1000 characters.
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

  /// Columns of text (comments, names); the others hold numbers and stand at the right.
  void set_text_columns(std::vector<int> columns) { text_columns_ = std::move(columns); }
  [[nodiscard]] const std::vector<int>& text_columns() const { return text_columns_; }
  /// Columns of single letters, which stand in the middle.
  void set_letter_columns(std::vector<int> columns) { letter_columns_ = std::move(columns); }

  /// Row titles are typed like cells; the vertical header counts the rows.
  void set_titles_are_cells() { titles_are_cells_ = true; }
  [[nodiscard]] bool titles_are_cells() const { return titles_are_cells_; }

  /// Colours and tool tips of cells: given a grid row, a column and a role.
  using Look = std::function<QVariant(int row, int col, int role)>;
  void set_look(Look look) { look_ = std::move(look); }

 private:
  [[nodiscard]] Qt::Alignment alignment(int col) const;

  Text_Grid* grid_;
  int rows_;  // that the views know of
  std::vector<int> text_columns_, letter_columns_;
  bool titles_are_cells_ = false;
  Look look_;
};

}  // namespace branok
