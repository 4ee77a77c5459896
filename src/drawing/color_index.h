// The colour index: which temperatures the sixteen colours of the picture in space stand for.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace branok {

/// Colours of the temperature levels 0..16, 0x00BBGGRR; 0 is colder than the scale, 16 hotter.
extern const std::array<std::int32_t, 17> Temperature_Color;

/// The scale's ends, deg C.
struct Index_Range {
  std::int16_t max = 0, min = 0;
};

/// The ends from two typed numbers: at most 100, at least -50, the higher at least one above the
/// lower.
Index_Range Limit_Index(double max, double min);

/// A cell of the legend: its colour and its temperature ("12.3C").
struct Index_Cell {
  std::int32_t color;
  std::string label;
};
/// The sixteen cells, from the lowest temperature to the highest.
std::array<Index_Cell, 16> Index_Legend(const Index_Range& range);

}  // namespace branok
