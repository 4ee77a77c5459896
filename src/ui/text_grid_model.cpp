#include "ui/text_grid_model.h"

#include <algorithm>

#include "ui/qt_text.h"

namespace branok {

Text_Grid_Model::Text_Grid_Model(Text_Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {}

void Text_Grid_Model::rows_changed() {
  beginResetModel();
  endResetModel();
}

void Text_Grid_Model::row_changed(int row) {
  const int shown = row - Text_Grid::FixedRows;
  emit dataChanged(index(shown, 0), index(shown, grid_.Cols() - 1));
}

int Text_Grid_Model::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.Rows() - Text_Grid::FixedRows;
}

int Text_Grid_Model::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.Cols();
}

QVariant Text_Grid_Model::data(const QModelIndex& index, int role) const {
  if (role == Qt::DisplayRole) {
    return To_Qt(grid_.text(index.row() + Text_Grid::FixedRows, index.column()));
  }
  if (role == Qt::TextAlignmentRole) {
    const bool text = std::find(text_columns_.begin(), text_columns_.end(), index.column()) !=
                      text_columns_.end();
    return QVariant::fromValue(Qt::AlignVCenter | (text ? Qt::AlignLeft : Qt::AlignRight));
  }
  return {};
}

QVariant Text_Grid_Model::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool heading = orientation == Qt::Horizontal;
  if (role == Qt::DisplayRole) {
    QString text = heading ? To_Qt(grid_.text(0, section))
                           : To_Qt(grid_.text(section + Text_Grid::FixedRows, 0));
    return text.replace('\r', '\n');
  }
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(heading ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter);
  }
  return {};
}

}  // namespace branok
