#include "core/text_grid.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/table.h"

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

void Text_Grid::insert_rows(int row, int count) {
  if (row < FixedRows || row > Rows() || count < 0) Outside_Table(row, Rows(), FixedRows);
  const auto at = cells_.begin() + static_cast<std::ptrdiff_t>(row) * cols_;
  cells_.insert(at, static_cast<std::size_t>(count) * static_cast<std::size_t>(cols_), {});
}

void Text_Grid::remove_rows(int row, int count) {
  if (row < FixedRows || count < 0 || row + count > Rows()) Outside_Table(row, Rows(), FixedRows);
  const auto at = cells_.begin() + static_cast<std::ptrdiff_t>(row) * cols_;
  cells_.erase(at, at + static_cast<std::ptrdiff_t>(count) * cols_);
  Row = std::min(Row, Rows() - 1);
  RowSel = std::min(RowSel, Rows() - 1);
}

std::span<const std::string> Text_Grid::row(int row) const {
  return {&cells_[place(row, 0)], static_cast<std::size_t>(cols_)};
}

bool Text_Grid::is_blank(int row) const {
  const std::span<const std::string> cells = this->row(row);
  return std::all_of(cells.begin(), cells.end(),
                     [](const std::string& cell) { return Trim(cell).empty(); });
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

void Text_Grid::set_Clip(std::string_view text) {
  if (Row < FixedRows) return;
  const auto [top, bottom] = std::minmax(Row, RowSel);
  const auto [left, right] = std::minmax(Col, ColSel);
  for (int row = top; row <= bottom && !text.empty(); ++row) {
    const std::size_t end = text.find('\r');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    for (int col = left; col <= right; ++col) {
      const std::size_t tab = line.find('\t');
      set_text(row, col, std::string(line.substr(0, tab)));
      if (tab == std::string_view::npos) break;
      line.remove_prefix(tab + 1);
    }
  }
}

void Text_Grid::select(int row, int col, int last_row, int last_col) {
  Row = std::clamp(row, 0, Rows() - 1);
  Col = std::clamp(col, 0, Cols() - 1);
  // From a data row no selection reaches into the headings.
  RowSel = std::clamp(last_row, std::min(Row, FixedRows), Rows() - 1);
  ColSel = std::clamp(last_col, 0, Cols() - 1);
}

}  // namespace branok
