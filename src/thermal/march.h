// The march of heat and moisture along one airway.
//
// The air passes a wall whose temperature follows from the virgin rock through a conduction
// function of time. The wall exchanges sensible heat with the air and evaporates water into it;
// friction and fan work, heat sources, compression and expansion with height are added; excess
// moisture condenses at constant enthalpy. The airway is cut into segments of about 10 m, and the
// state of the air is advanced segment by segment.
#pragma once

namespace branok {

/// One airway as the march sees it, in the direction of flow.
struct Airway {
  float T = 0;            ///< dry bulb at the supplying node, deg C
  float x = 0;            ///< humidity ratio there
  float phi = 0;          ///< relative humidity there, 0..1
  int from_elev = 0;      ///< m, of the supplying node
  int to_elev = 0;        ///< m, of the receiving node
  double press_drop = 0;  ///< Node_Press of the supplying less that of the receiving node, mmH2O
  float VRT = 0;          ///< virgin rock temperature at the receiving node, deg C
  float flow = 0;         ///< m3/s, magnitude
  float density = 0;      ///< Root_Density, kg/m3
  float length = 0;       ///< m
  float area = 0;         ///< m2
  float peri = 0;         ///< m
  float age = 0;          ///< years
  float heat = 0;         ///< kcal/h
  float wet = 0;          ///< % of the wall
  float rock_cond = 0;    ///< kcal/(m h deg C)
  int kind = 0;           ///< of support
};

/// What holds for all airways of a sweep.
struct March_Conditions {
  float rho0 = 0;       ///< density of the intake air, kg/m3
  float rock_temp = 0;  ///< Para_RockTemp: the rock is never taken as colder, deg C
  float rock_grad = 0;  ///< deg C/m
  float rock_diff = 0;  ///< m2/h
  int wet_mode = 0;     ///< Para_WetMode
};

/// The state of the air in the middle of an airway, and at its end.
struct Airway_Air {
  float T_mid = 0;
  float phi_mid = 0;
  float T = 0;
  float x = 0;
  float rho = 0;     ///< kg/m3
  float Qs = 0;      ///< flow at intake density, m3/s
  float T_wall = 0;  ///< of the last segment
};

/// Marches the airways of one sweep, in their order of visit. What one airway leaves to the next
/// is kept here, and is 0 at the start of a sweep: the humid specific heat, and the conduction
/// function, which an airway too young to have one takes over.
class March {
 public:
  explicit March(const March_Conditions& conditions) : sweep_(conditions) {}

  /// The air along one airway. Raises Run_Time_Error when the airway is longer than 32767 segments
  /// or its steps leave the elevations of a 16-bit number.
  Airway_Air run(const Airway& airway);

  /// Rock temperature beside the last segment marched, deg C.
  [[nodiscard]] float Tr() const { return Tr_; }

 private:
  March_Conditions sweep_;
  float c_ = 0;   // humid specific heat, kcal/(kg deg C)
  double G_ = 0;  // conduction function
  float Tr_ = 0;
};

}  // namespace branok
