// The calculation parameters on the screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPaintEngine>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <array>
#include <charconv>
#include <cmath>
#include <memory>

#include "support/test_doors.h"
#include "thermal/flows.h"
#include "thermal/moist_air.h"
#include "ui/parameter_dialog.h"
#include "ui/parameter_report.h"
#include "ui/value_grid.h"

namespace branok {
namespace {

constexpr int accel = 1;
constexpr int intake_temp = 2;
constexpr int intake_hum = 4;
constexpr int intake_wbt = 5;
constexpr int rock_temp = 6;
constexpr int rock_grad = 7;
constexpr int rock_cond = 8;
constexpr int datum_elev = 10;
constexpr int month = 11;

class Parameter_Dialog : public testing::Test {
 protected:
  Parameter_Dialog() : db(Line_Mine(3)) {}

  void open() {
    before = std::make_unique<Database>(db);
    dialog = std::make_unique<DlgCPara>(db, dialogue, [this](std::string_view kind) {
      kinds.emplace_back(kind);
      if (on_diagram) on_diagram();
    });
    dialog->show();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    grid = dialog->findChild<Value_Grid*>("grdPara");
    list = dialog->findChild<QListWidget*>("lstSeason");
    ASSERT_NE(grid, nullptr);
    ASSERT_NE(list, nullptr);
  }

  void press(const char* name) {
    QTest::mouseClick(dialog->findChild<QPushButton*>(name), Qt::LeftButton);
  }

  // Types over the value of a row.
  void type(int row, const QString& text) {
    grid->setCurrentCell(row, 1);
    QTest::keyClick(grid, Qt::Key_Return);
    cell()->selectAll();
    QTest::keyClick(cell(), Qt::Key_Delete);
    QTest::keyClicks(cell(), text);
    QTest::keyClick(cell(), Qt::Key_Return);
  }

  // The open cell, or null. Closed ones live on, hidden, until the event loop comes round.
  [[nodiscard]] QLineEdit* cell() const {
    for (QLineEdit* editor : grid->findChildren<QLineEdit*>("txtEdit")) {
      if (!editor->isHidden()) return editor;
    }
    return nullptr;
  }

