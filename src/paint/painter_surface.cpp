#include "paint/painter_surface.h"

#include <QFontMetricsF>
#include <cmath>

namespace branok {

namespace {

// Texts are written with one font and scaled to their cells, so that they have the same form at
// every size.
struct Face {
  QFont font;
  double ascent, height, width;  // of its characters' cells
};

const Face& Times() {
  static const Face face = [] {
    constexpr int pixel_size = 48;
    constexpr int weight = 550;
    QFont font;
    font.setFamilies({"Times", "Times New Roman", "Liberation Serif", "FreeSerif", "DejaVu Serif"});
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(pixel_size);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF metrics(font);
    return Face{font, metrics.ascent(), metrics.ascent() + metrics.descent(),
                metrics.averageCharWidth()};
  }();
  return face;
}

}  // namespace

QColor Color_Of(std::int32_t color) {
  return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF};
}

Painter_Surface::Painter_Surface(QPainter& painter, const QRectF& square, double ratio)
    : painter_(painter), square_(square), ratio_(ratio) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter_.setBrush(Qt::NoBrush);
}

Painter_Surface::~Painter_Surface() { Painter_Surface::finish(); }

QPointF Painter_Surface::place(Point at) const {
  return {square_.x() + at.x * square_.width(), square_.y() + at.y * square_.height()};
}

QRectF Painter_Surface::box(Point centre, double radius) const {
  const QPointF corner = place(centre - Point{radius, radius});
  return {corner.x(), corner.y(), 2 * radius * square_.width(), 2 * radius * square_.height()};
}

void Painter_Surface::set_pen(std::int32_t color, double width, Qt::PenCapStyle cap) {
  painter_.setPen(QPen(Color_Of(color), width, Qt::SolidLine, cap, Qt::RoundJoin));
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
  if (way_.size() == 1) {
    set_pen(color_, width_, Qt::RoundCap);
    painter_.drawPoint(way_.first());
  } else if (way_.size() > 1) {
    set_pen(color_, width_);
    painter_.drawPolyline(way_);
  }
  way_.clear();
}

void Painter_Surface::Circle(Point centre, double radius, std::int32_t color, double width) {
  finish();
  set_pen(color, width);
  painter_.drawEllipse(box(centre, radius));
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
  const Face& face = Times();
  painter_.save();
  painter_.translate(place(cell.corner));
  painter_.rotate(-cell.escapement / 10.0);
  painter_.scale(cell.width / ratio_ / face.width, cell.height() / ratio_ / face.height);
  painter_.setFont(face.font);
  painter_.setPen(Color_Of(color));
  painter_.drawText(QPointF(0, face.ascent),
                    QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  painter_.restore();
}

double Painter_Surface::pixels_per_unit() const { return square_.width() * ratio_; }

}  // namespace branok
