#include "ui/value_grid.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

namespace branok {

namespace {

constexpr int title_column = 0;
constexpr int value_column = 1;
constexpr int quiet_role = Qt::UserRole;
constexpr Qt::ItemFlags shown_only = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
constexpr int cell_margin = 8;    // pixels about a text
constexpr int value_digits = 14;  // that a value's column has room for

// The current row's colours while the keyboard is elsewhere.
void Pale(QPalette& palette) {
  const QColor strong = palette.color(QPalette::Highlight);
  const QColor base = palette.color(QPalette::Base);
  palette.setColor(QPalette::Highlight, QColor((strong.red() + 3 * base.red()) / 4,
                                               (strong.green() + 3 * base.green()) / 4,
                                               (strong.blue() + 3 * base.blue()) / 4));
  palette.setBrush(QPalette::HighlightedText, palette.text());
}

// Paints a title with its unit at the right, a quiet value in grey, and edits in txtEdit.
class Value_Delegate : public QStyledItemDelegate {
 public:
  explicit Value_Delegate(Value_Grid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    if (index.column() != title_column) return QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const Row_Title title = Split_Title(item.text);
    item.text = title.name;
    grid_->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, grid_);
    item.text = title.unit;
    item.displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    // Once more, without the background that the name has laid.
    if ((item.state & QStyle::State_Selected) != 0) {
      item.palette.setBrush(QPalette::Text, item.palette.highlightedText());
      item.state &= ~QStyle::State_Selected;
    }
    grid_->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, grid_);
  }

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex&) const override {
    auto* const editor = new QLineEdit(parent);
    editor->setObjectName("txtEdit");
    editor->setFrame(false);
    editor->setAlignment(Qt::AlignRight);
    return editor;
  }

  // Cells copied from a spreadsheet bring a line end with them.
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override {
    model->setData(index, static_cast<QLineEdit*>(editor)->text().trimmed());
  }

  bool eventFilter(QObject* editor, QEvent* event) override {
    if (event->type() == QEvent::KeyPress &&
        grid_->leave_cell(static_cast<QKeyEvent*>(event)->key())) {
      return true;
    }
    return QStyledItemDelegate::eventFilter(editor, event);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;  // the row's colour tells it
    if (index.siblingAtColumn(value_column).data(quiet_role).toBool()) {
      option->palette.setBrush(QPalette::Text, option->palette.placeholderText());
    }
  }

 private:
  Value_Grid* grid_;
};

}  // namespace

Row_Title Split_Title(const QString& title) {
  const auto unit = title.lastIndexOf('(');
  if (unit < 0) return {title.trimmed(), {}};
  return {title.left(unit).trimmed(), title.mid(unit)};
}

Value_Grid::Value_Grid(const QStringList& titles, QWidget* parent)
    : QTableWidget(static_cast<int>(titles.size()), 2, parent) {
  setItemDelegate(new Value_Delegate(this));
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // its least width shows all columns
  setSizeAdjustPolicy(AdjustToContents);
  horizontalHeader()->hide();
  horizontalHeader()->setSectionResizeMode(title_column, QHeaderView::Stretch);
  horizontalHeader()->setSectionResizeMode(value_column, QHeaderView::Fixed);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  for (int row = 0; row < rowCount(); ++row) {
    auto* const title = new QTableWidgetItem(titles[row]);
    title->setFlags(shown_only);
    setItem(row, title_column, title);
    auto* const value = new QTableWidgetItem;
    value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setItem(row, value_column, value);
  }
  fit();
  setCurrentCell(0, value_column);
}

QString Value_Grid::value(int row) const { return item(row, value_column)->text(); }

void Value_Grid::set_value(int row, const QString& text) { item(row, value_column)->setText(text); }

void Value_Grid::set_quiet(int row) {
  item(row, value_column)->setFlags(shown_only);
  item(row, value_column)->setData(quiet_role, true);
}

void Value_Grid::set_chosen(int row) { item(row, value_column)->setFlags(shown_only); }

void Value_Grid::open_row(int row) {
  setCurrentCell(row, value_column);
  setFocus();
  edit(currentIndex());
}

void Value_Grid::end_editing() {
  QLineEdit* const editor = open_cell();
  if (editor == nullptr) return;
  commitData(editor);
  closeEditor(editor, QAbstractItemDelegate::NoHint);
}

