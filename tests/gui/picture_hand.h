// A hand on the mouse before a picture: points are those of the unit square.
#pragma once

#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <cmath>

#include "ui/picture_window.h"

namespace branok {

class Picture_Hand {
 public:
  explicit Picture_Hand(Picture_Window& window) : draw_(window.findChild<QWidget*>("picDraw")) {}

  [[nodiscard]] QWidget* draw() const { return draw_; }
  [[nodiscard]] QPoint place(Point p) const {
    return {static_cast<int>(std::lround(p.x * draw_->width())),
            static_cast<int>(std::lround(p.y * draw_->height()))};
  }
  void click(Point p) const { QTest::mouseClick(draw_, Qt::LeftButton, {}, place(p)); }
  void double_click(Point p) const { QTest::mouseDClick(draw_, Qt::LeftButton, {}, place(p)); }
  void hover(Point p) const { send(QEvent::MouseMove, p, Qt::NoButton, Qt::NoButton); }
  void press(Point p, Qt::MouseButton button = Qt::LeftButton) const {
    send(QEvent::MouseButtonPress, p, button, button);
  }
  void move(Point p, Qt::MouseButton button = Qt::LeftButton) const {
    send(QEvent::MouseMove, p, Qt::NoButton, button);
  }
  void release(Point p, Qt::MouseButton button = Qt::LeftButton) const {
    send(QEvent::MouseButtonRelease, p, button, Qt::NoButton);
  }
  void drag(Point from, Point to, Qt::MouseButton button = Qt::LeftButton) const {
    press(from, button);
    move(from + 0.5 * (to - from), button);
    move(to, button);
    release(to, button);
  }
  /// Notches of the wheel, away from the hand.
  void wheel(Point p, int notches) const {
    const QPointF at = place(p);
    QWheelEvent event(at, draw_->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(draw_, &event);
  }
  void key(Qt::Key key) const { QTest::keyClick(draw_, key); }

 private:
  void send(QEvent::Type type, Point p, Qt::MouseButton button, Qt::MouseButtons held) const {
    const QPointF at = place(p);
    QMouseEvent event(type, at, draw_->mapToGlobal(at), button, held, {});
    QCoreApplication::sendEvent(draw_, &event);
  }

  QWidget* draw_;
};

/// What every pixel of a picture is to be compared with.
inline int Pixels_Unlike(const QImage& image, const QColor& color) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == color ? 0 : 1;
  }
  return count;
}

}  // namespace branok
