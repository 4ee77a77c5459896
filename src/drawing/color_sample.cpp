#include "drawing/color_sample.h"

namespace branok {

namespace {

// Airways in a circuit 1-2-...-6, with a way between 2 and 5.
struct Sample_Airway {
  int from, to;
  std::int16_t type;  // Root_Type
};
constexpr Sample_Airway airways[] = {{1, 2, 1}, {2, 3, 2}, {3, 4, 3},
                                     {4, 5, 5}, {5, 6, 0}, {2, 5, 4}};
constexpr Point places[] = {{0.14, 0.2}, {0.5, 0.2}, {0.86, 0.2},
                            {0.86, 0.8}, {0.5, 0.8}, {0.24, 0.8}};

Database Sample_Mine() {
  Database db;
  db.Node_Total = 6;
  for (int i = 1; i <= db.Node_Total; ++i) {
    const Point place = places[i - 1];
    db.Node_Used[i] = 1;
    db.Node_GraphX[i] = static_cast<float>(place.x);
    db.Node_GraphY[i] = static_cast<float>(place.y);
  }
  db.Node_Type[1] = node_class::inlet;
  db.Node_Type[6] = node_class::surface_fan;
  for (const Sample_Airway& airway : airways) {
    for (const auto& [near, far] : {std::pair(airway.from, airway.to), {airway.to, airway.from}}) {
      const int slot = ++db.Node_JuncCount[near];
      db.Node_Junc(slot, near) = static_cast<std::int16_t>(far);
      db.Root_Type(slot, near) = airway.type;
    }
  }
  return db;
}

}  // namespace

Primitive_Lists Color_Sample(const Color_Table& colors) {
  static const Database mine = Sample_Mine();
  constexpr double mark = 0.055;
  Primitive_Lists lists;
  const Drawing d{.db = mine,
                  .X = mine.Node_GraphX,
                  .Y = mine.Node_GraphY,
                  .S = mark,
                  .colors = colors,
                  .lists = lists};
  // Grid lines that pass the marks by, the first with its number.
  d.polyline({{0, 0.35}, {1, 0.35}}, color::grid);
  d.polyline({{0.6, 0}, {0.6, 1}}, color::grid);
  d.text({0.1, 0.35}, color::marking, 0.5 * mark, mark, 0, "100");
  for (int i = 1; i <= mine.Node_Total; ++i) Build_Node(d, i);
  for (const Sample_Airway& airway : airways) {
    Build_Airway(d, airway.from, Find_Slot(mine, airway.from, airway.to));
  }
  return lists;
}

}  // namespace branok
