#include "prep/edit_history.h"

#include <algorithm>
#include <span>

namespace branok {

namespace {

constexpr std::size_t most_bytes = 150'000'000;  // kept for undo

bool Same_Row(const Edit_Copy& a, int row_a, const Edit_Copy& b, int row_b, Folder folder) {
  const auto cells_a = a.grid(folder).row(row_a);
  const auto cells_b = b.grid(folder).row(row_b);
  if (!std::equal(cells_a.begin(), cells_a.end(), cells_b.begin())) return false;
  const Picture_Rows* const names = a.pictures(folder);
  return names == nullptr || (*names)[static_cast<std::size_t>(row_a)] ==
                                 (*b.pictures(folder))[static_cast<std::size_t>(row_b)];
}

// The first main-fan page that the two copies do not have alike, 0 when there is none.
int First_Other_Page(const Edit_Copy& a, const Edit_Copy& b) {
  for (int f = 1; f <= max_main_fans; ++f) {
    if (!(a.fan(f) == b.fan(f))) return f;
  }
  return a.MFan_GridTotal == b.MFan_GridTotal ? 0 : std::max(a.MFan_GridTotal, b.MFan_GridTotal);
}

// Where two fan pages differ first: a field, else a cell of the table, else the page as a whole.
Edit_Place First_Difference(const Fan_Page& a, const Fan_Page& b, int fan) {
  Edit_Place place{.folder = Folder::mainfan, .fan = fan};
  for (int field = 1; field <= Fan_Page::last_field; ++field) {
    const auto at = static_cast<std::size_t>(field);
    if (a.text.at(at) == b.text.at(at)) continue;
    place.field = field;
    return place;
  }
  const int rows = std::min(a.grdMFan.Rows(), b.grdMFan.Rows());
  for (int row = Text_Grid::FixedRows; row < rows; ++row) {
    for (const int col : {fan_column::flow, fan_column::head}) {
      if (a.grdMFan.text(row, col) == b.grdMFan.text(row, col)) continue;
      place.row = row;
      place.col = col;
      return place;
    }
  }
  return place;
}

// The column of the first cell that differs; where rows have come or gone, the current one.
int First_Column(const std::vector<std::string>& before, const std::vector<std::string>& after,
                 const Text_Grid& grid) {
  if (before.size() != after.size()) return grid.Col;
  const auto [cell, other] = std::mismatch(before.begin(), before.end(), after.begin());
  return cell == before.end() ? grid.Col : static_cast<int>(cell - before.begin()) % grid.Cols();
}

std::size_t Bytes(std::span<const std::string> texts) {
  std::size_t bytes = texts.size_bytes();
  for (const std::string& text : texts) bytes += text.size();
  return bytes;
}

std::size_t Bytes(const std::array<Fan_Page, max_main_fans>& pages) {
  std::size_t bytes = sizeof(pages);
  for (const Fan_Page& page : pages) {
    bytes += Bytes(page.text) + Bytes(page.pictures);
    for (int row = 0; row < page.grdMFan.Rows(); ++row) bytes += Bytes(page.grdMFan.row(row));
  }
  return bytes;
}

}  // namespace

std::size_t Edit_History::Rows::bytes() const {
  std::size_t sum = 1 + Bytes(cells);
  for (const Picture_Row& names : pictures) sum += Bytes(names);
  return sum;
}

void Edit_History::start(const Edit_Copy& copy) {
  last_ = copy;
  undo_.clear();
  redo_.clear();
  kept_ = 0;
}

bool Edit_History::note(const Edit_Copy& copy) {
  Step step;
  for (const Folder folder : all_folders) {
    if (folder == Folder::mainfan) continue;
    if (auto change = Difference(last_, copy, folder)) {
      step.size += change->before.bytes() + change->after.bytes();
      step.changes.push_back(std::move(*change));
    }
  }
  step.fan = First_Other_Page(last_, copy);
  if (step.fan != 0) {
    step.before = Pages{last_.fan_pages, last_.MFan_GridTotal};
    step.after = Pages{copy.fan_pages, copy.MFan_GridTotal};
    step.size += Bytes(last_.fan_pages) + Bytes(copy.fan_pages);
  }
  if (step.size == 0) return false;
  apply(step, false, last_);
  for (const Step& undone : redo_) kept_ -= undone.size;
  redo_.clear();
  kept_ += step.size;
  undo_.push_back(std::move(step));
  forget_oldest();
  return true;
}

std::optional<Edit_Place> Edit_History::undo(Database& db, Edit_Copy& copy) {
  return move(undo_, redo_, true, db, copy);
}

std::optional<Edit_Place> Edit_History::redo(Database& db, Edit_Copy& copy) {
  return move(redo_, undo_, false, db, copy);
}

// The rows that differ: those between what is the same at the beginning and at the end.
std::optional<Edit_History::Change> Edit_History::Difference(const Edit_Copy& from,
                                                             const Edit_Copy& to, Folder folder) {
  const int rows_from = from.grid(folder).Rows();
  const int rows_to = to.grid(folder).Rows();
  const int shorter = std::min(rows_from, rows_to);
  int first = Text_Grid::FixedRows;
  while (first < shorter && Same_Row(from, first, to, first, folder)) ++first;
  if (first == rows_from && first == rows_to) return std::nullopt;
  int end_from = rows_from;
  int end_to = rows_to;
  while (end_from > first && end_to > first &&
         Same_Row(from, end_from - 1, to, end_to - 1, folder)) {
    --end_from;
    --end_to;
  }
  return Change{folder, first, Copy_Rows(from, folder, first, end_from - first),
                Copy_Rows(to, folder, first, end_to - first)};
}

Edit_History::Rows Edit_History::Copy_Rows(const Edit_Copy& copy, Folder folder, int first,
                                           int count) {
  Rows rows;
  rows.count = count;
  for (int row = first; row < first + count; ++row) {
    const auto cells = copy.grid(folder).row(row);
    rows.cells.insert(rows.cells.end(), cells.begin(), cells.end());
    const Picture_Rows* const names = copy.pictures(folder);
    if (names != nullptr) rows.pictures.push_back((*names)[static_cast<std::size_t>(row)]);
  }
  return rows;
}

void Edit_History::Put_Rows(Edit_Copy& copy, Folder folder, int first, int old_count,
                            const Rows& rows) {
  Text_Grid& grid = copy.grid(folder);
  grid.remove_rows(first, old_count);
  grid.insert_rows(first, rows.count);
  auto cell = rows.cells.begin();
  for (int row = first; row < first + rows.count; ++row) {
    for (int col = 0; col < grid.Cols(); ++col) grid.set_text(row, col, *cell++);
  }
  if (Picture_Rows* const names = copy.pictures(folder)) {
    names->erase(names->begin() + first, names->begin() + first + old_count);
    names->insert(names->begin() + first, rows.pictures.begin(), rows.pictures.end());
  }
}

void Edit_History::apply(const Step& step, bool back, Edit_Copy& copy) const {
  for (const Change& change : step.changes) {
    const Rows& old_rows = back ? change.after : change.before;
    const Rows& new_rows = back ? change.before : change.after;
    Put_Rows(copy, change.folder, change.first, old_rows.count, new_rows);
  }
  if (const std::optional<Pages>& pages = back ? step.before : step.after) {
    copy.fan_pages = pages->fan_pages;
    copy.MFan_GridTotal = pages->MFan_GridTotal;
    // The page that has changed comes to the front, wherever the engineer has been since.
    copy.fan_in_front = std::min(step.fan, copy.MFan_GridTotal);
  }
}

std::optional<Edit_Place> Edit_History::move(std::deque<Step>& from, std::deque<Step>& to,
                                             bool back, Database& db, Edit_Copy& copy) {
  if (from.empty()) return std::nullopt;
  Step step = std::move(from.back());
  from.pop_back();
  apply(step, back, copy);
  apply(step, back, last_);
  Edit_Place place;
  if (step.before) {
    db.MFan_GridTotal = static_cast<std::int16_t>(copy.MFan_GridTotal);
    Note_Edit(db, Folder::mainfan);
    place = {.folder = Folder::mainfan, .fan = copy.fan_in_front};
    if (step.before->MFan_GridTotal == step.after->MFan_GridTotal) {
      const auto page = static_cast<std::size_t>(step.fan - 1);
      place = First_Difference(step.before->fan_pages.at(page), step.after->fan_pages.at(page),
                               step.fan);
    }
  }
  for (const Change& change : step.changes) {
    Note_Edit(db, change.folder);
    const Text_Grid& grid = copy.grid(change.folder);
    place = {.folder = change.folder,
             .row = std::min(change.first, grid.Rows() - 1),
             .col = First_Column(change.before.cells, change.after.cells, grid)};
  }
  to.push_back(std::move(step));
  return place;
}

void Edit_History::forget_oldest() {
  while (kept_ > most_bytes && undo_.size() > 1) {
    kept_ -= undo_.front().size;
    undo_.pop_front();
  }
}

}  // namespace branok