bool Value_Grid::leave_cell(int key) {
  const int last = rowCount() - 1;
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
      end_editing();
      setCurrentCell(std::min(currentRow() + 1, last), value_column);
      return true;
    case Qt::Key_Up:
      end_editing();
      setCurrentCell(std::max(currentRow() - 1, 0), value_column);
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      end_editing();
      focusNextPrevChild(key == Qt::Key_Tab);
      return true;
    default:
      return false;
  }
}

bool Value_Grid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  // The title stands for its row.
  const QModelIndex cell = index.siblingAtColumn(value_column);
  if (cell.isValid() && !is_typed(cell.row())) {
    if ((trigger & editTriggers()) == 0) return false;
    emit change_wanted(cell.row());
    return true;
  }
  if (!QTableWidget::edit(cell, trigger, event)) return false;
  if (trigger == EditKeyPressed && open_cell() != nullptr) open_cell()->end(false);
  return true;
}

void Value_Grid::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    QApplication::clipboard()->setText(value(currentRow()));
  } else if (event->matches(QKeySequence::Paste)) {
    paste();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    edit(currentIndex(), EditKeyPressed, event);
  } else {
    QTableWidget::keyPressEvent(event);
  }
}

// What is typed is a value, never a search for one.
void Value_Grid::keyboardSearch(const QString&) {}

QModelIndex Value_Grid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  switch (action) {
    case MoveHome:
      return model()->index(0, value_column);
    case MoveEnd:
      return model()->index(rowCount() - 1, value_column);
    case MoveLeft:
    case MoveRight:
      return currentIndex();
    default:
      return QTableWidget::moveCursor(action, modifiers).siblingAtColumn(value_column);
  }
}

bool Value_Grid::focusNextPrevChild(bool next) {
  const int step = next ? 1 : -1;
  return go_to_typed(currentRow() + step, step) || QTableWidget::focusNextPrevChild(next);
}

void Value_Grid::focusInEvent(QFocusEvent* event) {
  QTableWidget::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason) go_to_typed(0, 1);
  if (event->reason() == Qt::BacktabFocusReason) go_to_typed(rowCount() - 1, -1);
}

void Value_Grid::changeEvent(QEvent* event) {
  QTableWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fit();
}

void Value_Grid::initViewItemOption(QStyleOptionViewItem* option) const {
  QTableWidget::initViewItemOption(option);
  if (!isAncestorOf(QApplication::focusWidget())) Pale(option->palette);
}

QSize Value_Grid::viewportSizeHint() const { return {minimumWidth(), verticalHeader()->length()}; }

bool Value_Grid::is_typed(int row) const {
  return (item(row, value_column)->flags() & Qt::ItemIsEditable) != 0;
}

QLineEdit* Value_Grid::open_cell() const {
  return qobject_cast<QLineEdit*>(indexWidget(currentIndex().siblingAtColumn(value_column)));
}

// Makes the first typed row from `row` on current; false when there is none.
bool Value_Grid::go_to_typed(int row, int step) {
  while (row >= 0 && row < rowCount() && !is_typed(row)) row += step;
  if (row < 0 || row >= rowCount()) return false;
  setCurrentCell(row, value_column);
  return true;
}

void Value_Grid::paste() {
  edit(currentIndex(), EditKeyPressed, nullptr);
  QLineEdit* const editor = open_cell();
  if (editor == nullptr) return;
  editor->selectAll();
  editor->paste();
}

// Rows and columns have room for their texts; all rows are seen when the window allows it.
void Value_Grid::fit() {
  const QFontMetrics metrics(font());
  int name = 0;
  int unit = 0;
  for (int row = 0; row < rowCount(); ++row) {
    if (item(row, title_column) == nullptr) return;  // not yet made
    const Row_Title title = Split_Title(item(row, title_column)->text());
    name = std::max(name, metrics.horizontalAdvance(title.name));
    unit = std::max(unit, metrics.horizontalAdvance(title.unit));
  }
  const int value = value_digits * metrics.horizontalAdvance('0') + 2 * cell_margin;
  setColumnWidth(value_column, value);
  verticalHeader()->setDefaultSectionSize(metrics.height() + cell_margin);
  setMinimumWidth(name + unit + value + 5 * cell_margin);
  updateGeometry();
}

}  // namespace branok
