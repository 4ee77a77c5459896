// What the Edit and Database menus do to the grids: paste, cut, rows, winding, kind and shape, the
// pages of the main fans. All work at the grid's current cell and selection.
#pragma once

#include <string>
#include <string_view>

#include "prep/edit_copy.h"

namespace branok {

/// Clipboard text as the program has it: rows ended by CR, whatever ended them elsewhere (CR LF, a
/// lone LF).
std::string From_Clipboard(std::string_view text);

/// What a paste did.
struct Paste_Result {
  int rows = 0, cols = 0;  ///< of the text; nothing is pasted without rows
  bool tail_left = false;  ///< the text went on after its last row end: that was not pasted
  bool no_room = false;    ///< the grid would have become longer than it may: nothing was pasted
};

/// Spreads tab-separated text over the grid from its current cell on. A CR ends a row; the first
/// row sets the width; a line feed is passed over; a last line without CR is not counted. The grid
/// grows at its end to take the rows, up to 2750, never in columns. The pasted block is selected.
Paste_Result Paste_Grid(Text_Grid& grid, std::string_view text);

/// The same into a folder: its edit flag is set, while Flag_Results stays as it is, unlike after
/// typing.
Paste_Result Paste_Folder(Database& db, Edit_Copy& copy, Folder folder, std::string_view text);

/// Adds as many rows at the current row of the airway grid as the text has, and pastes there.
Paste_Result Paste_Insert(Database& db, Edit_Copy& copy, std::string_view text);

/// Empties the selected cells. False when there are none.
bool Empty_Cells(Database& db, Edit_Copy& copy, Folder folder);

/// Puts empty rows before the current row of the airway grid (row 1 when none is current), as many
/// of `count` as the grid may still have. Returns how many.
int Insert_Rows(Database& db, Edit_Copy& copy, int count);

/// Deletes rows of the airway grid from the current one down (from row 1 when none is current), at
/// most to the last. Returns how many.
int Delete_Rows(Database& db, Edit_Copy& copy, int count);

/// Rows first..last; none when last is below first.
struct Row_Range {
  int first = 1, last = 0;
};

/// The rows of a grid's selection, whichever way it was drawn.
Row_Range Selected_Rows(const Text_Grid& grid);

/// Write the letter or number of winding 0..2, support 0..7 or shape 0..3 into the selected rows of
/// the airway grid that hold something. False when there is none. Raise Run_Time_Error outside
/// those numbers.
bool Set_Winding(Database& db, Edit_Copy& copy, int wind);
bool Set_Kind(Database& db, Edit_Copy& copy, int kind);
bool Set_Shape(Database& db, Edit_Copy& copy, int shape);

/// Adds a main-fan page with a new fan's values, without its nodes, and brings it to the front.
/// False when there are 15.
bool Add_Fan_Page(Database& db, Edit_Copy& copy);

/// Removes the page in front; those behind it get the next lower numbers. False when there is none.
bool Remove_Fan_Page(Database& db, Edit_Copy& copy);

/// Types a text into a field 1..6 of the page in front. With the box "Surface Main Fan" the
/// discharge node follows the suction node. False when nothing has changed.
bool Set_Fan_Field(Database& db, Edit_Copy& copy, int field, std::string_view text);

/// Sets the box "Surface Main Fan" of the page in front.
bool Set_Surface_Fan(Database& db, Edit_Copy& copy, bool surface);

/// Sets one of the three picture names of the page in front. False when nothing has changed.
bool Set_Fan_Picture(Database& db, Edit_Copy& copy, int slot, std::string_view name);

/// The row of the node or airway grid that a search for a node number goes to: the node's row, or
/// that of the next node with connections; the first airway of that node as the tables hold it, or
/// the last airway of all. A number above Node_Total stands for Node_Total. 0 on folders that are
/// not searched.
int Find_Row(const Database& db, const Edit_Copy& copy, Folder folder, int number);

}  // namespace branok
