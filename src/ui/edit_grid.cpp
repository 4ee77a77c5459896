#include "ui/edit_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "core/numbers.h"
#include "prep/cell_rules.h"
#include "prep/edit_commands.h"
#include "ui/one_line.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr int text_margin = 4;          // pixels between the editor's edge and its text
constexpr int longest_measured = 1000;  // characters; no window is as wide
constexpr Qt::KeyboardModifiers no_text = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool Is_Printable(const QKeyEvent& event) {
  return !event.text().isEmpty() && event.text().front().isPrint() &&
         !(event.modifiers() & no_text);
}

bool Is_Enter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

// Node grid columns that the check fills from the airways.
bool Is_Derived(Folder folder, int col) {
  return folder == Folder::node && col >= node_column::junctions && col < node_column::picture;
}

std::string_view First_Row(std::string_view clip) {
  return clip.substr(0, clip.find_first_of("\r\n"));
}

}  // namespace

QColor Doubt_Color(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor amber(255, 150, 0);
  const auto mixed = [](int a, int b) { return (a * 3 + b) / 4; };
  return {mixed(base.red(), amber.red()), mixed(base.green(), amber.green()),
          mixed(base.blue(), amber.blue())};
}

Edit_Grid::Edit_Grid(Database& db, Edit_Copy& copy, Folder folder, QWidget* parent)
    : Frozen_Grid_View(copy.grid(folder), parent), db_(db), copy_(copy), folder_(folder) {
  set_up_columns();
  rows().set_look([this](int row, int col, int role) { return look(row, col, role); });
  setTabKeyNavigation(true);
  make_editor();
  make_header_menus();
  apply_options();
  fit_columns();
}

void Edit_Grid::set_up_columns() {
  switch (folder_) {
    case Folder::airway:
      freeze_titles();
      rows().set_text_columns({root_column::picture, root_column::comment});
      rows().set_letter_columns(
          {root_column::name, root_column::kind, root_column::wind, root_column::shape});
      break;
    case Folder::node:
      rows().set_text_columns({node_column::picture, node_column::comment});
      break;
    case Folder::inlet:
      rows().set_text_columns({inlet_column::picture, inlet_column::comment});
      break;
    case Folder::assistfan:
      rows().set_text_columns({assist_column::picture, assist_column::comment});
      break;
    case Folder::thermal:
      rows().set_text_columns({thermo_column::comment});
      break;
    case Folder::mainfan:
      break;
  }
}

void Edit_Grid::make_editor() {
  editor_ = new QLineEdit(viewport());
  editor_->setObjectName("txtEdit" + QString::number(static_cast<int>(folder_)));
  editor_->setAccessibleName("Cell");
  Keep_To_One_Line(editor_);
  editor_->hide();
  editor_->installEventFilter(this);
  connect(editor_, &QLineEdit::textEdited, this, &Edit_Grid::note_keystroke);
  connect(editor_, &QLineEdit::textChanged, this, &Edit_Grid::place_editor);
  connect(editor_, &QLineEdit::textChanged, this, &Edit_Grid::show_doubt);
}

void Edit_Grid::refresh() {
  const QPoint current(currentIndex().column(), currentIndex().row());
  const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
  refreshing_ = true;
  rows().show(copy_.grid(folder_));
  fit_columns();
  take_grid_selection(current);
  refreshing_ = false;
  updateGeometries();
  horizontalScrollBar()->setValue(scrolled.x());
  verticalScrollBar()->setValue(scrolled.y());
  place_editor();
  viewport()->update();
  emit current_changed();
}

// Selects on the screen what is selected in the grid. The cell that was current stays so inside of
// the selection.
void Edit_Grid::take_grid_selection(QPoint current) {
  Text_Grid& grid = rows().grid();
  grid.select(grid.Row, grid.Col, grid.RowSel, grid.ColSel);
  if (grid.Row < Text_Grid::FixedRows) return;
  const auto [top, bottom] = std::minmax(grid.Row, grid.RowSel);
  const auto [left, right] = std::minmax(grid.Col, grid.ColSel);
  const QRect block(QPoint(std::max(left, first_column()), top - Text_Grid::FixedRows),
                    QPoint(right, bottom - Text_Grid::FixedRows));
  const auto cell = [this](QPoint at) { return model()->index(at.y(), at.x()); };
  const bool stays = cell(current).isValid() && block.contains(current);
  make_current(cell(stays ? current : block.topLeft()));
  selectionModel()->select({cell(block.topLeft()), cell(block.bottomRight())},
                           QItemSelectionModel::ClearAndSelect | selection_width());
}

