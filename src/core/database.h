// The network database: one mine with its nodes, airways, intakes, fans, rock conditions,
// parameters and the results of the last calculation.
//
// There is no global database: every procedure takes the one it works on, so that several mines can
// be held side by side. Numbers of nodes, slots and rows are the identity of things; the data files
// store those numbers. All tables have full capacity from the start.
//
// Units: pressure and head mmH2O, flow m3/s in the result tables and m3/min in fan data and in the
// tolerance, resistance murgue (0.001 mmH2O per (m3/s)2), length m, temperature deg C, heat kcal/h,
// humidity 0..1.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/table.h"

namespace branok {

inline constexpr int max_nodes = 550;
inline constexpr int max_slots = 5;         // connections of one node
inline constexpr int max_pictures = 3;      // picture files of one thing
inline constexpr int max_grid_rows = 2750;  // airway grid rows: nodes times slots
inline constexpr int max_inlets = 15;
inline constexpr int max_main_fans = 15;
inline constexpr int max_fan_points = 20;  // head-flow points of a main fan
inline constexpr int max_assist_fans = 20;
inline constexpr int max_thermo_rows = 50;
inline constexpr int max_traces = 6;
inline constexpr int trace_steps = 60;  // five steps a month, one year
inline constexpr int max_iter_errors = 550;

/// A flag that is true holds -1 (all bits set), except Flag_Annual and Flag_Season, which hold 1.
inline constexpr std::int16_t flag_true = -1;

/// The text of a cleared comment.
inline constexpr const char* blank_comment = "            ";

template <class T>
using Node_Table = List<T, max_nodes>;
template <class T>
using Root_Table = Grid<T, max_slots, max_nodes>;
using Picture_Names = Grid<std::string, max_pictures, max_nodes>;

struct Database {
  // --- Counters
  std::int16_t Node_Total = 0;  ///< highest node number held; a number below it may be unused
  std::int16_t Node_Max = 0;    ///< highest node number used by the last Check Data
  std::int16_t MFan_Total = 0;
  std::int16_t MFan_GridTotal = 0;  ///< main-fan pages of the Database window
  std::int16_t Inlet_Total = 0;
  std::int16_t AFan_Total = 0;
  std::int16_t Thermo_Total = 0;

  // --- Head
  std::string Mine_Name;
  std::string Mine_Date;
  List<std::string, 3> Mine_Note;
  List<std::string, max_pictures> Mine_Pict;  ///< picture files of the mine; in no file
  std::int16_t Data_Ver = 0;  ///< 0 a new database, 4 or 5 older file set, 6 one-file format

  // --- Nodes
  Node_Table<std::int16_t> Node_JuncCount;  ///< connected airways, 0..5
  Root_Table<std::int16_t> Node_Junc;       ///< far node of a slot, 0 in an unused slot
  Node_Table<std::int16_t> Node_Elev;       ///< m
  Node_Table<std::int32_t> Node_EW;         ///< m
  Node_Table<std::int32_t> Node_SN;         ///< m
  Picture_Names Node_Pict;
  Node_Table<std::string> Node_Comm;
  Node_Table<std::int16_t> Node_Used;     ///< 1 when in use
  Node_Table<std::int16_t> Node_Type;     ///< 0 plain, 1 intake, 2 surface fan, 3 fan suction
  Node_Table<std::int16_t> Node_UpCount;  ///< slots that lead to a higher-numbered node
  Root_Table<std::int16_t> Node_UpSlot;   ///< those slots, 1..Node_UpCount

  // --- Airways. Each stands at both of its end nodes: (slot, node).
  Root_Table<float> Root_Resist;        ///< murgue
  Root_Table<float> Root_Area;          ///< m2
  Root_Table<float> Root_Peri;          ///< m
  Root_Table<float> Root_Length;        ///< m
  Root_Table<float> Root_Time;          ///< age, years
  Root_Table<float> Root_Heat;          ///< heat source, kcal/h
  Root_Table<float> Root_Wet;           ///< wet part of the wall, %
  Root_Table<std::int16_t> Root_Kind;   ///< support, index into Kind_Name
  Root_Table<std::int16_t> Root_Wind;   ///< winding, index into Wind_Letter
  Root_Table<float> Root_Fric;          ///< friction factor
  Root_Table<std::int16_t> Root_Shape;  ///< shape, index into Shape_Letter
  Root_Table<float> Root_Height;        ///< m
  Root_Table<std::string> Root_Comm;
  Block<std::string, max_pictures, max_slots, max_nodes> Root_Pict;  ///< (picture, slot, node)
  Root_Table<std::int16_t> Root_Type;    ///< regulator class, index into Type_Name; -2 A.Fan end
  Root_Table<std::int16_t> Root_Switch;  ///< 1 closed by Change Switch; in memory only

