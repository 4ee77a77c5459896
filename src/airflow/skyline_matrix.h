// A symmetric matrix in skyline storage and its root-free Cholesky factor, L D Lt by rows.
//
// Storage: of every row i the columns Sky_FirstCol(i)..i stand one behind the other in Sky_A, the
// diagonal last; the entry (i, c) stands at Sky_RowStart(i) + c - Sky_FirstCol(i). The factor's
// rows have the same positions in Sky_L.
// Method: no pivoting. Row i of L times D follows from the rows above it by sums of products, which
// are carried in double precision; the matrix, the factor and the solution are stored in single
// precision (entries of the factor that are used again at once are kept widened to double, with
// the value of their single form).
// Limitations: positions are 16-bit numbers. A pivot of 0 shows as a floating-point fault that the
// caller looks for.
#pragma once

#include <cstddef>
#include <vector>

#include "core/database.h"

namespace branok {

/// The four index tables, numbered 1..Node_Total (Sky_RowStart has one more, which stays 0).
struct Skyline_Index {
  std::vector<int> Sky_FirstCol;  ///< lowest node number coupled to a node, itself if none is lower
  std::vector<int> Sky_LastRow;   ///< highest row whose skyline reaches a column
  std::vector<int> Sky_RowStart;  ///< position of the entry (i, Sky_FirstCol(i))
  std::vector<int> Sky_DiagPos;   ///< position of the diagonal of row i
  int profile = 0;                ///< entries in all
};

/// The longest profile that the 16-bit positions and the table lengths made from them can hold.
inline constexpr int longest_profile = 32767 - 100;
/// From this profile on the user is told to renumber the nodes.
inline constexpr int memory_message_profile = 32701;

/// The index tables from the connections of all nodes. Raises Run_Time_Error when a connection
/// leads to a node below 1.
Skyline_Index Set_Skyline_Index(const Database& db);

class Skyline_Matrix {
 public:
  /// A matrix of zeros with unit diagonal. Raises Run_Time_Error when the profile is longer than
  /// longest_profile.
  explicit Skyline_Matrix(const Skyline_Index& index);

  [[nodiscard]] int order() const { return static_cast<int>(order_); }

  /// Position in Sky_A of the entry (row, column), column between Sky_FirstCol(row) and row.
  [[nodiscard]] int position(int row, int column) const {
    return static_cast<int>(rows_[static_cast<std::size_t>(row)].zero) + column;
  }

  /// Tells that the entry (row, column), column < row, can become non-zero; entries left of a row's
  /// first such one are never visited.
  void use(int row, int column);

  float* Sky_A() { return Sky_A_.data(); }        ///< by position; diagonals are in Sky_Diag
  float* Sky_Diag() { return Sky_Diag_.data(); }  ///< by row
  float* Sky_Rhs() { return Sky_Rhs_.data(); }    ///< by row
  /// The entry (row, column) of the factor, column between Sky_FirstCol(row) and row - 1.
  [[nodiscard]] float Sky_L(int row, int column) const {
    return static_cast<float>(Sky_L_[static_cast<std::size_t>(position(row, column))]);
  }
  [[nodiscard]] const float* Sky_X() const { return Sky_X_.data(); }  ///< the solution, by row

  /// Factors the matrix and solves it for Sky_Rhs.
  void factor_and_solve();

 private:
  struct Row {
    std::ptrdiff_t first;  // first column that can become non-zero
    std::ptrdiff_t zero;   // where column 0 would stand
  };
  void factor_forward();
  void backward();

  std::ptrdiff_t order_;
  std::vector<Row> rows_;
  std::vector<float> Sky_A_, Sky_Diag_, Sky_Rhs_, Sky_X_;
  std::vector<double> Sky_L_, Sky_InvD_, Sky_Work_, Sky_Y_;
};

}  // namespace branok
