// What the annual and the seasonal run share around their sweeps: the titles of the panel, and the
// temperature band that the colours of the pictures span.
#pragma once

#include "core/database.h"
#include "core/panel.h"

namespace branok {

/// Titles and units of the temperature panel; where they stand is told in annual.h.
void Set_Annual_Titles(Panel& panel);
void Set_Season_Titles(Panel& panel);

/// Temp_Max and Temp_Min from the airway temperatures of all connected slots.
void Set_Temperature_Band(Database& db);

}  // namespace branok
