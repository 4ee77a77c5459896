// Resets and what follows from loaded data. The sample network stands in new_database.cpp.
#include "core/database.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/airway_rules.h"
#include "core/faults.h"
#include "core/pictures.h"
#include "core/sample.h"
#include "core/vocabulary.h"
#include "thermal/moist_air.h"

namespace branok {

namespace {

constexpr Picture page_cell("####0.0");

// What an airway's cell consists of, beside its comment and its pictures.
constexpr std::array root_numbers = {
    &Database::Root_Resist,   &Database::Root_Area,    &Database::Root_Peri,
    &Database::Root_Length,   &Database::Root_Time,    &Database::Root_Heat,
    &Database::Root_Wet,      &Database::Root_Fric,    &Database::Root_Height,
    &Database::Root_Flow,     &Database::Root_Temp,    &Database::Root_Hum,
    &Database::Root_TempInit, &Database::Root_Density, &Database::Root_RockCond,
    &Database::Root_RockDiff};
constexpr std::array root_integers = {&Database::Root_Kind,   &Database::Root_Wind,
                                      &Database::Root_Shape,  &Database::Root_Type,
                                      &Database::Root_Switch, &Database::Root_FlowSign};

// The outside density that all of the solver's densities refer to: 1.293 kg/m3 at 0 deg C.
float Solver_Density(double temperature, int elevation) {
  return static_cast<float>(1.293 / (1 + 0.00366 * temperature) * std::exp(-elevation / 8620.0));
}

// Perimeters and start temperatures of one connected node; widens the extremes.
void Derive_Connections(Database& db, int i, float& hottest, float& coldest) {
  for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
    const int shape = db.Root_Shape(j, i);
    if (db.Root_Peri(j, i) == 0 && shape >= 0 && shape <= 3) {
      db.Root_Peri(j, i) = Perimeter_From_Area(db.Root_Area(j, i), shape);
    }
    db.Root_TempInit(j, i) = db.Flag_Annual == 1 ? db.Root_Temp(j, i) : db.Para_IntakeTemp;
    hottest = std::max(hottest, db.Root_Temp(j, i));
    coldest = std::min(coldest, db.Root_Temp(j, i));
    // No file holds the density; a season run on loaded results needs it.
    if (db.Flag_Results != 0) {
      const int far = db.Node_Junc(j, i);
      const int mean = static_cast<int>(Int(0.5 * (db.Node_Elev[far] + db.Node_Elev[i])));
      db.Root_Density(j, i) = Solver_Density(db.Root_Temp(j, i), mean);
    }
  }
}

// Wet bulb from dry bulb and humidity, at the node's pressure.
void Derive_Wet_Bulb(Database& db, int i) {
  const auto pressure = static_cast<float>(std::exp(-db.Node_Elev[i] / 8620.0));
  const float x = Calc_AbsHum(pressure, db.Node_DBT[i], db.Node_Hum[i]);
  db.Node_WBT[i] = Calc_WetBulb(pressure, db.Node_DBT[i], x);
}

}  // namespace

int Find_Slot(const Database& db, int node, int far) {
  for (int j = 1; j <= db.Node_JuncCount[node]; ++j) {
    if (db.Node_Junc(j, node) == far) return j;
  }
  return 0;
}

std::string_view Season_Of(const Database& db) {
  constexpr int last = 12;
  if (db.Para_Month < 0 || db.Para_Month > last) Outside_Table(db.Para_Month, last, 0);
  return Season_Name[static_cast<std::size_t>(db.Para_Month)];
}

void Take_Wet_Mode(Database& db) {
  if (db.Wet_Tag == "evaporate") db.Para_WetMode = 1;
  if (db.Wet_Tag == "area") db.Para_WetMode = 2;
}

void Clear_Node(Database& db, int i) {
  db.Node_Elev[i] = 0;
  db.Node_SN[i] = 0;
  db.Node_EW[i] = (i - 1) * 100;
  db.Node_Comm[i].clear();
  for (int p = 1; p <= max_pictures; ++p) db.Node_Pict(p, i).clear();
}

void Clear_Airway(Database& db, int i, int slot) {
  for (const auto table : root_numbers) (db.*table)(slot, i) = 0;
  for (const auto table : root_integers) (db.*table)(slot, i) = 0;
  db.Root_Comm(slot, i) = blank_comment;
  for (int p = 1; p <= max_pictures; ++p) db.Root_Pict(p, slot, i).clear();
}

void Copy_Airway(Database& db, int i, int slot, const Database& from, int from_i, int from_slot) {
  for (const auto table : root_numbers) (db.*table)(slot, i) = (from.*table)(from_slot, from_i);
  for (const auto table : root_integers) (db.*table)(slot, i) = (from.*table)(from_slot, from_i);
  db.Root_Comm(slot, i) = from.Root_Comm(from_slot, from_i);
  for (int p = 1; p <= max_pictures; ++p) {
    db.Root_Pict(p, slot, i) = from.Root_Pict(p, from_slot, from_i);
  }
}