  // --- Intakes
  List<std::int16_t, max_inlets> Inlet_Node;
  List<std::string, max_inlets> Inlet_Comm;
  Grid<std::string, max_pictures, max_inlets> Inlet_Pict;

  // --- Main fans
  List<std::int16_t, max_main_fans> MFan_Suction;
  List<std::int16_t, max_main_fans> MFan_Discharge;
  List<std::int16_t, max_main_fans> MFan_Surface;  ///< 1 when suction equals discharge
  List<float, max_main_fans> MFan_StdRpm;
  List<float, max_main_fans> MFan_DriveRpm;
  List<float, max_main_fans> MFan_Ratio;  ///< driving over standard r.p.m.; 1 when standard is 0
  List<float, max_main_fans> MFan_LimitFlow;  ///< m3/min
  List<std::int16_t, max_main_fans> MFan_HQCount;
  Grid<float, max_fan_points, max_main_fans> MFan_HQ_Flow;  ///< (point, fan), m3/min
  Grid<float, max_fan_points, max_main_fans> MFan_HQ_Head;  ///< (point, fan), mmH2O
  Grid<float, 3, max_main_fans> MFan_Coef;                  ///< (k, fan), k = 0..3, powers of m3/s
  List<std::string, max_main_fans> MFan_Comm;
  Grid<std::string, max_pictures, max_main_fans> MFan_Pict;
  List<double, max_main_fans> MFan_Press;  ///< mmH2O, of the last solution
  List<float, max_main_fans> MFan_Flow;  ///< m3/s of outside air, of the last solution; in no file

  // What the check has read from the main-fan pages, until it commits it.
  List<std::int16_t, max_main_fans> MFan_WorkSuction;
  List<std::int16_t, max_main_fans> MFan_WorkDischarge;
  List<float, max_main_fans> MFan_WorkStdRpm;
  List<float, max_main_fans> MFan_WorkDriveRpm;
  List<float, max_main_fans> MFan_WorkLimit;
  List<std::string, max_main_fans> MFan_WorkComm;
  List<std::int16_t, max_main_fans> MFan_WorkHQ;
  Grid<std::string, max_fan_points, max_main_fans> MFan_GridHead;  ///< (point, fan), text
  Grid<std::string, max_fan_points, max_main_fans> MFan_GridFlow;

  // --- Assist fans
  List<std::int16_t, max_assist_fans> AFan_Suction;
  List<std::int16_t, max_assist_fans> AFan_Discharge;
  List<float, max_assist_fans> AFan_Head;  ///< mmH2O at zero flow
  List<float, max_assist_fans> AFan_Flow;  ///< m3/min at zero head
  List<std::string, max_assist_fans> AFan_Comm;
  Grid<std::string, max_pictures, max_assist_fans> AFan_Pict;

  // --- Special thermal rows. 0 in a material field means the parameters' default.
  List<std::int16_t, max_thermo_rows> Thermo_Node1;
  List<std::int16_t, max_thermo_rows> Thermo_Node2;
  List<float, max_thermo_rows> Thermo_Cond;      ///< kcal/(m h deg C)
  List<float, max_thermo_rows> Thermo_Density;   ///< kg/m3
  List<float, max_thermo_rows> Thermo_Specific;  ///< kcal/(kg deg C)
  List<float, max_thermo_rows> Thermo_RockTemp;  ///< deg C
  List<std::string, max_thermo_rows> Thermo_Comm;

