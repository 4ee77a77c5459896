// Any bytes as a data file: fuzz_ver6 -max_total_time=600 tests/fuzz/corpus/ver6
//
// Random bytes seldom get past the first field. So most changes are made as a careless editor would
// make them: a line is lost, doubled or moved, a number in a column becomes another one.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "files/text_lines.h"
#include "fuzz/ver6_property.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

namespace {

using Lines = std::vector<std::string>;
using Dice = std::minstd_rand;

constexpr std::array<std::string_view, 22> numbers = {
    "0",   "1",      "2",      "3",     "4",    "5",    "-1",    "6",     "0.5", "99.95", "550",
    "551", "-0.001", "123456", "1E+30", "-999", "1e-9", "32767", "40000", "1E9", "**",    "*x"};

Lines Split(std::string_view text) {
  Lines lines;
  branok::Text_Lines rest(text);
  for (std::string_view line; rest.next(line);) lines.emplace_back(line);
  return lines;
}

std::string Join(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

// A run of characters that are no blanks becomes another number, which ends where that one ended.
void Change_Number(std::string& line, Dice& dice) {
  if (line.empty()) return;
  const std::size_t end = line.find(' ', line.find_first_not_of(' ', dice() % line.size()));
  const std::size_t last = std::min(end, line.size());
  const std::string_view number = numbers[dice() % numbers.size()];
  const std::size_t room = std::min(last, std::max<std::size_t>(number.size(), 4));
  std::string field(room, ' ');
  field.replace(room - std::min(room, number.size()), std::string::npos,
                number.substr(number.size() - std::min(room, number.size())));
  line.replace(last - room, room, field);
}

void Change_Lines(Lines& lines, Dice& dice) {
  const std::size_t i = dice() % lines.size();
  const std::size_t k = dice() % lines.size();
  const auto at = [&lines](std::size_t n) { return lines.begin() + static_cast<long>(n); };
  switch (dice() % 8) {
    case 0:
      lines.erase(at(i));
      break;
    case 1:
      lines.insert(at(k), std::string(lines[i]));
      break;
    case 2:
      std::swap(lines[i], lines[k]);
      break;
    case 3:
      lines.insert(at(i), "* comment");
      break;
    case 4:
      lines.insert(at(i), "**");
      break;
    default:
      Change_Number(lines[i], dice);
      break;
  }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t max_size, unsigned seed) {
  Dice dice(seed);
  if (dice() % 8 == 0) return LLVMFuzzerMutate(data, size, max_size);
  Lines lines = Split({reinterpret_cast<const char*>(data), size});
  for (unsigned changes = 1 + dice() % 4; changes > 0 && !lines.empty(); --changes) {
    Change_Lines(lines, dice);
  }
  const std::string text = Join(lines);
  const std::size_t kept = std::min(text.size(), max_size);
  std::memcpy(data, text.data(), kept);
  return kept;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  branok::Check_Ver6({reinterpret_cast<const char*>(data), size});
  return 0;
}
