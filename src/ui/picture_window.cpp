#include "ui/picture_window.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "paint/painter_surface.h"
#include "ui/icon.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr double most_copied = 8000;  // pixels of a copied picture's side
const QColor rubber_color(255, 0, 0);
const QColor highlight_color(255, 140, 0);

QCursor Cursor_Of_Icon(const char* name) {
  constexpr int size = 24;
  constexpr int lens = 10;  // the hot spot is the middle of the lens
  return QCursor(Icon_Of(name).pixmap(size, size), lens, lens);
}

}  // namespace

Picture_Window::Picture_Window(QWidget* parent)
    : QWidget(parent),
      picShade(new QWidget(this)),
      picDraw(new QWidget(picShade)),
      hsbControl(new QScrollBar(Qt::Horizontal, this)),
      vsbControl(new QScrollBar(Qt::Vertical, this)) {
  picShade->setObjectName("picShade");
  picShade->setMouseTracking(true);
  picShade->setAutoFillBackground(true);
  picShade->setFocusProxy(picDraw);
  picDraw->setObjectName("picDraw");
  picDraw->setMouseTracking(true);
  picDraw->setFocusPolicy(Qt::StrongFocus);
  picDraw->setAttribute(Qt::WA_OpaquePaintEvent);
  picDraw->setAccessibleName("Picture of the mine");
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
    paint(surface, labels_);
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
  const QSize size = (picShade->size() * devicePixelRatioF()).expandedTo({1, 1});
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

void Picture_Window::change_labels(const std::function<void()>& build) {
  labels_ = false;
  repaint_picture();
  paint_on_picture([this](Surface& surface) { paint_labels(surface, "erase"); });
  labels_ = true;
  build();
  paint_on_picture([this](Surface& surface) { paint_labels(surface, "draw"); });
}

void Picture_Window::update_over() { picDraw->update(); }

// What shows beside the canvas when it is smaller than the frame.
void Picture_Window::paint_frame() {
  ensure_picture();
  QPainter painter(picShade);
  painter.drawPixmap(0, 0, picture_);
}

// The canvas is painted in the coordinates of the frame.
void Picture_Window::paint_canvas() {
  ensure_picture();
  QPainter painter(picDraw);
  painter.translate(-picDraw->pos());
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
  const bool whole = selected().whole();
  const QRectF part = whole ? QRectF(picShade->rect()) : rect_of(selected());
  const double scale = std::min(ratio, most_copied / std::max(part.width(), part.height()));
  if (whole) return shown_picture(scale);
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

}  // namespace branok
