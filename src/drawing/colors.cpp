#include "drawing/colors.h"

#include "core/standard_colors.h"
#include "drawing/primitives.h"

namespace branok {

namespace {

constexpr std::array<std::string_view, 13> graphic_captions = {
    "Node Circle",      "Airway Line (2D)", "Nodal Number",   "Inlet",          "Main Fan",
    "Assist Fan",       "Air Door",         "Marking Number", "Grid Line (2D)", "Back Color (2D)",
    "Airway Line (3D)", "Grid Line (3D)",   "Back Color (3D)"};
constexpr std::array<std::string_view, 10> cad_captions = {
    "Node Circle", "Airway Line", "Nodal Number",   "Inlet",     "Main Fan",
    "Assist Fan",  "Air Door",    "Marking Number", "Grid Line", "Back Color"};

constexpr std::size_t flat_rows = standard_colors.size();

}  // namespace

std::span<const std::string_view> Color_Captions(Color_Set set) {
  if (set == Color_Set::cad) return cad_captions;
  return graphic_captions;
}

Color_Copy Take_Colors(const Database& db, Color_Set set) {
  const auto& table = set == Color_Set::cad ? db.Cad_Color : db.Graph_Color;
  Color_Copy copy{};
  for (std::size_t k = 1; k <= flat_rows; ++k) copy[k] = table[static_cast<int>(k)];
  copy[color::airway_3d] = db.MaterialColor;
  copy[color::grid_3d] = db.GridColor;
  copy[color::back_3d] = db.BackColor;
  return copy;
}

void Put_Colors(Database& db, Color_Set set, const Color_Copy& copy) {
  auto& table = set == Color_Set::cad ? db.Cad_Color : db.Graph_Color;
  for (std::size_t k = 1; k <= flat_rows; ++k) table[static_cast<int>(k)] = copy[k];
  if (set == Color_Set::cad) return;
  db.MaterialColor = copy[color::airway_3d];
  db.GridColor = copy[color::grid_3d];
  db.BackColor = copy[color::back_3d];
}

Color_Copy Default_Colors() {
  Color_Copy copy{};
  for (std::size_t k = 1; k <= flat_rows; ++k) copy[k] = standard_colors[k - 1];
  copy[color::airway_3d] = standard_material;
  copy[color::grid_3d] = standard_grid;
  copy[color::back_3d] = standard_back;
  return copy;
}

Color_Copy Mono_Colors() {
  Color_Copy copy{};  // black
  copy[color::back] = copy[color::back_3d] = RGB(255, 255, 255);
  return copy;
}

}  // namespace branok
