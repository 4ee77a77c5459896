// The File menu: open, save, recent files, new, and what may go wrong with them.
#include <sys/stat.h>

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "main_window_test.h"

namespace branok {
namespace {

using File_Commands = Main_Window;

constexpr const char* check_question =
    "You have not checked Network Data.\nDoing Check Data is recommended to revise Data.\n"
    "Do you want to do Check Data ?";

TEST_F(File_Commands, Open_Dialog_Asks_For_Data_Files_And_Starts_With_The_Demo_Mines) {
  user_.dialogs.push_back([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "cmnDlgBRANOK");
    EXPECT_EQ(dialog.windowTitle(), "Open File  - Select '*.abk' -  ");
    auto& files = dynamic_cast<QFileDialog&>(dialog);
    EXPECT_EQ(files.nameFilters(), QStringList{"BRANOK Data (*.abk)"});
    EXPECT_EQ(files.fileMode(), QFileDialog::ExistingFile);
    EXPECT_EQ(files.directory().absolutePath(), BRANOK_TEST_DATA "/DATA");
    dialog.reject();
  });
  give("mnuFileComOpen");
  EXPECT_TRUE(user_.boxes.empty()) << "a cancelled dialog is silent";
  EXPECT_EQ(status("stbMine"), "Sample");
}

TEST_F(File_Commands, Open_Shows_The_Mine_And_Heads_The_Recent_Files) {
  const auto file = mine("mine-a.abk");
  open(file);
  EXPECT_TRUE(user_.boxes.empty());
  EXPECT_EQ(window_->window_tag(), "analysis");
  EXPECT_EQ(control<QLabel>("stbFile")->toolTip().toStdString(), file.string());
  EXPECT_TRUE(action("mnuFileComPrefile0")->isVisible());
  EXPECT_EQ(action("mnuFileComPrefile0")->text().toStdString(), file.string());
  EXPECT_FALSE(action("mnuFileComPrefile1")->isVisible());
  EXPECT_TRUE(action("Separeter12")->isVisible());
  user_.dialogs.push_back([&](QDialog& dialog) {
    EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory().absolutePath().toStdString(),
              home_.path().string())
        << "the last folder used";
    dialog.reject();
  });
  give("mnuFileComOpen");
}

TEST_F(File_Commands, Without_A_Settings_File_There_Are_No_Recent_Items) {
  for (int row = 0; row < recent_rows; ++row) {
    EXPECT_FALSE(action("mnuFileComPrefile" + QString::number(row))->isVisible());
  }
  EXPECT_FALSE(action("Separeter12")->isVisible());
}

TEST_F(File_Commands, Recent_Files_Come_Back_At_The_Next_Start) {
  open(mine("mine-a.abk"));
  open(mine("mine-c.abk"));
  user_.answers = {QMessageBox::Yes};
  window_->close();
  start();
  EXPECT_EQ(action("mnuFileComPrefile0")->text().toStdString(), (home_ / "mine-c.abk").string());
  EXPECT_EQ(action("mnuFileComPrefile1")->text().toStdString(), (home_ / "mine-a.abk").string());
  give("mnuFileComPrefile1");
  EXPECT_EQ(control<QLabel>("stbFile")->toolTip().toStdString(), (home_ / "mine-a.abk").string());
  EXPECT_EQ(action("mnuFileComPrefile0")->text().toStdString(), (home_ / "mine-a.abk").string());
}

TEST_F(File_Commands, A_Recent_File_That_Has_Gone_Leaves_All_As_It_Was) {
  open(mine("mine-a.abk"));
  open(mine("mine-c.abk"));
  std::filesystem::remove(home_ / "mine-a.abk");
  const QString mine_before = status("stbMine");
  give("mnuFileComPrefile1");
  ASSERT_EQ(user_.boxes.size(), 1U);
  EXPECT_EQ(user_.boxes[0].text.toStdString(),
            "Not found \"" + (home_ / "mine-a.abk").string() + "\"file.\nPlease Try Again.");
  EXPECT_EQ(status("stbMine"), mine_before);
  EXPECT_TRUE(action("mnuFileComPrefile1")->isVisible()) << "the entry stays";
}

