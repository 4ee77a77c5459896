#include "batch/commands.h"

int main(int count, char** words) {
  const std::vector<std::string> arguments(words + 1, words + count);
  return static_cast<int>(branok::Run_Batch(arguments));
}
