// Floating-point faults, noticed once per pass of a calculation instead of after every operation.
#pragma once

#include <cfenv>
#include <string>

#include "core/numbers.h"

namespace branok {

/// Watches the processor's exception flags from its construction on: an overflow, a division by
/// zero or an operation without a result (the root of a negative number) is remembered by the
/// processor until check() looks. Watchers may stand inside one another: what happened before an
/// inner one is given back to the outer one when it ends, what happened during it is not.
class Float_Faults {
 public:
  Float_Faults() : before_(std::fetestexcept(watched)) { std::feclearexcept(watched); }
  Float_Faults(const Float_Faults&) = delete;
  Float_Faults& operator=(const Float_Faults&) = delete;
  Float_Faults(Float_Faults&&) = delete;
  Float_Faults& operator=(Float_Faults&&) = delete;
  ~Float_Faults() {
    std::feclearexcept(watched);
    if (before_ != 0) std::feraiseexcept(before_);
  }

  /// Raises Run_Time_Error when a fault has happened since the construction.
  void check(const char* where) const {
    if (const int raised = std::fetestexcept(watched)) Raise(raised, where);
  }

 private:
  static constexpr int watched = FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID;

  [[noreturn]] static void Raise(int raised, const char* where) {
    const char* what = (raised & FE_DIVBYZERO) != 0  ? "division by zero in "
                       : (raised & FE_OVERFLOW) != 0 ? "overflow in "
                                                     : "an impossible operation in ";
    std::feclearexcept(watched);
    throw Run_Time_Error(std::string(what) + where);
  }

  int before_;
};

}  // namespace branok
