// The colour index on the screen.
#include <QCheckBox>
#include <QGroupBox>

#include "dialog_test.h"
#include "paint/painter_surface.h"
#include "ui/index_dialog.h"

namespace branok {
namespace {

class Index_Dialog : public Dialog_Test<DlgIndex> {
 protected:
  Index_Dialog() {
    db.Flag_Results = flag_true;
    db.Flag_Annual = 1;
    db.Temp_Max = 40;
    db.Temp_Min = 10;
  }
  void open(bool index_on = false) { show(db, index_on, dialogue); }
  QString cell(int k) { return control<QLabel>(QString("lblColor%1").arg(k)).text(); }
  QColor color(int k) {
    const QImage image = control<QLabel>(QString("lblColor%1").arg(k)).grab().toImage();
    return image.pixelColor(1, 1);
  }
  void expect_index(int max, int min) {
    EXPECT_EQ(db.Temp_Max, max);
    EXPECT_EQ(db.Temp_Min, min);
  }
  Database db;
};

TEST_F(Index_Dialog, Shows_The_Scale_Of_The_Results) {
  open();
  EXPECT_EQ(dialog->windowTitle(), "Color Index Setting");
  EXPECT_TRUE(dialog->isModal());
  EXPECT_EQ(control<QGroupBox>("fraSp").title(), "Index &Range");
  EXPECT_EQ(captions(), QStringList({"&Max temp.|txtData0", "M&in temp.|txtData1"}));
  EXPECT_EQ(control<QAbstractButton>("cmdIndex").text(), "&Setting");
  EXPECT_EQ(control<QAbstractButton>("chkIndex").text(), "&Display temperature");
  EXPECT_EQ(control<QLabel>("lblDisp0").text(), "Max temp.");
  EXPECT_EQ(control<QLabel>("lblDisp1").text(), "Min temp.");
  EXPECT_EQ(control<QLabel>("lblChr").text(), "Temp.");
  EXPECT_EQ(text("txtData0"), "40.0");
  EXPECT_EQ(text("txtData1"), "10.0");
  EXPECT_EQ(cell(0), "10.0C");
  EXPECT_EQ(cell(1), "12.0C");
  EXPECT_EQ(cell(15), "40.0C");
  for (int k = 0; k < 16; ++k) {
    EXPECT_EQ(color(k), Color_Of(Temperature_Color[static_cast<std::size_t>(k) + 1])) << k;
  }
  // The hottest on top, beside its word.
  const auto top = [this](const char* name) { return control<QLabel>(name).geometry().top(); };
  EXPECT_LT(top("lblColor15"), top("lblColor0"));
  EXPECT_EQ(control<QLabel>("lblDisp0").geometry().center().y(),
            control<QLabel>("lblColor15").geometry().center().y());
  EXPECT_EQ(control<QLabel>("lblDisp1").geometry().center().y(),
            control<QLabel>("lblColor0").geometry().center().y());
}

TEST_F(Index_Dialog, Setting_Shows_The_Typed_Scale_And_Stores_Nothing) {
  open();
  type("txtData0", "25");
  type("txtData1", "-5");
  press("cmdIndex");
  EXPECT_EQ(cell(0), "-5.0C");
  EXPECT_EQ(cell(15), "25.0C");
  EXPECT_EQ(text("txtData0"), "25.0");
  EXPECT_TRUE(dialog->isVisible());
  expect_index(40, 10);
  press("cmdCancel");
  expect_index(40, 10);
}

TEST_F(Index_Dialog, Ok_Stores_The_Ends) {
  open();
  type("txtData0", "30");
  key(Qt::Key_Tab);
  QTest::keyClicks(dialog->focusWidget(), "5");
  key(Qt::Key_Return);
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  expect_index(30, 5);
}

TEST_F(Index_Dialog, Ends_Are_Brought_Within_Their_Limits) {
  open();
  type("txtData0", "150");
  type("txtData1", "-80");
  press("cmdIndex");
  EXPECT_EQ(text("txtData0"), "100.0");
  EXPECT_EQ(text("txtData1"), "-50.0");
  type("txtData0", "10");
  type("txtData1", "20");
  press("cmdOK");
  expect_index(21, 20);
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Index_Dialog, What_Is_No_Number_Is_Told_And_Stops_Ok) {
  for (const char* name : {"txtData0", "txtData1"}) {
    for (const char* typed : {"", "warm", "1,5"}) {
      SCOPED_TRACE(typed);
      open();
      type(name, typed);
      refused_at(name, "Please input numeric data.");
      dialogue.shown.clear();
      press("cmdIndex");
      EXPECT_TRUE(dialogue.showed("Please input numeric data."));
      EXPECT_EQ(cell(0), "10.0C");
      expect_index(40, 10);
    }
  }
}

TEST_F(Index_Dialog, The_Check_Box_Comes_Back) {
  open();
  EXPECT_FALSE(dialog->Index_On());
  key(Qt::Key_D, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return dialog->Index_On(); }));
  press("cmdOK");
  EXPECT_TRUE(dialog->Index_On());
  open(true);
  EXPECT_TRUE(dialog->Index_On());
  QTest::keyClick(&control<QCheckBox>("chkIndex"), Qt::Key_Space);
  EXPECT_FALSE(dialog->Index_On());
}

TEST_F(Index_Dialog, Without_Temperatures_There_Is_Nothing_To_Display) {
  db.Flag_Annual = 0;
  open(true);
  EXPECT_FALSE(control<QCheckBox>("chkIndex").isEnabled());
  EXPECT_FALSE(dialog->Index_On());
  EXPECT_EQ(text("txtData0"), "");
  EXPECT_EQ(text("txtData1"), "");
  db.Flag_Season = 1;
  open(true);
  EXPECT_TRUE(dialog->Index_On());
  db.Flag_Results = 0;
  open(true);
  EXPECT_FALSE(dialog->Index_On());
}

TEST_F(Index_Dialog, Escape_Leaves_All) {
  open(true);
  const Database before = db;
  type("txtData0", "3");
  press("cmdIndex");
  key(Qt::Key_Escape);
  EXPECT_EQ(dialog->result(), QDialog::Rejected);
  EXPECT_EQ(db, before);
}

TEST_F(Index_Dialog, The_Keyboard_Goes_Through_All_Controls) {
  open();
  EXPECT_EQ(tab_order(),
            QStringList({"txtData0", "txtData1", "cmdIndex", "chkIndex", "cmdOK", "cmdCancel"}));
}

}  // namespace
}  // namespace branok
