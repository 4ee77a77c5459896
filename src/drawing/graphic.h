// The Graphic picture: the mine in plan ("2dh") and in two sections ("2dew", "2dns"), from the
// survey coordinates of its nodes.
//
// Order of use: Graph_Range after a change of data, one of the projections, Graph_Build, then
// Graph_Paint. A step that meets a run-time fault ends there, with what it has done so far.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/database.h"
#include "drawing/marks.h"
#include "drawing/picking.h"
#include "drawing/primitives.h"
#include "drawing/surface.h"
#include "drawing/view.h"

namespace branok {

/// A grid line's two ends in the unit square.
struct Grid_Segment {
  float X1 = 0, X2 = 0, Y1 = 0, Y2 = 0;
  bool operator==(const Grid_Segment&) const = default;
};

/// What stands beside the nodes.
enum class Node_Info { none, level, sn, ew };

/// State of the picture beside the database. Lengths in metres; grid positions relative to the
/// centre of the mine.
struct Graphic {
  std::string view = "2dh";

  float Mark_Base = 0;           ///< size of marks in the unit square
  std::int16_t Mark_Attach = 0;  ///< 1: marks and numbers are drawn
  float Mark_Size = 0;           ///< Mark_Base * Mark_Attach

  // The extent of the mine, rounded outward to the grid; of the elevations it stands in the
  // database (Range_ZMin, Range_ZMax).
  std::int32_t Range_EWMin = 0, Range_EWMax = 0, Range_SNMin = 0, Range_SNMax = 0;
  float Centre_EW = 0, Centre_SN = 0, Centre_Z = 0;  ///< of the extent that is not rounded
  std::int16_t Band_Low = 0, Band_High = 0;          ///< elevations whose nodes are shown

  std::int32_t Grid_Unit = 0;
  List<std::int32_t, 100> Grid_EW, Grid_SN;  ///< from index 0
  List<std::int32_t, 50> Grid_Z;
  int Grid_EWFirst = 0, Grid_EWLast = 0, Grid_SNFirst = 0, Grid_SNLast = 0, Grid_ZFirst = 0,
      Grid_ZLast = 0;
  List<Grid_Segment, 251> Grid_Row;  ///< Grid_Count grid lines, then those of the north arrow
  int Grid_Count = 0;
  int Arrow_Count = 0;  ///< rows of the north arrow: 3 in the plan, else 0

  View_Rectangle View;
  Area Selected;  ///< what printing and the picture copy take

  std::string GType = "none";  ///< "display": the picture in space shows temperatures
  Node_Info Graph_NodeInfo = Node_Info::none;
  Primitive_Lists Graph;   ///< Graph_Line, Graph_Circle, Graph_Text, Graph_Info
  Airway_Directions Root;  ///< Root_DirX, Root_DirY, Root_DirLen
};

/// Extent, centre and grid of the mine; also sets GPara_FarLength, Range_ZMin, Range_ZMax and the
/// level band. Returns the fault that ended it, empty when none did.
std::string Graph_Range(Database& db, Graphic& graphic);

/// What the graphic parameters are by default, from the ranges; and the slider steps that belong
/// to the three translation ranges. Raises Run_Time_Error on overflow.
struct Slider_Steps {
  int TransEW = 0, TransNS = 0, TransZ = 0;
};
Slider_Steps Gpara_Default(Database& db, const Graphic& graphic);

/// The projections: Node_GraphX, Node_GraphY and Node_Used of the database, and the grid. Return
/// the fault that ended them, empty when none did.
std::string Graph_Project_2dh(Database& db, Graphic& graphic);
std::string Graph_Project_2dew(Database& db, Graphic& graphic);
std::string Graph_Project_2dns(Database& db, Graphic& graphic);
/// The one that `graphic.view` names.
std::string Graph_Project(Database& db, Graphic& graphic);

/// Mark_Base from the number of nodes, and Mark_Size.
void Set_Mark_Size(const Database& db, Graphic& graphic);

/// Rebuilds all lists; refreshes Root_FlowSign when there are results. Returns the fault that ended
/// it, empty when none did.
std::string Graph_Build(Database& db, Graphic& graphic);

/// The information labels alone. Raises Run_Time_Error when a number is outside its table.
void Graph_Info(const Database& db, Graphic& graphic);

/// Lines, circles, texts, then the information labels when there are some.
void Graph_Paint(const Database& db, const Graphic& graphic, Surface& surface);
/// The same on a printer, whose pens are `factor` times as wide.
void Graph_Print(const Database& db, const Graphic& graphic, Surface& surface, double factor);
/// The labels with the word "draw" in their colour, with any other in that of the background.
void Graph_Info_Paint(const Database& db, const Graphic& graphic, Surface& surface,
                      std::string_view word);

/// Makes the shown rectangle square and its zoom possible for a frame of `side` pixels, and
/// reckons the size of the marks anew.
void Graph_SetView(const Database& db, Graphic& graphic, double side);

/// Whether the node's level is in the band; its two ends belong to it, and either may be the
/// higher one.
bool In_Band(const Database& db, const Graphic& graphic, int node);

/// What a point of the picture is picked from.
Pick_Ground Ground_Of(const Database& db, const Graphic& graphic);

}  // namespace branok
