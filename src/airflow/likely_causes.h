// Why a flow run may have failed: what can be seen in the network itself.
#pragma once

#include <string>
#include <vector>

#include "core/database.h"

namespace branok {

/// Likely causes of a failed flow run, each a sentence that names the place and, where one is
/// known, the cure. Empty when nothing suspicious is seen. Reads the tables as the run left them.
std::vector<std::string> Likely_Causes(const Database& db);

}  // namespace branok