void Reset_Database(Database& db) {
  db = Empty_Database();  // copied into the tables that db has: nothing is allocated
  Set_Default_Parameters(db);
  Set_File_Presets(db);
}

void Reset_For_Read(Database& db) {
  db.Flag_Cad = db.Flag_Results = db.Flag_Temp = 0;
  db.Mine_Note.fill({});
  Clear_Network(db);
  for (int f = 1; f <= db.MFan_Total; ++f) Set_Default_Fan(db, f, 9000);
  Set_Default_Parameters(db);
  Set_File_Presets(db);
}

void Derive_Marks(Database& db) {
  for (int i = 1; i <= max_nodes; ++i) {
    db.Node_Type[i] = 0;
    db.Node_Used[i] = db.Node_JuncCount[i] > 0 ? 1 : 0;
  }
  for (int k = 1; k <= db.Inlet_Total; ++k) {
    db.Node_Type[db.Inlet_Node[k]] = 1;
    db.Node_Used[db.Inlet_Node[k]] = 1;
  }
  for (int f = 1; f <= db.MFan_Total; ++f) {
    const int suction = db.MFan_Suction[f];
    db.MFan_Surface[f] = suction == db.MFan_Discharge[f] ? 1 : 0;
    db.Node_Type[suction] = db.MFan_Surface[f] == 1 ? 2 : 3;
    db.Node_Used[suction] = 1;
    db.MFan_Ratio[f] =
        db.MFan_StdRpm[f] == 0 ? 1.0F : To_Single(double{db.MFan_DriveRpm[f]} / db.MFan_StdRpm[f]);
  }
  Refresh_Regulator_Classes(db);
}

void Refresh_Regulator_Classes(Database& db) {
  for (int i = 1; i <= max_nodes; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      db.Root_Type(j, i) = Regulator_Class(db.Root_Resist(j, i), db.Root_TypeMark);
    }
  }
  for (int k = 1; k <= db.AFan_Total; ++k) {
    const int suction = db.AFan_Suction[k];
    const int discharge = db.AFan_Discharge[k];
    if (const int a = Find_Slot(db, suction, discharge)) db.Root_Type(a, suction) = 2;
    if (const int b = Find_Slot(db, discharge, suction)) db.Root_Type(b, discharge) = -2;
  }
}

void Derive_After_Load(Database& db) {
  const Float_Faults faults;
  db.Node_Max = db.Node_Total;
  db.MFan_GridTotal = db.MFan_Total;

  float hottest = -50;
  float coldest = 100;
  for (int i = 1; i <= db.Node_Total; ++i) {
    db.Node_TempInit[i] = db.Flag_Annual == 1 ? db.Node_DBT[i] : db.Para_IntakeTemp;
    if (db.Node_JuncCount[i] == 0) continue;
    Derive_Connections(db, i, hottest, coldest);
    Derive_Wet_Bulb(db, i);
  }
  faults.check("the loaded temperatures");
  Set_Temperature_Band(db, hottest, coldest);

  Derive_Marks(db);
  for (int f = 1; f <= db.MFan_Total; ++f) {
    Fill_Fan_Page(db, f);
    db.MFan_Press[f] = std::abs(db.Node_Press[db.MFan_Suction[f]]);
  }
}

void Fill_Fan_Page(Database& db, int f) {
  db.MFan_WorkSuction[f] = db.MFan_Suction[f];
  db.MFan_WorkDischarge[f] = db.MFan_Discharge[f];
  db.MFan_WorkStdRpm[f] = db.MFan_StdRpm[f];
  db.MFan_WorkDriveRpm[f] = db.MFan_DriveRpm[f];
  db.MFan_WorkLimit[f] = db.MFan_LimitFlow[f];
  db.MFan_WorkComm[f] = db.MFan_Comm[f];
  db.MFan_WorkHQ[f] = db.MFan_HQCount[f];
  for (int k = 1; k <= max_fan_points; ++k) {
    const bool filled = k <= db.MFan_HQCount[f];
    db.MFan_GridFlow(k, f) = filled ? page_cell(db.MFan_HQ_Flow(k, f)).text() : std::string();
    db.MFan_GridHead(k, f) = filled ? page_cell(db.MFan_HQ_Head(k, f)).text() : std::string();
  }
}

void Set_Temperature_Band(Database& db, float hottest, float coldest) {
  db.Temp_Max = To_Int16(Fix(hottest));
  db.Temp_Min = To_Int16(Int(double{coldest} - 1));
}

}  // namespace branok