void Edit_Grid::show_cell(int row, int col) {
  commit_editor();
  const QModelIndex cell = model()->index(
      std::clamp(row - Text_Grid::FixedRows, 0, std::max(model()->rowCount() - 1, 0)),
      std::clamp(col, first_column(), model()->columnCount() - 1));
  if (cell.isValid()) {
    make_current(cell);
    scrollTo(cell, EnsureVisible);
  }
  setFocus();
}

void Edit_Grid::apply_options() {
  if (folder_ != Folder::airway) return;
  setSelectionBehavior(db_.Opt_GridSel == 1   ? SelectRows
                       : db_.Opt_GridSel == 2 ? SelectColumns
                                              : SelectItems);
  if (currentIndex().isValid()) make_current(currentIndex());
}

void Edit_Grid::take_current_row() {
  take_selection();
  Text_Grid& grid = rows().grid();
  if (selectionBehavior() == SelectColumns && currentIndex().isValid()) {
    grid.Row = grid.RowSel = currentIndex().row() + Text_Grid::FixedRows;
  }
}

void Edit_Grid::take_paste_place(std::string_view text) {
  take_selection();
  Text_Grid& grid = rows().grid();
  if (!currentIndex().isValid()) return;
  const std::string_view first = First_Row(text);
  const auto width = static_cast<int>(std::count(first.begin(), first.end(), '\t')) + 1;
  const int col = currentIndex().column();
  if (selectionBehavior() == SelectRows && col + width <= grid.Cols()) grid.Col = col;
  if (selectionBehavior() == SelectColumns) {
    grid.Row = currentIndex().row() + Text_Grid::FixedRows;
  }
}

// --- The editor

void Edit_Grid::Show_Cell_Editor(const std::optional<QString>& typed) {
  open_editor(typed);
  if (editing_) editor_->setFocus();
  editor_->end(false);
}

void Edit_Grid::open_editor(const std::optional<QString>& typed) {
  const QModelIndex at = currentIndex();
  if (editing_ || !at.isValid()) return;
  scrollTo(at, EnsureVisible);
  cell_ = QPoint(at.column(), at.row());
  editing_ = true;
  typed_ = false;
  const int alignment = at.data(Qt::TextAlignmentRole).toInt();
  editor_->setAlignment(static_cast<Qt::Alignment>(alignment));
  take_cell_text(at, typed);
  show_doubt(editor_->text());
  place_editor();
  editor_->show();
  if (typed) note_keystroke();
}

// What was typed stands over the cell's text, so that an undo leads back to it. A text that is
// longer than the editor can hold is only shown, or its rest would be lost, and what is typed
// replaces it.
void Edit_Grid::take_cell_text(const QModelIndex& at, const std::optional<QString>& typed) {
  const std::string& text = rows().grid().text(at.row() + Text_Grid::FixedRows, at.column());
  const bool fits = text.size() <= static_cast<std::size_t>(editor_->maxLength());
  QString before = fits ? To_Qt(text) : at.data().toString();
  // A cleared comment is a row of blanks: nothing that one would type behind.
  if (before.trimmed().isEmpty()) before.clear();
  editor_->setReadOnly(!fits && !typed);
  editor_->setText(before);
  text_before_ = editor_->text();
  if (!typed) return;
  if (fits) {
    editor_->selectAll();
    editor_->insert(*typed);
  } else {
    editor_->setText(*typed);
  }
}

bool Edit_Grid::commit_editor() {
  if (!editing_) return false;
  const QString text = editor_->text();
  close_editor();
  const int row = cell_.y() + Text_Grid::FixedRows;
  Text_Grid& grid = rows().grid();
  if (text == text_before_ || row >= grid.Rows()) return false;
  grid.select(row, cell_.x(), row, cell_.x());
  const bool changed = Commit_Cell(db_, copy_, folder_, text.toStdString());
  rows().row_changed(row);
  rows().rows_added();
  widen_column(cell_.x());
  take_selection();
  if (changed) emit edited();
  return changed;
}

void Edit_Grid::discard_editor() {
  if (editing_) close_editor();
}

// The keyboard goes to the grid before the editor hides, or it would go to the next field; so it
// does when another window has it and this one would give it back to the editor. A page that is
// hidden, or left for another field, forgets the editor.
void Edit_Grid::close_editor() {
  editing_ = false;
  if (window()->focusWidget() == editor_ && isVisibleTo(window())) setFocus();
  editor_->clearFocus();
  editor_->hide();
}

// The cell may have been scrolled out of view since the editor was opened.
void Edit_Grid::note_keystroke() {
  scrollTo(model()->index(cell_.y(), cell_.x()), EnsureVisible);
  Edit_Flag(db_, folder_) = 1;
  if (!typed_) emit keystroke();
  typed_ = true;
}

