// The records of the one-file format: where each field stands. Reader and writer use this one
// table.
//
// A field is the rightmost `width` characters of blanks followed by the number in its picture, so a
// number too wide loses its leading digits. Columns are counted from 1. A text stands last on its
// line, after one blank.
#pragma once

#include <string_view>

#include "core/pictures.h"

namespace branok::ver6 {

inline constexpr std::string_view first_line = "BRANOK Data File Version 6";

/// A number in columns.
struct Field {
  constexpr Field(int first_column, int field_width, std::string_view field_picture)
      : column(first_column), width(field_width), picture(field_picture) {}
  int column;
  int width;
  Picture picture;
};

/// A number in the last `width` characters of its line, however long the line is.
struct Last_Field : Field {
  using Field::Field;
};

/// A number alone on its line: written right-aligned, read wherever it stands.
struct Whole_Line : Field {
  constexpr Whole_Line(int field_width, std::string_view field_picture)
      : Field(1, field_width, field_picture) {}
};

/// A text to the end of its line.
struct Tail {
  int column;
};

/// The n-th (from 1) of several fields of one kind that stand side by side.
constexpr Field Next_Field(const Field& first, int n) {
  Field field = first;
  field.column += (n - 1) * first.width;
  return field;
}

namespace head {
inline constexpr Field nodes(1, 10, "##0"), main_fans(11, 10, "#0"), inlets(21, 10, "#0");
inline constexpr Last_Field assist_fans(31, 10, "#0");
}  // namespace head

namespace node {
inline constexpr Field number(1, 6, "####0"), elev(7, 8, "#####0"), ew(15, 12, "########0"),
    sn(27, 12, "########0"), connections(39, 8, "##0"), junc(47, 8, "##0");
inline constexpr Tail comment{88};
}  // namespace node

namespace picture_file {
inline constexpr Field owner(1, 6, "0");
inline constexpr Tail name{8};
}  // namespace picture_file

namespace airway {
inline constexpr Field from(1, 3, "##0"), to(4, 5, "##0");
inline constexpr Field resist(9, 12, "######0.000"), area(21, 6, "##0.0"), peri(27, 6, "###0.0"),
    length(33, 8, "####0.0"), time(41, 6, "##0.0"), heat(47, 8, "####0.0"), wet(55, 5, "##0.0"),
    kind(60, 5, "#0"), wind(65, 5, "#0"), fric(70, 14, "#####0.000000"), shape(84, 6, "#0"),
    height(90, 8, "#0.0");
inline constexpr Tail comment{99};
}  // namespace airway

namespace airway_picture {
inline constexpr Field from(1, 6, "0"), to(7, 8, "0");
inline constexpr Tail name{16};
}  // namespace airway_picture

namespace inlet {
inline constexpr Field number(1, 5, "##0"), node(6, 8, "##0");
inline constexpr Tail comment{15};
}  // namespace inlet

namespace main_fan {
inline constexpr Field number(1, 5, "##0"), suction(6, 10, "##0"), discharge(16, 10, "##0"),
    std_rpm(26, 10, "####0.0"), drive_rpm(36, 10, "####0.0"), limit_flow(46, 10, "####0.0"),
    points(56, 8, "##0");
inline constexpr Tail comment{65};
}  // namespace main_fan

namespace fan_coef {
inline constexpr Field number(1, 5, "####0"), cubic(6, 12, "0.0000E+00"),
    square(18, 12, "0.0000E+00"), linear(30, 12, "0.0000E+00"), constant(42, 12, "0.0000E+00");
}  // namespace fan_coef

namespace fan_point {
inline constexpr Field number(1, 5, "####0"), flow(6, 10, "####0.0"), head(16, 10, "####0.0");
}  // namespace fan_point

namespace assist_fan {
inline constexpr Field number(1, 5, "####0"), suction(6, 10, "##0"), discharge(16, 10, "##0"),
    head(26, 10, "####0.0"), flow(36, 10, "####0.0");
inline constexpr Tail comment{47};
}  // namespace assist_fan

namespace thermal {
inline constexpr Field number(1, 5, "####0"), node1(6, 4, "##0"), node2(10, 5, "##0"),
    cond(15, 8, "###0.0"), density(23, 10, "###0.0"), specific(33, 10, "###0.0"),
    rock_temp(43, 10, "###0.0");
inline constexpr Tail comment{54};
}  // namespace thermal

namespace parameter {
inline constexpr int lines = 14;
inline constexpr Whole_Line two_decimals(10, "##0.00"), one_decimal(10, "##0.0"),
    gradient(10, "#0.000"), diffusivity(10, "#0.00000"), month(10, "##0"), datum(10, "0.0");
inline constexpr Tail wet_tag{1};
}  // namespace parameter

namespace graphic {
inline constexpr int lines = 11;
inline constexpr Field whole(1, 10, "0"), decimal(1, 10, "0.0"), color(1, 12, "0");
}  // namespace graphic

namespace marks {
inline constexpr int lines = 2;
inline constexpr Field mark(1, 10, "######0");
inline constexpr Whole_Line option(10, "0");
}  // namespace marks

namespace node_result {
inline constexpr Field number(1, 6, "##0"), press(7, 17, "####0.0000000000"),
    dry_bulb(24, 10, "##0.00000"), humidity(34, 10, "##0.00000"), travel(44, 10, "######0.0");
}  // namespace node_result

namespace airway_result {
inline constexpr std::string_view annual = "Annual_Temp", season = "Season_Temp",
                                  given = "Given_Temp";
inline constexpr Field from(1, 3, "##0"), to(4, 5, "##0"), flow(9, 12, "####0.00000"),
    temp(21, 12, "####0.00000"), humidity(33, 12, "####0.00000");
}  // namespace airway_result

namespace cad {
inline constexpr Field color(1, 10, "0");
inline constexpr Field number(1, 5, "####0"), x(6, 10, "###0.00000"), y(16, 10, "###0.00000");
}  // namespace cad

}  // namespace branok::ver6
