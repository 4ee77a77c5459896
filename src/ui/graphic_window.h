// The Graphic window: the mine in plan and in two sections.
#pragma once

#include <vector>

#include "drawing/graphic.h"
#include "ui/picture_window.h"

namespace branok {

class MDIGraph : public Picture_Window {
  Q_OBJECT
 public:
  /// The database must outlive the window. It shows what it holds once it is loaded.
  explicit MDIGraph(Database& db, QWidget* parent = nullptr);

  /// Shows another mine: the whole plan, without marks.
  void load();
  /// The mine has changed: its extent is reckoned anew when nodes or connections have.
  void data_changed() override;
  /// Extent and projection anew, whatever has changed: after the graphic parameters.
  void project_anew();

  [[nodiscard]] Graphic& graphic() { return graphic_; }

  /// The views of mnuGraphDim: "2dh", "2dew", "2dns". The whole picture, nothing selected.
  void show_view(std::string_view word);
  /// The whole picture and the whole level band.
  void zoom_out();
  void attach_marks(bool on);
  /// What stands beside the nodes.
  void show_info(Node_Info info);

 protected:
  [[nodiscard]] const View_Rectangle& view() const override { return graphic_.View; }
  View_Rectangle& view() override { return graphic_.View; }
  Area& selected() override { return graphic_.Selected; }
  [[nodiscard]] const Area& selected() const override { return graphic_.Selected; }
  void set_view(double side) override { Graph_SetView(db_, graphic_, side); }
  std::string build() override;
  void paint(Surface& surface, bool labels) const override;
  void paint_labels(Surface& surface, std::string_view word) const override;
  [[nodiscard]] QColor back_color() const override;
  [[nodiscard]] const Database& database() const override { return db_; }
  [[nodiscard]] Pick_Ground ground() const override { return Ground_Of(db_, graphic_); }
  [[nodiscard]] double mark_base() const override { return graphic_.Mark_Base; }

 private:
  /// What extent and projection depend on.
  struct Network {
    std::int16_t nodes = 0;
    Node_Table<std::int32_t> ew, sn;
    Node_Table<std::int16_t> elevation, airways;
    bool operator==(const Network&) const = default;
  };
  [[nodiscard]] Network network() const;

  Database& db_;
  Graphic graphic_;
  Network drawn_;            // the network that range and projection are of
  std::string range_fault_;  // why the mine has no extent
  std::string projection_fault_;
};

}  // namespace branok