// A text that the check would refuse is tinted while it is typed.
void Edit_Grid::show_doubt(const QString& text) {
  const auto fault = Cell_Fault(folder_, cell_.x(), text.toStdString());
  const QColor base = fault ? Doubt_Color(palette()) : palette().color(QPalette::Base);
  const QString look =
      QString("QLineEdit { border: 1px solid palette(highlight); padding: 0; background: %1; }")
          .arg(base.name());
  if (editor_->styleSheet() != look) editor_->setStyleSheet(look);
  editor_->setToolTip(fault                   ? To_Qt(fault->text)
                      : editor_->isReadOnly() ? QString("Too long to be edited here")
                                              : QString());
}

// Over its cell, to the right as far as the text needs it; never over the frozen titles.
void Edit_Grid::place_editor() {
  if (!editing_) return;
  QRect rect = visualRect(model()->index(cell_.y(), cell_.x()));
  const QString text = editor_->text().left(longest_measured) + "00";
  const int needed = editor_->fontMetrics().horizontalAdvance(text) + 2 * text_margin;
  const int room = viewport()->width() - rect.left();
  rect.setWidth(std::max(rect.width(), std::min(needed, room)));
  if (cell_.x() >= Text_Grid::FixedCols) rect.setLeft(std::max(rect.left(), frozen_width()));
  // Scrolled out of view it keeps the keyboard, out of sight.
  editor_->setGeometry(rect.isValid() ? rect : QRect(0, -100, 10, 10));
}

bool Edit_Grid::Editor_Key(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
      // In the last row the cell stays current, though a typed airway leaves an empty row behind
      // it.
      const bool last = cell_.y() == model()->rowCount() - 1;
      commit_editor();
      if (db_.Opt_MoveSel != 0) {
        move(0, 1);
      } else if (!last) {
        move(1, 0);
      }
      return true;
    }
    case Qt::Key_Escape:
      discard_editor();
      return true;
    case Qt::Key_Up:
      commit_editor();
      move(-1, 0);
      return true;
    case Qt::Key_Down:
      commit_editor();
      move(1, 0);
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      commit_editor();
      move_on(key == Qt::Key_Tab ? 1 : -1);
      return true;
    default:
      return false;
  }
}

bool Edit_Grid::eventFilter(QObject* object, QEvent* event) {
  if (object != editor_) return Frozen_Grid_View::eventFilter(object, event);
  switch (event->type()) {
    case QEvent::KeyPress: {
      const auto* const key = static_cast<QKeyEvent*>(event);
      if (!(key->modifiers() & no_text) && Editor_Key(key->key())) return true;
      break;
    }
    case QEvent::FocusIn:
      emit editor_focus();
      break;
    case QEvent::FocusOut:
      if (keyboard_has_gone(*static_cast<QFocusEvent*>(event))) {
        commit_editor();
        emit editor_focus();
      }
      break;
    default:
      break;
  }
  return Frozen_Grid_View::eventFilter(object, event);
}

// To another field of the window: not while a menu or another window is before it.
bool Edit_Grid::keyboard_has_gone(const QFocusEvent& event) const {
  if (event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason) {
    return false;
  }
  const QWidget* const now = QApplication::focusWidget();
  return now != nullptr && now != editor_ && now->window() == window();
}

// --- The grid's own keys

void Edit_Grid::keyPressEvent(QKeyEvent* event) {
  if (editing_) return Frozen_Grid_View::keyPressEvent(event);
  const int key = event->key();
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (plain && (Is_Enter(key) || key == Qt::Key_F2)) {
    Show_Cell_Editor();
  } else if (plain && key == Qt::Key_Delete) {
    empty_cells();
  } else if (plain && key == Qt::Key_Backspace) {
    Show_Cell_Editor(QString());
  } else if (plain && key == Qt::Key_Escape) {
    if (currentIndex().isValid()) make_current(currentIndex());
  } else if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
    // From the last cell the keyboard goes on to the next field.
    if (!move_on(key == Qt::Key_Tab ? 1 : -1)) event->ignore();
  } else if (Is_Printable(*event)) {
    Show_Cell_Editor(event->text());
  } else {
    Frozen_Grid_View::keyPressEvent(event);
  }
}

// Stays at the edges.
void Edit_Grid::move(int rows, int cols) {
  const QModelIndex at = currentIndex();
  if (!at.isValid()) return;
  const QModelIndex to = model()->index(at.row() + rows, at.column() + cols);
  make_current(to.isValid() && to.column() >= first_column() ? to : at);
}

// To the next or previous cell, row by row. False at the last and first one.
bool Edit_Grid::move_on(int step) {
  const QModelIndex at = currentIndex();
  if (!at.isValid()) return false;
  const int width = model()->columnCount() - first_column();
  const int place = at.row() * width + at.column() - first_column() + step;
  if (place < 0 || place >= width * model()->rowCount()) return false;
  make_current(model()->index(place / width, place % width + first_column()));
  return true;
}

