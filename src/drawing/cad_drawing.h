// How a part of the CAD picture is drawn; for the files that build and edit it.
#pragma once

#include "drawing/cad.h"

namespace branok {

/// A drawing in the colours and mark size of the CAD picture, with the nodes at X, Y, into `lists`.
/// It keeps references to all of them.
Drawing Cad_Drawing(const Database& db, const Cad& cad, const Node_Table<float>& X,
                    const Node_Table<float>& Y, Primitive_Lists& lists);

}  // namespace branok
