#include "core/text.h"

#include <array>
#include <cstdint>

namespace branok {

namespace {

// Windows-1252 from 0x80 to 0x9F; the five unassigned bytes keep their own code.
constexpr std::array<char32_t, 32> upper_controls = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void Append(std::string& text, char32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// Length of the valid UTF-8 sequence at the start of `bytes`, or 0.
std::size_t Sequence(std::string_view bytes) {
  const auto byte = [&bytes](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
  const std::uint8_t lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                             : (lead & 0xF0) == 0xE0        ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
  if (length == 0 || bytes.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
  }
  // Overlong forms, surrogates, and codes above the last one.
  const std::uint8_t second = byte(1);
  const bool wrong = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second >= 0xA0) ||
                     (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second >= 0x90);
  return wrong ? 0 : length;
}

bool Is_Utf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = Sequence(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

}  // namespace

std::string To_Utf8(std::string_view bytes) {
  if (Is_Utf8(bytes)) return std::string(bytes);
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    const bool control = byte >= 0x80 && byte < 0xA0;
    Append(text, control ? upper_controls[byte - 0x80U] : byte);
  }
  return text;
}

}  // namespace branok
