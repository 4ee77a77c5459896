#include "core/faults.h"

#include <gtest/gtest.h>

namespace branok {
namespace {

// Numbers that the compiler cannot see through.
volatile double result;
volatile double zero = 0;
volatile double huge = 1e300;
volatile double negative = -1;

void Divide_By_Zero() { result = 1 / zero; }

TEST(Float_Faults, NoticesWhatHappensWhileItLives) {
  Divide_By_Zero();
  const Float_Faults faults;
  EXPECT_NO_THROW(faults.check("nothing"));
  Divide_By_Zero();
  try {
    faults.check("the flows");
    FAIL() << "a division by zero was not seen";
  } catch (const Run_Time_Error& error) {
    EXPECT_STREQ(error.what(), "division by zero in the flows");
  }
}

TEST(Float_Faults, TellsOverflowFromRootsOfNegativeNumbers) {
  {
    const Float_Faults faults;
    result = huge * huge;
    EXPECT_THROW(faults.check("x"), Run_Time_Error);
  }
  const Float_Faults faults;
  result = std::sqrt(negative);
  EXPECT_THROW(faults.check("x"), Run_Time_Error);
}

TEST(Float_Faults, AnInnerOneKeepsTheOuterOnesFaults) {
  const Float_Faults outer;
  Divide_By_Zero();
  { const Float_Faults inner; }
  EXPECT_THROW(outer.check("x"), Run_Time_Error);
}

TEST(Float_Faults, WhatAnInnerOneSeesIsNotTheOuterOnes) {
  const Float_Faults outer;
  {
    const Float_Faults inner;
    Divide_By_Zero();
  }
  EXPECT_NO_THROW(outer.check("x"));
}

}  // namespace
}  // namespace branok