TEST_F(File_Commands, What_Is_No_File_In_The_Place_Of_A_Recent_One_Leaves_All_As_It_Was) {
  open(mine("mine-a.abk"));
  open(mine("mine-c.abk"));
  const auto gone = home_ / "mine-a.abk";
  std::filesystem::remove(gone);
  std::filesystem::create_directory(gone);
  give("mnuFileComPrefile1");
  EXPECT_TRUE(user_.saw("Not found"));
  std::filesystem::remove(gone);
  ASSERT_EQ(::mkfifo(gone.c_str(), 0600), 0);
  give("mnuFileComPrefile1");  // nobody will ever write into this pipe
  EXPECT_EQ(user_.boxes.size(), 2U);
  EXPECT_TRUE(control<QLabel>("stbFile")->toolTip().endsWith("mine-c.abk"));
}

TEST_F(File_Commands, The_Dialog_Starts_In_The_Last_Folder_After_A_Failure_Too) {
  std::filesystem::create_directory(home_ / "sub");
  std::ofstream(home_ / "sub" / "bad.abk") << "BRANOK Data File Version 6\r\nx";
  open(home_ / "sub" / "bad.abk");
  user_.dialogs.push_back([&](QDialog& dialog) {
    EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory().absolutePath().toStdString(),
              (home_ / "sub").string());
    dialog.reject();
  });
  give("mnuFileComOpen");
}

TEST_F(File_Commands, The_Reason_Stands_In_The_Status_Bar_While_The_Box_Is_Read) {
  std::ofstream(home_ / "bad.abk") << "BRANOK Data File Version 6\r\nx";
  QString remark;
  user_.look = [&](QWidget& box) {
    if (qobject_cast<QMessageBox*>(&box) != nullptr) remark = status("stbRemark");
  };
  open(home_ / "bad.abk");
  EXPECT_TRUE(remark.startsWith("bad.abk, line 2: ")) << qPrintable(remark);
}

TEST_F(File_Commands, A_New_Mine_Saves_Again_Although_Its_Comments_Cannot_Be_Kept) {
  std::filesystem::create_directory(folders().user_template());
  std::ofstream(folders().user_template() / "inside") << "x";
  user_.answers = {QMessageBox::No, QMessageBox::No};
  choose(home_ / "new.abk");
  give("mnuFileComSave");
  const std::string first = bytes(home_ / "new.abk");
  give("mnuFileComSave");
  EXPECT_EQ(user_.dialogs_seen.size(), 1U) << "no name is asked for again";
  EXPECT_EQ(bytes(home_ / "new.abk"), first);
}

TEST_F(File_Commands, A_Name_That_The_Settings_Cannot_Hold_Is_No_Recent_One) {
  const auto odd = home_ / "two\nlines.abk";
  std::filesystem::copy_file(mine("mine-a.abk"), odd);
  open(odd);
  EXPECT_FALSE(action("mnuFileComPrefile0")->isVisible());
  EXPECT_FALSE(status("stbFile").contains('\n'));
}

TEST_F(File_Commands, A_File_That_Is_No_Data_File_Is_Refused_Without_A_Box) {
  std::ofstream(home_ / "five.abk") << "BRANOK Data File Version 5\r\n";
  open(mine("mine-a.abk"));
  open(home_ / "five.abk");
  EXPECT_TRUE(user_.boxes.empty());
  EXPECT_EQ(status("stbResults"), "No mine open");
  EXPECT_FALSE(status("stbRemark").isEmpty()) << "the status bar says why";
  EXPECT_TRUE(rows("grdPress").empty());
}

TEST_F(File_Commands, Garbage_Is_Told_And_The_Window_Stays_Usable) {
  std::string bytes = "BRANOK Data File Version 6\r\n";
  for (int k = 0; k < 100000; ++k) bytes += static_cast<char>((k * 7919) % 256);
  std::ofstream(home_ / "noise.abk", std::ios::binary) << bytes;
  open(home_ / "noise.abk");
  ASSERT_EQ(user_.boxes.size(), 1U);
  EXPECT_EQ(user_.boxes[0].text, "Sorry, failed Read Ver.6 Data File command.");
  EXPECT_EQ(user_.boxes[0].icon, QMessageBox::Warning);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(this->bytes(home_ / "noise.abk"), bytes);
  open(mine("mine-a.abk"));
  EXPECT_EQ(user_.boxes.size(), 1U);
  EXPECT_EQ(window_->window_tag(), "analysis");
}

