// Digits that were typed and that the picture of their column does not show.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "core/pictures.h"
#include "prep/edit_copy.h"

namespace branok {

/// A folder's grid as it is before it shows the tables again, its rows found by the two nodes that
/// they name. The grids' texts are what the next check reads: a picture that says less of a number
/// than the engineer has typed would take digits away.
class Typed_Digits {
 public:
  /// Of airways, assist fans or thermal rows. The grid must outlive this.
  Typed_Digits(const Text_Grid& grid, Folder folder);

  /// The text of a cell in the row of the airway i-j: the picture of its number, or, where that
  /// would lose digits, the text that stands there and holds the number itself.
  [[nodiscard]] std::string Keep_Digits(int i, int j, int col, const Picture& picture,
                                        float number) const;

 private:
  const Text_Grid& grid_;
  std::multimap<std::pair<int, int>, int> rows_;  // by the airway's nodes, the lower one first
};

}  // namespace branok
