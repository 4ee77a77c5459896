// The flow analysis command and its two small companions.
#pragma once

#include <string>

#include "airflow/skyline_solver.h"

namespace branok {

/// One flow run: asks how to start when results exist, prepares fan curves and start pressures,
/// solves, and turns the solver's flows (volumes at outside density) into volumes at each airway's
/// own density. Sets Flag_Results on success. Reports all failures itself.
Flow_Result Ana_Flow_Press(Database& db, Dialogue& dialogue, Panel& panel);

/// Refits the fans, finds their working range and sets the start pressures of fans and intakes;
/// with `reset` those of all other nodes as well. Raises Run_Time_Error.
void Set_Initial_Press(Database& db, Panel& panel, bool reset);

/// The heading of a run, lblDisp(0): which temperatures the flow is for. Raises Run_Time_Error when
/// the results are seasonal and Para_Month is no season.
std::string Run_Heading(const Database& db);

/// Shows the average shut-off pressure of the main fans and the start pressure that follows from
/// it, lblTitle(1) and lblTitle(3), by the present coefficients of their curves.
void Show_Start_Press(const Database& db, Panel& panel);

/// With `reset`, gives every node and airway the intake's annual average state; else does nothing.
void Set_Constant_Temp(Database& db, bool reset);

/// Root_FlowSign of every slot from Root_Flow.
void Set_Flow_Sign(Database& db);

/// Opens or closes the airway in slot `slot` of node `i`, at both of its ends. An airway of more
/// than 10000 murgue is a fixed stop and stays as it is. Returns whether the state changed.
bool Change_Switch(Database& db, int i, int slot);

}  // namespace branok
