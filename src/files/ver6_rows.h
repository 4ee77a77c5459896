// Which table each field of a record belongs to. A row is described once; `Row` is the reader's or
// the writer's line, so that what is written is what is read.
#pragma once

#include "core/database.h"
#include "files/ver6_layout.h"

namespace branok::ver6 {

template <class Row, class Base>
void Totals_Row(Row& row, Base& db) {
  row.number(head::nodes, db.Node_Total);
  row.number(head::main_fans, db.MFan_Total);
  row.number(head::inlets, db.Inlet_Total);
  row.number(head::assist_fans, db.AFan_Total);
}

template <class Row, class Base>
void Node_Row(Row& row, Base& db, int i) {
  row.number(node::elev, db.Node_Elev[i]);
  row.number(node::ew, db.Node_EW[i]);
  row.number(node::sn, db.Node_SN[i]);
  row.number(node::connections, db.Node_JuncCount[i]);
  for (int j = 1; j <= max_slots; ++j) {
    row.node_number(Next_Field(node::junc, j), db.Node_Junc(j, i));
  }
  row.text(node::comment, db.Node_Comm[i]);
}

template <class Row, class Base>
void Airway_Row(Row& row, Base& db, int i, int slot) {
  row.number(airway::resist, db.Root_Resist(slot, i));
  row.number(airway::area, db.Root_Area(slot, i));
  row.number(airway::peri, db.Root_Peri(slot, i));
  row.number(airway::length, db.Root_Length(slot, i));
  row.number(airway::time, db.Root_Time(slot, i));
  row.number(airway::heat, db.Root_Heat(slot, i));
  row.number(airway::wet, db.Root_Wet(slot, i));
  row.number(airway::kind, db.Root_Kind(slot, i));
  row.number(airway::wind, db.Root_Wind(slot, i));
  row.number(airway::fric, db.Root_Fric(slot, i));
  row.number(airway::shape, db.Root_Shape(slot, i));
  row.number(airway::height, db.Root_Height(slot, i));
  row.text(airway::comment, db.Root_Comm(slot, i));
}

template <class Row, class Base>
void Inlet_Row(Row& row, Base& db, int k) {
  row.node_number(inlet::node, db.Inlet_Node[k]);
  row.text(inlet::comment, db.Inlet_Comm[k]);
}

template <class Row, class Base>
void Main_Fan_Row(Row& row, Base& db, int f) {
  row.node_number(main_fan::suction, db.MFan_Suction[f]);
  row.node_number(main_fan::discharge, db.MFan_Discharge[f]);
  row.number(main_fan::std_rpm, db.MFan_StdRpm[f]);
  row.number(main_fan::drive_rpm, db.MFan_DriveRpm[f]);
  row.number(main_fan::limit_flow, db.MFan_LimitFlow[f]);
  row.number(main_fan::points, db.MFan_HQCount[f]);
  row.text(main_fan::comment, db.MFan_Comm[f]);
}

template <class Row, class Base>
void Fan_Coef_Row(Row& row, Base& db, int f) {
  row.number(fan_coef::cubic, db.MFan_Coef(3, f));
  row.number(fan_coef::square, db.MFan_Coef(2, f));
  row.number(fan_coef::linear, db.MFan_Coef(1, f));
  row.number(fan_coef::constant, db.MFan_Coef(0, f));
}

template <class Row, class Base>
void Fan_Point_Row(Row& row, Base& db, int f, int point) {
  row.number(fan_point::flow, db.MFan_HQ_Flow(point, f));
  row.number(fan_point::head, db.MFan_HQ_Head(point, f));
}

template <class Row, class Base>
void Assist_Fan_Row(Row& row, Base& db, int k) {
  row.node_number(assist_fan::suction, db.AFan_Suction[k]);
  row.node_number(assist_fan::discharge, db.AFan_Discharge[k]);
  row.number(assist_fan::head, db.AFan_Head[k]);
  row.number(assist_fan::flow, db.AFan_Flow[k]);
  row.text(assist_fan::comment, db.AFan_Comm[k]);
}

template <class Row, class Base>
void Thermal_Row(Row& row, Base& db, int k) {
  row.node_number(thermal::node1, db.Thermo_Node1[k]);
  row.node_number(thermal::node2, db.Thermo_Node2[k]);
  row.number(thermal::cond, db.Thermo_Cond[k]);
  row.number(thermal::density, db.Thermo_Density[k]);
  row.number(thermal::specific, db.Thermo_Specific[k]);
  row.number(thermal::rock_temp, db.Thermo_RockTemp[k]);
  row.text(thermal::comment, db.Thermo_Comm[k]);
}

/// Line 1..parameter::lines of the calculation parameters.
template <class Row, class Base>
void Parameter_Line(Row& row, Base& db, int line) {
  // clang-format off
  switch (line) {
    case 1: return row.number(parameter::two_decimals, db.Para_FlowTol);
    case 2: return row.number(parameter::two_decimals, db.Para_Accel);
    case 3: return row.number(parameter::two_decimals, db.Para_IntakeTemp);
    case 4: return row.number(parameter::two_decimals, db.Para_TempDiff);
    case 5: return row.number(parameter::one_decimal, db.Para_IntakeHum);
    case 6: return row.number(parameter::two_decimals, db.Para_RockTemp);
    case 7: return row.number(parameter::gradient, db.Para_RockGrad);
    case 8: return row.number(parameter::two_decimals, db.Para_RockCond);
    case 9: return row.number(parameter::diffusivity, db.Para_RockDiff);
    case 10: return row.number(parameter::one_decimal, db.Para_IntakeWBT);
    case 11: return row.number(parameter::month, db.Para_Month);
    case 12: return row.number(parameter::two_decimals, db.Para_InitPress);
    case 13: return row.number(parameter::datum, db.Para_DatumElev);
    default: return row.text(parameter::wet_tag, db.Wet_Tag);
  }
  // clang-format on
}

/// Fields of one kind side by side.
template <class Row, class... Numbers>
void Side_By_Side(Row& row, const Field& first, Numbers&... numbers) {
  int n = 0;
  (row.number(Next_Field(first, ++n), numbers), ...);
}

template <class Row, class Colors>
void Color_Fields(Row& row, const Field& first, Colors& colors) {
  for (int k = 1; k <= 10; ++k) row.number(Next_Field(first, k), colors[k]);
}

/// Line 1..graphic::lines of the graphic parameters.
template <class Row, class Base>
void Graphic_Line(Row& row, Base& db, int line) {
  using graphic::decimal, graphic::whole;
  // clang-format off
  switch (line) {
    case 1: return Side_By_Side(row, whole, db.GPara_TransEW, db.GPara_TransNS, db.GPara_TransZ);
    case 2: return Side_By_Side(row, whole, db.GPara_RotEW, db.GPara_RotSN, db.GPara_RotVer);
    case 3: return Side_By_Side(row, decimal, db.GPara_EWTimes, db.GPara_NSTimes, db.GPara_ElevTimes);
    case 4: return row.number(whole, db.GPara_ZoomAngle);
    case 5: return row.number(whole, db.GPara_FarLength);
    case 6: return row.number(whole, db.GPara_DiaTimes);
    case 7: return Color_Fields(row, graphic::color, db.Graph_Color);
    case 8: return Side_By_Side(row, decimal, db.Cam_TranslateX, db.Cam_TranslateY, db.Cam_TranslateZ);
    case 9: return Side_By_Side(row, decimal, db.Cam_RotateX, db.Cam_RotateY, db.Cam_RotateZ);
    case 10: return row.number(decimal, db.Cam_Zoom);
    default: return Side_By_Side(row, whole, db.MaterialColor, db.BackColor);
  }
  // clang-format on
}

template <class Row, class Base>
void Mark_Line(Row& row, Base& db, int line) {
  auto& mark = db.Root_TypeMark;
  if (line == 1) return Side_By_Side(row, marks::mark, mark[0], mark[1], mark[2], mark[3]);
  row.number(marks::option, db.Opt_MoveSel);
}

template <class Row, class Base>
void Node_Result_Row(Row& row, Base& db, int i) {
  row.number(node_result::press, db.Node_Press[i]);
  row.number(node_result::dry_bulb, db.Node_DBT[i]);
  row.number(node_result::humidity, db.Node_Hum[i]);
  row.number(node_result::travel, db.Node_TLeng[i]);
}

template <class Row, class Base>
void Airway_Result_Row(Row& row, Base& db, int i, int slot) {
  row.number(airway_result::flow, db.Root_Flow(slot, i));
  row.number(airway_result::temp, db.Root_Temp(slot, i));
  row.number(airway_result::humidity, db.Root_Hum(slot, i));
}

template <class Row, class Base>
void Cad_Row(Row& row, Base& db, int i) {
  row.number(cad::x, db.Node_CadX[i]);
  row.number(cad::y, db.Node_CadY[i]);
}

}  // namespace branok::ver6
