// The CAD picture: a schematic of the mine whose nodes lie where the engineer puts them.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "core/database.h"
#include "core/dialogue.h"
#include "drawing/marks.h"
#include "drawing/picking.h"
#include "drawing/primitives.h"
#include "drawing/surface.h"
#include "drawing/view.h"

namespace branok {

/// What stands beside the airways.
enum class Airway_Info { none, resistance, flow, temperature, friction, note };

/// State of the picture beside the database.
struct Cad {
  float Cad_Mark_Base = 0;           ///< size of marks in the unit square
  std::int16_t Cad_Mark_Attach = 1;  ///< 1: marks and numbers are drawn
  float Cad_Mark_Size = 0;           ///< Cad_Mark_Base * Cad_Mark_Attach

  View_Rectangle View;
  Area Selected;  ///< Cad_Area: what printing and the picture copy take

  Airway_Info Cad_Airway_Info = Airway_Info::none;
  Primitive_Lists Lists;   ///< Cad_Line, Cad_Circle, Cad_Text, Cad_Info
  Airway_Directions Dirs;  ///< Cad_DirX, Cad_DirY, Cad_DirLen

  int Cad_InputNode = 0;  ///< the last node placed by mouse in a new drawing
  int Cad_MoveNode = 0;   ///< the node that is being moved: not in the lists meanwhile
};

// --- Positions and marks

/// Whether the node has its place: in a new drawing by mouse only those do that were clicked, and
/// one that is being moved has none.
bool Is_Placed(const Database& db, const Cad& cad, int node);

/// Where new positions come from.
enum class Cad_Source { survey, graphic };

/// Makes a new drawing: positions of all connected nodes from the survey coordinates or from the
/// Graphic picture, node types, marks of the airways. With a drawing present it asks first, and has
/// `keep_old` write it out; what that raises ends the command with the drawing untouched. Returns
/// whether a drawing was made; its positions may be metres, until Cad_Normalize. Raises
/// Run_Time_Error when a number is outside its table.
bool Cad_Generate(Database& db, Cad& cad, Cad_Source source, Dialogue& dialogue,
                  const std::function<void()>& keep_old);

/// Brings the positions of the connected nodes to the unit square, about its centre. A node whose
/// position is none (no number, or 1e10 and more) comes to the centre. Does nothing without
/// connected nodes.
void Cad_Normalize(Database& db);

// --- Lists

/// Cad_Mark_Base from the number of nodes, and Cad_Mark_Size.
void Set_Mark_Size(const Database& db, Cad& cad);

/// Rebuilds all lists; refreshes Root_FlowSign when there are results. Returns the fault that ended
/// it, empty when none did.
std::string Cad_Build(Database& db, Cad& cad);

/// The background: eleven by eleven grid lines.
void Cad_Frame(const Database& db, Cad& cad);

/// One node or airway at the end of the lists; with any word but "draw" in the colour of the
/// background, which wipes it from a picture. Nothing is entered for a node while marks are off,
/// nor for an airway that does not lead to `far` or whose ends are not both placed. Raise
/// Run_Time_Error when a number is outside its table.
void Cad_Node(const Database& db, Cad& cad, int node, std::string_view word);
void Cad_Airway(const Database& db, Cad& cad, int node, int far, int slot, std::string_view word);

/// The information labels alone. Raises Run_Time_Error when a number is outside its table.
void Cad_Info_Build(const Database& db, Cad& cad);

/// Lines, circles, texts, then the information labels when there are some.
void Cad_Paint(const Database& db, const Cad& cad, Surface& surface);
/// The same on a printer, whose pens are `factor` times as wide.
void Cad_Print(const Database& db, const Cad& cad, Surface& surface, double factor);
/// The labels with the word "draw" in their colour, with any other in that of the background.
void Cad_Info_Paint(const Database& db, const Cad& cad, Surface& surface, std::string_view word);

/// Makes the shown rectangle square and its zoom possible for a frame of `side` pixels, and reckons
/// the size of the marks anew.
void Cad_SetView(const Database& db, Cad& cad, double side);

/// The whole square, the marks at their size, the lists anew. Returns Cad_Build's fault.
std::string Cad_Zoom_Out(Database& db, Cad& cad, double side);

/// What a point of the picture is picked from.
Pick_Ground Ground_Of(const Database& db, const Cad& cad);

// --- Edits

/// A click of a new drawing by mouse: the next node is placed there (within 0.015..0.985) and
/// entered in the lists with its airways to the nodes that are placed already. A node without
/// airways uses the click up. When the last node is placed the drawing is complete: Flag_Cad is set
/// and the lists are rebuilt. Returns the node placed, 0 for none. Raises Run_Time_Error when a
/// number is outside its table.
int Cad_Place_Node(Database& db, Cad& cad, Point at);

/// Whether marks of other nodes depend on where this one lies: an intake or a surface fan beside it
/// looks away from it, an underground fan blows to it.
bool Turns_Other_Marks(const Database& db, int node);

/// The parts of one node: its mark and its airways, at the lists' ends, with the word "draw" or
/// "erase". Each airway as Cad_Build enters it, so that erasing covers what was drawn.
void Cad_Node_Parts(const Database& db, Cad& cad, int node, std::string_view word);

/// The same parts in lists of their own with the node lying at `at` (within 0.015..0.985): what a
/// drag shows.
Primitive_Lists Cad_Moved_Node(const Database& db, const Cad& cad, int node, Point at);

/// Puts a node elsewhere in the drawing (within 0.015..0.985) and rebuilds the lists. Survey
/// coordinates stay. Returns Cad_Build's fault.
std::string Cad_Move_Node(Database& db, Cad& cad, int node, Point to);

/// Gives a place to the nodes up to `last` that have come into the network since Node_JuncCount was
/// `before`: near their neighbours, where the picture has room, instead of all in its corner. A
/// node that was there earlier keeps its place when that is its own and within the square; the
/// others do not move.
void Cad_Place_New_Nodes(Database& db, const Node_Table<std::int16_t>& before,
                         int last = max_nodes);

/// Ends a drawing by mouse whose last nodes have left the network: the picture is complete. Returns
/// whether it is now.
bool Cad_Complete(Database& db, const Cad& cad);

/// Asks which node leaves the network, and whether it is to. 0 when the answer is no number of a
/// node, or no.
int Ask_Deleted_Node(const Database& db, Dialogue& dialogue);

/// Takes a node with its airways out of the tables of the network; a number above Node_Total is
/// none. Shape and height of the airways behind a removed one do not move with them; intakes and
/// fans are not touched. Results do not hold any more. Raises Run_Time_Error when a number is
/// outside its table.
void Delete_Node(Database& db, int node);

/// The four spaces of the frame in percent, each above -50: the drawing shrinks away from a side by
/// its space, a negative one pulls it outward. Raises Run_Time_Error when a position is no number.
struct Frame_Space {
  double up = 0, down = 0, left = 0, right = 0;
};
void Edit_Frame(Database& db, const Frame_Space& percent);

}  // namespace branok
