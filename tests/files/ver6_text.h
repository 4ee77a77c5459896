// Data files for tests: the golden mine of four nodes, taken apart into sections, changed, and put
// together again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/safe_file.h"
#include "files/text_lines.h"
#include "files/ver6.h"

namespace branok {

inline std::string Golden(const std::string& name) {
  return Read_Whole(std::string(BRANOK_TEST_SOURCE) + "/golden/" + name);
}

/// The lines of a data file by section 1..20, without the "**" between them.
class Sections {
 public:
  explicit Sections(std::string_view bytes = Golden("ver6-plain.abk")) {
    Text_Lines lines(bytes);
    std::string_view line;
    lines.next(line);
    for (int section = 1; section < 21 && lines.next(line);) {
      if (line == "**") {
        ++section;
      } else {
        (*this)[section].emplace_back(line);
      }
    }
  }

  std::vector<std::string>& operator[](int section) {
    return sections_[static_cast<std::size_t>(section)];
  }

  [[nodiscard]] std::string text() const {
    std::string text = "BRANOK Data File Version 6\r\n";
    for (std::size_t section = 1; section < sections_.size(); ++section) {
      for (const std::string& line : sections_[section]) text += line + "\r\n";
      text += "**\r\n";
    }
    return text;
  }

 private:
  std::vector<std::vector<std::string>> sections_ = std::vector<std::vector<std::string>>(21);
};

/// A data file that has been read.
struct Loaded {
  explicit Loaded(std::string_view bytes) {
    Reset_Database(db);
    result = Read_Ver6_Text(db, bytes, comments);
  }
  [[nodiscard]] std::string text() const { return Ver6_Text(db, comments); }

  Database db;
  Comment_Template comments;
  Read_Result result;
};

}  // namespace branok