  // --- Results
  Node_Table<double> Node_Press;            ///< mmH2O
  Node_Table<double> Node_PressInit;        ///< mmH2O, start values of the solver
  Node_Table<float> Node_DBT;               ///< dry bulb, deg C
  Node_Table<float> Node_Hum;               ///< relative humidity, 0..1
  Node_Table<float> Node_WBT;               ///< wet bulb, deg C
  Node_Table<float> Node_TLeng;             ///< travel length of the air, m
  Node_Table<float> Node_TempInit;          ///< deg C
  Root_Table<float> Root_Flow;              ///< m3/s, positive towards the far node of the slot
  Root_Table<float> Root_Temp;              ///< deg C
  Root_Table<float> Root_Hum;               ///< 0..1
  Root_Table<float> Root_TempInit;          ///< deg C
  Root_Table<float> Root_Density;           ///< kg/m3
  Root_Table<std::int16_t> Root_FlowSign;   ///< -1, 0, 1
  std::int16_t Iter_No = 0;                 ///< passes of the last flow solution
  List<float, max_iter_errors> Iter_Error;  ///< largest imbalance of each pass, m3/min

  // --- Rock, filled at the start of every temperature run
  Node_Table<float> Node_VRT;       ///< virgin rock temperature, deg C
  Root_Table<float> Root_RockCond;  ///< kcal/(m h deg C)
  Root_Table<float> Root_RockDiff;  ///< m2/h; read by no calculation

  // --- Seasonal traces, kept for the diagram
  std::int16_t Trace_Count = 0;
  List<std::int16_t, max_traces> Trace_Node1;       ///< receiving node
  List<std::int16_t, max_traces> Trace_Node2;       ///< supplying node
  Grid<float, trace_steps, max_traces> Trace_Temp;  ///< (step, trace), deg C
  List<std::int16_t, max_traces> Trace_Dist;        ///< m

  // --- Drawing coordinates
  Node_Table<float> Node_CadX;
  Node_Table<float> Node_CadY;
  Node_Table<float> Node_GraphX;
  Node_Table<float> Node_GraphY;

  // --- State
  std::int16_t Flag_Cad = 0;      ///< CAD data present
  std::int16_t Flag_Results = 0;  ///< pressures and flows present; any edit clears it
  std::int16_t Flag_Temp = 0;     ///< the annual temperatures have converged
  std::int16_t Flag_Annual = 0;   ///< 1: the results are annual
  std::int16_t Flag_Season = 0;   ///< 1: the results are seasonal
  std::int16_t Check_Count = 0;   ///< Check Data commits since the last open or save
  std::int16_t Edit_Node = 0;
  std::int16_t Edit_Root = 0;
  std::int16_t Edit_Inlet = 0;
  std::int16_t Edit_MFan = 0;
  std::int16_t Edit_AFan = 0;
  std::int16_t Edit_Thermo = 0;

  // --- Data options
  std::int16_t Opt_MoveSel = 0;          ///< 0 down, 1 right
  std::int16_t Opt_GridSel = 0;          ///< 0 cells, 1 by row, 2 by column
  std::int16_t Opt_CalRange = 0;         ///< -1 all airways, 0 the selected rows
  std::array<float, 4> Root_TypeMark{};  ///< murgue: Stop, 2Doors, Door, Regu.

  // --- Calculation parameters
  float Para_FlowTol = 0;           ///< allowable flow imbalance, m3/min
  float Para_Accel = 0;             ///< acceleration coefficient
  float Para_IntakeTemp = 0;        ///< annual average dry bulb at the intake, deg C
  float Para_TempDiff = 0;          ///< range of the intake temperature over the year, deg C
  float Para_IntakeHum = 0;         ///< annual average humidity at the intake, %
  float Para_RockTemp = 0;          ///< rock temperature at the datum level, deg C
  float Para_RockGrad = 0;          ///< rock temperature gradient, deg C/m
  float Para_RockCond = 0;          ///< kcal/(m h deg C)
  float Para_RockDiff = 0;          ///< m2/h
  float Para_IntakeWBT = 0;         ///< derived, deg C
  std::int16_t Para_Month = 0;      ///< index of Season_Name, 0..12
  std::int16_t Para_MonthPrev = 0;  ///< the month of the intake graph
  float Para_InitPress = 0;         ///< start pressure as a part of the shut-off pressure
  std::int16_t Para_DatumElev = 0;  ///< m
  std::int16_t Para_WetMode = 0;    ///< 1 "evaporate", 2 "area"
  std::string Wet_Tag;              ///< the chosen wet-wall method as files hold it

