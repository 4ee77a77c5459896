#include "ui/grid_view.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyleOptionHeader>
#include <algorithm>

#include "ui/grid_clipboard.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr int cell_margin = 6;      // pixels at either side of a text
constexpr int longest_column = 40;  // characters; longer comments are cut with dots
constexpr int title_column = 0;
constexpr int frame_width = 2;  // of the current cell

// The frame of the current cell: seen on the cells that are selected and on those that are not.
QColor Frame_Color(const QPalette& palette, bool selected) {
  constexpr int least_contrast = 48;  // of 255
  const QColor text = palette.color(QPalette::Text);
  const QColor highlight = palette.color(QPalette::Highlight);
  const bool is_seen = std::abs(qGray(text.rgb()) - qGray(highlight.rgb())) >= least_contrast;
  return !selected || is_seen ? text : palette.color(QPalette::HighlightedText);
}

QColor Between(const QColor& a, const QColor& b) {
  return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

// Row titles have one height: all of a title selects its row, its edges too.
class Without_Grips : public QProxyStyle {
 public:
  explicit Without_Grips(QObject* parent) { setParent(parent); }
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    return metric == PM_HeaderGripMargin ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
  }
};

// While it lives, widths are the program's own and no drag of the user's. A fit may cause another:
// a scroll bar comes, and the columns have less room.
class Own_Widths {
 public:
  explicit Own_Widths(bool& fitting) : fitting_(fitting), before_(fitting) { fitting_ = true; }
  Own_Widths(const Own_Widths&) = delete;
  Own_Widths& operator=(const Own_Widths&) = delete;
  Own_Widths(Own_Widths&&) = delete;
  Own_Widths& operator=(Own_Widths&&) = delete;
  ~Own_Widths() { fitting_ = before_; }

 private:
  bool& fitting_;
  bool before_;
};

}  // namespace

Grid_View::Grid_View(Text_Grid& grid, QWidget* parent) : Grid_View(grid, nullptr, parent) {}

Grid_View::Grid_View(Text_Grid& grid, QHeaderView* headings, QWidget* parent)
    : QTableView(parent), model_(grid) {
  if (headings != nullptr) setHorizontalHeader(headings);
  setModel(&model_);
  // The titles stand in the vertical header, where they stay in view.
  setColumnHidden(title_column, true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setHorizontalScrollMode(ScrollPerPixel);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(24);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setHighlightSections(true);
  verticalHeader()->setStyle(new Without_Grips(verticalHeader()));
  corner_ = findChild<QAbstractButton*>();
  if (corner_ != nullptr) corner_->installEventFilter(this);
  connect(horizontalHeader(), &QHeaderView::sectionResized, [this](int column) {
    if (!fitting_) dragged_.insert(column);
  });
  fit_columns();
}

void Grid_View::show_grid() {
  const int top = verticalScrollBar()->value();
  const QModelIndex current = currentIndex();
  const QPoint cell = current.isValid() ? QPoint(current.column(), current.row()) : QPoint(-1, -1);
  const QItemSelection selection = selectionModel()->selection();
  const QRect block = selection.isEmpty()
                          ? QRect()
                          : QRect(QPoint(selection.first().left(), selection.first().top()),
                                  QPoint(selection.first().right(), selection.first().bottom()));
  model_.rows_changed();
  fit_columns();
  const bool same_rows = shown_rows_ == model_.rowCount();
  shown_rows_ = model_.rowCount();
  if (same_rows && cell.y() >= 0) {
    selectionModel()->setCurrentIndex(model_.index(cell.y(), cell.x()),
                                      QItemSelectionModel::NoUpdate);
  }
  if (same_rows && block.isValid()) {
    selectionModel()->select(
        {model_.index(block.top(), block.left()), model_.index(block.bottom(), block.right())},
        QItemSelectionModel::Select);
  }
  verticalScrollBar()->setValue(top);
  viewport()->update();
}

void Grid_View::set_empty_text(const QString& text) {
  empty_text_ = text;
  setAccessibleDescription(text);
  viewport()->update();
}

void Grid_View::go_to_row(int row) {
  const int shown = std::clamp(row - Text_Grid::FixedRows, 0, std::max(model_.rowCount() - 1, 0));
  const QModelIndex place = model_.index(shown, first_column());
  if (!place.isValid()) return;
  setCurrentIndex(place);
  scrollTo(place, PositionAtCenter);
}

void Grid_View::take_selection() {
  Text_Grid& grid = model_.grid();
  grid.Row = grid.Col = grid.RowSel = grid.ColSel = 0;
  QRect block;
  for (const QItemSelectionRange& part : selectionModel()->selection()) {
    block |= QRect(QPoint(part.left(), part.top()), QPoint(part.right(), part.bottom()));
  }
  if (block.isValid()) {
    grid.Row = block.top() + Text_Grid::FixedRows;
    grid.RowSel = block.bottom() + Text_Grid::FixedRows;
    grid.Col = std::max(block.left(), first_column());
    grid.ColSel = block.right();
  } else if (currentIndex().isValid()) {
    grid.Row = grid.RowSel = currentIndex().row() + Text_Grid::FixedRows;
    grid.Col = grid.ColSel = currentIndex().column();
  }
}

void Grid_View::copy_selection() {
  take_selection();
  if (model_.grid().Row >= Text_Grid::FixedRows) Copy_To_Clipboard(model_.grid().Clip());
}

int Grid_View::first_column() const {
  return model_.titles_are_cells() ? title_column : Text_Grid::FixedCols;
}

bool Grid_View::is_empty() const {
  const Text_Grid& grid = model_.grid();
  return grid.Rows() == Text_Grid::FixedRows ||
         (grid.Rows() == Text_Grid::FixedRows + 1 && grid.is_blank(Text_Grid::FixedRows));
}

void Grid_View::fit_columns() {
  const int digit = fontMetrics().horizontalAdvance('0');
  const Own_Widths own(fitting_);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cell_margin);
  verticalHeader()->setFixedWidth(
      model_.titles_are_cells()
          ? digit * static_cast<int>(std::to_string(model_.rowCount()).size() + 1) + 2 * cell_margin
          : text_width(title_column));
  for (int col = first_column(); col < model_.columnCount(); ++col) {
    if (!dragged_.contains(col)) setColumnWidth(col, text_width(col));
  }
  const int line = horizontalHeader()->fontMetrics().lineSpacing();
  horizontalHeader()->setFixedHeight(2 * line + 2 * cell_margin);
  make_texts_give_way();
}

