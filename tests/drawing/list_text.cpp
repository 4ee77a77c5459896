#include "drawing/list_text.h"

#include <cstdio>

namespace branok {
namespace {

std::string Digits(float number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.7g", static_cast<double>(number));
  return text;
}

std::string Trimmed(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

template <class... Parts>
std::string Words(const Parts&... parts) {
  std::string line;
  ((line += parts + " "), ...);
  return Trimmed(line);
}

}  // namespace

std::vector<std::string> List_Text(const Primitive_Lists& lists) {
  std::vector<std::string> rows;
  for (const Line_Record& r : lists.Line) {
    rows.push_back(Words(std::string("L"), std::string(1, r.Kind), Digits(r.X), Digits(r.Y),
                         std::to_string(r.Color), std::to_string(r.Width)));
  }
  for (const Circle_Record& r : lists.Circle) {
    rows.push_back(Words(std::string("C"), std::string(1, r.Kind), Digits(r.X), Digits(r.Y),
                         std::to_string(r.Color), std::to_string(r.Width), Digits(r.Radius),
                         Digits(r.Start), Digits(r.End)));
  }
  for (const Text_Record& r : lists.Text) {
    rows.push_back(Words(std::string("T"), Digits(r.X), Digits(r.Y), std::to_string(r.Color),
                         std::to_string(r.Len), Digits(r.Height), Digits(r.Size), Digits(r.Angle),
                         r.Text));
  }
  for (const Info_Record& r : lists.Info) {
    rows.push_back(Words(std::string("I"), Digits(r.X), Digits(r.Y), std::to_string(r.Len),
                         Digits(r.Height), Digits(r.Size), Digits(r.Angle), r.Text));
  }
  return rows;
}

void Number_Colors(Database& db) {
  for (int i = 1; i <= 10; ++i) db.Graph_Color[i] = db.Cad_Color[i] = i;
}

}  // namespace branok