  Database db;
  std::unique_ptr<Database> before;
  Test_Dialogue dialogue;
  std::vector<std::string> kinds;
  std::function<void()> on_diagram;
  std::unique_ptr<DlgCPara> dialog;
  Value_Grid* grid = nullptr;
  QListWidget* list = nullptr;
};

std::string Digits(double value) {
  std::array<char, 32> text{};
  return {text.begin(), std::to_chars(text.begin(), text.end(), static_cast<float>(value)).ptr};
}

// What a row is refused with, one step beyond a bound; empty when nothing lies beyond it.
std::string Beyond(const Parameter& parameter, double bound, int direction) {
  if (std::abs(bound) > 1e30) return "";
  if (parameter.integer != nullptr) return std::to_string(static_cast<int>(bound) + direction);
  return Digits(std::nextafter(static_cast<float>(bound), direction * 1e9F));
}

TEST_F(Parameter_Dialog, Shows_Titles_And_Values) {
  db.Node_Elev[1] = 1000;
  open();
  EXPECT_EQ(dialog->objectName(), "DlgCPara");
  EXPECT_TRUE(dialog->isModal());
  ASSERT_EQ(grid->rowCount(), 12);
  ASSERT_EQ(grid->columnCount(), 2);
  EXPECT_EQ(grid->item(0, 0)->text(), "Allowable  Flow Tolerance     (m³/min)");
  EXPECT_EQ(grid->item(9, 0)->text(), "Rock Temp Diffusivity       (m²/h)");
  EXPECT_EQ(grid->item(11, 0)->text(), "Month for Seasoning Thermal Ana. ");
  const char* const values[] = {"0.1",  "1.4",  "9.0", "26.60", "60.0", nullptr,
                                "17.0", "0.03", "3.0", "0.006", "0.0",  "mid Autumn"};
  for (int row = 0; row < 12; ++row) {
    if (values[row] == nullptr) continue;
    EXPECT_EQ(grid->value(row), values[row]) << row;
  }
  Database derived = db;
  Derive_Intake_WBT(derived);
  EXPECT_EQ(grid->value(intake_wbt).toStdString(),
            Parameter_Text(derived, *Find_Parameter("Para_IntakeWBT")));
  EXPECT_EQ(dialog->findChild<QPushButton*>("cmdOK")->text(), "OK/Fix");
  EXPECT_EQ(dialog->findChild<QPushButton*>("cmdCancel")->text(), "Cancel");
  EXPECT_EQ(dialog->findChild<QPushButton*>("cmdPrint")->text(), "&Print");
  EXPECT_EQ(dialog->findChild<QPushButton*>("Com_InAir_Temp")->text(), "Graph for Intake Air Temp");
  EXPECT_EQ(dialog->findChild<QPushButton*>("Com_GrdTemp")->text(), "Graph for Ini. Rock Temp");
  EXPECT_EQ(db, *before);
}

TEST_F(Parameter_Dialog, Every_Row_Is_Refused_Beyond_Its_Bounds) {
  for (int row = 0; row < month; ++row) {
    const Parameter& parameter = Parameter_Rows()[static_cast<std::size_t>(row)];
    if (parameter.entry != Entry::typed) continue;
    for (const std::string& text :
         {Beyond(parameter, parameter.low, -1), Beyond(parameter, parameter.high, 1)}) {
      if (text.empty()) continue;
      SCOPED_TRACE(std::string(parameter.name) + " " + text);
      dialogue.shown.clear();
      open();
      type(row, QString::fromStdString(text));
      press("cmdOK");
      ASSERT_EQ(dialogue.shown.size(), 1U);
      EXPECT_TRUE(dialogue.shown[0].text.starts_with(
          std::string(parameter.column) + " in Parameter Folder The value should be from "));
      EXPECT_TRUE(dialogue.shown[0].text.ends_with(" .\nChange value !"));
      EXPECT_TRUE(dialog->isVisible());
      EXPECT_EQ(grid->currentRow(), row);
      ASSERT_NE(cell(), nullptr);
      EXPECT_EQ(cell()->text().toStdString(), text);
      EXPECT_EQ(cell()->selectedText(), cell()->text());
      EXPECT_EQ(db, *before);
    }
  }
}

TEST_F(Parameter_Dialog, Every_Row_Passes_At_Its_Bounds) {
  const Database start = db;
  for (int row = 0; row < month; ++row) {
    const Parameter& parameter = Parameter_Rows()[static_cast<std::size_t>(row)];
    if (parameter.entry != Entry::typed) continue;
    for (const double bound : {parameter.low, parameter.high}) {
      if (std::abs(bound) > 1e30) continue;
      SCOPED_TRACE(std::string(parameter.name) + " " + Digits(bound));
      db = start;
      open();
      type(row, QString::fromStdString(Digits(bound)));
      press("cmdOK");
      EXPECT_TRUE(dialogue.shown.empty());
      EXPECT_FALSE(dialog->isVisible());
      EXPECT_EQ(dialog->result(), QDialog::Accepted);
      EXPECT_EQ(parameter.get(db), static_cast<float>(bound));
    }
  }
}

TEST_F(Parameter_Dialog, The_First_Faulty_Row_Is_Told) {
  open();
  type(rock_cond, "99");
  type(intake_temp, "45.1");
  press("cmdOK");
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_EQ(dialogue.shown[0].text,
            "'Annual Ave. Intake Temp.' Column in Parameter Folder The value should be from -20.0  "
            "to  45.0 .\nChange value !");
  EXPECT_EQ(dialogue.shown[0].icon, Icon::exclamation);
  EXPECT_TRUE(dialogue.shown[0].beep);
  EXPECT_EQ(grid->currentRow(), intake_temp);
  EXPECT_EQ(grid->value(rock_cond), "99");
  EXPECT_EQ(db, *before);
}

TEST_F(Parameter_Dialog, What_Is_No_Number_Is_Told) {
  for (const char* text : {"", " ", "abc", "1,5", "1.2.3", "5 m"}) {
    SCOPED_TRACE(text);
    dialogue.shown.clear();
    open();
    type(rock_cond, text);
    press("cmdOK");
    ASSERT_EQ(dialogue.shown.size(), 1U);
    EXPECT_EQ(dialogue.shown[0].text, "Please input numeric data.");
    EXPECT_EQ(grid->currentRow(), rock_cond);
    EXPECT_EQ(db, *before);
  }
  dialogue.shown.clear();
  open();
  type(rock_cond, "1e39");
  press("cmdOK");
  EXPECT_TRUE(dialogue.showed("The value should be from 0.2  to  15.0 ."));
}

TEST_F(Parameter_Dialog, Cancel_Escape_And_Closing_Leave_All) {
  db.Para_IntakeWBT = 1.25F;
  const auto change = [this] {
    open();
    type(intake_temp, "20");
    type(datum_elev, "-5");
    list->setCurrentRow(2);
    EXPECT_EQ(db, *before);
  };
  change();
  press("cmdCancel");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(db, *before);
  change();
  QTest::keyClick(grid, Qt::Key_Escape);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(db, *before);
  change();
  dialog->close();
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(db, *before);
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Parameter_Dialog, Untouched_Rows_Keep_Every_Digit) {
  db.Para_RockGrad = 0.03004F;
  db.Para_IntakeTemp = 9.126F;
  open();
  EXPECT_EQ(grid->value(rock_grad), "0.03");
  type(accel, "1.2");
  Database expected = db;
  expected.Para_Accel = 1.2F;
  Derive_Intake_WBT(expected);
  press("cmdOK");
  EXPECT_EQ(db, expected);
}

TEST_F(Parameter_Dialog, The_Wet_Bulb_Follows) {
  db.Node_Elev[1] = -500;  // air of one atmosphere, as at sea level
  open();
  type(intake_temp, "20");
  type(intake_hum, "50");
  const float x = Calc_SatHum(1, 0.5F * Calc_SatPress(20));
  const float wet_bulb = Calc_WetBulb(1, 20, x);
  EXPECT_EQ(grid->value(intake_wbt).toStdString(),
            Find_Parameter("Para_IntakeWBT")->picture(wet_bulb).text());
  type(intake_hum, "much");
  EXPECT_EQ(grid->value(intake_wbt), "");
  type(intake_hum, "50");
  EXPECT_EQ(db, *before);
  press("cmdOK");
  EXPECT_EQ(db.Para_IntakeWBT, wet_bulb);
}

TEST_F(Parameter_Dialog, Impossible_Air_Is_Told_On_OK) {
  db.Inlet_Node[1] = 600;
  open();
  EXPECT_EQ(grid->value(intake_wbt), "");
  type(intake_temp, "20");
  press("cmdOK");
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_TRUE(dialogue.showed("Calculation Error about Edit Parameter command occurred"));
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(grid->value(intake_temp), "20");
  EXPECT_EQ(db, *before);
}

TEST_F(Parameter_Dialog, Diagrams_Show_Tried_Values) {
  open();
  type(rock_temp, "70");  // not yet held against its bounds
  type(rock_grad, "0.05");
  type(intake_temp, "21");
  type(3, "12");
  float shown[4] = {};
  on_diagram = [&] {
    shown[0] = db.Para_RockTemp;
    shown[1] = db.Para_RockGrad;
    shown[2] = db.Para_IntakeTemp;
    shown[3] = db.Para_TempDiff;
  };
  press("Com_GrdTemp");
  EXPECT_EQ(kinds, (std::vector<std::string>{"gtemp"}));
  EXPECT_EQ(shown[0], 70);
  EXPECT_EQ(shown[1], 0.05F);
  EXPECT_EQ(shown[2], before->Para_IntakeTemp);
  EXPECT_EQ(db, *before);
  press("Com_InAir_Temp");
  EXPECT_EQ(kinds.back(), "intemp");
  EXPECT_EQ(shown[0], before->Para_RockTemp);
  EXPECT_EQ(shown[2], 21);
  EXPECT_EQ(shown[3], 12);
  EXPECT_EQ(db, *before);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(grid->value(rock_temp), "70");
}

TEST_F(Parameter_Dialog, Diagrams_Change_No_Value_When_They_Fail) {
  open();
  type(rock_temp, "40");
  on_diagram = [] { throw Run_Time_Error("no diagram"); };
  press("Com_GrdTemp");
  EXPECT_TRUE(dialogue.showed("Calculation Error about Edit Parameter command occurred"));
  EXPECT_EQ(db, *before);
  press("Com_InAir_Temp");
  EXPECT_EQ(dialogue.shown.size(), 2U);
  EXPECT_EQ(db, *before);
}

TEST_F(Parameter_Dialog, Diagrams_Need_Numbers) {
  open();
  type(rock_temp, "30");
  type(rock_grad, "steep");
  press("Com_GrdTemp");
  EXPECT_TRUE(dialogue.showed("Please input numeric data."));
  EXPECT_EQ(grid->currentRow(), rock_grad);
  EXPECT_TRUE(kinds.empty());
  type(intake_temp, "1e39");
  press("Com_InAir_Temp");
  EXPECT_TRUE(dialogue.showed("'Annual Ave. Intake Temp.' Column in Parameter Folder"));
  EXPECT_EQ(grid->currentRow(), intake_temp);
  EXPECT_TRUE(kinds.empty());
  EXPECT_EQ(db, *before);
}

TEST_F(Parameter_Dialog, The_Year_Of_The_Intake_Graph_Begins_With_The_Chosen_Month) {
  open();
  list->setCurrentRow(3);
  int shown = -1;
  on_diagram = [&] { shown = db.Para_MonthPrev; };
  press("Com_InAir_Temp");
  EXPECT_EQ(shown, 3);
  EXPECT_EQ(db, *before);
}

TEST_F(Parameter_Dialog, The_Month_Comes_From_Its_List) {
  open();
  ASSERT_EQ(list->count(), 13);
  EXPECT_EQ(list->item(0)->text(), "early Winter");
  EXPECT_EQ(list->item(6)->text(), "early Summer ");
  EXPECT_EQ(list->item(12)->text(), "early Winter");
  EXPECT_EQ(list->currentRow(), 10);
  grid->setCurrentCell(month, 1);
  QTest::keyClick(grid, Qt::Key_Return);
  EXPECT_EQ(cell(), nullptr);
  EXPECT_TRUE(list->hasFocus());
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(grid->value(month), "late Autumn");
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(grid->value(month), "early Winter");
  EXPECT_EQ(db, *before);
  press("cmdOK");
  EXPECT_EQ(db.Para_Month, 12);
}

TEST_F(Parameter_Dialog, A_Month_That_Is_None_Must_Be_Chosen) {
  for (const std::int16_t odd : {std::int16_t{13}, std::int16_t{-1}}) {
    dialogue.shown.clear();
    db.Para_Month = odd;
    open();
    list->setFocus();  // coming to the list chooses nothing
    EXPECT_EQ(grid->value(month), QString::number(odd));
    press("cmdOK");
    EXPECT_TRUE(dialogue.showed(
        "'Month for Seasoning Thermal Ana.' Column in Parameter Folder The value should be from 0  "
        "to  12 ."));
    EXPECT_EQ(grid->currentRow(), month);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(db, *before);
    list->setCurrentRow(0);
    press("cmdOK");
    EXPECT_EQ(db.Para_Month, 0);
  }
}

TEST_F(Parameter_Dialog, A_Typed_Key_Replaces_The_Text) {
  open();
  grid->setCurrentCell(rock_cond, 1);
  QTest::keyClick(grid, '7');
  ASSERT_NE(cell(), nullptr);
  EXPECT_EQ(cell()->text(), "7");
  EXPECT_EQ(cell()->cursorPosition(), 1);
  EXPECT_FALSE(cell()->hasSelectedText());
  QTest::keyClicks(cell(), ".5");
  QTest::keyClick(cell(), Qt::Key_Return);
  EXPECT_EQ(grid->value(rock_cond), "7.5");
  EXPECT_EQ(grid->currentRow(), rock_cond + 1);
  EXPECT_EQ(cell(), nullptr);
  EXPECT_TRUE(grid->hasFocus());
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Parameter_Dialog, Enter_And_F2_Keep_The_Text) {
  open();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2}) {
    grid->setCurrentCell(rock_cond, 1);
    QTest::keyClick(grid, key);
    ASSERT_NE(cell(), nullptr);
    EXPECT_EQ(cell()->text(), "3.0");
    EXPECT_EQ(cell()->cursorPosition(), 3);
    EXPECT_FALSE(cell()->hasSelectedText());
    QTest::keyClick(cell(), Qt::Key_Escape);
  }
}

