#include "ui/frozen_grid_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cstdlib>

namespace branok {

namespace {

constexpr int title_column = 0;

// The headings; that of a frozen first column is painted over the others.
class Frozen_Header : public QHeaderView {
 public:
  explicit Frozen_Header(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QHeaderView::paintEvent(event);
    if (!covers()) return;
    QPainter painter(viewport());
    paintSection(&painter, QRect(0, 0, sectionSize(title_column), height()), title_column);
  }

  bool viewportEvent(QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseMove: {
        auto& mouse = *static_cast<QMouseEvent*>(event);
        return widen(mouse) || lead(mouse);
      }
      default:
        return QHeaderView::viewportEvent(event);
    }
  }

 private:
  [[nodiscard]] bool covers() const { return offset() > 0 && !isSectionHidden(title_column); }

  // The frozen heading's right edge widens it, as with any other. False when the mouse is not at
  // it.
  bool widen(const QMouseEvent& mouse) {
    const int to_edge = sectionSize(title_column) - mouse.position().toPoint().x();
    const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
    const bool at_edge = covers() && std::abs(to_edge) <= grip;
    if (mouse.buttons() == Qt::NoButton) {
      const bool was_held = held_.has_value();
      held_.reset();
      if (at_edge) {
        viewport()->setCursor(Qt::SplitHCursor);
      } else {
        viewport()->unsetCursor();
      }
      return was_held || (at_edge && mouse.type() == QEvent::MouseMove);
    }
    if (mouse.type() != QEvent::MouseMove && at_edge) held_ = to_edge;
    if (!held_) return false;
    const int width = mouse.position().toPoint().x() + *held_;
    resizeSection(title_column, std::max(width, minimumSectionSize()));
    return true;
  }

  // Over the frozen heading the mouse is led to where that heading would be without it.
  bool lead(QMouseEvent& mouse) {
    if (!covers() || mouse.position().x() >= sectionSize(title_column)) {
      return QHeaderView::viewportEvent(&mouse);
    }
    QMouseEvent led(mouse.type(), mouse.position() - QPointF(offset(), 0), mouse.globalPosition(),
                    mouse.button(), mouse.buttons(), mouse.modifiers());
    return QHeaderView::viewportEvent(&led);
  }

  std::optional<int> held_;  // the edge, that far right of the mouse
};

}  // namespace

Frozen_Grid_View::Frozen_Grid_View(Text_Grid& grid, QWidget* parent)
    : Grid_View(grid, new Frozen_Header(nullptr), parent) {}

void Frozen_Grid_View::freeze_titles() {
  rows().set_titles_are_cells();
  setColumnHidden(title_column, false);
  fit_columns();
}

int Frozen_Grid_View::frozen_width() const {
  return isColumnHidden(title_column) ? 0 : columnWidth(title_column);
}

bool Frozen_Grid_View::covers_columns() const {
  return frozen_width() > 0 && horizontalOffset() > 0;
}

QModelIndex Frozen_Grid_View::indexAt(const QPoint& point) const {
  if (point.x() < 0 || point.x() >= frozen_width()) return Grid_View::indexAt(point);
  const int row = rowAt(point.y());
  return row < 0 ? QModelIndex() : model()->index(row, title_column);
}

QRect Frozen_Grid_View::visualRect(const QModelIndex& index) const {
  QRect rect = Grid_View::visualRect(index);
  if (index.column() == title_column && frozen_width() > 0) rect.moveLeft(0);
  return rect;
}

void Frozen_Grid_View::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QScrollBar* const bar = horizontalScrollBar();
  const int left = bar->value();
  Grid_View::scrollTo(index, hint);
  if (frozen_width() == 0) return;
  if (index.column() == title_column) {
    bar->setValue(left);  // it is in view already
  } else {
    const int hidden = frozen_width() - visualRect(index).left();
    if (hidden > 0) bar->setValue(bar->value() - hidden);
  }
}

void Frozen_Grid_View::paint_frozen(QPainter& painter) {
  if (!covers_columns() || model()->rowCount() == 0) return;
  const int below = rowAt(viewport()->height() - 1);
  const int last = below < 0 ? model()->rowCount() - 1 : below;
  for (int row = rowAt(0); row <= last; ++row) paint_title(painter, row);
}

