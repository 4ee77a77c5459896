#include "ui/picture_window.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "paint/painter_surface.h"
#include "ui/icon.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr double wheel_step = 120;    // of one notch
constexpr double zoom_step = 1.25;    // of one notch
constexpr double key_pan = 0.1;       // of the shown width
constexpr double most_copied = 8000;  // pixels of a copied picture's side
const QColor rubber_color(255, 0, 0);
const QColor highlight_color(255, 140, 0);

QCursor Cursor_Of_Icon(const char* name) {
  constexpr int size = 24;
  constexpr int lens = 10;  // the hot spot is the middle of the lens
  return QCursor(Icon_Of(name).pixmap(size, size), lens, lens);
}

}  // namespace

// picDraw: as large as the whole picture at the present zoom, of which the frame shows a part.
class Picture_Window::Canvas : public QWidget {
 public:
  Canvas(Picture_Window& window, QWidget* frame) : QWidget(frame), window_(window) {
    setObjectName("picDraw");
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName("Picture of the mine");
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.translate(-pos());
    window_.paint_canvas(painter);
  }

 private:
  Picture_Window& window_;
};

Picture_Window::Picture_Window(QWidget* parent)
    : QWidget(parent),
      picShade(new QWidget(this)),
      picDraw(new Canvas(*this, picShade)),
      hsbControl(new QScrollBar(Qt::Horizontal, this)),
      vsbControl(new QScrollBar(Qt::Vertical, this)) {
  picShade->setObjectName("picShade");
  picShade->setMouseTracking(true);
  picShade->setAutoFillBackground(true);
  picShade->setFocusProxy(picDraw);
  hsbControl->setObjectName("hsbControl");
  vsbControl->setObjectName("vsbControl");
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(picShade, 0, 0);
  grid->addWidget(vsbControl, 0, 1);
  grid->addWidget(hsbControl, 1, 0);
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(0, 1);
  setFocusProxy(picDraw);
  setMinimumSize(40, 40);
  picShade->installEventFilter(this);
  picDraw->installEventFilter(this);
  connect(hsbControl, &QScrollBar::valueChanged, this, &Picture_Window::scrolled);
  connect(vsbControl, &QScrollBar::valueChanged, this, &Picture_Window::scrolled);
}

Picture_Window::~Picture_Window() {
  picShade->removeEventFilter(this);
  picDraw->removeEventFilter(this);
}

// --- Modes

void Picture_Window::set_mode(std::string_view word) {
  cancel();
  mode_ = word;
  show_cursor();
  emit mode_changed();
}

void Picture_Window::start_anew() {
  pasted_.clear();
  set_mode("none");
}

void Picture_Window::toggle_mode(std::string_view word) {
  set_mode(mode_ == word ? std::string_view("none") : word);
}

QCursor Picture_Window::own_cursor() const { return Qt::ArrowCursor; }

void Picture_Window::show_cursor() {
  QCursor cursor = own_cursor();
  if (mode_ == "zoom") cursor = Cursor_Of_Icon("zoomin");
  if (mode_ == "area" || mode_ == "paste") cursor = Qt::CrossCursor;
  if (mode_ == "view") cursor = Qt::PointingHandCursor;
  if (space_) cursor = Qt::OpenHandCursor;
  if (drag_ == Drag::pan) cursor = Qt::ClosedHandCursor;
  picShade->setCursor(cursor);
}

// --- Where things lie

QSize Picture_Window::frame_size() const { return picShade->size(); }

double Picture_Window::side() const {
  return std::max(1, std::min(picShade->width(), picShade->height()));
}

// The unit square in the frame. At zoom 1 it stands in the middle; the shown rectangle takes the
// same place at any zoom.
QRectF Picture_Window::square() const {
  const double size = std::round(side() * view().Zoom);
  const double left = std::round((picShade->width() - side()) / 2);
  const double top = std::round((picShade->height() - side()) / 2);
  return {left - std::round(size * view().X1), top - std::round(size * view().Y1), size, size};
}

