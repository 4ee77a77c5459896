// The words of the program: support kinds, winding, shapes, regulator classes and seasons, and the
// standard friction factors. Set here once; nothing changes them.
#pragma once

#include <array>
#include <string_view>

namespace branok {

/// Kinds of support, Root_Kind 0..7.
inline constexpr std::array<std::string_view, 8> Kind_Name = {
    "Steel Support",  "Wood Support",  "Smooth Lining", "Rough Lining",
    "Lining+St.Sup.", "Non - Support", "Leak",          "Air Duct"};

/// Degrees of winding, Root_Wind 0..2, and what they stand for.
inline constexpr std::array<std::string_view, 3> Wind_Letter = {"A", "B", "C"};
inline constexpr std::array<std::string_view, 3> Wind_Name = {" A = Straight", " B = M. Curved",
                                                              " C = H. Curved"};

/// Shapes of the cross-section, Root_Shape 0..3: circle, horseshoe, square, rectangle.
inline constexpr std::array<std::string_view, 4> Shape_Letter = {"C", "H", "S", "R"};

/// Regulator classes, Root_Type 0..6.
inline constexpr std::array<std::string_view, 7> Type_Name = {"Open",   "Door", "A.Fan", "Regu.",
                                                              "2Doors", "Stop", "Close"};

/// Seasons by month number 0..12; row 12 repeats row 0, row 13 is blank.
inline constexpr std::array<std::string_view, 14> Season_Name = {"early Winter",  "mid Winter",
                                                                 "late Winter",   "early Spring",
                                                                 "mid Spring",    "late Spring",
                                                                 "early Summer ", "mid Summer",
                                                                 "late Summer",   "early Autumn",
                                                                 "mid Autumn",    "late Autumn",
                                                                 "early Winter",  ""};

/// Standard friction factors by support kind and winding A, B, C.
inline constexpr std::array<std::array<float, 3>, 8> Root_FricTable = {
    {{0.0016F, 0.0018F, 0.0021F},
     {0.0021F, 0.0023F, 0.0026F},
     {0.0003F, 0.0005F, 0.0008F},
     {0.0005F, 0.0007F, 0.001F},
     {0.00065F, 0.00088F, 0.0011F},
     {0.0014F, 0.0016F, 0.0019F},
     {0.01F, 0.01F, 0.01F},
     {0.0002F, 0.0004F, 0.0006F}}};

}  // namespace branok
