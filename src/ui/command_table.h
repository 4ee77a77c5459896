// Every command of the program in one table: menus, toolbar, shortcuts and routing are made from
// it.
#pragma once

#include <span>

namespace branok {

class BRANOK60;

/// What a command does. The index is the entry's place in its array of entries, 0 for a single one.
using Command_Procedure = void (BRANOK60::*)(int index);

enum class Item { command, separator, menu, end_of_menu };

/// One line of a menu.
struct Menu_Entry {
  Item item = Item::command;
  const char* name = "";  ///< of the control; an entry of an array has its index behind it
  const char* caption = "";
  const char* tip = "";
  const char* icon = "";
  const char* shortcut = "";
  Command_Procedure run = nullptr;
  const char* trap = "";  ///< how a fault names the command; in single quotes for file commands
  int index = -1;         ///< of an entry of an array
  bool checkable = false;
};

struct Top_Menu {
  const char* name;
  const char* caption;
  std::span<const Menu_Entry> entries;
};

/// The menu bar, left to right.
std::span<const Top_Menu> Menu_Bar();

/// One toolbar button: it gives the command that stands here, or a word for those that go by the
/// window on top.
struct Tool {
  const char* key;  ///< "Separater" for a gap
  const char* icon;
  const char* command;  ///< the menu entry whose command, tip and shortcut it has, or ""
  Command_Procedure run = nullptr;  ///< of a button that goes by the window on top
  const char* tip = "";
  const char* trap = "";
  bool checkable = false;
};

std::span<const Tool> Toolbar_Keys();

}  // namespace branok
