#include "batch/pictures.h"

#include <QGuiApplication>
#include <array>
#include <cstdio>
#include <memory>

#include "core/numbers.h"
#include "core/text.h"

namespace branok {

namespace {

bool Has_Airways(const Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] > 0) return true;
  }
  return false;
}

std::string Title_Of(const Database& db, std::string_view view) {
  const std::string_view what = view == "2dh"    ? "plan"
                                : view == "2dew" ? "E-W section"
                                : view == "2dns" ? "N-S section"
                                                 : "CAD";
  return To_Utf8(Trim(db.Mine_Name)) + ", " + std::string(what);
}

// A picture and the copy of the mine that it was drawn from.
struct Graph_Picture {
  Database db;
  Graphic graphic;
};
struct Cad_Picture {
  Database db;
  Cad cad;
};

std::shared_ptr<const Graph_Picture> Draw_Graphic(const Database& db, std::string_view view,
                                                  const Picture_Options& options,
                                                  Dialogue& dialogue) {
  const auto picture = std::make_shared<Graph_Picture>(Graph_Picture{.db = db, .graphic = {}});
  Graphic& graphic = picture->graphic;
  graphic.view = view;
  graphic.Mark_Attach = options.marks ? 1 : 0;
  graphic.Graph_NodeInfo = options.node_info;
  // Without its whole grid a mine may still be drawn; without an extent it cannot.
  const std::string no_grid = Graph_Range(picture->db, graphic);
  const std::string no_view = Graph_Project(picture->db, graphic);
  if (!no_view.empty()) throw Run_Time_Error(no_grid.empty() ? no_view : no_grid);
  Set_Mark_Size(picture->db, graphic);
  const std::string unfinished = Graph_Build(picture->db, graphic);
  for (const std::string& fault : {no_grid, unfinished}) {
    if (!fault.empty()) dialogue.remark("the picture is not complete: " + fault);
  }
  return picture;
}

std::shared_ptr<const Cad_Picture> Draw_Cad(const Database& db, const Picture_Options& options,
                                            Dialogue& dialogue) {
  const auto picture = std::make_shared<Cad_Picture>(Cad_Picture{.db = db, .cad = {}});
  Cad& cad = picture->cad;
  if (db.Flag_Cad == 0) Cad_Generate(picture->db, cad, Cad_Source::survey, dialogue, [] {});
  Cad_Normalize(picture->db);
  cad.Cad_Mark_Attach = options.marks ? 1 : 0;
  cad.Cad_Airway_Info = options.airway_info;
  const std::string unfinished = Cad_Build(picture->db, cad);
  if (!unfinished.empty()) dialogue.remark("the picture is not complete: " + unfinished);
  return picture;
}

// Of the toolkit only what ends the program is worth telling.
void Silent(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::fprintf(stderr, "branok-batch: %s\n", qPrintable(text));
}

}  // namespace

Painting Draw_Mine(const Database& db, std::string_view view, const Picture_Options& options,
                   Dialogue& dialogue) {
  if (!Has_Airways(db)) throw Run_Time_Error("the mine has no airways");
  const std::string title = Title_Of(db, view);
  if (view == "cad") {
    const auto picture = Draw_Cad(db, options, dialogue);
    return {title, db.Cad_Color[color::back],
            [picture](Surface& surface) { Cad_Paint(picture->db, picture->cad, surface); }};
  }
  const auto picture = Draw_Graphic(db, view, options, dialogue);
  return {title, db.Graph_Color[color::back],
          [picture](Surface& surface) { Graph_Paint(picture->db, picture->graphic, surface); }};
}

void Start_Painting() {
  if (QCoreApplication::instance() != nullptr) return;
  qInstallMessageHandler(Silent);
  static std::array<char, 13> name{"branok-batch"};
  static std::array<char, 10> option{"-platform"};  // goes before the environment's wishes
  static std::array<char, 10> platform{"offscreen"};
  static std::array<char*, 4> words = {name.data(), option.data(), platform.data(), nullptr};
  static int count = 3;
  static const QGuiApplication application(count, words.data());
}

}  // namespace branok
