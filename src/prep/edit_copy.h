// The edit copy of a mine: its tables as texts in the grids of the Database window.
//
// The engineer edits these texts and nothing else; the check of the data is the only way from here
// into the tables, so that a calculation always works on a network that has been checked.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/database.h"
#include "core/text_grid.h"

namespace branok {

/// The folders of the Database window that hold a grid, in the order of its pages.
enum class Folder { airway, node, inlet, mainfan, assistfan, thermal };
inline constexpr int folder_count = 6;
inline constexpr std::array all_folders = {Folder::airway,  Folder::node,      Folder::inlet,
                                           Folder::mainfan, Folder::assistfan, Folder::thermal};

/// The word of a folder's page: "airway", "node", "Inlet", "mainfan", "assistfan", "thermal".
std::string_view Page_Tag(Folder folder);

/// How messages name a folder: "Airway Folder", ... The main fans have no folder word of their own.
std::string_view Folder_Name(Folder folder);

// Columns of the grids. Column 0 is the row's title.
namespace root_column {
enum {
  name,
  resist,
  area,
  peri,
  length,
  time,
  heat,
  wet,
  kind,
  wind,
  fric,
  shape,
  height,
  picture,
  comment,
  count
};
}
namespace node_column {
enum { number, elev, ew, sn, junctions, junc, picture = junc + max_slots, comment, count };
}
namespace inlet_column {
enum { title, node, picture, comment, count };
}
namespace fan_column {
enum { title, flow, head, count };
}
namespace assist_column {
enum { title, suction, discharge, head, flow, picture, comment, count };
}
namespace thermo_column {
enum { title, node1, node2, cond, density, specific, rock_temp, comment, count };
}

/// The three picture names of one grid row; the grid shows the first.
using Picture_Row = std::array<std::string, max_pictures>;
/// By grid row; the heading row has an unused one.
using Picture_Rows = std::vector<Picture_Row>;

/// One page of the main fans. Fields 1 to 6 as its text boxes are numbered: suction node, discharge
/// node, standard r.p.m., driving r.p.m., limit flow in m3/min, comment.
struct Fan_Page {
  enum Field { suction = 1, discharge, std_rpm, drive_rpm, limit_flow, comment };
  static constexpr int last_field = comment;

  std::array<std::string, last_field + 1> text;
  /// The numbers that fields 1..5 were filled from: a text that still shows its number stands for
  /// it, to the last digit.
  std::array<double, limit_flow + 1> value{};
  /// The fields whose number has been typed since: a text that looks like the old number rounded
  /// stands for itself there.
  std::array<bool, limit_flow + 1> typed{};
  bool surface = true;  ///< the box "Surface Main Fan"
  Picture_Row pictures;
  Text_Grid grdMFan;

  Fan_Page();
  bool operator==(const Fan_Page&) const = default;
};

struct Edit_Copy {
  Text_Grid grdRoot, grdNode, grdInlet, grdAFan, grdThermo;
  Picture_Rows Grid_RootPict, Node_PictGrid, Inlet_PictGrid, AFan_PictGrid;
  std::array<Fan_Page, max_main_fans> fan_pages;  ///< fan f's is fan_pages[f - 1]
  int MFan_GridTotal = 0;                         ///< pages in use
  /// Of airways that were cut, by name: they come back when the airway is pasted.
  std::map<std::string, Picture_Row> cut_pictures;
  std::array<Fan_Page, max_main_fans> checked_pages;  ///< the pages as the tables gave them last
  int fan_in_front = 0;                               ///< 1..MFan_GridTotal; 0 without fans

  Edit_Copy();

  /// A folder's grid; of the main fans the page in front (the first without any).
  [[nodiscard]] Text_Grid& grid(Folder folder);
  [[nodiscard]] const Text_Grid& grid(Folder folder) const;
  /// A main fan's page. Raises Run_Time_Error outside 1..15.
  [[nodiscard]] Fan_Page& fan(int f);
  [[nodiscard]] const Fan_Page& fan(int f) const;

  /// The picture names of a folder's rows; null where rows have none (main fans have them by page).
  [[nodiscard]] Picture_Rows* pictures(Folder folder);
  [[nodiscard]] const Picture_Rows* pictures(Folder folder) const;
  /// Gives every grid row its picture names, after rows have been added at the end or taken there.
  void fit_pictures();
};

/// The column that shows the first picture name, 0 where there is none.
int Picture_Column(Folder folder);

/// Where something stands in the edit copy: what the check points at, what an undo has changed.
struct Edit_Place {
  Folder folder = Folder::airway;
  int row = 0;  ///< grid row; 0 when no single one is meant
  int col = 0;
  int fan = 0;    ///< of the main fans' page
  int field = 0;  ///< of a main fan's page: the text box, 0 for its grid
  bool operator==(const Edit_Place&) const = default;
};

// --- From the tables to the texts

/// Fills all grids anew; nothing is current or selected in them then.
void Fill_Database_Window(const Database& db, Edit_Copy& copy);

/// The single folders. Where a picture would lose digits of a number that a text in the grid holds,
/// of an airway, an assist fan or a thermal row, that text stays: the next check reads it again.
/// The airway grid ends in one empty row, where the next airway is typed.
void Fill_Airways(const Database& db, Edit_Copy& copy);
void Fill_Nodes(const Database& db, Edit_Copy& copy);
void Fill_Inlets(const Database& db, Edit_Copy& copy);
void Fill_Fans(const Database& db, Edit_Copy& copy);
void Fill_Assist_Fans(const Database& db, Edit_Copy& copy);
void Fill_Thermal(const Database& db, Edit_Copy& copy);

/// A typed field of a main fan's page as it is shown on leaving it: nodes "##0", r.p.m. "###0",
/// limit flow "####0". The comment stays as it is, and so does a text that is no number.
std::string Format_Fan_Field(int field, std::string_view text);

/// The folders whose texts have changed since the last check and no longer are what the tables
/// hold.
std::vector<Folder> Unchecked_Folders(const Database& db, const Edit_Copy& copy);

/// The number that field 1..5 of a main fan's page stands for: the one that it was filled from as
/// long as nothing was typed and its text shows that, else the text's own. Nothing when the text
/// holds no number.
std::optional<double> Fan_Field_Number(const Fan_Page& page, int field);

// --- Single cells

/// The flag that tells of changes in a folder since the last check.
std::int16_t& Edit_Flag(Database& db, Folder folder);
std::int16_t Edit_Flag(const Database& db, Folder folder);

/// Something in the folder has been typed: its flag is set, and results of the mine before are
/// results no more.
void Note_Edit(Database& db, Folder folder);

/// Sets a cell; in the picture column the row's first picture name with it. A CR, LF or tab in the
/// text becomes a blank: it would end the cell when the grid is copied.
void Set_Cell(Edit_Copy& copy, Folder folder, int row, int col, std::string_view text);

/// Sets one of a row's three picture names; the grid shows the first.
void Set_Picture_Name(Edit_Copy& copy, Folder folder, int row, int slot, std::string name);

/// Puts the text of the cell's editor into the grid's current cell. True when that has changed it:
/// then the edit is noted. An airway typed into the last row leaves an empty one behind it.
bool Commit_Cell(Database& db, Edit_Copy& copy, Folder folder, std::string_view text);

/// Lets the airway grid end in an empty row, as far as it has room.
void Leave_Empty_Row(Edit_Copy& copy);

/// The two node numbers of an airway's name, each in a field of three: "  1 ->   2".
std::string Airway_Title(int i, int j);

}  // namespace branok