Point Picture_Window::unit_of(const QPointF& frame) const {
  const QRectF unit = square();
  return {(frame.x() - unit.x()) / unit.width(), (frame.y() - unit.y()) / unit.height()};
}

QRectF Picture_Window::rect_of(const Area& area) const { return rect_in(square(), area); }

QRectF Picture_Window::rect_in(const QRectF& unit, const Area& area) {
  return {QPointF(unit.x() + area.X1 * unit.width(), unit.y() + area.Y1 * unit.height()),
          QPointF(unit.x() + area.X2 * unit.width(), unit.y() + area.Y2 * unit.height())};
}

void Picture_Window::place_canvas() { picDraw->setGeometry(square().toRect()); }

void Picture_Window::place_bars() {
  const int frame = static_cast<int>(side());
  const int size = static_cast<int>(square().width());
  const auto place = [&](QScrollBar* bar, float first) {
    const QSignalBlocker quiet(bar);
    const int value = static_cast<int>(std::round(double{first} * size));
    bar->setRange(std::min(0, value), std::max(size - frame, value));
    bar->setPageStep(frame);
    bar->setSingleStep(std::max(1, frame / 20));
    bar->setValue(value);
    bar->setEnabled(view().Zoom > 1);
  };
  place(hsbControl, view().X1);
  place(vsbControl, view().Y1);
}

void Picture_Window::scrolled() {
  const double size = square().width();
  Scroll_To(view(), hsbControl->value() / size, vsbControl->value() / size);
  place_canvas();
  repaint_picture();
}

void Picture_Window::view_changed() {
  place_canvas();
  place_bars();
  repaint_picture();
}

void Picture_Window::show_area(const Area& area) {
  view() = {area.X1, area.Y1, area.X2, area.Y2, 1};
  set_view(side());
  rebuild();
  view_changed();
}

void Picture_Window::zoom_by(double factor, const QPointF& at) {
  Zoom_At(view(), unit_of(at), factor, side());
  set_view(side());
  view_changed();
  hover(at);
}

// --- Painting

void Picture_Window::rebuild() {
  end_hover();
  stale_lists_ = true;
  repaint_picture();
}

// A window that is not seen costs nothing: its lists wait until it is.
void Picture_Window::ensure_lists() {
  if (!std::exchange(stale_lists_, false)) return;
  const std::string before = std::exchange(fault_, build());
  if (!fault_.empty() && fault_ != before) emit fault(To_Qt(fault_));
}

void Picture_Window::repaint_picture() {
  fresh_ = false;
  picShade->update();
  picDraw->update();
}

void Picture_Window::redraw() {
  selected() = {};
  pasted_.clear();
  rebuild();
}

// The lists, and over them what was pasted.
void Picture_Window::paint_square(QPainter& painter, const QRectF& unit, double ratio) const {
  {
    Painter_Surface surface(painter, unit, ratio);
    paint(surface);
  }
  for (const Pasted& pasted : pasted_) {
    painter.drawImage(rect_in(unit, pasted.place), pasted.picture);
  }
}

void Picture_Window::paint_shown(QPainter& painter, const QRectF& target, double ratio) {
  ensure_lists();
  const double scale = target.width() / std::max(1, picShade->width());
  const QRectF unit = square();
  const QRectF place(target.x() + unit.x() * scale, target.y() + unit.y() * scale,
                     unit.width() * scale, unit.height() * scale);
  painter.save();
  painter.setClipRect(target);
  painter.fillRect(target, back_color());
  paint_square(painter, place, ratio);
  painter.restore();
}

void Picture_Window::ensure_picture() {
  ensure_lists();
  const QSize size = picShade->size() * devicePixelRatioF();
  if (fresh_ && picture_.size() == size) return;
  picture_ = QPixmap(size);
  picture_.setDevicePixelRatio(devicePixelRatioF());
  QPainter painter(&picture_);
  paint_shown(painter, QRectF(QPointF(0, 0), QSizeF(picShade->size())), devicePixelRatioF());
  fresh_ = true;
}

