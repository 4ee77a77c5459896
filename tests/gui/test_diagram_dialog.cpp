// The window of the diagrams, with the results of a real mine.
#include "ui/diagram_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <array>
#include <set>

#include "airflow/flow_run.h"
#include "core/safe_file.h"
#include "core/sample.h"
#include "files/ver6.h"
#include "prep/fan.h"
#include "support/temporary_folder.h"
#include "support/test_doors.h"
#include "thermal/seasonal.h"
#include "ui/diagram_chart.h"

namespace branok {
namespace {

// Mine A with its flow, its year and a mid Summer; calculated once.
const Database& Solved_Mine() {
  static const Database solved = [] {
    Database db;
    Reset_Database(db);
    Test_Dialogue dialogue;
    Test_Panel panel;
    Comment_Template comments;
    EXPECT_TRUE(Read_Ver6(db, BRANOK_TEST_DATA "/DATA/mine-a.abk", comments, dialogue).ok);
    EXPECT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
    EXPECT_TRUE(Ana_Annual_Temp(db, dialogue, panel).ok());
    db.Para_Month = 7;
    dialogue.answers = {Answer::yes, Answer::yes};
    EXPECT_TRUE(Ana_Season_Temp(db, dialogue, panel).ok());
    return db;
  }();
  return solved;
}

constexpr Diagram_Kind kinds[] = {Diagram_Kind::temp, Diagram_Kind::press, Diagram_Kind::month,
                                  Diagram_Kind::fan,  Diagram_Kind::gtemp, Diagram_Kind::intemp};

Diagram_Chart& Chart_Of(DlgGraph& dialog) { return *dialog.findChild<Diagram_Chart*>("grhGraph"); }

QPushButton& Button(DlgGraph& dialog, const char* name) {
  return *dialog.findChild<QPushButton*>(name);
}

QPalette Dark() {
  QPalette palette(QColor(45, 45, 48));
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  palette.setColor(QPalette::Text, QColor(230, 230, 230));
  return palette;
}

// Names in the legend; its grid may have empty cells.
int Legend_Entries(Diagram_Chart& chart) {
  int count = 0;
  for (int k = 0; k < chart.plottableCount(); ++k) {
    if (chart.legend->hasItemWithPlottable(chart.plottable(k))) ++count;
  }
  return count;
}

// Pixels of about this colour.
int Count(const QImage& image, const QColor& colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      if (std::abs(pixel.red() - colour.red()) + std::abs(pixel.green() - colour.green()) +
              std::abs(pixel.blue() - colour.blue()) <
          24) {
        ++count;
      }
    }
  }
  return count;
}

