// The sample network drawn on a line through the middle of the picture, and what its lists hold.
#pragma once

#include <vector>

#include "drawing/cad.h"
#include "support/generated_mine.h"

namespace branok {

/// Five nodes in a row, 0.2 apart; each part of the picture in a colour of its own, 101..110.
inline Database Drawn_Mine() {
  Database db;
  New_Database(db, "2024/05/06");
  Derive_Marks(db);
  for (int i = 1; i <= 5; ++i) {
    db.Node_CadX[i] = static_cast<float>(0.1 + 0.2 * (i - 1));
    db.Node_CadY[i] = 0.5F;
  }
  for (int k = 1; k <= 10; ++k) db.Cad_Color[k] = 100 + k;
  db.Flag_Cad = flag_true;
  return db;
}

inline constexpr std::size_t frame_records = 44;  // eleven by eleven lines of two records

/// The pen operations behind the frame in one colour.
inline std::vector<Line_Record> Lines_Of(const Primitive_Lists& lists, int color) {
  std::vector<Line_Record> found;
  for (std::size_t k = frame_records; k < lists.Line.size(); ++k) {
    if (lists.Line[k].Color == 100 + color) found.push_back(lists.Line[k]);
  }
  return found;
}

}  // namespace branok
