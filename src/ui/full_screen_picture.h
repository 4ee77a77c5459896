// A picture on the whole screen.
#pragma once

#include <QDialog>
#include <QPixmap>

class QLabel;

namespace branok {

/// Shows the picture as large as the screen allows, its sides in proportion; any key or click
/// closes it.
class DlgMax : public QDialog {
  Q_OBJECT
 public:
  /// `around` is the colour beside the picture: its own background makes it fill the screen.
  explicit DlgMax(const QPixmap& picture, const QColor& around = Qt::black,
                  QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QPixmap picture_;
  bool pressed_ = false;
  QLabel* picMax;
};

}  // namespace branok
