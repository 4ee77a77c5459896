#include "prep/check_rows.h"

#include <algorithm>

#include "core/messages.h"
#include "prep/cell_rules.h"

namespace branok {

namespace {

std::string One_Line(std::string heading) {
  std::replace(heading.begin(), heading.end(), '\r', ' ');
  return std::string(Trim(heading));
}

std::string Column_Words(const Edit_Copy& copy, Folder folder, int col) {
  const Number_Rule* const rule = Rule_Of(folder, col);
  if (rule != nullptr) return std::string(rule->item);
  return "'" + One_Line(copy.grid(folder).text(0, col)) + "' Column";
}

std::string Place_Words(const Edit_Copy& copy, const Edit_Place& place) {
  std::string words = std::string(Folder_Name(place.folder));
  if (place.folder == Folder::mainfan) words += " No." + std::to_string(place.fan);
  return words + ", row " + std::to_string(place.row) + ", " +
         Column_Words(copy, place.folder, place.col);
}

bool Is_Filled(const Edit_Copy& copy, Folder folder, int row) {
  const auto holds_text = [](const std::string& text) { return !Trim(text).empty(); };
  const auto cells = copy.grid(folder).row(row).subspan(Text_Grid::FixedCols);
  if (std::any_of(cells.begin(), cells.end(), holds_text)) return true;
  const Picture_Rows* const pictures = copy.pictures(folder);
  if (pictures == nullptr) return false;
  const Picture_Row& names = pictures->at(static_cast<std::size_t>(row));
  return std::any_of(names.begin(), names.end(), holds_text);
}

}  // namespace

void Stop_At_Cell(const Edit_Copy& copy, const Edit_Place& place, Message message) {
  throw Check_Fault(std::move(message), Place_Words(copy, place), place);
}

void Tell(const Check_Fault& fault, Dialogue& dialogue) {
  if (!fault.where.empty()) dialogue.remark(fault.where);
  dialogue.show(fault.message);
  if (fault.row_message) dialogue.show(*fault.row_message);
}

std::string Rows_Text(const std::vector<int>& rows) {
  constexpr std::size_t most = 5;
  std::string text = rows.size() == 1 ? "row " : "rows ";
  for (std::size_t k = 0; k < std::min(rows.size(), most); ++k) {
    text += (k > 0 ? ", " : "") + std::to_string(rows[k]);
  }
  if (rows.size() > most) text += " and " + std::to_string(rows.size() - most) + " more";
  return text;
}

const std::string& Grid_Row::text(int col) const { return copy_.grid(folder_).text(row_, col); }

bool Grid_Row::is_blank(int col) const { return Trim(text(col)).empty(); }

const Picture_Row& Grid_Row::pictures() const {
  return copy_.pictures(folder_)->at(static_cast<std::size_t>(row_));
}

float Grid_Row::number(int col) const {
  if (auto fault = Number_Fault(*Rule_Of(folder_, col), text(col))) stop(col, std::move(*fault));
  return Parse_Single(text(col));
}

std::optional<int> Grid_Row::whole_number(int col) const { return Whole_Number(text(col)); }

void Grid_Row::stop(int col, Message message) const {
  Stop_At_Cell(copy_, {.folder = folder_, .row = row_, .col = col}, std::move(message));
}

bool Is_Number(std::string_view text) {
  try {
    (void)Parse_Double(text);
    return true;
  } catch (const Run_Time_Error&) {
    return false;
  }
}

std::optional<int> Whole_Number(std::string_view text) {
  try {
    const double number = Parse_Double(text);
    if (number != Int(number)) return std::nullopt;
    return To_Int32(number);
  } catch (const Run_Time_Error&) {
    return std::nullopt;
  }
}

std::vector<Grid_Row> Filled_Rows(const Edit_Copy& copy, Folder folder, int most) {
  std::vector<Grid_Row> rows;
  for (int row = Text_Grid::FixedRows; row < copy.grid(folder).Rows(); ++row) {
    if (!Is_Filled(copy, folder, row)) continue;
    rows.emplace_back(copy, folder, row);
    if (static_cast<int>(rows.size()) > most) {
      rows.back().stop(
          Text_Grid::FixedCols,
          messages::Out_Of_Range("Total Number", Folder_Name(folder), "0", std::to_string(most)));
    }
  }
  return rows;
}

int Connected_Node(const Database& db, const Grid_Row& row, int col, std::string_view item,
                   std::string_view thing) {
  if (!Is_Number(row.text(col))) row.stop(col, messages::Not_Numeric());
  const std::optional<int> node = row.whole_number(col);
  if (!node || *node < 1 || *node > db.Node_Total) {
    row.stop(col, messages::Node_Out_Of_Range(db.Node_Total, item));
  }
  if (db.Node_JuncCount[*node] == 0) row.stop(col, messages::Node_Not_Existing(*node, thing));
  return *node;
}

}  // namespace branok
