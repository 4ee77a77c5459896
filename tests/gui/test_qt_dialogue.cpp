// Every message of the program as a box: text, title, icon, buttons, default button, and what
// Escape answers.
#include "ui/qt_dialogue.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>

#include "core/messages.h"
#include "user.h"

namespace branok {
namespace {

struct Told {
  Message message;
  QMessageBox::Icon icon;
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton default_button;
  Answer escape;
};

const auto yes_no = QMessageBox::Yes | QMessageBox::No;

std::vector<Told> All_Messages() {
  const auto warning = [](const Message& message) {
    return Told{message, QMessageBox::Warning, QMessageBox::Ok, QMessageBox::Ok, Answer::ok};
  };
  const auto information = [](const Message& message) {
    return Told{message, QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok, Answer::ok};
  };
  const auto question = [](const Message& message, QMessageBox::StandardButton by_default) {
    return Told{message, QMessageBox::Question, yes_no, by_default, Answer::no};
  };
  using namespace messages;
  return {
      warning(Calculation_Error("Airflow ")),
      warning(File_Error("'Save'")),
      warning(File_Not_Found("mine.abk")),
      warning(Too_Many_Passes()),
      warning(Divergence()),
      warning(Memory_Over()),
      warning(Not_Numeric()),
      warning(Out_Of_Range("'Area' Column", "Airway Folder", "0.001", "1000")),
      warning(Not_Positive("'Heat' Column", "Airway Folder")),
      warning(Wrong_Input("Winding List", "Airway Folder")),
      warning(Missing_Input("Area(>0) ", "Airway Folder")),
      warning(Airway_Row_Fault(7)),
      warning(Node_Row_Missing(7)),
      warning(Input_Node_Number()),
      warning(Input_Node_Number(550)),
      warning(Same_Node_Numbers()),
      warning(Airway_Undefined()),
      warning(Airway_Exists_Already()),
      warning(Five_Connections()),
      warning(Node_Out_Of_Range(9, "Suction Node")),
      warning(Node_Not_Existing(9, "Main Fan")),
      warning(Node_Double_Booked("Inlet")),
      warning(Enter_Node("Suction Node")),
      warning(No_Flow_Direction()),
      warning(Change_Revolution(" Driving ")),
      warning(Too_Few_Fan_Points(2)),
      warning(Airway_Not_Existing("3 -> 7", "Thermo Condition")),
      warning(Dead_End(9)),
      information(Data_All_Right()),
      information(Confirm_Flow()),
      information(Save_Annual_Results()),
      information(Season_Needs_Annual()),
      information(Season_Complete("mid Summer")),
      information(Not_Available_Yet("Print")),
      question(Ask_Replace_Annual(), QMessageBox::Yes),
      question(Ask_Season_Flow(), QMessageBox::Yes),
      question(Ask_Check_Before_Save(), QMessageBox::Yes),
      question(Ask_Print_Parameters(), QMessageBox::Yes),
      question(Ask_Exit(true), QMessageBox::No),
      question(Ask_Leave_Mine(), QMessageBox::No),
      question(Ask_Reset_Database(), QMessageBox::No),
      question(Ask_Delete_Fan(2), QMessageBox::No),
      {Ask_Deleted_Airway("3 -> 7"), QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel,
       QMessageBox::Ok, Answer::cancel},
      {Ask_Add_Airway("3 -> 7"), QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel,
       QMessageBox::Ok, Answer::cancel},
      {Ask_Results_Initial(), QMessageBox::Question,
       QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No, Answer::cancel}};
}

class Box : public testing::Test {
 protected:
  QWidget window_;
  QStringList remarks_;
  Qt_Dialogue dialogue_{&window_, [this](const QString& text) { remarks_ << text; }};
  User user_;
};

TEST_F(Box, Shows_Each_Message_As_It_Is) {
  for (const Told& told : All_Messages()) {
    user_.boxes.clear();
    dialogue_.show(told.message);
    ASSERT_EQ(user_.boxes.size(), 1U);
    const Seen_Box& seen = user_.boxes[0];
    EXPECT_EQ(seen.text.toStdString(), told.message.text);
    EXPECT_EQ(seen.title, told.message.text.starts_with("You have not checked") ? "Check Data"
                          : told.message.text.starts_with("The database will be returned")
                              ? "Reset Database"
                              : "BRANOK for Windows");
    EXPECT_EQ(seen.icon, told.icon) << told.message.text;
    EXPECT_EQ(seen.buttons, told.buttons) << told.message.text;
    EXPECT_EQ(seen.default_button, told.default_button) << told.message.text;
    EXPECT_TRUE(told.message.beep) << told.message.text;
  }
}

TEST_F(Box, Escape_Answers_With_The_Least) {
  user_.look = [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); };
  for (const Told& told : All_Messages()) {
    EXPECT_EQ(dialogue_.show(told.message), told.escape) << told.message.text;
  }
}

TEST_F(Box, Gives_The_Pressed_Button) {
  const Message message = messages::Ask_Results_Initial();
  for (const auto& [button, answer] : {std::pair(QMessageBox::Yes, Answer::yes),
                                       {QMessageBox::No, Answer::no},
                                       {QMessageBox::Cancel, Answer::cancel}}) {
    user_.answers = {button};
    EXPECT_EQ(dialogue_.show(message), answer);
  }
}

TEST_F(Box, One_Answer_Can_Stand_For_Many_Questions) {
  const Message message = messages::Ask_Add_Airway("3 -> 7");
  std::optional<Answer> rest;
  EXPECT_EQ(dialogue_.show_one_of_many(message, rest), Answer::ok);
  EXPECT_EQ(rest, std::nullopt);
  user_.look = [](QWidget& box) { box.findChild<QAbstractButton*>("chkForAll")->click(); };
  user_.answers = {QMessageBox::Cancel};
  EXPECT_EQ(dialogue_.show_one_of_many(message, rest), Answer::cancel);
  EXPECT_EQ(rest, Answer::cancel);
}

TEST_F(Box, Shows_Old_Texts_And_No_Markup) {
  dialogue_.show(messages::File_Not_Found("<b>M\xfcller & Co.abk"));  // Windows-1252
  EXPECT_EQ(user_.boxes[0].text,
            QString("Not found \"<b>M\u00fcller & Co.abk\"file.\nPlease Try Again."));
}

TEST_F(Box, Busy_Pointer_Comes_And_Goes) {
  dialogue_.busy(true);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  dialogue_.busy(true);
  dialogue_.end_busy();
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  dialogue_.busy(false);  // one too many
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Box, Input_Gives_The_Text_Or_Nothing) {
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.findChild<QLineEdit*>()->setText("12");
    dialog.accept();
  });
  EXPECT_EQ(dialogue_.ask("Please input nodal number.", "Find node"), "12");
  EXPECT_EQ(dialogue_.ask("Please input nodal number.", "Find node"), std::nullopt);
}

TEST_F(Box, Remarks_Go_To_The_Status_Bar) {
  dialogue_.remark("Airway 1-2 has no resistance");
  EXPECT_EQ(remarks_, QStringList{"Airway 1-2 has no resistance"});
}

}  // namespace
}  // namespace branok
