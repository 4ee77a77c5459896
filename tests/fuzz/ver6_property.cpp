#include "fuzz/ver6_property.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include "files/text_lines.h"
#include "files/ver6.h"

namespace branok {

namespace {

[[noreturn]] void Fail(const char* what, const std::string& detail) {
  std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
  std::abort();
}

bool Has_Two_Airways_To_One_Node(const Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 2; j <= db.Node_JuncCount[i]; ++j) {
      if (Find_Slot(db, i, db.Node_Junc(j, i)) < j) return true;
    }
  }
  return false;
}

// Ten columns hold the digits of the smallest 32-bit integer, but not its sign.
bool Has_Smallest_Integer(const Database& db) {
  constexpr auto smallest = std::numeric_limits<std::int32_t>::min();
  bool found = false;
  for (const std::int32_t value :
       {db.GPara_TransEW, db.GPara_TransNS, db.GPara_TransZ, db.MaterialColor, db.BackColor}) {
    found = found || value == smallest;
  }
  for (int k = 1; k <= 10; ++k) found = found || db.Cad_Color[k] == smallest;
  return found;
}

// Lines that are no comments and close nothing: rounds only lose them.
std::size_t Data_Lines(std::string_view text) {
  std::size_t count = 0;
  Text_Lines lines(text);
  for (std::string_view line; lines.next(line);) count += line.starts_with('*') ? 0 : 1;
  return count;
}

// What one reading and writing makes of a file.
struct Reread {
  std::string text;
  std::string comments;  // as read, without their places
};

std::string Without_Places(const Comment_Template& comments) {
  std::string lines_only;
  Text_Lines lines(comments.text());
  for (std::string_view line; lines.next(line);) {
    if (!line.starts_with("**")) lines_only.append(line).append("\n");
  }
  return lines_only;
}

Reread Read_And_Write(const std::string& text) {
  static Database db;  // made once: a fuzzer comes here millions of times
  Reset_Database(db);
  Comment_Template comments;
  const Read_Result result = Read_Ver6_Text(db, text, comments);
  if (!result.ok) {
    Fail("a written file cannot be read", std::to_string(result.line) + ": " + result.fault);
  }
  return {Ver6_Text(db, comments), Without_Places(comments)};
}

bool Has_Line(std::string_view text, std::string_view wanted) {
  Text_Lines lines(text);
  for (std::string_view line; lines.next(line);) {
    if (line == wanted) return true;
  }
  return false;
}

// All comments in their order; between them only airway lines of `text` that have become comments.
bool Keeps_Comments(std::string_view before, std::string_view after, std::string_view text) {
  Text_Lines kept(before);
  std::string_view expected;
  bool more = kept.next(expected);
  Text_Lines lines(after);
  for (std::string_view line; lines.next(line);) {
    if (more && line == expected) {
      more = kept.next(expected);
    } else if (!Has_Line(text, line.substr(1))) {
      return false;
    }
  }
  return !more;
}

}  // namespace

void Check_Ver6(std::string_view bytes) {
  static Database db;
  Reset_Database(db);
  Comment_Template comments;
  if (!Read_Ver6_Text(db, bytes, comments).ok) return;
  std::string text = Ver6_Text(db, comments);
  std::string known = Without_Places(comments);
  if (Has_Two_Airways_To_One_Node(db) || Has_Smallest_Integer(db)) return;

  // A mine whose airways all lead to nodes in use is the same after one round, but for comments
  // that move up into a head without comments of its own. Each further round is owed to an airway
  // line that has lost its far node. Comments are kept in their order from the first reading on.
  constexpr int head_blocks = 4;
  for (std::size_t rounds = head_blocks + Data_Lines(text); rounds > 0; --rounds) {
    const Reread next = Read_And_Write(text);
    if (!Keeps_Comments(known, next.comments, text)) Fail("a round changes comments", text);
    if (next.text == text) return;
    if (Data_Lines(next.text) > Data_Lines(text)) Fail("a round adds lines", next.text);
    text = next.text;
    known = next.comments;
  }
  Fail("writing and reading never come to rest", text);
}

}  // namespace branok
