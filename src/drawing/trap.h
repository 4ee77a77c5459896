// How a step of a picture ends at its first run-time fault.
#pragma once

#include <string>
#include <utility>

#include "core/numbers.h"

namespace branok {

/// Runs `step`; what it had done when a Run_Time_Error ended it stays. Returns that fault, empty
/// when there was none.
template <class Step>
std::string Trap(Step&& step) {
  try {
    std::forward<Step>(step)();
    return {};
  } catch (const Run_Time_Error& fault) {
    return fault.what();
  }
}

}  // namespace branok
