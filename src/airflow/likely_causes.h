// Why a flow run may have failed: what can be seen in the network itself.
#pragma once

#include <string>
#include <vector>

#include "core/database.h"

namespace branok {

/// What a mine lacks without which its air moves by temperature alone, or not at all: main fans,
/// intakes. Told also when a run succeeds.
std::vector<std::string> Missing_Ends(const Database& db);

/// Likely causes of a failed flow run, each a sentence that names the place and, where one is
/// known, the cure. Empty when nothing suspicious is seen. Reads the tables as the run left them.
std::vector<std::string> Likely_Causes(const Database& db);

}  // namespace branok
