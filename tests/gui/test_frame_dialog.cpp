// The frame of the CAD picture on the screen.
#include "dialog_test.h"
#include "ui/frame_dialog.h"

namespace branok {
namespace {

class Frame_Dialog : public Dialog_Test<DlgFrame> {
 protected:
  void open() { show(dialogue); }
  void expect_space(double up, double down, double left, double right) {
    EXPECT_EQ(dialog->space().up, up);
    EXPECT_EQ(dialog->space().down, down);
    EXPECT_EQ(dialog->space().left, left);
    EXPECT_EQ(dialog->space().right, right);
  }
};

TEST_F(Frame_Dialog, Opens_Without_Space) {
  open();
  EXPECT_EQ(dialog->windowTitle(), "CAD  Frame");
  EXPECT_TRUE(dialog->isModal());
  EXPECT_EQ(captions(),
            QStringList({"1 . &Up       Space|txtValue0", "2 . &Down  Space|txtValue1",
                         "3 . &Left     Space|txtValue2", "4 . &Right  Space|txtValue3"}));
  for (int k = 0; k < 4; ++k) EXPECT_EQ(text(QString("txtValue%1").arg(k)), "0");
  press("cmdOK");
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  expect_space(0, 0, 0, 0);
}

TEST_F(Frame_Dialog, Ok_Gives_Each_Side_Its_Space) {
  open();
  for (const char* typed : {"10", "-49.9", "2.5", "1000"}) {
    QTest::keyClicks(dialog->focusWidget(), typed);
    key(Qt::Key_Tab);
  }
  key(Qt::Key_Return);
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  expect_space(10, -49.9, 2.5, 1000);
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Frame_Dialog, Minus_50_And_Less_Is_Refused_At_Every_Side) {
  for (int k = 0; k < 4; ++k) {
    for (const char* typed : {"-50", "-50.0", "-51", "-1e300"}) {
      SCOPED_TRACE(typed);
      open();
      const QString name = QString("txtValue%1").arg(k);
      type(name, typed);
      refused_at(name, "More than -50%");
      EXPECT_EQ(dialogue.shown[0].icon, Icon::exclamation);
    }
  }
}

TEST_F(Frame_Dialog, What_Is_No_Percentage_Is_Told) {
  open();
  for (const char* typed : {"", "wide", "1,5", "5%"}) {
    SCOPED_TRACE(typed);
    type("txtValue2", typed);
    refused_at("txtValue2", "Please input numeric data.");
  }
  type("txtValue2", "1000.1");
  refused_at("txtValue2",
             "'Left Space' Box in CAD  Frame The value should be from -50  to  1000 .\n"
             "Change value !");
  expect_space(0, 0, 0, 0);
}

TEST_F(Frame_Dialog, Cancel_And_Escape_Give_No_Space) {
  for (const bool escape : {false, true}) {
    open();
    type("txtValue0", "-60");
    if (escape) {
      key(Qt::Key_Escape);
    } else {
      press("cmdCancel");
    }
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    expect_space(0, 0, 0, 0);
  }
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Frame_Dialog, The_Keyboard_Goes_Through_All_Controls) {
  open();
  EXPECT_EQ(tab_order(), QStringList({"txtValue0", "txtValue1", "txtValue2", "txtValue3", "cmdOK",
                                      "cmdCancel"}));
  const std::pair<Qt::Key, const char*> mnemonics[] = {{Qt::Key_R, "txtValue3"},
                                                       {Qt::Key_L, "txtValue2"},
                                                       {Qt::Key_D, "txtValue1"},
                                                       {Qt::Key_U, "txtValue0"}};
  for (const auto& [letter, name] : mnemonics) {
    key(letter, Qt::AltModifier);
    EXPECT_TRUE(entry(name).hasFocus()) << name;
  }
}

}  // namespace
}  // namespace branok
