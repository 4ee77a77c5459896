#include "ui/full_screen_picture.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>

namespace branok {

DlgMax::DlgMax(const QPixmap& picture, const QColor& around, QWidget* parent)
    : QDialog(parent), picture_(picture), picMax(new QLabel(this)) {
  setObjectName("DlgMax");
  setWindowTitle("Maximum Size");
  setModal(true);
  setAutoFillBackground(true);
  setPalette(QPalette(around));
  picMax->setObjectName("picMax");
  picMax->setAlignment(Qt::AlignCenter);
  picMax->setMinimumSize(1, 1);  // the screen gives its size, not the picture
  auto* const all = new QHBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(picMax);
  setGeometry(screen()->geometry());
  setWindowState(Qt::WindowFullScreen);
}

// The key that opened it may still be held.
void DlgMax::keyPressEvent(QKeyEvent* event) {
  if (!event->isAutoRepeat()) accept();
}

void DlgMax::mousePressEvent(QMouseEvent*) { pressed_ = true; }

// Closed by the release: the window below must not get half a click, nor this one the other half of
// the click that opened it.
void DlgMax::mouseReleaseEvent(QMouseEvent*) {
  if (pressed_) accept();
}

void DlgMax::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (picture_.isNull()) return;
  const double ratio = devicePixelRatioF();
  QPixmap fitted = picture_.scaled(size() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  fitted.setDevicePixelRatio(ratio);
  picMax->setPixmap(fitted);
}

}  // namespace branok
