// A grid as data: a table of texts with heading rows and title columns, a current cell and a
// selection. Windows only show it; filling, copying and editing need no window.
#pragma once

#include <span>
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

  /// Puts `count` empty rows before `row`; Rows() puts them at the end. Raises Run_Time_Error for a
  /// heading row or a row outside the grid.
  void insert_rows(int row, int count);
  /// Takes rows away; what is current stays inside the grid. Raises as insert_rows does.
  void remove_rows(int row, int count);

  /// The texts of a row, all columns.
  [[nodiscard]] std::span<const std::string> row(int row) const;
  /// True when no cell of the row holds more than blanks.
  [[nodiscard]] bool is_blank(int row) const;

  // The current cell and the far corner of the selection; a row of 0 means that none is current.
  int Row = 0, Col = 0;
  int RowSel = 0, ColSel = 0;

  /// The texts of the selection: cells of a row separated by a tab, rows by CR; none after the last
  /// row. Empty when nothing is selected.
  [[nodiscard]] std::string Clip() const;
  /// Spreads such a text over the selection: what the text has beyond it is left out, and where a
  /// line of the text has fewer cells the grid's cells stay as they are.
  void set_Clip(std::string_view text);

  /// Selects a block from the current cell on; it is cut at the edges of the grid and, from a data
  /// row, at the headings.
  void select(int row, int col, int last_row, int last_col);

  /// The two grids hold the same texts; what is selected does not matter.
  bool operator==(const Text_Grid& other) const {
    return cols_ == other.cols_ && cells_ == other.cells_;
  }

 private:
  [[nodiscard]] std::size_t place(int row, int col) const;

  int cols_;
  std::vector<std::string> cells_;  // row by row
};

}  // namespace branok
