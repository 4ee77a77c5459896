#include "airflow/skyline_matrix.h"

#include <algorithm>

namespace branok {

namespace {

// The value as its table holds it: single precision.
double Stored(double value) { return static_cast<double>(static_cast<float>(value)); }

}  // namespace

Skyline_Index Set_Skyline_Index(const Database& db) {
  const int n = db.Node_Total;
  if (n < 0) Outside_Table(n, max_nodes);
  const auto size = static_cast<std::size_t>(n) + 2;
  Skyline_Index index{std::vector<int>(size), std::vector<int>(size), std::vector<int>(size),
                      std::vector<int>(size), 0};
  int running = 0;
  for (int i = 1; i <= n; ++i) {
    const auto row = static_cast<std::size_t>(i);
    int first = i;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      first = std::min<int>(first, db.Node_Junc(j, i));
    }
    if (first < 1) {
      throw Run_Time_Error("node " + std::to_string(i) + " is connected to node " +
                           std::to_string(first));
    }
    index.Sky_RowStart[row] = running + 1;
    index.Sky_FirstCol[row] = first;
    running = index.Sky_RowStart[row] + i - first;
    index.Sky_DiagPos[row] = running;
  }
  index.profile = running;

  // The last row that reaches a column, for columns of connected nodes. From the last row up, each
  // row is the last one for the columns that no later row reached.
  int reached = n + 1;  // columns from here on have their last row
  for (int i = 1; i <= n; ++i) index.Sky_LastRow[static_cast<std::size_t>(i)] = i;
  for (int k = n; k >= 1; --k) {
    const int first = index.Sky_FirstCol[static_cast<std::size_t>(k)];
    for (int i = std::min(reached, k) - 1; i >= first; --i) {
      if (db.Node_JuncCount[i] > 0) index.Sky_LastRow[static_cast<std::size_t>(i)] = k;
    }
    reached = std::min(reached, first);
  }
  return index;
}

Skyline_Matrix::Skyline_Matrix(const Skyline_Index& index)
    : order_(static_cast<std::ptrdiff_t>(index.Sky_FirstCol.size()) - 2) {
  if (index.profile > longest_profile) {
    throw Run_Time_Error("a profile of " + std::to_string(index.profile) +
                         " entries is longer than the matrix can be");
  }
  const std::size_t rows = index.Sky_FirstCol.size();
  for (std::size_t i = 0; i < rows; ++i) {
    rows_.push_back({.first = static_cast<std::ptrdiff_t>(i),
                     .zero = index.Sky_RowStart[i] - index.Sky_FirstCol[i]});
  }
  const auto entries = static_cast<std::size_t>(index.profile) + 1;
  Sky_A_.resize(entries);
  Sky_L_.resize(entries);
  Sky_Diag_.assign(rows, 1.0F);
  for (std::vector<float>* table : {&Sky_Rhs_, &Sky_X_}) table->resize(rows);
  for (std::vector<double>* table : {&Sky_InvD_, &Sky_Work_, &Sky_Y_}) table->resize(rows);
}

void Skyline_Matrix::use(int row, int column) {
  std::ptrdiff_t& first = rows_[static_cast<std::size_t>(row)].first;
  first = std::min<std::ptrdiff_t>(first, column);
}

void Skyline_Matrix::factor_and_solve() {
  factor_forward();
  backward();
}

// Each row of the factor is made from the rows above it, and the forward result of the row at once
// with it, while its entries are at hand. The product with the entry just made is taken last, so
// that the processor has summed the others when it is ready.
void Skyline_Matrix::factor_forward() {
  const Row* const rows = rows_.data();
  const float* const a = Sky_A_.data();
  double* const l = Sky_L_.data();
  double* const work = Sky_Work_.data();
  double* const inv_d = Sky_InvD_.data();
  double* const y = Sky_Y_.data();

  for (std::ptrdiff_t i = 1; i <= order_; ++i) {
    const auto [f, zero] = rows[i];
    double diagonal = Sky_Diag_[static_cast<std::size_t>(i)];
    double right = Sky_Rhs_[static_cast<std::size_t>(i)];
    double latest = 0;  // Sky_Work(j - 1)
    for (std::ptrdiff_t j = f; j < i; ++j) {
      double rest = a[zero + j];
      if (rows[j].first < j && f < j) {
        const double* const l_above = l + rows[j].zero;
        double even = 0;
        double odd = 0;
        std::ptrdiff_t k = std::max(f, rows[j].first);
        for (; k + 2 < j; k += 2) {
          even += work[k] * l_above[k];
          odd += work[k + 1] * l_above[k + 1];
        }
        if (k + 1 < j) even += work[k] * l_above[k];
        rest -= even + odd;
        rest -= latest * l_above[j - 1];
      }
      latest = Stored(rest);
      work[j] = latest;
      const double entry = Stored(latest * inv_d[j]);
      l[zero + j] = entry;
      diagonal -= latest * entry;
      right -= entry * y[j];
    }
    inv_d[i] = Stored(1 / diagonal);
    y[i] = Stored(right);
  }
}

// From the last row up. Every solved pressure is carried into the rows above at once, along its own
// row of the factor.
void Skyline_Matrix::backward() {
  double* const carried = Sky_Work_.data();  // by row i: the sum of L(j, i) x Sky_X(j), j below i
  std::fill(Sky_Work_.begin(), Sky_Work_.end(), 0.0);
  for (std::ptrdiff_t i = order_; i >= 1; --i) {
    const auto row = static_cast<std::size_t>(i);
    const double x = Stored(Sky_InvD_[row] * Sky_Y_[row] - carried[i]);
    Sky_X_[row] = static_cast<float>(x);
    const double* const l_row = Sky_L_.data() + rows_[row].zero;
    for (std::ptrdiff_t j = rows_[row].first; j < i; ++j) carried[j] += l_row[j] * x;
  }
}

}  // namespace branok