void Show(QWidget& window) {
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

class Every_Diagram : public testing::TestWithParam<Diagram_Kind> {
 protected:
  Diagram diagram = Make_Diagram(Solved_Mine(), GetParam());
};

TEST_P(Every_Diagram, ShowsTitlesLegendAndSeries) {
  DlgGraph dialog(diagram);
  EXPECT_EQ(dialog.objectName(), "DlgGraph");
  EXPECT_EQ(dialog.windowTitle(), QString::fromStdString(diagram.title));
  Diagram_Chart& chart = Chart_Of(dialog);
  const auto* title = dynamic_cast<QCPTextElement*>(chart.plotLayout()->element(0, 0));
  ASSERT_NE(title, nullptr);
  EXPECT_EQ(title->text(), QString::fromStdString(diagram.title));
  EXPECT_EQ(title->font().pointSize(), 15);
  EXPECT_EQ(chart.xAxis->label(), QString::fromStdString(diagram.x_title));
  EXPECT_EQ(chart.yAxis->label(), QString::fromStdString(diagram.y_title));
  EXPECT_EQ(chart.xAxis->labelFont().pointSize(), 10);
  EXPECT_EQ(chart.yAxis->labelFont().pointSize(), 10);
  const bool legend = GetParam() == Diagram_Kind::fan || GetParam() == Diagram_Kind::month;
  EXPECT_EQ(chart.legend->visible(), legend);
  EXPECT_EQ(Legend_Entries(chart), static_cast<int>(diagram.series.size()));
  // Only a fan has a footnote.
  ASSERT_EQ(chart.plotLayout()->hasElement(3, 0), GetParam() == Diagram_Kind::fan);
  if (GetParam() == Diagram_Kind::fan) {
    const auto* footnote = dynamic_cast<QCPTextElement*>(chart.plotLayout()->element(3, 0));
    ASSERT_NE(footnote, nullptr);
    EXPECT_EQ(footnote->text(), QString::fromStdString(diagram.footnote));
    EXPECT_TRUE(footnote->text().startsWith("Pf = "));
  }

  ASSERT_FALSE(diagram.series.empty());
  for (std::size_t k = 0; k < diagram.series.size(); ++k) {
    const auto* curve = dynamic_cast<QCPCurve*>(chart.plottable(static_cast<int>(k)));
    ASSERT_NE(curve, nullptr);
    EXPECT_EQ(curve->name(), QString::fromStdString(diagram.series[k].name));
    const std::vector<Diagram_Point>& points = diagram.series[k].points;
    ASSERT_EQ(curve->dataCount(), static_cast<int>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i) {
      EXPECT_EQ(curve->dataMainKey(static_cast<int>(i)), points[i].x);
      EXPECT_EQ(curve->dataMainValue(static_cast<int>(i)), points[i].y);
      EXPECT_TRUE(chart.xAxis->range().contains(points[i].x));
      // A fan's curve ends just below the axis.
      EXPECT_TRUE(chart.yAxis->range().contains(points[i].y) || points[i].y < 0);
    }
  }
}

TEST_P(Every_Diagram, CurvesStandOutOnLightAndDark) {
  for (const bool dark : {false, true}) {
    DlgGraph dialog(diagram);
    if (dark) dialog.setPalette(Dark());
    Show(dialog);
    Diagram_Chart& chart = Chart_Of(dialog);
    const QImage picture = chart.grab().toImage();
    const QColor ground = chart.palette().color(QPalette::Base);
    EXPECT_EQ(ground.lightness() < 128, dark);
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, 4), ground);
    for (std::size_t k = 0; k < diagram.series.size(); ++k) {
      const auto* curve = dynamic_cast<QCPCurve*>(chart.plottable(static_cast<int>(k)));
      const QColor colour = curve->lineStyle() == QCPCurve::lsNone
                                ? curve->scatterStyle().pen().color()
                                : curve->pen().color();
      EXPECT_GT(std::abs(colour.lightness() - ground.lightness()), 50);
      EXPECT_GT(Count(picture, colour), 50) << "series " << k << (dark ? ", dark" : ", light");
    }
  }
}

TEST_P(Every_Diagram, PrintsAsLinesAndLetters) {
  const Temporary_Folder folder;
  DlgGraph dialog(diagram);
  const std::filesystem::path file = folder / "diagram.pdf";
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(file.string()));
  printer.setPageOrientation(QPageLayout::Landscape);
  ASSERT_TRUE(Chart_Of(dialog).paint_page(printer));
  const std::string pdf = Read_Whole(file);
  EXPECT_TRUE(pdf.starts_with("%PDF"));
  EXPECT_NE(pdf.find("/FontDescriptor"), std::string::npos) << "letters";
  EXPECT_EQ(pdf.find("/Subtype /Image"), std::string::npos) << "no picture of pixels";
}

std::string Kind_Name(const testing::TestParamInfo<Diagram_Kind>& kind) {
  constexpr std::array<const char*, 6> words = {"temp", "press", "month", "fan", "gtemp", "intemp"};
  return words.at(static_cast<std::size_t>(kind.param));
}

INSTANTIATE_TEST_SUITE_P(, Every_Diagram, testing::ValuesIn(kinds), Kind_Name);

TEST(DlgGraph, FollowsAChangeOfPalette) {
  DlgGraph dialog(Make_Diagram(Solved_Mine(), Diagram_Kind::month));
  Show(dialog);
  Diagram_Chart& chart = Chart_Of(dialog);
  chart.xAxis->setRange(2, 5);  // what is in view stays in view
  const QColor before = chart.grab().toImage().pixelColor(chart.width() / 2, 4);
  dialog.setPalette(Dark());
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return chart.grab().toImage().pixelColor(chart.width() / 2, 4) == QColor(30, 30, 30);
  }));
  EXPECT_NE(before, QColor(30, 30, 30));
  EXPECT_EQ(chart.xAxis->range(), QCPRange(2, 5));
}

