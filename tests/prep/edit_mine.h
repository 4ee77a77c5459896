// A mine and its edit copy, as the Database window has them after an open.
#pragma once

#include <string>
#include <vector>

#include "files/ver6.h"
#include "prep/edit_copy.h"
#include "support/generated_mine.h"

namespace branok {

struct Edit_Mine {
  Database db;
  Edit_Copy copy;

  explicit Edit_Mine(Database mine) : db(std::move(mine)) { Fill_Database_Window(db, copy); }

  /// The sample network: airways 1-2, 2-3, 3-4, 4-5; an intake at 1, a surface fan at 5.
  static Edit_Mine Sample() {
    Database db;
    New_Database(db, "2024/05/06");
    return Edit_Mine(std::move(db));
  }

  /// The texts of a grid's row.
  [[nodiscard]] std::vector<std::string> row(Folder folder, int row) const {
    const auto cells = copy.grid(folder).row(row);
    return {cells.begin(), cells.end()};
  }
  /// The names in column 0, row by row.
  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (int row = 1; row < copy.grdRoot.Rows(); ++row) names.push_back(copy.grdRoot.text(row, 0));
    return names;
  }
  /// Types a text into a cell.
  bool type(Folder folder, int row, int col, std::string_view text) {
    copy.grid(folder).select(row, col, row, col);
    return Commit_Cell(db, copy, folder, text);
  }
  /// Results are there and nothing is edited, so that what an edit does to both can be seen.
  void mark_clean() {
    db.Flag_Results = flag_true;
    for (const Folder folder : all_folders) Edit_Flag(db, folder) = 0;
  }
  /// The folders that count as edited.
  [[nodiscard]] std::vector<Folder> edited() {
    std::vector<Folder> folders;
    for (const Folder folder : all_folders) {
      if (Edit_Flag(db, folder) != 0) folders.push_back(folder);
    }
    return folders;
  }
};

/// A demo mine by its name.
inline Database Demo_Mine(const std::string& name) {
  Database db;
  Reset_Database(db);
  Comment_Template comments;
  const Read_Result read = Read_Ver6(db, BRANOK_TEST_DATA "/DATA/" + name + ".abk", comments);
  if (!read.ok) throw Run_Time_Error(read.fault);
  return db;
}

}  // namespace branok