void Frozen_Grid_View::paint_title(QPainter& painter, int row) {
  const QModelIndex index = model()->index(row, title_column);
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.rect = visualRect(index);
  if (row % 2 != 0) option.features |= QStyleOptionViewItem::Alternate;
  if (selectionModel()->isSelected(index)) option.state |= QStyle::State_Selected;
  if (index == currentIndex() && hasFocus()) option.state |= QStyle::State_HasFocus;
  painter.fillRect(option.rect,
                   palette().color(row % 2 != 0 ? QPalette::AlternateBase : QPalette::Base));
  style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &option, &painter, this);
  itemDelegateForIndex(index)->paint(&painter, option, index);
  const auto line =
      static_cast<QRgb>(style()->styleHint(QStyle::SH_Table_GridLineColor, &option, this));
  painter.setPen(QColor::fromRgb(line));
  painter.drawLine(option.rect.left(), option.rect.bottom() + 1, option.rect.right() + 1,
                   option.rect.bottom() + 1);
  // A stronger line at the edge that the other columns pass under.
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(option.rect.right() + 1, option.rect.top(), option.rect.right() + 1,
                   option.rect.bottom() + 1);
}

void Frozen_Grid_View::scrollContentsBy(int dx, int dy) {
  Grid_View::scrollContentsBy(dx, dy);
  // The frozen column has been scrolled along with the others.
  if (dx == 0 || frozen_width() == 0) return;
  viewport()->update();
  horizontalHeader()->viewport()->update();
}

void Frozen_Grid_View::selectionChanged(const QItemSelection& now, const QItemSelection& before) {
  Grid_View::selectionChanged(now, before);
  if (covers_columns()) viewport()->update(0, 0, frozen_width(), viewport()->height());
}

void Frozen_Grid_View::currentChanged(const QModelIndex& now, const QModelIndex& before) {
  Grid_View::currentChanged(now, before);
  if (!anchor_.isValid()) anchor_ = before.isValid() ? before : now;
}

void Frozen_Grid_View::make_current(const QModelIndex& index) {
  anchor_ = index;
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | selection_width());
}

QItemSelectionModel::SelectionFlags Frozen_Grid_View::selection_width() const {
  switch (selectionBehavior()) {
    case SelectRows:
      return QItemSelectionModel::Rows;
    case SelectColumns:
      return QItemSelectionModel::Columns;
    default:
      return QItemSelectionModel::NoUpdate;
  }
}

void Frozen_Grid_View::mousePressEvent(QMouseEvent* event) {
  mouse_ = event->position().toPoint();
  Grid_View::mousePressEvent(event);
  mouse_.reset();
}

void Frozen_Grid_View::mouseMoveEvent(QMouseEvent* event) {
  mouse_ = event->position().toPoint();
  Grid_View::mouseMoveEvent(event);
  mouse_.reset();
}

// A rectangle cannot tell a title from a column that lies under it, so the block goes from the cell
// where it began to that of the mouse or the keyboard.
void Frozen_Grid_View::setSelection(const QRect& /*rect*/,
                                    QItemSelectionModel::SelectionFlags command) {
  const QModelIndex to = mouse_ ? indexAt(*mouse_) : currentIndex();
  if (!to.isValid()) return;
  const QModelIndex from = anchor_.isValid() ? QModelIndex(anchor_) : to;
  const auto [top, bottom] = std::minmax({from.row(), to.row()});
  const auto [left, right] = std::minmax({from.column(), to.column()});
  selectionModel()->select({model()->index(top, left), model()->index(bottom, right)}, command);
}

QItemSelectionModel::SelectionFlags Frozen_Grid_View::selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const {
  auto command = Grid_View::selectionCommand(index, event);
  // Ctrl with Shift goes far and takes all on the way along.
  if (event != nullptr && event->type() == QEvent::KeyPress) {
    const Qt::KeyboardModifiers keys = static_cast<const QKeyEvent*>(event)->modifiers();
    if (keys.testFlag(Qt::ShiftModifier) && keys.testFlag(Qt::ControlModifier)) {
      command = QItemSelectionModel::SelectCurrent | selection_width();
    }
  }
  const bool begins = command.testFlag(QItemSelectionModel::Select) &&
                      !command.testFlag(QItemSelectionModel::Current);
  if (begins) anchor_ = index;
  return command;
}

}  // namespace branok