TEST_F(Parameter_Dialog, A_Double_Click_Opens_The_Cell) {
  open();
  for (const int column : {0, 1}) {
    const QPoint place = grid->visualItemRect(grid->item(rock_cond, column)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(cell(), nullptr);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, place);
    ASSERT_NE(cell(), nullptr);
    EXPECT_EQ(cell()->selectedText(), "3.0");
    QTest::keyClick(cell(), Qt::Key_Escape);
  }
}

TEST_F(Parameter_Dialog, Escape_Leaves_The_Cell_As_It_Was) {
  open();
  grid->setCurrentCell(rock_cond, 1);
  QTest::keyClick(grid, '7');
  QTest::keyClick(cell(), Qt::Key_Escape);
  EXPECT_EQ(cell(), nullptr);
  EXPECT_EQ(grid->value(rock_cond), "3.0");
  EXPECT_EQ(grid->currentRow(), rock_cond);
  EXPECT_TRUE(grid->hasFocus());
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Parameter_Dialog, Up_And_Down_Commit_And_Move) {
  open();
  grid->setCurrentCell(rock_cond, 1);
  QTest::keyClick(grid, '4');
  QTest::keyClick(cell(), Qt::Key_Up);
  EXPECT_EQ(grid->value(rock_cond), "4");
  EXPECT_EQ(grid->currentRow(), rock_grad);
  QTest::keyClick(grid, '1');
  QTest::keyClick(cell(), Qt::Key_Down);
  EXPECT_EQ(grid->value(rock_grad), "1");
  EXPECT_EQ(grid->currentRow(), rock_cond);
  grid->setCurrentCell(0, 1);
  QTest::keyClick(grid, '2');
  QTest::keyClick(cell(), Qt::Key_Up);
  EXPECT_EQ(grid->value(0), "2");
  EXPECT_EQ(grid->currentRow(), 0);
}

