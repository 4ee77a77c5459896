// branok-batch: loads a mine, takes the steps of its command line, tells how it went.
#pragma once

#include <string>
#include <vector>

namespace branok {

/// The exit codes of the program. They do not change between versions.
enum class Exit { done = 0, run_failed = 1, wrong_usage = 2, file_failed = 3 };

/// Runs the program with the words after its name. Summaries go to standard output, messages and
/// progress to standard error. Never throws.
Exit Run_Batch(const std::vector<std::string>& words);

}  // namespace branok
