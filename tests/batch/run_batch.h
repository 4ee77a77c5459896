// branok-batch as a test runs it: its exit code and what it has written.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "batch/commands.h"

namespace branok {

struct Outcome {
  Exit exit;
  std::string out;
  std::string err;
};

inline Outcome Batch(const std::vector<std::string>& words) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const Exit exit = Run_Batch(words);
  std::fflush(stdout);
  std::fflush(stderr);
  Outcome outcome{exit, testing::internal::GetCapturedStdout(), {}};
  outcome.err = testing::internal::GetCapturedStderr();
  return outcome;
}

}  // namespace branok