TEST_F(Parameter_Dialog, Tab_Goes_From_Value_To_Value) {
  open();
  grid->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(grid->currentRow(), 0);
  for (int row = 1; row <= datum_elev; ++row) {
    if (row == intake_wbt) continue;
    QTest::keyClick(grid, Qt::Key_Tab);
    EXPECT_EQ(grid->currentRow(), row);
  }
  QTest::keyClick(grid, '8');
  QTest::keyClick(cell(), Qt::Key_Tab);
  EXPECT_EQ(grid->value(datum_elev), "8");
  EXPECT_TRUE(list->hasFocus());
  for (const char* name : {"Com_InAir_Temp", "Com_GrdTemp", "cmdPrint", "cmdOK", "cmdCancel"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
  }
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Backtab);
  EXPECT_TRUE(grid->hasFocus());
  EXPECT_EQ(grid->currentRow(), datum_elev);
  QTest::keyClick(grid, '9');
  QTest::keyClick(cell(), Qt::Key_Backtab);
  EXPECT_EQ(grid->value(datum_elev), "9");
  EXPECT_EQ(grid->currentRow(), datum_elev - 1);
}

TEST_F(Parameter_Dialog, The_Derived_Row_Cannot_Be_Opened) {
  open();
  const QString shown = grid->value(intake_wbt);
  grid->setCurrentCell(intake_wbt, 1);
  for (const Qt::Key key : {Qt::Key_1, Qt::Key_Return, Qt::Key_F2, Qt::Key_Delete}) {
    QTest::keyClick(grid, key);
    EXPECT_EQ(cell(), nullptr);
  }
  EXPECT_EQ(grid->currentRow(), intake_wbt);
  EXPECT_EQ(grid->value(intake_wbt), shown);
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Parameter_Dialog, What_Is_Being_Typed_Counts) {
  open();
  grid->setCurrentCell(rock_cond, 1);
  QTest::keyClick(grid, '5');
  dialog->findChild<QPushButton*>("cmdOK")->click();  // by its key: the cell keeps the focus
  EXPECT_EQ(db.Para_RockCond, 5);
}

