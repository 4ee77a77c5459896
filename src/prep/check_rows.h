// What all folders' checks share: how a fault leaves a check, and a grid row that is being read.
#pragma once

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/dialogue.h"
#include "prep/edit_copy.h"

namespace branok {

/// A fault of the data. It ends the check at once and is told where the check was started.
struct Check_Fault : std::exception {
  Check_Fault(Message told, std::string words, std::optional<Edit_Place> cell)
      : message(std::move(told)), where(std::move(words)), place(cell) {}

  Message message;
  std::string where;                   ///< the cell in plain words
  std::optional<Edit_Place> place;     ///< the cell, for the window to go to
  std::optional<Message> row_message;  ///< shown after the first: which row it is
};

/// Ends the check at a cell of a grid.
[[noreturn]] void Stop_At_Cell(const Edit_Copy& copy, const Edit_Place& place, Message message);

/// Shows a fault's boxes and remarks where it stands.
void Tell(const Check_Fault& fault, Dialogue& dialogue);

/// "row 7", "rows 7, 9, 12 and 30 more".
std::string Rows_Text(const std::vector<int>& rows);

/// One row of a folder's grid. What a cell must not hold ends the check there.
class Grid_Row {
 public:
  Grid_Row(const Edit_Copy& copy, Folder folder, int row)
      : copy_(copy), folder_(folder), row_(row) {}

  [[nodiscard]] int row() const { return row_; }
  [[nodiscard]] const std::string& text(int col) const;
  [[nodiscard]] bool is_blank(int col) const;
  /// The three picture names.
  [[nodiscard]] const Picture_Row& pictures() const;

  /// The number of a column that has a rule.
  [[nodiscard]] float number(int col) const;
  /// The whole number of a cell; nothing for any other text.
  [[nodiscard]] std::optional<int> whole_number(int col) const;

  [[noreturn]] void stop(int col, Message message) const;

 private:
  const Edit_Copy& copy_;
  Folder folder_;
  int row_;
};

/// True when a text holds a number.
bool Is_Number(std::string_view text);

/// The whole number that a text holds, as far as an int goes; nothing for any other text.
std::optional<int> Whole_Number(std::string_view text);

/// The rows of a folder with one row per thing that hold more than blanks beside their title. Ends
/// the check when they are more than `most`.
std::vector<Grid_Row> Filled_Rows(const Edit_Copy& copy, Folder folder, int most);

/// A node that a fan or a thermal row names: within the tables and with an airway. `item` is the
/// column in the messages' words, `thing` what the row is. Returns its number.
int Connected_Node(const Database& db, const Grid_Row& row, int col, std::string_view item,
                   std::string_view thing);

}  // namespace branok
