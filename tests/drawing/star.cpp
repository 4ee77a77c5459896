#include "drawing/star.h"

#include <algorithm>

#include "support/generated_mine.h"

namespace branok {
namespace {

constexpr std::array<std::pair<int, int>, 8> directions{
    {{300, 0}, {200, 200}, {0, 300}, {-200, 200}, {-300, 0}, {-200, -200}, {0, -300}, {200, -200}}};
constexpr float resistance = 10;

void Place(Database& db, int node, int east, int north) {
  db.Node_EW[node] = 1000 + east;
  db.Node_SN[node] = 2000 + north;
  db.Node_Elev[node] = -50;
}

}  // namespace

Star::Star(bool outward) {
  Reset_Database(db);
  db.GPara_EWTimes = db.GPara_NSTimes = db.GPara_ElevTimes = 1;
  const int first_centre = outward ? 1 : 9;
  const int first_end = outward ? 3 : 1;
  Place(db, first_centre, 0, 0);
  Place(db, first_centre + 1, 0, 0);
  for (int k = 0; k < 8; ++k) {
    const int centre = first_centre + k % 2;
    const int end = first_end + k;
    const auto [east, north] = directions[static_cast<std::size_t>(k)];
    Place(db, end, east, north);
    Add_Airway(db, centre, end, resistance);
    spokes[static_cast<std::size_t>(k)] = {centre, end};
  }
}

void Star::Set_Type(std::int16_t type) {
  const bool assist = type == 2 || type == -2;
  for (const auto& [centre, end] : spokes) {
    const auto [low, high] = std::minmax(centre, end);
    db.Root_Type(Find_Slot(db, low, high), low) = type;
    db.Root_Type(Find_Slot(db, high, low), high) = static_cast<std::int16_t>(assist ? -type : type);
  }
}

void Star::Set_Flow(int sign) {
  db.Flag_Results = flag_true;
  for (const auto& [centre, end] : spokes) {
    const auto [low, high] = std::minmax(centre, end);
    db.Root_Flow(Find_Slot(db, low, high), low) = static_cast<float>(10 * sign);
    db.Root_Flow(Find_Slot(db, high, low), high) = static_cast<float>(-10 * sign);
  }
}

void Star::Set_Ends(std::int16_t node_type) {
  for (const auto& [centre, end] : spokes) {
    db.Node_Type[end] = node_type;
    if (node_type == 3) Add_Main_Fan(db, end, centre);
  }
}

void Add_Main_Fan(Database& db, int suction, int discharge) {
  const int f = ++db.MFan_Total;
  db.MFan_Suction[f] = static_cast<std::int16_t>(suction);
  db.MFan_Discharge[f] = static_cast<std::int16_t>(discharge);
}

}  // namespace branok