TEST(DlgGraph, CopyPutsASharpPictureOnWhite) {
  QGuiApplication::clipboard()->clear();
  DlgGraph dialog(Make_Diagram(Solved_Mine(), Diagram_Kind::fan));
  dialog.setPalette(Dark());
  Show(dialog);
  QTest::mouseClick(&Button(dialog, "cmdCopy"), Qt::LeftButton);
  const QImage picture = QGuiApplication::clipboard()->image();
  Diagram_Chart& chart = Chart_Of(dialog);
  EXPECT_EQ(picture.size(), chart.size() * std::max(2.0, chart.devicePixelRatioF()));
  EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::white));
  EXPECT_GT(Count(picture, Qt::black), 500) << "axes and letters";
  const auto* picTemp = dialog.findChild<QLabel*>("picTemp");
  ASSERT_NE(picTemp, nullptr);
  EXPECT_FALSE(picTemp->isVisible());
  EXPECT_EQ(picTemp->pixmap().size(), picture.size());
}

TEST(DlgGraph, KeysCopyPrintAndClose) {
  QGuiApplication::clipboard()->clear();
  DlgGraph dialog(Make_Diagram(Solved_Mine(), Diagram_Kind::temp));
  EXPECT_EQ(Button(dialog, "cmdCopy").text(), "&Copy");
  EXPECT_EQ(Button(dialog, "cmdPrint").text(), "&Print Out");
  EXPECT_EQ(Button(dialog, "cmdClose").text(), "Close");
  Show(dialog);
  QTest::keyClick(&dialog, Qt::Key_C, Qt::ControlModifier);
  EXPECT_FALSE(QGuiApplication::clipboard()->image().isNull());
  QGuiApplication::clipboard()->clear();
  QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([] { return !QGuiApplication::clipboard()->image().isNull(); }));

  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
  Show(dialog);
  EXPECT_EQ(QApplication::focusWidget(), &Button(dialog, "cmdClose"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  // From the chart Enter closes as well.
  Show(dialog);
  Chart_Of(dialog).setFocus();
  QTest::keyClick(&Chart_Of(dialog), Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
}

TEST(DlgGraph, TabGoesFromTheChartThroughTheButtons) {
  DlgGraph dialog(3, 2, [](int fan) { return Blank_Fan_Diagram(fan); });
  Show(dialog);
  Chart_Of(dialog).setFocus();
  for (const char* next : {"spnFan", "cmdCopy", "cmdPrint", "cmdClose", "grhGraph"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), next);
  }
}

TEST(DlgGraph, PrintOutOpensThePreview) {
  DlgGraph dialog(Make_Diagram(Solved_Mine(), Diagram_Kind::fan));
  Show(dialog);
  QString title;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    QWidget* const preview = QApplication::activeModalWidget();
    if (preview == nullptr || preview->objectName() != "dlgPreview") return;
    title = preview->windowTitle();
    preview->close();
  });
  timer.start(20);
  QTest::mouseClick(&Button(dialog, "cmdPrint"), Qt::LeftButton);
  EXPECT_EQ(title, "Print - Fan Characteristic Diagram of Fan No.1");
  EXPECT_TRUE(Button(dialog, "cmdPrint").isVisible());
}

TEST(DlgGraph, APrinterThatCannotBeWrittenToIsTold) {
  DlgGraph dialog(Make_Diagram(Solved_Mine(), Diagram_Kind::temp));
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName("/no/such/folder/diagram.pdf");
  EXPECT_FALSE(Chart_Of(dialog).paint_page(printer));
}

TEST(DlgGraph, CurvesDifferInTheirDashes) {
  for (const Diagram_Kind kind : {Diagram_Kind::fan, Diagram_Kind::month}) {
    DlgGraph dialog(Make_Diagram(Solved_Mine(), kind));
    Diagram_Chart& chart = Chart_Of(dialog);
    std::set<QVector<qreal>> patterns;
    int curves = 0;
    for (int k = 0; k < chart.plottableCount(); ++k) {
      if (chart.plottable(k)->name() == "Working point") continue;
      const QPen pen = chart.plottable(k)->pen();
      patterns.insert(pen.style() == Qt::SolidLine ? QVector<qreal>() : pen.dashPattern());
      ++curves;
    }
    EXPECT_GT(curves, 1);
    EXPECT_EQ(static_cast<int>(patterns.size()), curves);
  }
}

TEST(DlgGraph, DrawDiagramWaitsUntilClosed) {
  bool seen = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || dialog->objectName() != "DlgGraph") return;
    seen = dialog->isModal();
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  timer.start(20);
  Draw_Diagram(nullptr, Make_Diagram(Solved_Mine(), Diagram_Kind::gtemp));
  EXPECT_TRUE(seen);
}

// --- Diagrams with nothing or little in them

QString Hint(Diagram_Chart& chart) {
  for (int k = 0; k < chart.itemCount(); ++k) {
    if (auto* text = dynamic_cast<QCPItemText*>(chart.item(k))) return text->text();
  }
  return {};
}

