// A grid as data: a table of texts with heading rows and title columns, a current cell and a
// selection. Windows only show it; filling, copying and editing need no window.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace branok {

/// Rows 0..FixedRows-1 are headings and columns 0..FixedCols-1 are titles; data follow. Rows and
/// columns are counted from 0. Texts are kept byte for byte.
class Text_Grid {
 public:
  /// An empty grid with these headings in its one heading row (two lines of a heading are joined by
  /// CR) and one title column.
  explicit Text_Grid(std::vector<std::string> headings);

  [[nodiscard]] int Rows() const { return static_cast<int>(cells_.size()) / cols_; }
  [[nodiscard]] int Cols() const { return cols_; }
  static constexpr int FixedRows = 1;
  static constexpr int FixedCols = 1;

  /// The text of a cell. Raises Run_Time_Error outside the grid.
  [[nodiscard]] const std::string& text(int row, int col) const;
  void set_text(int row, int col, std::string text);

  /// Takes all data rows away, and the current cell and selection with them.
  void clear();
  /// Makes room for `rows` data rows, all empty.
  void set_data_rows(int rows);

  // The current cell and the far corner of the selection; a row of 0 means that none is current.
  int Row = 0, Col = 0;
  int RowSel = 0, ColSel = 0;

  /// The texts of the selection: cells of a row separated by a tab, rows by CR; none after the last
  /// row. Empty when nothing is selected.
  [[nodiscard]] std::string Clip() const;

 private:
  [[nodiscard]] std::size_t place(int row, int col) const;

  int cols_;
  std::vector<std::string> cells_;  // row by row
};

}  // namespace branok
