// Shows a Text_Grid to Qt's views.
#pragma once

#include <QAbstractTableModel>

#include "core/text_grid.h"

namespace branok {

/// All columns of the grid, title columns too, and its data rows; the heading row is the horizontal
/// header, the first title column the vertical one.
class Text_Grid_Model : public QAbstractTableModel {
  Q_OBJECT
 public:
  /// The grid must outlive the model. Whoever changes it calls `rows_changed` or `row_changed`.
  explicit Text_Grid_Model(Text_Grid& grid, QObject* parent = nullptr);

  [[nodiscard]] Text_Grid& grid() { return grid_; }
  [[nodiscard]] const Text_Grid& grid() const { return grid_; }

  /// The grid has been filled anew.
  void rows_changed();
  /// Texts of one grid row (counted with the heading row) have changed.
  void row_changed(int row);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

  /// Columns of text (comments, names); the others hold numbers and stand at the right.
  void set_text_columns(std::vector<int> columns) { text_columns_ = std::move(columns); }

 private:
  Text_Grid& grid_;
  std::vector<int> text_columns_;
};

}  // namespace branok
