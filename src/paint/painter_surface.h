// A surface on any Qt paint device: screen, bitmap, SVG, PDF, paper.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPolygonF>
#include <QRectF>
#include <optional>

#include "drawing/surface.h"

namespace branok {

/// A colour as the tables hold it: 0x00BBGGRR.
QColor Color_Of(std::int32_t color);

class Painter_Surface : public Surface {
 public:
  /// Paints with `painter`, which must outlive the surface; the unit square is `square` in its
  /// coordinates. `ratio` tells how many pixels of the device stand for one of these.
  Painter_Surface(QPainter& painter, const QRectF& square, double ratio = 1);
  ~Painter_Surface() override;
  Painter_Surface(const Painter_Surface&) = delete;
  Painter_Surface& operator=(const Painter_Surface&) = delete;
  Painter_Surface(Painter_Surface&&) = delete;
  Painter_Surface& operator=(Painter_Surface&&) = delete;

  void PSet(Point at, std::int32_t color, double width) override;
  void Line(Point to, std::int32_t color, double width) override;
  void Circle(Point centre, double radius, std::int32_t color, double width) override;
  void Arc(Point centre, double radius, double start, double end, std::int32_t color,
           double width) override;
  void Text(const Text_Cell& cell, std::int32_t color, std::string_view text) override;
  [[nodiscard]] double pixels_per_unit() const override;
  void finish() override;

 private:
  [[nodiscard]] QPointF place(Point at) const;
  [[nodiscard]] QRectF box(Point centre, double radius) const;
  [[nodiscard]] bool is_bitmap() const;
  [[nodiscard]] bool is_seen(const QRectF& box, double margin) const;
  void draw_way();
  void set_pen(std::int32_t color, double width, Qt::PenCapStyle cap = Qt::FlatCap);

  QPainter& painter_;
  QRectF square_;
  QRectF seen_;  // of the painter's clipping; null without one
  double ratio_;
  QPolygonF way_;  // of the pen, not painted yet
  std::int32_t color_ = 0;
  double width_ = 1;
  struct Pen {
    std::int32_t color;
    double width;
    Qt::PenCapStyle cap;
    bool operator==(const Pen&) const = default;
  };
  std::optional<Pen> pen_;  // in the painter's hand
};

}  // namespace branok
