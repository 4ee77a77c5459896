#include "core/text_grid.h"

#include <algorithm>

#include "core/numbers.h"

namespace branok {

Text_Grid::Text_Grid(std::vector<std::string> headings)
    : cols_(static_cast<int>(headings.size())), cells_(std::move(headings)) {
  if (cols_ == 0) throw Run_Time_Error("a grid has columns");
}

std::size_t Text_Grid::place(int row, int col) const {
  if (row < 0 || row >= Rows() || col < 0 || col >= cols_) {
    throw Run_Time_Error("row " + std::to_string(row) + ", column " + std::to_string(col) +
                         " is outside the grid");
  }
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
         static_cast<std::size_t>(col);
}

const std::string& Text_Grid::text(int row, int col) const { return cells_[place(row, col)]; }

void Text_Grid::set_text(int row, int col, std::string text) {
  cells_[place(row, col)] = std::move(text);
}

void Text_Grid::clear() { set_data_rows(0); }

void Text_Grid::set_data_rows(int rows) {
  const auto row = static_cast<std::size_t>(cols_);
  cells_.resize(row * FixedRows);
  cells_.resize(row * (static_cast<std::size_t>(rows) + FixedRows));
  Row = Col = RowSel = ColSel = 0;
}

std::string Text_Grid::Clip() const {
  if (Row < FixedRows) return {};
  const auto [top, bottom] = std::minmax(Row, RowSel);
  const auto [left, right] = std::minmax(Col, ColSel);
  std::string clip;
  for (int row = top; row <= bottom; ++row) {
    if (row > top) clip += '\r';
    for (int col = left; col <= right; ++col) {
      if (col > left) clip += '\t';
      clip += text(row, col);
    }
  }
  return clip;
}

}  // namespace branok