void Picture_Window::paint_on_picture(const std::function<void(Surface&)>& paint_new) {
  ensure_picture();
  {
    QPainter painter(&picture_);
    Painter_Surface surface(painter, square(), devicePixelRatioF());
    paint_new(surface);
  }
  picShade->update();
  picDraw->update();
}

void Picture_Window::update_over() { picDraw->update(); }

// In the coordinates of the frame.
void Picture_Window::paint_canvas(QPainter& painter) {
  ensure_picture();
  painter.drawPixmap(0, 0, picture_);
  painter.save();  // the overlays are written in the window's font
  {
    Painter_Surface surface(painter, square(), devicePixelRatioF());
    paint_over(surface);
  }
  painter.restore();
  paint_overlays(painter);
}

void Picture_Window::paint_overlays(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  if (!selected().whole()) {
    painter.setPen(QPen(highlight_color, 1, Qt::DashLine));
    painter.drawRect(rect_of(selected()));
  }
  paint_highlight(painter);
  if (drag_ == Drag::rubber) {
    painter.setPen(QPen(rubber_color, 1));
    painter.drawRect(rect_of(Ordered(from_, to_)));
  }
  if (carried_) {
    painter.setOpacity(0.8);
    painter.drawImage(rect_of(carried_->place), carried_->picture);
    painter.setOpacity(1);
  }
  const QString words = fault_.empty() ? notice() : To_Qt(fault_);
  if (words.isEmpty()) return;
  // On a ground of its own: readable on any colour of the picture, whatever is drawn there.
  constexpr int margin = 8;
  constexpr auto how = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
  const QRect room = picShade->rect().adjusted(margin, margin, -margin, -margin);
  const QRect place = painter.fontMetrics().boundingRect(room, how, words);
  painter.fillRect(place.adjusted(-margin, -margin / 2, margin, margin / 2),
                   palette().brush(QPalette::ToolTipBase));
  painter.setPen(palette().color(QPalette::ToolTipText));
  painter.drawText(place, how, words);
}

