#include "drawing/primitives.h"

namespace branok {

void Primitive_Lists::clear() {
  Line.clear();
  Circle.clear();
  Text.clear();
  Info.clear();
}

void Airway_Directions::clear() {
  DirX.fill(0);
  DirY.fill(0);
  DirLen.fill(0);
}

}  // namespace branok
