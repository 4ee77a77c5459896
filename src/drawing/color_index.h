// The colour index: which temperatures the sixteen colours of the picture in space stand for.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace branok {

struct Database;

/// Whether the airways have temperatures that a run has calculated.
bool Has_Temperatures(const Database& db);

/// Colours of the temperature levels 0..16, 0x00BBGGRR; 0 is colder than the scale, 16 hotter.
extern const std::array<std::int32_t, 17> Temperature_Color;

/// The scale's ends, deg C.
struct Index_Range {
  std::int16_t max = 0, min = 0;
};

/// The ends from two typed numbers, rounded to whole degrees: at most 100, at least -50, the higher
/// at least one above the lower (else it is made so).
Index_Range Limit_Index(double max, double min);

/// A temperature as the dialog of the scale shows it: "12.3".
std::string Temperature_Text(double temperature);

/// A cell of the legend: its colour and its temperature ("12.3C").
struct Index_Cell {
  std::int32_t color;
  std::string label;
};
/// The sixteen cells, from the lowest temperature to the highest. A cell has the colour in which an
/// airway of its temperature is drawn.
std::array<Index_Cell, 16> Index_Legend(const Index_Range& range);

}  // namespace branok
