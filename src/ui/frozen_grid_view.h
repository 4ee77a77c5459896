// A grid whose row titles are cells that are typed, selected and pasted like any other, and yet
// stay in view when the columns scroll.
#pragma once

#include <QPersistentModelIndex>
#include <optional>

#include "ui/grid_view.h"

namespace branok {

/// The title column is painted over what has been scrolled under it; what the mouse does there
/// means the title. Until `freeze_titles` it is a plain grid.
class Frozen_Grid_View : public Grid_View {
  Q_OBJECT
 public:
  Frozen_Grid_View(Text_Grid& grid, QWidget* parent);

  /// Shows the titles as cells of the first column and numbers the rows.
  void freeze_titles();

  [[nodiscard]] int frozen_width() const override;

  [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
  [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint) override;

 protected:
  /// Makes a cell current and selects it alone, whatever keys are held.
  void make_current(const QModelIndex& index);
  /// What the selection takes with a cell: its row, its column or nothing.
  [[nodiscard]] QItemSelectionModel::SelectionFlags selection_width() const;

  void paint_frozen(QPainter& painter) override;
  void scrollContentsBy(int dx, int dy) override;
  void selectionChanged(const QItemSelection& now, const QItemSelection& before) override;
  void currentChanged(const QModelIndex& now, const QModelIndex& before) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
      const QModelIndex& index, const QEvent* event) const override;

 private:
  [[nodiscard]] bool covers_columns() const;
  void paint_title(QPainter& painter, int row);

  std::optional<QPoint> mouse_;           // while it selects
  mutable QPersistentModelIndex anchor_;  // where the selection began
};

}  // namespace branok