TEST_F(Parameter_Dialog, Values_Go_Through_The_Clipboard) {
  open();
  grid->setCurrentCell(rock_cond, 1);
  QTest::keySequence(grid, QKeySequence::Copy);
  EXPECT_EQ(QApplication::clipboard()->text(), "3.0");
  QApplication::clipboard()->setText("4.5\n");
  QTest::keySequence(grid, QKeySequence::Paste);
  ASSERT_NE(cell(), nullptr);
  QTest::keyClick(cell(), Qt::Key_Return);
  press("cmdOK");
  EXPECT_EQ(db.Para_RockCond, 4.5F);
}

TEST(Parameter_Report, Is_Not_Printed_Where_Nothing_Can_Be_Written) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName("/no/such/folder/list.pdf");
  EXPECT_FALSE(Print_Parameters(printer, {{.title = "Rock Temp", .value = "17.0"}}));
}

TEST_F(Parameter_Dialog, Print_Asks) {
  open();
  dialogue.answers = {Answer::no};
  press("cmdPrint");
  EXPECT_EQ(dialogue.times_busy, 0);
  dialogue.answers = {Answer::yes};
  int pages = 0;
  // Looks for the preview until it has painted, and closes it.
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    QWidget* const preview = QApplication::activeModalWidget();
    if (preview == nullptr || preview->objectName() != "dlgPreview") return;
    const auto* const view = preview->findChild<QPrintPreviewWidget*>();
    if (dialogue.times_busy == 0) return;
    pages = view->pageCount();
    preview->close();
  });
  look.start(20);
  press("cmdPrint");
  EXPECT_EQ(pages, 1);
  EXPECT_EQ(dialogue.busy_depth, 0);
  ASSERT_EQ(dialogue.shown.size(), 2U);
  EXPECT_EQ(dialogue.shown[1].text, "Print out parameter ?");
  EXPECT_EQ(dialogue.shown[1].buttons, Buttons::yes_no);
  EXPECT_EQ(dialogue.shown[1].icon, Icon::question);
  EXPECT_EQ(db, *before);
}

