// The CAD window: the schematic of the mine, whose nodes the engineer puts where they read best.
#pragma once

#include "drawing/cad.h"
#include "drawing/cad_history.h"
#include "ui/picture_window.h"

namespace branok {

class MDICad : public Picture_Window {
  Q_OBJECT
 public:
  /// The database must outlive the window. It shows what it holds once it is loaded.
  explicit MDICad(Database& db, QWidget* parent = nullptr);

  /// Shows another mine, or another drawing of it: the whole square, with marks. Without a drawing
  /// each click places the next node.
  void load();

  /// The mine has changed. A drawing by mouse that only wanted nodes which have left is complete.
  void data_changed() override;
  /// Goes on with a drawing by mouse that was left after this node.
  void resume(int placed);

  [[nodiscard]] Cad& cad() { return cad_; }

  // --- Undo of what was placed, moved and framed

  /// The drawing has been changed by a command: one step.
  void note_edit();
  /// Nodes have left the network or come into it: what was before cannot be taken back.
  void forget_steps();
  [[nodiscard]] bool can_undo() const { return history_.can_undo(); }
  [[nodiscard]] bool can_redo() const { return history_.can_redo(); }
  /// Nothing happens while a node is dragged.
  void undo();
  void redo();

  void zoom_out();
  void attach_marks(bool on);
  /// What stands beside the airways.
  void show_info(Airway_Info info);

 signals:
  /// A node has been placed or moved, or the drawing has become complete.
  void edited();

 protected:
  [[nodiscard]] const View_Rectangle& view() const override { return cad_.View; }
  View_Rectangle& view() override { return cad_.View; }
  Area& selected() override { return cad_.Selected; }
  [[nodiscard]] const Area& selected() const override { return cad_.Selected; }
  void set_view(double side) override { Cad_SetView(db_, cad_, side); }
  std::string build() override { return Cad_Build(db_, cad_); }
  void paint(Surface& surface, bool labels) const override;
  void paint_labels(Surface& surface, std::string_view word) const override;
  [[nodiscard]] QColor back_color() const override;
  [[nodiscard]] const Database& database() const override { return db_; }
  [[nodiscard]] Pick_Ground ground() const override { return Ground_Of(db_, cad_); }
  [[nodiscard]] double mark_base() const override { return cad_.Cad_Mark_Base; }
  bool press(Point at) override;
  void drag(Point to) override;
  void release(Point at) override;
  void cancel_drag() override;
  void paint_over(Surface& surface) const override;
  [[nodiscard]] QString notice() const override;
  [[nodiscard]] QCursor own_cursor() const override;
  [[nodiscard]] bool takes_every_click() const override { return places_nodes(); }

 private:
  void place_node(Point at);
  [[nodiscard]] bool places_nodes() const;
  void move_in_history(void (Cad_History::*way)(Database&, Cad&));

  Database& db_;
  Cad cad_;
  Cad_History history_;
  Primitive_Lists moved_;  // the node that is being moved, as it lies now
};

}  // namespace branok