// A ring round the node, or a broad band along the airway, under the pointer.
void Picture_Window::paint_highlight(QPainter& painter) const {
  if (under_.node == 0) return;
  const Pick_Ground g = ground();
  const QRectF unit = square();
  const auto place = [&](int node) {
    return QPointF(unit.x() + g.X[node] * unit.width(), unit.y() + g.Y[node] * unit.height());
  };
  QColor color = highlight_color;
  if (under_.slot == 0) {
    const double radius = mark_base() * unit.width() * 1.3 + 2;
    painter.setPen(QPen(color, 2));
    painter.drawEllipse(place(under_.node), radius, radius);
    return;
  }
  constexpr int band = 7;
  color.setAlphaF(0.55F);
  painter.setPen(QPen(color, band, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(place(under_.node), place(database().Node_Junc(under_.slot, under_.node)));
}

QImage Picture_Window::shown_picture(double ratio) {
  const QSizeF size(picShade->size());
  QImage image((size * ratio).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  QPainter painter(&image);
  paint_shown(painter, QRectF(QPointF(0, 0), size), ratio);
  return image;
}

QImage Picture_Window::selected_picture() {
  ensure_lists();
  const double ratio = std::max(2.0, devicePixelRatioF());
  if (selected().whole()) return shown_picture(ratio);
  const QRectF part = rect_of(selected());
  const double scale = std::min(ratio, most_copied / std::max(part.width(), part.height()));
  QImage image((part.size() * scale).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  QPainter painter(&image);
  painter.fillRect(QRectF(QPointF(0, 0), part.size()), back_color());
  paint_square(painter, square().translated(-part.topLeft()), scale);
  return image;
}

// --- Clipboard

void Picture_Window::copy_picture() {
  QImage picture = selected_picture();
  picture.setDevicePixelRatio(1);
  QGuiApplication::clipboard()->setImage(picture);
}

bool Picture_Window::paste_picture() {
  QImage picture = QGuiApplication::clipboard()->image();
  if (picture.isNull()) return false;
  picture.setDevicePixelRatio(1);
  set_mode("paste");
  // At most half of the frame, where the pointer is.
  const double most = side() / 2 / std::max(picture.width(), picture.height());
  const double scale = std::min(1 / devicePixelRatioF(), most);
  const double unit = square().width();
  const auto w = static_cast<float>(picture.width() * scale / unit);
  const auto h = static_cast<float>(picture.height() * scale / unit);
  const Point at = unit_of(picShade->mapFromGlobal(QPointF(QCursor::pos())));
  const auto x = static_cast<float>(std::clamp(at.x, 0.0, 1.0));
  const auto y = static_cast<float>(std::clamp(at.y, 0.0, 1.0));
  carried_ = Pasted{std::move(picture), {x, y, x + w, y + h}};
  update_over();
  return true;
}

void Picture_Window::drop_pasted() {
  pasted_.push_back(*carried_);
  carried_.reset();
  repaint_picture();
  set_mode("none");
}

// --- Events

bool Picture_Window::eventFilter(QObject* object, QEvent* event) {
  if (object == picShade && event->type() == QEvent::Resize) {
    set_view(side());
    rebuild();
    view_changed();
    return false;
  }
  if (object == picShade && event->type() == QEvent::Paint) {
    QPainter painter(picShade);
    ensure_picture();
    painter.drawPixmap(0, 0, picture_);
    return true;
  }
  const auto frame_place = [&](const QPointF& at) {
    return object == picDraw ? at + QPointF(picDraw->pos()) : at;
  };
  switch (event->type()) {
    case QEvent::MouseButtonPress: {
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      picDraw->setFocus(Qt::MouseFocusReason);
      mouse_pressed(mouse, frame_place(mouse.position()));
      return true;
    }
    case QEvent::MouseMove: {
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      mouse_moved(mouse, frame_place(mouse.position()));
      return true;
    }
    case QEvent::MouseButtonRelease: {
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      mouse_released(mouse, frame_place(mouse.position()));
      return true;
    }
    case QEvent::MouseButtonDblClick: {
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      if (mouse.button() == Qt::LeftButton && mode_ == "none" && drag_ == Drag::none &&
          !takes_every_click()) {
        pick_at(frame_place(mouse.position()));
      } else {
        mouse_pressed(mouse, frame_place(mouse.position()));
      }
      return true;
    }
    case QEvent::Wheel: {
      const auto& wheel = *static_cast<QWheelEvent*>(event);
      wheel_ += wheel.angleDelta().y() / wheel_step;
      const QPointF at = frame_place(wheel.position());
      if (wheel_ != 0) zoom_by(std::pow(zoom_step, std::exchange(wheel_, 0)), at);
      return true;
    }
    case QEvent::Leave:
      if (object == picShade) end_hover();
      return false;
    case QEvent::ContextMenu: {
      // A menu would take the release of the button that drags: the drag is broken off instead.
      if (drag_ != Drag::none) return cancel(), true;
      const auto& menu = *static_cast<QContextMenuEvent*>(event);
      // The middle of the whole picture, which the menu key stands for, may be out of sight.
      const bool key = menu.reason() == QContextMenuEvent::Keyboard;
      emit menu_wanted(key ? picShade->mapToGlobal(picShade->rect().center()) : menu.globalPos());
      return true;
    }
    case QEvent::KeyPress:
      return object == picDraw && key_pressed(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease: {
      const auto& key = *static_cast<QKeyEvent*>(event);
      if (key.key() != Qt::Key_Space || key.isAutoRepeat()) return false;
      space_ = false;
      show_cursor();
      return true;
    }
    case QEvent::FocusOut:
      space_ = false;
      show_cursor();
      return false;
    default:
      return QWidget::eventFilter(object, event);
  }
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
  } else if (press(unit_of(at))) {
    drag_ = Drag::own;
    end_hover();
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