TEST_F(File_Commands, A_Run_On_An_Empty_Mine_Is_Not_Begun) {
  std::ofstream(home_ / "five.abk") << "BRANOK Data File Version 5\r\n";
  give("mnuWinSelCom1");
  open(home_ / "five.abk");
  for (const char* const run :
       {"mnuAnalysisComPress", "mnuAnalysisComAnnual", "mnuAnalysisComMonthly"}) {
    action(run)->setEnabled(true);
    give(run);
    EXPECT_EQ(status("stbRemark"), "No mine is open: File, Open reads one") << run;
  }
  EXPECT_TRUE(user_.boxes.empty());
}

TEST_F(File_Commands, Save_Of_A_New_Mine_Asks_For_A_Name) {
  user_.answers = {QMessageBox::No};
  user_.dialogs.push_back([&](QDialog& dialog) {
    auto& files = dynamic_cast<QFileDialog&>(dialog);
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "Sample.abk");
    EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(files.nameFilters(), QStringList{"BRANOK Data (*.abk)"});
    EXPECT_FALSE(files.testOption(QFileDialog::DontConfirmOverwrite));
    dialog.findChild<QLineEdit*>("fileNameEdit")
        ->setText(QString::fromStdString((home_ / "new").string()));
    dialog.accept();
  });
  give("mnuFileComSave");
  ASSERT_EQ(user_.boxes.size(), 1U);
  EXPECT_EQ(user_.boxes[0].title, "Check Data");
  EXPECT_EQ(user_.boxes[0].text, check_question);
  EXPECT_EQ(user_.boxes[0].buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_TRUE(std::filesystem::exists(home_ / "new.abk"));
  EXPECT_EQ(action("mnuFileComPrefile0")->text().toStdString(), (home_ / "new.abk").string());
  EXPECT_TRUE(bytes(home_ / "new.abk").starts_with("BRANOK Data File Version 6\r\n"));
}

TEST_F(File_Commands, A_Cancelled_Save_As_Is_Silent_And_Writes_Nothing) {
  user_.answers = {QMessageBox::No};
  const int things = home_.count();
  give("mnuFileComSaveAs");
  EXPECT_EQ(user_.boxes.size(), 1U);
  EXPECT_EQ(home_.count(), things);
}

TEST_F(File_Commands, Save_Writes_The_Open_File_Again) {
  const auto file = mine("mine-a.abk");
  open(file);
  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  const std::string first = bytes(file);
  user_.answers = {QMessageBox::Yes, QMessageBox::Ok};
  give("mnuFileComSave");
  EXPECT_EQ(bytes(file), first);
  EXPECT_TRUE(user_.saw("The data are all right !"));
  EXPECT_EQ(user_.dialogs_seen.size(), 1U) << "no name was asked for";
}

TEST_F(File_Commands, A_Save_That_Fails_Is_Told_And_Harms_No_File) {
  const auto file = mine("mine-a.abk");
  open(file);
  const std::string before = bytes(file);
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);  // nothing can be put in its place
  std::ofstream(file / "inside") << "x";
  user_.answers = {QMessageBox::No, QMessageBox::Ok, QMessageBox::Ok};
  give("mnuFileComSave");
  ASSERT_EQ(user_.boxes.size(), 3U);
  EXPECT_EQ(user_.boxes[1].text, "Sorry, failed Save Ver.6 Data File command.");
  EXPECT_EQ(user_.boxes[2].text, "Sorry, failed 'Save' command.");
  EXPECT_EQ(user_.boxes[2].icon, QMessageBox::Warning);
  EXPECT_EQ(status("stbMine").isEmpty(), false);
  user_.answers = {QMessageBox::No};
  choose(home_ / "other.abk");
  give("mnuFileComSaveAs");
  EXPECT_TRUE(std::filesystem::exists(home_ / "other.abk"))
      << "the mine is still there to be saved";
}

