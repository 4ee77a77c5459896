// The program's own icons: one calm family that reads on light and on dark windows.
#pragma once

#include <QIcon>
#include <string_view>

namespace branok {

/// The icon of this name ("open", "calc-flow"; "branok" is the program's), sharp at every size; an
/// empty icon when there is none.
QIcon Icon_Of(std::string_view name);

}  // namespace branok
