// The tables that hold a mine: fixed capacity, numbered from 1, bounds checked.
//
// Index 0 of every dimension exists and is never used for data, so that a number read from a file
// is the index itself. An index outside the table raises Run_Time_Error, never touches memory.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "core/numbers.h"

namespace branok {

[[noreturn]] inline void Outside_Table(int index, int last, int first = 1) {
  throw Run_Time_Error("number " + std::to_string(index) + " is outside " + std::to_string(first) +
                       ".." + std::to_string(last));
}

/// One cell per number 1..Last.
template <class T, int Last>
class List {
 public:
  static constexpr int last = Last;
  T& operator[](int i) { return cells_[at(i)]; }
  const T& operator[](int i) const { return cells_[at(i)]; }
  void fill(const T& value) { std::fill(cells_.begin(), cells_.end(), value); }
  /// All cells with index 0, for loops that have checked their numbers.
  std::span<T> cells() { return cells_; }
  std::span<const T> cells() const { return cells_; }
  bool operator==(const List&) const = default;

 private:
  static std::size_t at(int i) {
    if (static_cast<unsigned>(i) > static_cast<unsigned>(Last)) Outside_Table(i, Last);
    return static_cast<std::size_t>(i);
  }
  std::vector<T> cells_ = std::vector<T>(Last + 1);
};

/// Cells by (slot, row): for every row 1..Last the slots 1..Slots, which lie side by side.
template <class T, int Slots, int Last>
class Grid {
 public:
  static constexpr int last = Last;
  T& operator()(int slot, int row) { return cells_[at(slot, row)]; }
  const T& operator()(int slot, int row) const { return cells_[at(slot, row)]; }
  void fill(const T& value) { std::fill(cells_.begin(), cells_.end(), value); }
  bool operator==(const Grid&) const = default;

 private:
  static std::size_t at(int slot, int row) {
    if (static_cast<unsigned>(slot) > static_cast<unsigned>(Slots)) Outside_Table(slot, Slots);
    if (static_cast<unsigned>(row) > static_cast<unsigned>(Last)) Outside_Table(row, Last);
    return static_cast<std::size_t>(row) * (Slots + 1) + static_cast<std::size_t>(slot);
  }
  std::vector<T> cells_ = std::vector<T>((Last + 1) * (Slots + 1));
};

/// Cells by (k, slot, row), k and slot lying side by side.
template <class T, int Depth, int Slots, int Last>
class Block {
 public:
  T& operator()(int k, int slot, int row) { return cells_[at(k, slot, row)]; }
  const T& operator()(int k, int slot, int row) const { return cells_[at(k, slot, row)]; }
  void fill(const T& value) { std::fill(cells_.begin(), cells_.end(), value); }
  bool operator==(const Block&) const = default;

 private:
  static std::size_t at(int k, int slot, int row) {
    if (static_cast<unsigned>(k) > static_cast<unsigned>(Depth)) Outside_Table(k, Depth);
    if (static_cast<unsigned>(slot) > static_cast<unsigned>(Slots)) Outside_Table(slot, Slots);
    if (static_cast<unsigned>(row) > static_cast<unsigned>(Last)) Outside_Table(row, Last);
    return (static_cast<std::size_t>(row) * (Slots + 1) + static_cast<std::size_t>(slot)) *
               (Depth + 1) +
           static_cast<std::size_t>(k);
  }
  std::vector<T> cells_ = std::vector<T>((Last + 1) * (Slots + 1) * (Depth + 1));
};

}  // namespace branok