TEST_F(File_Commands, Overwriting_Is_Asked_By_The_Dialog) {
  open(mine("mine-a.abk"));
  std::ofstream(home_ / "there.abk") << "precious";
  user_.answers = {QMessageBox::No, QMessageBox::No};
  choose(home_ / "there.abk");
  give("mnuFileComSaveAs");
  EXPECT_EQ(bytes(home_ / "there.abk"), "precious");
  EXPECT_EQ(user_.boxes.size(), 2U);
}

TEST_F(File_Commands, New_Empties_All_Windows_And_Gives_The_Sample) {
  open(mine("mine-a.abk"));
  give("mnuFileComNew");
  QTRY_VERIFY_WITH_TIMEOUT(analysis() == nullptr, 2000);
  EXPECT_EQ(status("stbMine"), "Sample");
  EXPECT_EQ(status("stbFile"), "not saved");
  EXPECT_EQ(window_->window_tag(), "database");
  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  EXPECT_EQ(user_.dialogs_seen.size(), 2U) << "Save acts as Save As again";
}

TEST_F(File_Commands, A_Mine_Opened_While_Another_Is_Open_Takes_Its_Place_Everywhere) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  const std::size_t of_a = rows("grdPress").size();
  EXPECT_GT(of_a, 0U);
  open(mine("mine-c.abk"));
  EXPECT_EQ(window_->findChild<QMdiArea*>()->subWindowList().size(), 1);
  EXPECT_TRUE(control<QLabel>("stbFile")->toolTip().endsWith("mine-c.abk"));
  EXPECT_NE(rows("grdPress").size(), of_a);
}

TEST_F(File_Commands, A_Dropped_File_Is_Opened) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(mine("mine-a.abk").string()))});
  QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &drop);
  EXPECT_TRUE(control<QLabel>("stbFile")->toolTip().endsWith("mine-a.abk"));
}

TEST_F(File_Commands, What_Is_No_Mine_Cannot_Be_Dropped) {
  open(mine("mine-a.abk"));
  std::ofstream(home_ / "text.txt") << "x";
  std::filesystem::create_directory(home_ / "folder.abk");
  std::vector<QList<QUrl>> drags = {{}};
  for (const char* const name : {"text.txt", "folder.abk", "gone.abk"}) {
    drags.push_back({QUrl::fromLocalFile(QString::fromStdString((home_ / name).string()))});
  }
  drags.push_back({QUrl("https://example.com/mine-a.abk")});
  for (const QList<QUrl>& urls : drags) {
    QMimeData data;
    data.setUrls(urls);
    data.setData("text/uri-list", data.data("text/uri-list"));
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(window_.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
  }
  EXPECT_TRUE(user_.boxes.empty());
  EXPECT_TRUE(control<QLabel>("stbFile")->toolTip().endsWith("mine-a.abk"));
}

TEST_F(File_Commands, Two_Programs_Keep_Each_Others_Recent_Files) {
  open(mine("mine-a.abk"));
  Settings other = Load_Settings(folders().Ini_Path());
  Add_Recent(other, "/of/another.abk");
  Save_Settings(other, folders().Ini_Path(), false, End_Time());
  user_.answers = {QMessageBox::Yes};
  window_->close();
  const Settings settings = Load_Settings(folders().Ini_Path());
  EXPECT_EQ(settings.Recent_File[0], (home_ / "mine-a.abk").string());
  EXPECT_EQ(settings.Recent_File[1], "/of/another.abk");
}

TEST_F(File_Commands, A_File_Of_The_Command_Line_Is_Opened_By_Its_Full_Name) {
  const auto file = mine("mine-a.abk");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(home_.path());
  window_->open_file(file.filename());
  std::filesystem::current_path(before);
  EXPECT_EQ(action("mnuFileComPrefile0")->text().toStdString(), (home_ / "mine-a.abk").string());
  EXPECT_EQ(window_->window_tag(), "analysis");
}

TEST_F(File_Commands, Keys_Give_The_Commands) {
  choose(mine("mine-a.abk"));
  QTest::keyClick(window_.get(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_TRUE(control<QLabel>("stbFile")->toolTip().endsWith("mine-a.abk"));
}

}  // namespace
}  // namespace branok
