// Prints the lists of a mine's picture, one record a line (list_text.h), colours as their indices:
//   dump_lists MINE.abk 2dh|2dew|2dns|cad MARKS INFO [--band LOW HIGH] [--switch I-J[=VALUE]]...
//              [--source ewns|2dh|2dew|2dns]
// --source: where a CAD picture takes its positions from when the mine has none. MARKS is 0 or 1,
// INFO the number of the information labels. A fault goes to standard error.
#include <cstdio>
#include <string>
#include <vector>

#include "drawing/cad.h"
#include "drawing/graphic.h"
#include "drawing/list_text.h"
#include "files/ver6.h"
#include "support/test_doors.h"

namespace branok {
namespace {

struct Request {
  std::string file, view;
  std::int16_t marks = 1;
  int info = 0;
  bool band = false;
  std::int16_t low = 0, high = 0;
  struct Switch {
    int i = 0, j = 0;
    std::int16_t value = 1;
  };
  std::vector<Switch> switches;
  std::string source = "ewns";
};

Request::Switch Read_Switch(const std::string& text) {
  Request::Switch s;
  const std::size_t dash = text.find('-'), equal = text.find('=');
  s.i = std::stoi(text);
  s.j = std::stoi(text.substr(dash + 1));
  if (equal != std::string::npos)
    s.value = static_cast<std::int16_t>(std::stoi(text.substr(equal + 1)));
  return s;
}

Request Read_Request(const std::vector<std::string>& words) {
  Request request;
  request.file = words.at(0);
  request.view = words.at(1);
  request.marks = static_cast<std::int16_t>(std::stoi(words.at(2)));
  request.info = std::stoi(words.at(3));
  for (std::size_t k = 4; k < words.size(); ++k) {
    if (words[k] == "--band") {
      request.band = true;
      request.low = static_cast<std::int16_t>(std::stoi(words.at(++k)));
      request.high = static_cast<std::int16_t>(std::stoi(words.at(++k)));
    } else if (words[k] == "--switch") {
      request.switches.push_back(Read_Switch(words.at(++k)));
    } else if (words[k] == "--source") {
      request.source = words.at(++k);
    }
  }
  return request;
}

void Tell(const char* step, const std::string& fault) {
  if (!fault.empty()) std::fprintf(stderr, "fault %s: %s\n", step, fault.c_str());
}

Primitive_Lists Graphic_Lists(Database& db, const Request& request) {
  Graphic graphic;
  graphic.view = request.view;
  graphic.Mark_Attach = request.marks;
  graphic.Graph_NodeInfo = static_cast<Node_Info>(request.info);
  Tell("Graph_Range", Graph_Range(db, graphic));
  if (request.band) {
    graphic.Band_Low = request.low;
    graphic.Band_High = request.high;
  }
  Tell("Graph_Project", Graph_Project(db, graphic));
  Set_Mark_Size(db, graphic);
  Tell("Graph_Build", Graph_Build(db, graphic));
  return graphic.Graph;
}

Primitive_Lists Cad_Lists(Database& db, const Request& request) {
  Cad cad;
  if (db.Flag_Cad == 0) {
    const bool survey = request.source == "ewns";
    if (!survey) {
      Graphic graphic;
      graphic.view = request.source;
      Tell("Graph_Range", Graph_Range(db, graphic));
      Tell("Graph_Project", Graph_Project(db, graphic));
    }
    Test_Dialogue dialogue;
    Cad_Generate(db, cad, survey ? Cad_Source::survey : Cad_Source::graphic, dialogue, [] {});
  }
  Cad_Normalize(db);
  cad.Cad_Mark_Attach = request.marks;
  cad.Cad_Airway_Info = static_cast<Airway_Info>(request.info);
  Tell("Cad_Build", Cad_Build(db, cad));
  return cad.Lists;
}

int Dump(const Request& request) {
  Database db;
  Reset_Database(db);
  Comment_Template comments;
  const Read_Result result = Read_Ver6(db, request.file, comments);
  if (!result.ok) {
    std::fprintf(stderr, "%s:%d: %s\n", request.file.c_str(), result.line, result.fault.c_str());
    return 1;
  }
  Number_Colors(db);
  for (const Request::Switch& s : request.switches) {
    const int there = Find_Slot(db, s.i, s.j), back = Find_Slot(db, s.j, s.i);
    if (there > 0) db.Root_Switch(there, s.i) = s.value;
    if (back > 0) db.Root_Switch(back, s.j) = s.value;
  }
  const Primitive_Lists lists =
      request.view == "cad" ? Cad_Lists(db, request) : Graphic_Lists(db, request);
  for (const std::string& row : List_Text(lists)) std::puts(row.c_str());
  return 0;
}

}  // namespace
}  // namespace branok

int main(int count, char** words) {
  if (count < 5) {
    std::fputs(
        "dump_lists MINE.abk 2dh|2dew|2dns|cad MARKS INFO [--band LOW HIGH] [--switch I-J[=V]]"
        " [--source ewns|2dh|2dew|2dns]\n",
        stderr);
    return 1;
  }
  return branok::Dump(branok::Read_Request({words + 1, words + count}));
}
