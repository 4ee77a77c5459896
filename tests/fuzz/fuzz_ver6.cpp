// Any bytes as a data file: fuzz_ver6 -max_total_time=600 tests/fuzz/corpus/ver6
#include <cstddef>
#include <cstdint>

#include "fuzz/ver6_property.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  branok::Check_Ver6({reinterpret_cast<const char*>(data), size});
  return 0;
}
