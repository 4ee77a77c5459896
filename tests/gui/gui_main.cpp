// Runs the window tests inside an application. Listing them needs no display.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::unique_ptr<QApplication> application;
  if (!GTEST_FLAG_GET(list_tests)) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    application = std::make_unique<QApplication>(argc, argv);
    QApplication::setStyle("Fusion");
  }
  return RUN_ALL_TESTS();
}
