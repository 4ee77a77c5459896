#include "ui/text_grid_model.h"

#include <algorithm>

#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr std::size_t longest_shown = 1000;  // characters; no column is as wide

// The start of a text, as far as a cell shows it: a cell may hold a whole file, and it is drawn and
// measured all the time.
QString Shown(std::string_view text) {
  constexpr std::size_t longest_character = 4;  // bytes
  std::size_t end = std::min(text.size(), longest_shown * longest_character);
  const auto continues = [&](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  // Not in the midst of a character, or all would be taken for another encoding.
  for (std::size_t k = 1; k < longest_character && end < text.size() && continues(end); ++k) --end;
  QString shown = To_Qt(text.substr(0, end));
  if (shown.size() <= static_cast<qsizetype>(longest_shown)) return shown;
  shown.truncate(longest_shown);
  if (shown.back().isHighSurrogate()) shown.chop(1);
  return shown;
}

int Data_Rows(const Text_Grid& grid) { return grid.Rows() - Text_Grid::FixedRows; }

}  // namespace

Text_Grid_Model::Text_Grid_Model(Text_Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(&grid), rows_(Data_Rows(grid)) {}

void Text_Grid_Model::show(Text_Grid& grid) {
  beginResetModel();
  grid_ = &grid;
  rows_ = Data_Rows(grid);
  endResetModel();
}

void Text_Grid_Model::rows_changed() { show(*grid_); }

void Text_Grid_Model::rows_added() {
  const int rows = Data_Rows(*grid_);
  if (rows <= rows_) return;
  beginInsertRows({}, rows_, rows - 1);
  rows_ = rows;
  endInsertRows();
}

void Text_Grid_Model::row_changed(int row) {
  const int shown = row - Text_Grid::FixedRows;
  emit dataChanged(index(shown, 0), index(shown, grid_->Cols() - 1));
}

int Text_Grid_Model::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int Text_Grid_Model::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_->Cols();
}

QVariant Text_Grid_Model::data(const QModelIndex& index, int role) const {
  const int row = index.row() + Text_Grid::FixedRows;
  // Between a change of the grid and the word of it a view may still ask for rows that have gone.
  if (row >= grid_->Rows()) return {};
  if (role == Qt::DisplayRole) return Shown(grid_->text(row, index.column()));
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::AlignVCenter | alignment(index.column()));
  }
  return look_ ? look_(row, index.column(), role) : QVariant();
}

Qt::Alignment Text_Grid_Model::alignment(int col) const {
  const auto holds = [col](const std::vector<int>& columns) {
    return std::find(columns.begin(), columns.end(), col) != columns.end();
  };
  if (holds(text_columns_)) return Qt::AlignLeft;
  return holds(letter_columns_) ? Qt::AlignHCenter : Qt::AlignRight;
}

QVariant Text_Grid_Model::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool heading = orientation == Qt::Horizontal;
  const int row = section + Text_Grid::FixedRows;
  if (role == Qt::DisplayRole) {
    if (heading) return To_Qt(grid_->text(0, section)).replace('\r', '\n');
    if (titles_are_cells_) return QString::number(row);
    return row < grid_->Rows() ? To_Qt(grid_->text(row, 0)).replace('\r', '\n') : QString();
  }
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(heading ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter);
  }
  return {};
}

}  // namespace branok