  // --- Graphic parameters
  std::int32_t GPara_TransEW = 0, GPara_TransNS = 0, GPara_TransZ = 0;  // m
  std::int16_t GPara_RotEW = 0, GPara_RotSN = 0, GPara_RotVer = 0;      // degrees
  float GPara_EWTimes = 0, GPara_NSTimes = 0, GPara_ElevTimes = 0;      // scale
  std::int16_t GPara_ZoomAngle = 0;
  double GPara_FarLength = 0;  // m
  std::int16_t GPara_DiaTimes = 0;
  List<std::int32_t, 10> Graph_Color;  ///< 0x00BBGGRR
  List<std::int32_t, 10> Cad_Color;
  float Cam_TranslateX = 0, Cam_TranslateY = 0, Cam_TranslateZ = 0;  // m
  float Cam_RotateX = 0, Cam_RotateY = 0, Cam_RotateZ = 0;           // degrees
  float Cam_Zoom = 0;
  std::int32_t MaterialColor = 0, BackColor = 0, GridColor = 0;  // of the 3-D view
  std::int16_t Range_ZMax = 0, Range_ZMin = 0;                   // m
  std::int16_t Temp_Max = 0, Temp_Min = 0;  ///< temperature band of the 3-D colours, deg C

  bool operator==(const Database&) const = default;
};

/// A colour as the tables and files hold it: 0x00BBGGRR.
constexpr std::int32_t RGB(int red, int green, int blue) {
  return red + green * 0x100 + blue * 0x10000;
}

/// Fills the sample network (a chain of five nodes with one intake and one surface fan), default
/// parameters, colours and options. `today` becomes Mine_Date. At start and by File New.
void New_Database(Database& db, std::string_view today);

/// Today's date as a new database shows it, "YYYY/MM/DD".
std::string Today();

/// Empties every table, counter and flag, and sets the defaults that a file read starts from.
void Reset_Database(Database& db);

/// What a file read clears before its sections: flags, notes, node and connection cells; the fans
/// up to the present MFan_Total get their default table; parameters and marks get their defaults.
void Reset_For_Read(Database& db);

/// Elevation 0, S-N 0, E-W (i - 1) * 100 m, no comment and no pictures.
void Clear_Node(Database& db, int i);

/// Zeroes the slot's cell in all Root tables, removes its pictures and writes twelve blanks to its
/// comment.
void Clear_Airway(Database& db, int i, int slot);

/// Makes the slot's cell in all Root tables that of another slot, perhaps of another database.
void Copy_Airway(Database& db, int i, int slot, const Database& from, int from_i, int from_slot);

/// The marks that follow from connections, intakes and fans: Node_Used, Node_Type, the regulator
/// classes with the assist fans' 2 and -2, MFan_Surface, MFan_Ratio. Raises Run_Time_Error when a
/// number is outside its table.
void Derive_Marks(Database& db);

/// What follows from loaded data: the marks, missing perimeters, wet bulbs, start temperatures, the
/// fans' edit copy, the temperature band. Run once after every load. Raises
/// Run_Time_Error when a number is outside its table or a loaded temperature is impossible.
void Derive_After_Load(Database& db);

/// The regulator classes of all airways, with the assist fans' 2 and -2 at their two ends: part of
/// the marks, and anew after the limits of the classes have changed.
void Refresh_Regulator_Classes(Database& db);

/// The temperature band of the 3-D colours from the extremes of the airway temperatures, deg C:
/// the hottest cut to an integer, the floor of the coldest less one. Raises Run_Time_Error when one
/// is no 16-bit number.
void Set_Temperature_Band(Database& db, float hottest, float coldest);

/// The name of the season of Para_Month. Raises Run_Time_Error when that is none of 0..12.
std::string_view Season_Of(const Database& db);

/// Para_WetMode from Wet_Tag: "evaporate" gives 1, "area" 2, any other text leaves it.
void Take_Wet_Mode(Database& db);

/// The slot of `node` that leads to `far` (the first), or 0 when none does. Raises Run_Time_Error
/// when `node` is outside the tables.
int Find_Slot(const Database& db, int node, int far);

}  // namespace branok
