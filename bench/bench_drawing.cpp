// The pictures of the largest mine: from the database to lists, from lists to pixels, and what lies
// under a click. A window is 900 pixels wide; the second range is its device pixel ratio.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "airflow/flow_run.h"
#include "drawing/cad.h"
#include "drawing/graphic.h"
#include "mines.h"
#include "paint/painter_surface.h"

namespace branok {
namespace {

constexpr int side = 900;
constexpr const char* views[] = {"2dh", "2dew", "2dns"};

// 550 nodes, braced with as many diagonals as their slots allow up to 1300 airways, of all classes,
// with flow.
Database Largest_Mine() {
  constexpr int most_airways = 1300;
  Database db = Mine(Measured_Mine::generated_550);
  int airways = 0;
  for (int i = 1; i <= db.Node_Total; ++i) airways += db.Node_UpCount[i];
  const auto brace = [&](int i, int j) {
    const bool room = j <= db.Node_Total && db.Node_JuncCount[i] < max_slots &&
                      db.Node_JuncCount[j] < max_slots && Find_Slot(db, i, j) == 0;
    if (!room || airways >= most_airways) return;
    Add_Airway(db, i, j, 100);
    ++airways;
  };
  constexpr int width = 23;  // of the generated mine's lattice
  for (const int step : {width, width + 1, width - 1}) {
    for (int i = 1; i < db.Node_Total; ++i) brace(i, i + step);
  }
  // Every seventh airway has a mark.
  constexpr float resistances[] = {300, 12000, 25000, 50000};
  int k = 0;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int u = 1; u <= db.Node_UpCount[i]; ++u) {
      if (++k % 7 != 0) continue;
      Set_Both(db, db.Root_Resist, i, db.Node_Junc(db.Node_UpSlot(u, i), i), resistances[k % 4]);
    }
  }
  Derive_After_Load(db);
  Test_Dialogue dialogue;
  Test_Panel panel;
  if (!Ana_Flow_Press(db, dialogue, panel).ok()) throw Run_Time_Error("no flow in the mine");
  return db;
}

struct Graph_Picture {
  Database db = Largest_Mine();
  Graphic graphic;

  explicit Graph_Picture(const char* view = "2dh") {
    graphic.view = view;
    graphic.Mark_Attach = 1;
    graphic.Graph_NodeInfo = Node_Info::level;
    Graph_Range(db, graphic);
    Graph_Project(db, graphic);
    Set_Mark_Size(db, graphic);
    Graph_Build(db, graphic);
  }
};

struct Cad_Picture {
  Database db = Largest_Mine();
  Cad cad;

  Cad_Picture() {
    Test_Dialogue dialogue;
    Cad_Generate(db, cad, Cad_Source::survey, dialogue, [] {});
    Cad_Normalize(db);
    cad.Cad_Mark_Attach = 1;
    Set_Mark_Size(db, cad);
    cad.Cad_Airway_Info = Airway_Info::flow;
    Cad_Build(db, cad);
  }
};

void Range_And_Project(benchmark::State& state) {
  Graph_Picture picture(views[state.range(0)]);
  for (auto _ : state) {
    benchmark::DoNotOptimize(Graph_Range(picture.db, picture.graphic));
    benchmark::DoNotOptimize(Graph_Project(picture.db, picture.graphic));
  }
}
BENCHMARK(Range_And_Project)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

void Build_Graph(benchmark::State& state) {
  Graph_Picture picture;
  for (auto _ : state) benchmark::DoNotOptimize(Graph_Build(picture.db, picture.graphic));
}
BENCHMARK(Build_Graph)->Unit(benchmark::kMicrosecond);

void Build_Cad(benchmark::State& state) {
  Cad_Picture picture;
  for (auto _ : state) benchmark::DoNotOptimize(Cad_Build(picture.db, picture.cad));
}
BENCHMARK(Build_Cad)->Unit(benchmark::kMicrosecond);

// One repaint of a window, its background included.
void Repaint(benchmark::State& state, std::int32_t background, auto&& paint) {
  const auto ratio = static_cast<double>(state.range(0));
  QImage image(QSize(side, side) * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  for (auto _ : state) {
    image.fill(Color_Of(background));
    QPainter painter(&image);
    Painter_Surface surface(painter, QRectF(0, 0, side, side), ratio);
    paint(surface);
  }
}

void Paint_Graph(benchmark::State& state) {
  const Graph_Picture picture;
  Repaint(state, picture.db.Graph_Color[color::back],
          [&](Surface& surface) { Graph_Paint(picture.db, picture.graphic, surface); });
  const Primitive_Lists& lists = picture.graphic.Graph;
  state.counters["lines"] = static_cast<double>(lists.Line.size());
  state.counters["circles"] = static_cast<double>(lists.Circle.size());
  state.counters["texts"] = static_cast<double>(lists.Text.size() + lists.Info.size());
}
BENCHMARK(Paint_Graph)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void Paint_Cad(benchmark::State& state) {
  const Cad_Picture picture;
  Repaint(state, picture.db.Cad_Color[color::back],
          [&](Surface& surface) { Cad_Paint(picture.db, picture.cad, surface); });
}
BENCHMARK(Paint_Cad)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// A click beside all nodes: every airway is looked at.
void Pick(benchmark::State& state) {
  const Graph_Picture picture;
  const Pick_Ground ground = Ground_Of(picture.db, picture.graphic);
  for (auto _ : state) benchmark::DoNotOptimize(Pick_At(ground, {0.513, 0.487}));
}
BENCHMARK(Pick)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace branok

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