// Columns of texts become narrower, down to their headings, where all columns are in view by that.
void Grid_View::make_texts_give_way() {
  std::vector<int> columns;
  for (const int col : model_.text_columns()) {
    if (!dragged_.contains(col)) columns.push_back(col);
  }
  const auto slack = [this](int col) { return text_width(col) - heading_width(col); };
  int missing = horizontalHeader()->length() - viewport()->width();
  int room = 0;
  for (const int col : columns) {
    missing += text_width(col) - columnWidth(col);
    room += slack(col);
  }
  if (missing > room) missing = 0;
  const Own_Widths own(fitting_);
  for (const int col : columns) {
    const int part = missing > 0 ? missing * slack(col) / room : 0;
    setColumnWidth(col, text_width(col) - part);
    missing -= part;
    room -= slack(col);
  }
}

int Grid_View::least_characters(int /*col*/) const { return 0; }

void Grid_View::widen_column(int col) {
  if (dragged_.contains(col)) return;
  const Own_Widths own(fitting_);
  setColumnWidth(col, std::max(columnWidth(col), text_width(col)));
  make_texts_give_way();
}

// Room for the longest text of a column, counted in digits, and for its heading.
int Grid_View::text_width(int col) const {
  const Text_Grid& grid = model_.grid();
  const int digit = fontMetrics().horizontalAdvance('0');
  auto longest = static_cast<std::size_t>(least_characters(col));
  for (int row = Text_Grid::FixedRows; row < grid.Rows(); ++row) {
    longest = std::max(longest, grid.text(row, col).size());
  }
  const int width = digit * static_cast<int>(std::min<std::size_t>(longest, longest_column) + 1);
  return std::max(width + 2 * cell_margin, heading_width(col));
}

int Grid_View::heading_width(int col) const {
  int width = 0;
  for (const QString& line : To_Qt(model_.grid().text(0, col)).split('\r')) {
    width = std::max(width, horizontalHeader()->fontMetrics().horizontalAdvance(line));
  }
  return width + fontMetrics().horizontalAdvance('0') + 2 * cell_margin;
}

void Grid_View::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  // The arrow keys start here; nothing is selected before the user has done so.
  if (!currentIndex().isValid() && model_.rowCount() > 0) {
    selectionModel()->setCurrentIndex(model_.index(0, first_column()),
                                      QItemSelectionModel::NoUpdate);
  }
  emit focused();
}

void Grid_View::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  QPainter painter(viewport());
  paint_empty_text(painter);
  paint_frozen(painter);
  paint_current_cell(painter);
}

void Grid_View::paint_frozen(QPainter& /*painter*/) {}

void Grid_View::paint_empty_text(QPainter& painter) {
  if (empty_text_.isEmpty() || !is_empty()) return;
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect().adjusted(24, 24, -24, -24),
                   Qt::AlignCenter | Qt::TextWordWrap, empty_text_);
}

// Of a selected block it shows where typing goes; weaker while the keyboard is elsewhere.
void Grid_View::paint_current_cell(QPainter& painter) {
  const QModelIndex at = currentIndex();
  if (!at.isValid()) return;
  const QRect cell = visualRect(at);
  const int covered = at.column() == title_column ? 0 : frozen_width();
  const bool selected = selectionModel()->isSelected(at);
  const QColor strong = Frame_Color(palette(), selected);
  const QColor ground = palette().color(selected ? QPalette::Highlight : QPalette::Base);
  painter.setClipRect(viewport()->rect().adjusted(covered, 0, 0, 0));
  const QColor color = hasFocus() ? strong : Between(strong, ground);
  const QRect inside = cell.adjusted(frame_width, frame_width, -frame_width, -frame_width);
  for (const QRect& side : QRegion(cell) - QRegion(inside)) painter.fillRect(side, color);
}

// The scroll bars take room or give it back.
void Grid_View::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  make_texts_give_way();
}

void Grid_View::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    copy_selection();
  } else {
    QTableView::keyPressEvent(event);
  }
}

bool Grid_View::eventFilter(QObject* object, QEvent* event) {
  if (object == corner_ && event->type() == QEvent::Paint) {
    paint_corner();
    return true;
  }
  return QTableView::eventFilter(object, event);
}

void Grid_View::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  dragged_.clear();
  fit_columns();
}

// The heading of the title column stands in the corner.
void Grid_View::paint_corner() {
  QStyleOptionHeader option;
  option.initFrom(corner_);
  option.orientation = Qt::Horizontal;
  option.section = 0;
  option.textAlignment = Qt::AlignCenter;
  option.rect = corner_->rect();
  option.text = model_.titles_are_cells()
                    ? QString("No.")
                    : To_Qt(model_.grid().text(0, title_column)).replace('\r', '\n');
  QPainter painter(corner_);
  painter.setFont(horizontalHeader()->font());
  style()->drawControl(QStyle::CE_Header, &option, &painter, this);
}

}  // namespace branok