TEST(DlgGraph, AnEmptyDiagramSaysWhatToDo) {
  Database db;
  New_Database(db, "x");
  for (const auto& [kind, hint] :
       {std::pair(Diagram_Kind::press, "No flow run yet: calculate the flow first."),
        std::pair(Diagram_Kind::month, "No seasonal run yet: calculate a season first.")}) {
    DlgGraph dialog(Make_Diagram(db, kind));
    Show(dialog);
    Diagram_Chart& chart = Chart_Of(dialog);
    EXPECT_EQ(Hint(chart), hint);
    EXPECT_FALSE(chart.xAxis->ticks());
    const QImage picture = chart.grab().toImage();
    const QRect middle(picture.width() / 4, picture.height() / 3, picture.width() / 2,
                       picture.height() / 3);
    EXPECT_GT(Count(picture.copy(middle), chart.palette().color(QPalette::Text)), 50);
  }
}

Diagram Press_Of(std::initializer_list<double> imbalances) {
  Database db;
  New_Database(db, "x");
  Diagram diagram = Make_Diagram(db, Diagram_Kind::press);
  diagram.hint.clear();
  double pass = 0;
  for (const double imbalance : imbalances) {
    diagram.series[0].points.push_back({++pass, imbalance});
  }
  return diagram;
}

TEST(DlgGraph, OnePointIsSeen) {
  DlgGraph dialog(Press_Of({12}));
  Show(dialog);
  Diagram_Chart& chart = Chart_Of(dialog);
  EXPECT_EQ(chart.xAxis->range(), QCPRange(0.5, 1.5));
  EXPECT_EQ(chart.yAxis->range(), QCPRange(10, 100));
  const auto* curve = dynamic_cast<QCPCurve*>(chart.plottable(0));
  EXPECT_GT(Count(chart.grab().toImage(), curve->pen().color()), 5);
}

TEST(DlgGraph, ImbalancesStandInWholeDecades) {
  DlgGraph dialog(Press_Of({4200, 80, 1.7, 0.03}));
  Diagram_Chart& chart = Chart_Of(dialog);
  EXPECT_EQ(chart.yAxis->scaleType(), QCPAxis::stLogarithmic);
  EXPECT_EQ(chart.yAxis->range(), QCPRange(0.01, 10000));
  for (const QString& label : chart.xAxis->tickVectorLabels()) {
    EXPECT_FALSE(label.contains('.')) << label.toStdString();
  }
}

TEST(DlgGraph, AnImbalanceOfZeroNeedsNoDecade) {
  DlgGraph falls_to_zero(Press_Of({50, 2, 0}));
  Show(falls_to_zero);
  EXPECT_EQ(Chart_Of(falls_to_zero).yAxis->range(), QCPRange(1, 100));
  DlgGraph none(Press_Of({0, 0}));
  Show(none);
  EXPECT_EQ(Chart_Of(none).yAxis->scaleType(), QCPAxis::stLinear);
  EXPECT_EQ(Chart_Of(none).yAxis->range(), QCPRange(-1, 1));
}

// --- Looking closer

TEST(DlgGraph, ThePointerReadsTheNearestPoint) {
  const Diagram diagram = Make_Diagram(Solved_Mine(), Diagram_Kind::temp);
  DlgGraph dialog(diagram);
  Show(dialog);
  Diagram_Chart& chart = Chart_Of(dialog);
  std::size_t farthest = 0;
  const std::vector<Diagram_Point>& points = diagram.series[0].points;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (points[i].x > points[farthest].x) farthest = i;
  }
  const QPointF place(chart.xAxis->coordToPixel(points[farthest].x),
                      chart.yAxis->coordToPixel(points[farthest].y));
  const QString text = chart.value_at(place);
  EXPECT_EQ(text.section('\n', 0, 0), "Node " + QString::number(farthest + 1));
  EXPECT_TRUE(text.section('\n', 1, 1).startsWith("Length (m): ")) << text.toStdString();
  EXPECT_TRUE(text.section('\n', 2, 2).startsWith("Temp. (deg. C): ")) << text.toStdString();
  EXPECT_TRUE(chart.value_at({1, 1}).isEmpty());
}

