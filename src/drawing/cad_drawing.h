// How a part of the CAD picture is drawn; for the files that build and edit it.
#pragma once

#include "drawing/cad.h"

namespace branok {

/// A drawing in the colours and mark size of the CAD picture, with the nodes at X, Y, into `lists`.
/// It keeps references to all of them.
Drawing Cad_Drawing(const Database& db, const Cad& cad, const Node_Table<float>& X,
                    const Node_Table<float>& Y, Primitive_Lists& lists);

/// Where the middle of a node may lie in the picture, across and down: clear of the edge, where it
/// could not be seen whole.
inline constexpr double node_low = 0.015, node_high = 0.985;

/// Size of the marks in the unit square: the more nodes, the smaller.
double Mark_Base_Of(const Database& db);

/// Whether a node can lie there. What is no number, or beyond any survey, is no position.
bool Is_Position(Point at);

}  // namespace branok
