// What the Graphic and the CAD window share: a picture in the unit square behind a clipping frame,
// with zoom, scroll bars, mouse modes, picking, copy and paste. What is drawn, and what a window
// adds with the mouse, its class tells.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/picking.h"
#include "drawing/primitives.h"
#include "drawing/surface.h"
#include "drawing/view.h"

class QContextMenuEvent;
class QKeyEvent;
class QMouseEvent;
class QScrollBar;

namespace branok {

class Picture_Window : public QWidget {
  Q_OBJECT
 public:
  explicit Picture_Window(QWidget* parent);
  Picture_Window(const Picture_Window&) = delete;
  Picture_Window& operator=(const Picture_Window&) = delete;
  Picture_Window(Picture_Window&&) = delete;
  Picture_Window& operator=(Picture_Window&&) = delete;
  ~Picture_Window() override;

  // --- Mouse modes: "none", "zoom", "area", "move", "view", "paste"

  [[nodiscard]] const std::string& mode() const { return mode_; }
  /// Enters a mode; what was begun in the one before is dropped.
  void set_mode(std::string_view word);
  /// Enters a mode, or leaves it when it is on already.
  void toggle_mode(std::string_view word);

  // --- What is shown

  /// The shown rectangle of the unit square.
  [[nodiscard]] const View_Rectangle& shown() const { return view(); }
  /// Shows a part of the unit square, made square about its centre.
  void show_area(const Area& area);
  /// The lists are built anew when they are next needed, and painted. Pasted pictures stay.
  void rebuild();
  /// The mine has changed: its picture follows when it is next seen.
  virtual void data_changed() = 0;
  /// Paints the lists as they are.
  void repaint_picture();
  /// "Redraw": the whole square is selected, pasted pictures go, lists and picture are new; the
  /// zoom stays.
  void redraw();

  // --- Pictures

  /// What the frame shows, `ratio` device pixels for each of its own.
  [[nodiscard]] QImage shown_picture(double ratio);
  /// The selected area, or what the frame shows when none is selected.
  [[nodiscard]] QImage selected_picture();
  /// Paints what the frame shows into a rectangle of its proportions, as vectors where the device
  /// takes them.
  void paint_shown(QPainter& painter, const QRectF& target, double ratio);
  /// Size of the frame, in pixels of the window.
  [[nodiscard]] QSize frame_size() const;

  /// Copies the selected area, or what is shown, to the clipboard.
  void copy_picture();
  /// Takes the clipboard's picture into the mode "paste": it follows the mouse until a click drops
  /// it. False when the clipboard has none.
  bool paste_picture();

  [[nodiscard]] QSize sizeHint() const override { return {760, 720}; }

 signals:
  void mode_changed();
  /// A click in the mode "view", or a double click: on a node, an airway, or nothing.
  void picked(const branok::Pick& pick);
  /// What lies under the pointer, in words; empty for nothing.
  void hint(const QString& text);
  /// The picture could not be built to its end, or what the mouse began could not.
  void fault(const QString& text);
  void menu_wanted(const QPoint& global);

 protected:
  // --- What a window is

