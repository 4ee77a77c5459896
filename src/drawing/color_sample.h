// A small drawing with every colour in it, for one who chooses colours.
#pragma once

#include "drawing/marks.h"

namespace branok {

/// A circuit of airways on a grid, with all marks, in the unit square.
Primitive_Lists Color_Sample(const Color_Table& colors);

}  // namespace branok