void Edit_Grid::empty_cells() {
  take_selection();
  if (!Empty_Cells(db_, copy_, folder_)) return;
  refresh();
  emit edited();
}

void Edit_Grid::mouseDoubleClickEvent(QMouseEvent* event) {
  Frozen_Grid_View::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid()) {
    Show_Cell_Editor();
  }
}

// Outside of what is selected the menu is for the cell under the mouse. Asked for with a key it
// opens below the current cell.
void Edit_Grid::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Keyboard) {
    commit_editor();
    const QModelIndex at = currentIndex();
    if (at.isValid()) scrollTo(at, EnsureVisible);
    const QPoint below = visualRect(at).bottomLeft() + QPoint(text_margin, 1);
    return emit context_menu(viewport()->mapToGlobal(at.isValid() ? below : QPoint()));
  }
  const QModelIndex at = indexAt(event->pos());
  if (at.isValid() && !selectionModel()->isSelected(at)) make_current(at);
  emit context_menu(event->globalPos());
}

// The titles and headings have the same menu, for their row or column.
void Edit_Grid::make_header_menus() {
  for (QHeaderView* const header : {verticalHeader(), horizontalHeader()}) {
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this, [this, header](QPoint at) {
      setFocus();
      if (header == verticalHeader()) {
        const int row = rowAt(at.y());
        if (row >= 0 && !selectionModel()->isRowSelected(row)) selectRow(row);
      } else {
        const int col = at.x() < frozen_width() ? 0 : columnAt(at.x());
        if (col >= 0 && !selectionModel()->isColumnSelected(col)) selectColumn(col);
      }
      emit context_menu(header->viewport()->mapToGlobal(at));
    });
  }
}

// A character may be composed of several keys. The composition is shown in the editor while the
// keyboard stays with the grid: to take it away would break the composition off.
void Edit_Grid::inputMethodEvent(QInputMethodEvent* event) {
  const bool composing = !event->preeditString().isEmpty();
  if (!editing_ && !composing && event->commitString().isEmpty()) return event->ignore();
  open_editor(QString());
  QCoreApplication::sendEvent(editor_, event);
  if (!composing) editor_->setFocus();
}

// --- Focus, place and selection

void Edit_Grid::changeEvent(QEvent* event) {
  Frozen_Grid_View::changeEvent(event);
  if (event->type() != QEvent::FontChange || editor_ == nullptr) return;
  editor_->setFont(font());
  place_editor();
}

void Edit_Grid::focusInEvent(QFocusEvent* event) {
  Frozen_Grid_View::focusInEvent(event);
  setAttribute(Qt::WA_InputMethodEnabled);
}

void Edit_Grid::focusOutEvent(QFocusEvent* event) {
  Frozen_Grid_View::focusOutEvent(event);
  if (keyboard_has_gone(*event)) commit_editor();
}

void Edit_Grid::scrollContentsBy(int dx, int dy) {
  Frozen_Grid_View::scrollContentsBy(dx, dy);
  place_editor();
}

void Edit_Grid::updateGeometries() {
  Frozen_Grid_View::updateGeometries();
  place_editor();
}

void Edit_Grid::currentChanged(const QModelIndex& now, const QModelIndex& before) {
  Frozen_Grid_View::currentChanged(now, before);
  setAttribute(Qt::WA_InputMethodEnabled);
  if (refreshing_) return;
  if (editing_ && (now.column() != cell_.x() || now.row() != cell_.y())) commit_editor();
  take_selection();
  emit current_changed();
}

void Edit_Grid::selectionChanged(const QItemSelection& now, const QItemSelection& before) {
  Frozen_Grid_View::selectionChanged(now, before);
  if (!refreshing_) take_selection();
}

// --- Looks

// Names and comments have room before the first is typed.
int Edit_Grid::least_characters(int col) const {
  const bool text = col == rows().columnCount() - 1 || col == Picture_Column(folder_);
  return text && col > 0 && folder_ != Folder::mainfan ? 16 : 0;
}

QVariant Edit_Grid::look(int row, int col, int role) const {
  if (role != Qt::BackgroundRole && role != Qt::ForegroundRole && role != Qt::ToolTipRole)
    return {};
  const bool derived = Is_Derived(folder_, col);
  if (role == Qt::ForegroundRole) {
    return derived ? QVariant(palette().color(QPalette::PlaceholderText)) : QVariant();
  }
  const auto fault = Cell_Fault(folder_, col, copy_.grid(folder_).text(row, col));
  if (role == Qt::BackgroundRole) {
    return fault ? QVariant(QBrush(Doubt_Color(palette()))) : QVariant();
  }
  if (fault) return To_Qt(fault->text);
  return derived ? QVariant("Filled from the airways by the check") : QVariant();
}

}  // namespace branok