  [[nodiscard]] virtual const View_Rectangle& view() const = 0;
  virtual View_Rectangle& view() = 0;
  virtual Area& selected() = 0;
  [[nodiscard]] virtual const Area& selected() const = 0;
  /// Makes the view square for a frame of `side` pixels.
  virtual void set_view(double side) = 0;
  /// Builds the lists; the fault that ended it, empty when none did.
  virtual std::string build() = 0;
  /// The lists, with the labels or without.
  virtual void paint(Surface& surface, bool labels) const = 0;
  /// The labels with the word "draw" in their colour, with any other in that of the background.
  virtual void paint_labels(Surface& surface, std::string_view word) const = 0;
  [[nodiscard]] virtual QColor back_color() const = 0;
  [[nodiscard]] virtual const Database& database() const = 0;
  [[nodiscard]] virtual Pick_Ground ground() const = 0;
  /// Size of the marks were they shown, in the unit square.
  [[nodiscard]] virtual double mark_base() const = 0;
  /// What the mouse does beyond the modes of all pictures: true when the press was taken; drag and
  /// release then follow. `cancel` ends what a press began.
  virtual bool press(Point at) { return (void)at, false; }
  virtual void drag(Point to) { (void)to; }
  virtual void release(Point at) { (void)at; }
  virtual void cancel_drag() {}
  /// Whether in the mode "none" each press counts, also the second of a double click.
  [[nodiscard]] virtual bool takes_every_click() const { return false; }
  /// Paints over the picture what a drag shows for the moment.
  virtual void paint_over(Surface& surface) const { (void)surface; }
  /// Another mine: nothing of the one before stays over its picture.
  void start_anew();
  /// What the engineer is to do next, shown over the picture; empty when nothing is asked of him.
  [[nodiscard]] virtual QString notice() const { return {}; }
  /// The pointer of a mode of the window's own.
  [[nodiscard]] virtual QCursor own_cursor() const;

  /// Paints at once on the picture as it is, over what stands there.
  void paint_on_picture(const std::function<void(Surface&)>& paint_new);
  /// Other labels, which `build` makes. Those of before are overdrawn in the colour of the
  /// background: an airway under them has a gap until the next redraw.
  void change_labels(const std::function<void()>& build);
  /// The view has changed: scroll bars and picture follow.
  void view_changed();
  /// What a drag shows has changed.
  void update_over();
  /// The pointer again, after what it stands for has changed.
  void show_cursor();
  /// Side of the square that the unit square fills at zoom 1, in pixels.
  [[nodiscard]] double side() const;

  bool eventFilter(QObject* object, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  enum class Drag { none, rubber, pan, own };
  struct Pasted {
    QImage picture;
    Area place;  // in the unit square
  };

  [[nodiscard]] QRectF square() const;
  void paint_square(QPainter& painter, const QRectF& unit, double ratio) const;
  [[nodiscard]] Point unit_of(const QPointF& frame) const;
  void place_canvas();
  void place_bars();
  void scrolled();
  void ensure_lists();
  void ensure_picture();
  void paint_frame();
  void paint_canvas();
  void paint_overlays(QPainter& painter) const;
  void paint_highlight(QPainter& painter) const;
  [[nodiscard]] QRectF rect_of(const Area& area) const;
  [[nodiscard]] static QRectF rect_in(const QRectF& unit, const Area& area);

  bool take_event(QObject* object, QEvent* event);
  void take_mouse(const QMouseEvent& mouse, const QPointF& at);
  [[nodiscard]] bool is_on_top() const;
  void ask_menu(const QContextMenuEvent& menu);
  void frame_resized();
  void mouse_pressed(const QMouseEvent& event, const QPointF& at);
  void mouse_moved(const QMouseEvent& event, const QPointF& at);
  void mouse_released(const QMouseEvent& event, const QPointF& at);
  void end_rubber();
  void drop_pasted();
  void cancel();
  void hover(const QPointF& at);
  void end_hover();
  void zoom_by(double factor, const QPointF& at);
  bool key_pressed(const QKeyEvent& key);
  bool key_released(const QKeyEvent& key);
  void pick_at(const QPointF& at);

  QWidget* picShade;
  QWidget* picDraw;
  QScrollBar *hsbControl, *vsbControl;
  std::string mode_ = "none";
  QPixmap picture_;  // what the frame shows, painted
  bool fresh_ = false;
  bool labels_ = true;  // false for the moment between two kinds of them
  bool stale_lists_ = true;
  std::string fault_;
  Drag drag_ = Drag::none;
  Point from_, to_;     // of a rubber band
  QPointF pan_from_;    // of the frame
  bool wakes_ = false;  // the press that comes brings the window to the top
  bool space_ = false;  // held: the left button pans
  Pick under_;          // the pointer
  std::vector<Pasted> pasted_;
  std::optional<Pasted> carried_;  // follows the pointer
};

}  // namespace branok
