// The About dialog.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "ui/about_dialog.h"

namespace branok {
namespace {

QString Text(const DlgAbout& dialog, const char* name) {
  const auto* const label = dialog.findChild<QLabel*>(name);
  EXPECT_NE(label, nullptr) << name;
  return label == nullptr ? QString() : label->text();
}

TEST(DlgAbout, Tells_Program_Version_And_Licence) {
  const DlgAbout dialog;
  EXPECT_EQ(dialog.objectName(), "DlgAbout");
  EXPECT_EQ(dialog.windowTitle(), "BRANOK for Windows");
  EXPECT_EQ(Text(dialog, "lblVersion"), "Version 6.0.0");
  EXPECT_TRUE(Text(dialog, "lblPurpose").contains("ventilation"));
  EXPECT_TRUE(
      Text(dialog, "lblLicence").contains("GNU General Public License, version 3 or later"));
  EXPECT_FALSE(dialog.findChild<QLabel*>("imgIcon")->pixmap().isNull());
}

TEST(DlgAbout, Enter_And_Escape_And_OK_Close_It) {
  for (const int way : {0, 1, 2}) {
    DlgAbout dialog;
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    auto* const ok = dialog.findChild<QPushButton*>("cmdOK");
    ASSERT_NE(ok, nullptr);
    EXPECT_TRUE(ok->isDefault());
    if (way == 0) QTest::keyClick(&dialog, Qt::Key_Return);
    if (way == 1) QTest::keyClick(&dialog, Qt::Key_Escape);
    if (way == 2) QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
  }
}

}  // namespace
}  // namespace branok
