// The sample network: what the program holds when it starts and after File New.
#include <array>
#include <chrono>
#include <cmath>
#include <ctime>

#include "core/airway_rules.h"
#include "core/sample.h"
#include "core/standard_colors.h"

namespace branok {

namespace {

// A chain: node 1 to node 2, ... up to node 5; every inner node is connected to the one below it
// and the one above it.
void Set_Chain(Database& db, int nodes) {
  for (int i = 1; i <= nodes; ++i) {
    int slot = 0;
    if (i > 1) db.Node_Junc(++slot, i) = static_cast<std::int16_t>(i - 1);
    if (i < nodes) {
      db.Node_Junc(++slot, i) = static_cast<std::int16_t>(i + 1);
      db.Node_UpCount[i] = 1;
      db.Node_UpSlot(1, i) = static_cast<std::int16_t>(slot);
    }
    db.Node_JuncCount[i] = static_cast<std::int16_t>(slot);
    db.Node_Used[i] = 1;
    Clear_Node(db, i);
    for (int j = 1; j <= slot; ++j) Set_Default_Airway(db, i, j);
  }
}

}  // namespace

std::string Today() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 16> text{};
  const std::size_t size = std::strftime(text.data(), text.size(), "%Y/%m/%d", &local);
  return {text.data(), size};
}

const Database& Empty_Database() {
  static const Database empty = [] {
    Database db;
    db.Root_Comm.fill(blank_comment);
    return db;
  }();
  return empty;
}

void Set_Default_Parameters(Database& db) {
  db.Para_FlowTol = 0.1F;
  db.Para_Accel = 1.4F;
  db.Para_IntakeTemp = 9.0F;
  db.Para_TempDiff = 26.6F;
  db.Para_IntakeHum = 60.0F;
  db.Para_RockTemp = 17.0F;
  db.Para_RockGrad = 0.03F;
  db.Para_RockCond = 3.0F;
  db.Para_RockDiff = 0.006F;
  db.Para_IntakeWBT = 5.6F;
  db.Para_Month = 10;
  db.Para_InitPress = 0.3F;
  db.Para_DatumElev = 0;
  db.Para_MonthPrev = 10;
  db.Para_WetMode = 1;
  db.Wet_Tag = "evaporate";

  db.Opt_MoveSel = db.Opt_GridSel = db.Opt_CalRange = 0;
  db.Root_TypeMark = default_type_marks;

  for (int k = 1; k <= 10; ++k) {
    db.Graph_Color[k] = db.Cad_Color[k] = standard_colors[static_cast<std::size_t>(k - 1)];
  }
  db.MaterialColor = standard_material;
  db.BackColor = standard_back;
  db.GridColor = standard_grid;

  db.GPara_TransEW = 1000;
  db.GPara_TransNS = 100;
  db.GPara_TransZ = 1000;
  db.GPara_RotEW = 90;
  db.GPara_RotSN = 90;
  db.GPara_RotVer = 180;
  db.GPara_EWTimes = db.GPara_NSTimes = db.GPara_ElevTimes = 1;
  db.GPara_ZoomAngle = 0;
  db.GPara_FarLength = 1500;
  db.GPara_DiaTimes = 2;
  db.Range_ZMax = 200;
  db.Range_ZMin = -500;

  // The camera looks at the model from a distance that suits a depth range of 1000 m.
  db.Cam_TranslateX = db.Cam_TranslateY = 0;
  db.Cam_TranslateZ = -1750;
  db.Cam_RotateX = -5;
  db.Cam_RotateY = db.Cam_RotateZ = 0;
  db.Cam_Zoom = 0.3F;
}

void Set_File_Presets(Database& db) {
  db.Root_TypeMark[3] = 100;
  db.GPara_TransEW = 0;
  db.GPara_TransNS = -50;
  db.GPara_TransZ = 800;
  db.GPara_RotEW = db.GPara_RotSN = db.GPara_RotVer = 0;
}

void Set_Default_Fan(Database& db, int f, float limit_flow) {
  db.MFan_StdRpm[f] = db.MFan_DriveRpm[f] = 500;
  db.MFan_Ratio[f] = 1;
  db.MFan_LimitFlow[f] = limit_flow;
  db.MFan_HQCount[f] = 5;
  for (int k = 1; k <= max_fan_points; ++k) {
    const bool filled = k <= 5;
    db.MFan_HQ_Flow(k, f) = filled ? static_cast<float>(2000 * (k - 1)) : 0;
    db.MFan_HQ_Head(k, f) = filled ? 100.0F : 0;
  }
  db.MFan_Coef(0, f) = 100;
  db.MFan_Coef(1, f) = db.MFan_Coef(2, f) = db.MFan_Coef(3, f) = 0;
}

void Clear_Network(Database& db) {
  for (int i = 1; i <= max_nodes; ++i) {
    for (int j = 1; j <= max_slots; ++j) {
      Clear_Airway(db, i, j);
    }
  }
  db.Node_Junc.fill(0);
  db.Node_UpSlot.fill(0);
  for (Node_Table<std::int16_t>* table :
       {&db.Node_JuncCount, &db.Node_Elev, &db.Node_Used, &db.Node_Type, &db.Node_UpCount}) {
    table->fill(0);
  }
  db.Node_EW.fill(0);
  db.Node_SN.fill(0);
  db.Node_Comm.fill({});
  db.Node_Pict.fill({});
  db.Root_Pict.fill({});
}

void Set_Default_Airway(Database& db, int i, int slot) {
  float area = 10;
  float peri = static_cast<float>(3.74 * std::sqrt(double{area}));
  float length = 100;
  float fric = 0.001213F;
  db.Root_Resist(slot, i) = Calc_Resist(area, length, peri, fric);
  db.Root_Area(slot, i) = area;
  db.Root_Peri(slot, i) = peri;
  db.Root_Length(slot, i) = length;
  db.Root_Time(slot, i) = 0.3F;
  db.Root_Heat(slot, i) = 0;
  db.Root_Wet(slot, i) = 1;
  db.Root_Wind(slot, i) = 0;
  db.Root_Kind(slot, i) = 1;
  db.Root_Fric(slot, i) = fric;
  db.Root_Shape(slot, i) = 1;
  db.Root_Height(slot, i) = static_cast<float>(0.8915 * std::sqrt(double{area}));
  db.Root_Comm(slot, i) = blank_comment;
  for (int p = 1; p <= max_pictures; ++p) db.Root_Pict(p, slot, i).clear();
}

void New_Database(Database& db, std::string_view today) {
  db = Empty_Database();
  Set_Default_Parameters(db);
  db.Mine_Name = "Sample      ";
  db.Mine_Date = today;
  db.Node_Total = db.Node_Max = 5;
  db.Inlet_Total = db.MFan_Total = db.MFan_GridTotal = 1;
  Set_Chain(db, db.Node_Total);

  db.Inlet_Node[1] = 1;
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 5;
  db.MFan_Surface[1] = 1;
  Set_Default_Fan(db, 1, 10000);
  Fill_Fan_Page(db, 1);
}

}  // namespace branok