TEST(Value_Grid, Enter_In_The_Last_Row_Stays) {
  Value_Grid grid({"Length (m)", "Area (m2)"});
  grid.show();
  grid.setCurrentCell(1, 1);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down}) {
    QTest::keyClick(&grid, '5');
    auto* const editor = grid.findChild<QLineEdit*>("txtEdit");
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, key);
    EXPECT_EQ(grid.value(1), "5");
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_TRUE(editor->isHidden());
    QCoreApplication::sendPostedEvents(editor, QEvent::DeferredDelete);
    grid.set_value(1, "");
  }
}

// A device that keeps the texts painted on it.
class Text_Engine : public QPaintEngine {
 public:
  struct Text {
    QString text;
    QString family;
    double right;
  };
  std::vector<Text> texts;

  Text_Engine() : QPaintEngine(AllFeatures) {}
  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawTextItem(const QPointF& place, const QTextItem& item) override {
    const QPointF at = painter()->transform().map(place + QPointF(item.width(), 0));
    texts.push_back({item.text(), item.font().family(), at.x()});
  }
  [[nodiscard]] Type type() const override { return User; }
};

class Text_Device : public QPaintDevice {
 public:
  mutable Text_Engine engine;
  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine; }

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
      case PdmWidth:
      case PdmHeight:
        return 1000;
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return 96;
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
      default:
        return 1;
    }
  }
};

QString All_Texts(const Text_Device& device) {
  QString all;
  for (const auto& text : device.engine.texts) all += text.text + '|';
  return all;
}

TEST(Parameter_Report, Lists_Titles_And_Values) {
  Text_Device device;
  {
    QPainter painter(&device);
    Paint_Parameters(painter, 700,
                     {{"Rock Temp Gradient          (C/m)", "0.03"}, {"Month ", "mid Autumn"}});
  }
  EXPECT_EQ(All_Texts(device),
            "Calcuration Parameters|Rock Temp Gradient|(C/m)|0.03|Month|mid Autumn|");
  for (const auto& text : device.engine.texts) EXPECT_EQ(text.family, "Times New Roman");
}

TEST(Parameter_Report, Stays_On_The_Page) {
  Text_Device device;
  {
    QPainter painter(&device);
    Paint_Parameters(painter, 700, {{"Title (m)", QString(400, '7')}});
  }
  ASSERT_FALSE(device.engine.texts.empty());
  for (const auto& text : device.engine.texts) EXPECT_LE(text.right, 700.5);
}

}  // namespace
}  // namespace branok
