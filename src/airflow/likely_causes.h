// Why a flow run may have failed: what can be seen in the network itself.
#pragma once

#include <string>
#include <vector>

#include "core/database.h"

namespace branok {

/// What is strange in a network although it may be solved: no main fan or intake, a part that no
/// intake reaches, an intake or fan node without airways, a fan between nodes that are not joined,
/// a dead end whose airway carries air. Each a sentence that names the place. Told after every run.
/// Never throws Run_Time_Error.
std::vector<std::string> Network_Remarks(const Database& db);

/// Likely causes of a failed flow run, the remarks among them, each a sentence that names the place
/// and, where one is known, the cure. Empty when nothing suspicious is seen. Reads the tables as
/// the run left them. Never throws Run_Time_Error.
std::vector<std::string> Likely_Causes(const Database& db);

}  // namespace branok