TEST(DlgGraph, ZoomsAndComesBack) {
  DlgGraph dialog(Make_Diagram(Solved_Mine(), Diagram_Kind::month));
  Show(dialog);
  Diagram_Chart& chart = Chart_Of(dialog);
  const QCPRange x = chart.xAxis->range();
  const QCPRange y = chart.yAxis->range();
  chart.setFocus();
  QTest::keyClick(&chart, Qt::Key_Plus);
  EXPECT_LT(chart.xAxis->range().size(), x.size());
  EXPECT_LT(chart.yAxis->range().size(), y.size());
  QTest::keyClick(&chart, Qt::Key_Right);
  EXPECT_GT(chart.xAxis->range().center(), x.center());
  QTest::keyClick(&chart, Qt::Key_Home);
  EXPECT_EQ(chart.xAxis->range(), x);
  EXPECT_EQ(chart.yAxis->range(), y);

  const QPoint middle = chart.rect().center();
  QWheelEvent wheel(middle, chart.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&chart, &wheel);
  EXPECT_LT(chart.xAxis->range().size(), x.size());
  QTest::mouseDClick(&chart, Qt::LeftButton, Qt::NoModifier, middle);
  EXPECT_EQ(chart.xAxis->range(), x);
}

// --- The fans of a mine

TEST(DlgGraph, StepsFromFanToFan) {
  Database db = Solved_Mine();
  db.MFan_Total = 3;
  Set_Default_Fan(db, 2, 9000);
  Set_Default_Fan(db, 3, 9000);
  db.MFan_HQCount[3] = 2;
  DlgGraph dialog(3, 1, [&](int fan) { return Make_Diagram(db, Diagram_Kind::fan, fan); });
  Show(dialog);
  Diagram_Chart& chart = Chart_Of(dialog);
  auto& spnFan = *dialog.findChild<QSpinBox*>("spnFan");
  EXPECT_EQ(dialog.windowTitle(), "Fan Characteristic Diagram of Fan No.1");
  EXPECT_EQ(spnFan.maximum(), 3);
  spnFan.setFocus();
  QTest::keyClick(&spnFan, Qt::Key_Up);
  EXPECT_EQ(dialog.windowTitle(), "Fan Characteristic Diagram of Fan No.2");
  EXPECT_EQ(Legend_Entries(chart), 5);
  EXPECT_TRUE(chart.diagram().footnote.starts_with("Pf = "));
  // Two points give no curve, which closes nothing.
  QTest::keyClick(&spnFan, Qt::Key_Up);
  EXPECT_EQ(dialog.windowTitle(), "Fan Characteristic Diagram of Fan No.3");
  EXPECT_EQ(chart.plottableCount(), 0);
  EXPECT_TRUE(Hint(chart).startsWith("This fan has no curve: ")) << Hint(chart).toStdString();
  QTest::keyClick(&spnFan, Qt::Key_Down);
  EXPECT_EQ(Legend_Entries(chart), 5);
}

TEST(DlgGraph, OneFanNeedsNoChooser) {
  DlgGraph dialog(1, 1,
                  [](int fan) { return Make_Diagram(Solved_Mine(), Diagram_Kind::fan, fan); });
  EXPECT_EQ(dialog.findChild<QSpinBox*>("spnFan"), nullptr);
}

TEST(DlgGraph, TheFirstFansFaultIsTheCallers) {
  Database db;
  New_Database(db, "x");
  db.MFan_HQCount[1] = 2;
  const auto diagram_of = [&](int fan) { return Make_Diagram(db, Diagram_Kind::fan, fan); };
  EXPECT_THROW(DlgGraph(1, 1, diagram_of), Calculation_Fault);
}

TEST(DlgGraph, MarksWhereTheFanWorks) {
  const Diagram diagram = Make_Diagram(Solved_Mine(), Diagram_Kind::fan);
  ASSERT_TRUE(diagram.working_point);
  DlgGraph dialog(diagram);
  Show(dialog);
  Diagram_Chart& chart = Chart_Of(dialog);
  const auto* mark = dynamic_cast<QCPCurve*>(chart.plottable(chart.plottableCount() - 1));
  ASSERT_NE(mark, nullptr);
  EXPECT_EQ(mark->name(), "Working point");
  EXPECT_EQ(mark->dataMainKey(0), diagram.working_point->x);
  EXPECT_EQ(mark->dataMainValue(0), diagram.working_point->y);
  EXPECT_NEAR(diagram.working_point->y, Solved_Mine().MFan_Press[1], 0.01);
  EXPECT_TRUE(chart
                  .value_at({chart.xAxis->coordToPixel(diagram.working_point->x),
                             chart.yAxis->coordToPixel(diagram.working_point->y)})
                  .startsWith("Working point\n"));
}

}  // namespace
}  // namespace branok
