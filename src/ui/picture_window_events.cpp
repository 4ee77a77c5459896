// What a picture window does on the mouse, the keyboard and when it is to be painted.
#include <QCursor>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <cmath>
#include <utility>

#include "drawing/trap.h"
#include "ui/picture_window.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr double wheel_step = 120;  // of one notch
constexpr double zoom_step = 1.25;  // of one notch
constexpr double key_pan = 0.1;     // of the shown width

}  // namespace

// No command stands above the mouse and the painting to take up a fault: here it ends what was
// under way, and the program goes on.
bool Picture_Window::eventFilter(QObject* object, QEvent* event) {
  bool taken = true;
  const std::string broken = Trap([&] { taken = take_event(object, event); });
  if (broken.empty()) return taken;
  if (drag_ == Drag::own) cancel();
  end_hover();
  emit fault(To_Qt(broken));
  return true;
}

bool Picture_Window::take_event(QObject* object, QEvent* event) {
  const auto frame_place = [&](const QPointF& at) {
    return object == picDraw ? at + QPointF(picDraw->pos()) : at;
  };
  switch (event->type()) {
    case QEvent::Resize:
      if (object == picShade) frame_resized();
      return false;
    case QEvent::Paint:
      if (object == picShade) {
        paint_frame();
      } else {
        paint_canvas();
      }
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: {
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      take_mouse(mouse, frame_place(mouse.position()));
      return true;
    }
    case QEvent::Wheel: {
      const auto& wheel = *static_cast<QWheelEvent*>(event);
      const double notches = wheel.angleDelta().y() / wheel_step;
      if (notches != 0) zoom_by(std::pow(zoom_step, notches), frame_place(wheel.position()));
      return true;
    }
    case QEvent::Leave:
      if (object == picShade) end_hover();
      return false;
    case QEvent::ContextMenu:
      ask_menu(*static_cast<QContextMenuEvent*>(event));
      return true;
    case QEvent::KeyPress:
      return object == picDraw && key_pressed(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
      return key_released(*static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn: {
      const auto& focus = *static_cast<QFocusEvent*>(event);
      wakes_ = focus.reason() == Qt::MouseFocusReason && !is_on_top();
      return false;
    }
    case QEvent::FocusOut:
      space_ = false;
      show_cursor();
      return false;
    default:
      return QWidget::eventFilter(object, event);
  }
}

void Picture_Window::take_mouse(const QMouseEvent& mouse, const QPointF& at) {
  switch (mouse.type()) {
    case QEvent::MouseButtonPress:
      picDraw->setFocus(Qt::MouseFocusReason);
      // The press that brings the window to the top does no more than that.
      return std::exchange(wakes_, false) ? void() : mouse_pressed(mouse, at);
    case QEvent::MouseMove:
      return mouse_moved(mouse, at);
    case QEvent::MouseButtonRelease:
      return mouse_released(mouse, at);
    default: {  // a double click
      const bool free = mode_ == "none" && drag_ == Drag::none && !takes_every_click();
      return mouse.button() == Qt::LeftButton && free ? pick_at(at) : mouse_pressed(mouse, at);
    }
  }
}

bool Picture_Window::is_on_top() const {
  const auto* const frame = qobject_cast<const QMdiSubWindow*>(parentWidget());
  return frame == nullptr || frame->mdiArea() == nullptr ||
         frame->mdiArea()->currentSubWindow() == frame;
}

void Picture_Window::ask_menu(const QContextMenuEvent& menu) {
  // A menu would take the release of the button that drags: the drag is broken off instead.
  if (drag_ != Drag::none) return cancel();
  // The middle of the whole picture, which the menu key stands for, may be out of sight.
  const bool key = menu.reason() == QContextMenuEvent::Keyboard;
  emit menu_wanted(key ? picShade->mapToGlobal(picShade->rect().center()) : menu.globalPos());
}

void Picture_Window::frame_resized() {
  set_view(side());
  rebuild();
  view_changed();
}

void Picture_Window::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  show_cursor();
}

bool Picture_Window::key_pressed(const QKeyEvent& key) {
  const QPointF middle = QRectF(picShade->rect()).center();
  const double step = key_pan * (view().X2 - view().X1);
  const auto pan = [&](double dx, double dy) {
    Pan(view(), dx, dy);
    view_changed();
    return true;
  };
  switch (key.key()) {
    case Qt::Key_Escape:
      if (drag_ != Drag::none) {
        cancel();
      } else {
        set_mode("none");
      }
      return true;
    case Qt::Key_Space:
      space_ = true;
      show_cursor();
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      zoom_by(zoom_step, middle);
      return true;
    case Qt::Key_Minus:
      zoom_by(1 / zoom_step, middle);
      return true;
    case Qt::Key_Home:
      show_area({});
      return true;
    case Qt::Key_Left:
      return pan(-step, 0);
    case Qt::Key_Right:
      return pan(step, 0);
    case Qt::Key_Up:
      return pan(0, -step);
    case Qt::Key_Down:
      return pan(0, step);
    default:
      return false;
  }
}

bool Picture_Window::key_released(const QKeyEvent& key) {
  if (key.key() != Qt::Key_Space || key.isAutoRepeat()) return false;
  space_ = false;
  show_cursor();
  return true;
}

void Picture_Window::mouse_pressed(const QMouseEvent& event, const QPointF& at) {
  if (drag_ != Drag::none) return;
  const bool left = event.button() == Qt::LeftButton;
  if (event.button() == Qt::MiddleButton || (left && space_)) {
    drag_ = Drag::pan;
    pan_from_ = at;
    show_cursor();
    return;
  }
  if (!left) return;
  if (mode_ == "zoom" || mode_ == "area") {
    drag_ = Drag::rubber;
    from_ = to_ = unit_of(at);
    end_hover();
  } else if (mode_ == "view") {
    pick_at(at);
  } else if (mode_ == "paste" && carried_) {
    drop_pasted();
  } else {
    drag_ = Drag::own;  // from its first step on: a fault in that breaks it off
    if (press(unit_of(at))) {
      end_hover();
    } else {
      drag_ = Drag::none;
    }
  }
}

void Picture_Window::mouse_moved(const QMouseEvent& event, const QPointF& at) {
  // The release went elsewhere, to a message box say: nothing hangs on the pointer any more.
  if (drag_ != Drag::none && event.buttons() == Qt::NoButton) cancel();
  if (carried_) {
    Area& place = carried_->place;
    const Point corner = unit_of(at);
    const auto x = static_cast<float>(corner.x);
    const auto y = static_cast<float>(corner.y);
    place = {x, y, x + (place.X2 - place.X1), y + (place.Y2 - place.Y1)};
    update_over();
  }
  switch (drag_) {
    case Drag::rubber:
      to_ = unit_of(at);
      update_over();
      break;
    case Drag::pan: {
      const double size = square().width();
      Pan(view(), (pan_from_.x() - at.x()) / size, (pan_from_.y() - at.y()) / size);
      pan_from_ = at;
      view_changed();
      break;
    }
    case Drag::own:
      drag(unit_of(at));
      break;
    case Drag::none:
      if (event.buttons() == Qt::NoButton) hover(at);
      break;
  }
}

void Picture_Window::mouse_released(const QMouseEvent& event, const QPointF& at) {
  const bool left = event.button() == Qt::LeftButton;
  if (drag_ == Drag::pan && (left || event.button() == Qt::MiddleButton)) {
    drag_ = Drag::none;
    show_cursor();
  } else if (drag_ == Drag::rubber && left) {
    to_ = unit_of(at);
    end_rubber();
  } else if (drag_ == Drag::own && left) {
    drag_ = Drag::none;
    release(unit_of(at));
  }
}

void Picture_Window::end_rubber() {
  drag_ = Drag::none;
  const Area drawn = Ordered(from_, to_);
  if (mode_ == "zoom") {
    show_area(Zoom_Rectangle({drawn.X1, drawn.Y1}, {drawn.X2, drawn.Y2}));
    return;
  }
  // A mere click selects everything again.
  selected() = drawn.X1 == drawn.X2 || drawn.Y1 == drawn.Y2 ? Area{} : drawn;
  update_over();
}

void Picture_Window::cancel() {
  if (drag_ == Drag::own) cancel_drag();
  drag_ = Drag::none;
  carried_.reset();
  end_hover();
  update_over();
  show_cursor();
}

// Marks that are switched off are found all the same, so that numbers can be read without them; a
// node that is not drawn is not.
void Picture_Window::hover(const QPointF& at) {
  ensure_lists();
  Pick_Ground g = ground();
  if (g.S == 0) g.S = mark_base();
  g.bare = false;
  const Pick now = Pick_At(g, unit_of(at));
  if (now == under_) return;
  under_ = now;
  emit hint(To_Qt(Pick_Text(database(), now)));
  update_over();
}

void Picture_Window::end_hover() {
  if (under_.node == 0) return;
  under_ = {};
  emit hint({});
  update_over();
}

void Picture_Window::pick_at(const QPointF& at) {
  ensure_lists();
  const Pick pick = Pick_At(ground(), unit_of(at));
  end_hover();
  emit picked(pick);
}

}  // namespace branok
