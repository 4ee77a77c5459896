#include "ui/graphic_window.h"

#include "drawing/level_band.h"
#include "drawing/paint.h"
#include "paint/painter_surface.h"

namespace branok {

MDIGraph::MDIGraph(Database& db, QWidget* parent) : Picture_Window(parent), db_(db) {
  setObjectName("MDIGraph");
  setWindowTitle("Graphic Window");
}

void MDIGraph::load() {
  graphic_ = Graphic();
  start_anew();
  project_anew();
  view_changed();
}

MDIGraph::Network MDIGraph::network() const {
  return {db_.Node_Total, db_.Node_EW, db_.Node_SN, db_.Node_Elev, db_.Node_JuncCount};
}

void MDIGraph::data_changed() {
  if (network() == drawn_) {
    rebuild();
  } else {
    project_anew();
  }
}

void MDIGraph::project_anew() {
  drawn_ = network();
  range_fault_ = Graph_Range(db_, graphic_);
  projection_fault_ = Graph_Project(db_, graphic_);
  set_view(side());
  rebuild();
}

std::string MDIGraph::build() {
  std::string fault = Graph_Build(db_, graphic_);
  if (!range_fault_.empty()) fault = range_fault_;
  if (fault.empty()) fault = projection_fault_;
  return fault.empty() ? fault : "The picture is not complete: " + fault;
}

void MDIGraph::paint(Surface& surface, bool labels) const {
  if (labels) return Graph_Paint(db_, graphic_, surface);
  Paint_Lists(graphic_.Graph, surface);
}

void MDIGraph::paint_labels(Surface& surface, std::string_view word) const {
  Graph_Info_Paint(db_, graphic_, surface, word);
}

QColor MDIGraph::back_color() const { return Color_Of(db_.Graph_Color[color::back]); }

void MDIGraph::show_view(std::string_view word) {
  graphic_.view = word;
  graphic_.View = {};
  graphic_.Selected = {};
  projection_fault_ = Graph_Project(db_, graphic_);
  set_view(side());
  rebuild();
  view_changed();
}

void MDIGraph::zoom_out() {
  graphic_.View = {};
  Reset_Band(db_, graphic_);
  set_view(side());
  rebuild();
  view_changed();
}

void MDIGraph::attach_marks(bool on) {
  graphic_.Mark_Attach = on ? 1 : 0;
  Set_Mark_Size(db_, graphic_);
  rebuild();
}

void MDIGraph::show_info(Node_Info info) {
  change_labels([&] {
    graphic_.Graph_NodeInfo = info;
    Graph_Info(db_, graphic_);
  });
}

}  // namespace branok
