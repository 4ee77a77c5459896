#include "paint/painter_surface.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace branok {

namespace {

// How a digit of Times sits in a cell; with any other face in its place numbers lie as well in the
// middle of their nodes' circles.
constexpr double digit_width = 1.25;  // of the cell's: a cell is as wide as an average letter
constexpr double digit_height = 0.6;  // of the cell's
constexpr double base_line = 0.8;     // of the cell's height, from its top

// Texts are written with one font and scaled to their cells, so that they have the same form at
// every size.
struct Face {
  QFont font;
  double width, height;  // of a digit
};

const Face& Times() {
  static const Face face = [] {
    constexpr int pixel_size = 48;
    constexpr int weight = 550;
    QFont font;
    font.setFamilies({"Times", "Times New Roman", "Liberation Serif", "Nimbus Roman", "FreeSerif",
                      "DejaVu Serif"});
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(pixel_size);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF metrics(font);
    return Face{font, metrics.horizontalAdvance('0'), metrics.tightBoundingRect("0").height()};
  }();
  return face;
}

// The toolkit sets up its font anew for every angle, which hundreds of labels would wait for. On
// bitmaps the characters of turned texts are therefore kept as polygons.
bool Is_Plain(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

struct Outline {
  QPainterPath path;
  double advance;
};

// Fine enough to be drawn at 2 ^ level times the font's size.
const Outline& Outline_Of(char character, int level) {
  static std::map<std::pair<char, int>, Outline> kept;
  const auto [place, is_new] = kept.try_emplace({character, level});
  Outline& outline = place->second;
  if (!is_new) return outline;
  const QChar letter = QLatin1Char(character);
  QPainterPath curves;
  curves.addText(0, 0, Times().font, letter);
  const double fine = std::exp2(level + 1);
  const QTransform smaller = QTransform::fromScale(1 / fine, 1 / fine);
  for (const QPolygonF& polygon : curves.toSubpathPolygons(QTransform::fromScale(fine, fine))) {
    outline.path.addPolygon(smaller.map(polygon));
  }
  outline.advance = QFontMetricsF(Times().font).horizontalAdvance(letter);
  return outline;
}

// A plain text whose base line begins at the origin of `place`.
QPainterPath Text_Path(std::string_view text, QTransform place, int level) {
  QPainterPath path;
  for (const char character : text) {
    const Outline& outline = Outline_Of(character, level);
    path.addPath(place.map(outline.path));
    place.translate(outline.advance, 0);
  }
  return path;
}

}  // namespace

QColor Color_Of(std::int32_t color) {
  return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF};
}

Painter_Surface::Painter_Surface(QPainter& painter, const QRectF& square, double ratio)
    : painter_(painter), square_(square), ratio_(ratio) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter_.setBrush(Qt::NoBrush);
  painter_.setFont(Times().font);
  if (painter_.hasClipping()) seen_ = painter_.clipBoundingRect();
}

Painter_Surface::~Painter_Surface() { Painter_Surface::finish(); }

QPointF Painter_Surface::place(Point at) const {
  return {square_.x() + at.x * square_.width(), square_.y() + at.y * square_.height()};
}

QRectF Painter_Surface::box(Point centre, double radius) const {
  const QPointF corner = place(centre - Point{radius, radius});
  return {corner.x(), corner.y(), 2 * radius * square_.width(), 2 * radius * square_.height()};
}

// What lies outside of the clipping costs nothing: most of a picture does when it is zoomed in.
bool Painter_Surface::is_seen(const QRectF& box, double margin) const {
  return seen_.isNull() || seen_.intersects(box.adjusted(-margin, -margin, margin, margin));
}

// A device that could not be had, a bitmap without memory say, has no engine: it takes nothing.
bool Painter_Surface::is_bitmap() const {
  const QPaintEngine* const engine = painter_.paintEngine();
  return engine != nullptr && engine->type() == QPaintEngine::Raster;
}

