// What must hold for any bytes taken as a data file; shared by the fuzzer and the tests that replay
// its corpus.
#pragma once

#include <string_view>

namespace branok {

/// Reads the bytes as a data file. When that succeeds, the mine can be written and read back, and
/// writing and reading go on until nothing changes any more and lose no comment on the way. Aborts,
/// after a line on standard error, when that does not hold.
void Check_Ver6(std::string_view bytes);

}  // namespace branok
