// The picture on the whole screen.
#include "ui/full_screen_picture.h"

#include <QScreen>

#include "dialog_test.h"

namespace branok {
namespace {

class Full_Screen : public Dialog_Test<DlgMax> {
 protected:
  void open() {
    QPixmap picture(100, 50);
    picture.fill(Qt::red);
    show(picture, QColor(0, 0, 128));
  }
};

TEST_F(Full_Screen, Fills_The_Screen_In_Proportion) {
  open();
  ASSERT_TRUE(dialog->isFullScreen());
  const QSize screen = dialog->screen()->size();
  EXPECT_EQ(dialog->size(), screen);
  EXPECT_EQ(control<QLabel>("picMax").size(), screen);
  const QImage seen = dialog->grab().toImage();
  EXPECT_EQ(seen.pixelColor(seen.width() / 2, seen.height() / 2), QColor(Qt::red));
  EXPECT_EQ(seen.pixelColor(1, seen.height() / 2), QColor(Qt::red));
  EXPECT_EQ(seen.pixelColor(seen.width() / 2, 1), QColor(0, 0, 128));
}

TEST_F(Full_Screen, Any_Key_Closes_It) {
  for (const Qt::Key pressed : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space, Qt::Key_A,
                                Qt::Key_Tab, Qt::Key_Left, Qt::Key_F1}) {
    open();
    ASSERT_TRUE(dialog->isVisible());
    key(pressed);
    EXPECT_FALSE(dialog->isVisible()) << pressed;
  }
}

TEST_F(Full_Screen, A_Key_That_Is_Still_Held_Leaves_It) {
  open();
  QKeyEvent held(QEvent::KeyPress, Qt::Key_F11, Qt::NoModifier, {}, true);
  QCoreApplication::sendEvent(dialog.get(), &held);
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Full_Screen, Any_Click_Closes_It) {
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    open();
    QTest::mouseClick(&control<QLabel>("picMax"), button);
    EXPECT_FALSE(dialog->isVisible()) << button;
  }
}

TEST_F(Full_Screen, The_End_Of_An_Earlier_Click_Leaves_It) {
  open();
  QTest::mouseRelease(&control<QLabel>("picMax"), Qt::LeftButton);
  EXPECT_TRUE(dialog->isVisible());
}

}  // namespace
}  // namespace branok
