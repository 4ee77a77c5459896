// Where a main fan works.
#pragma once

#include "core/database.h"

namespace branok {

struct Fan_State {
  double press = 0;  ///< mmH2O
  double flow = 0;   ///< m3/min, a volume of outside air like the flows of the fan's curve
};

/// The state of main fan `fan`: what the last solution left, or, for results from a file, what
/// nodal pressures and airway flows tell. Raises Run_Time_Error on a number outside its table.
Fan_State Present_Fan_State(const Database& db, int fan);

}  // namespace branok