// A pen is costly to take up, and most records are drawn with the one in hand.
void Painter_Surface::set_pen(std::int32_t color, double width, Qt::PenCapStyle cap) {
  if (const Pen pen{color, width, cap}; pen_ != pen) {
    painter_.setPen(QPen(Color_Of(color), width, Qt::SolidLine, cap, Qt::MiterJoin));
    pen_ = pen;
  }
}

void Painter_Surface::PSet(Point at, std::int32_t color, double width) {
  finish();
  way_ << place(at);
  color_ = color;
  width_ = width;
}

void Painter_Surface::Line(Point to, std::int32_t color, double width) {
  if (way_.isEmpty()) way_ << place(to);
  if (color != color_ || width != width_) {
    const QPointF pen = way_.last();
    if (way_.size() > 1) finish();
    way_ = {pen};
    color_ = color;
    width_ = width;
  }
  way_ << place(to);
}

void Painter_Surface::finish() {
  if (way_.isEmpty()) return;
  if (is_seen(way_.boundingRect(), width_ + 1)) draw_way();
  way_.resize(0);  // its memory stays
}

void Painter_Surface::draw_way() {
  set_pen(color_, width_, way_.size() == 1 ? Qt::RoundCap : Qt::FlatCap);
  if (way_.size() == 1) {
    painter_.drawPoint(way_.first());
  } else if (way_.size() == 2) {  // most airways: much faster than a polyline of two points
    painter_.drawLine(way_.first(), way_.last());
  } else {
    painter_.drawPolyline(way_);
  }
}

// Bitmaps draw rings of one device pixel many times faster than wider ones, so there a wider circle
// is made of some, which overlap to leave no seams.
void Painter_Surface::Circle(Point centre, double radius, std::int32_t color, double width) {
  finish();
  if (!is_seen(box(centre, radius), width)) return;
  const double thin = 1 / ratio_;
  if (!is_bitmap() || width <= thin) {
    set_pen(color, width);
    painter_.drawEllipse(box(centre, radius));
    return;
  }
  set_pen(color, thin);
  const double steps = std::ceil(2 * (width / thin - 1));
  for (int k = 0; k <= steps; ++k) {
    const double outward = (k / steps - 0.5) * (width - thin);
    painter_.drawEllipse(box(centre, radius).adjusted(-outward, -outward, outward, outward));
  }
}

void Painter_Surface::Arc(Point centre, double radius, double start, double end, std::int32_t color,
                          double width) {
  finish();
  set_pen(color, width);
  constexpr double sixteenths = 16 * 180 / M_PI;  // of a degree in a radian
  painter_.drawArc(box(centre, radius), static_cast<int>(std::lround(start * sixteenths)),
                   static_cast<int>(std::lround((end - start) * sixteenths)));
}

void Painter_Surface::Text(const Text_Cell& cell, std::int32_t color, std::string_view text) {
  finish();
  const QPointF corner = place(cell.corner);
  // However it is turned: no character is wider than four cells.
  const double reach =
      (cell.height() + 4.0 * cell.width * static_cast<double>(text.size())) / ratio_;
  if (!is_seen(QRectF(corner, QSizeF(0, 0)), reach)) return;
  const Face& face = Times();
  const double width = digit_width * cell.width / ratio_ / face.width;
  const double height = digit_height * cell.height() / ratio_ / face.height;
  QTransform at_base;
  at_base.translate(corner.x(), corner.y());
  at_base.rotate(-cell.escapement / 10.0);
  at_base.translate(0, base_line * cell.height() / ratio_);
  at_base.scale(width, height);
  if (is_bitmap() && cell.escapement != 0 && Is_Plain(text)) {
    const int level = static_cast<int>(std::ceil(std::log2(std::max(width, height) * ratio_)));
    painter_.fillPath(Text_Path(text, at_base, level), Color_Of(color));
    return;
  }
  set_pen(color, 1);
  const QTransform upright = painter_.transform();
  painter_.setTransform(at_base, true);
  painter_.drawText(QPointF(0, 0),
                    QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  painter_.setTransform(upright);
}

double Painter_Surface::pixels_per_unit() const { return square_.width() * ratio_; }

}  // namespace branok
