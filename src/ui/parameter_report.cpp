#include "ui/parameter_report.h"

#include <QPainter>
#include <algorithm>

#include "ui/value_grid.h"

namespace branok {

namespace {

constexpr double pixels_an_inch = 96;
constexpr double margin = 48;  // within what the printer can reach
constexpr int heading_size = 22;
constexpr int text_size = 15;
constexpr double column_gap = 24;
constexpr double line_height = 2 * text_size;
// The device's letters may be a hair wider than the measured ones: nothing is cut.
constexpr int one_line = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip;
const char* const report_font = "Times New Roman";

QFont Report_Font(int size) {
  QFont font(report_font);
  font.setStyleHint(QFont::Serif);
  font.setPixelSize(size);
  return font;
}

// The widths of the three columns: name, unit, value.
struct Columns {
  double name = 0;
  double unit = 0;
  double value = 0;
  [[nodiscard]] double all() const { return name + unit + value + 2 * column_gap; }
};

Columns Fit_Columns(const QFontMetricsF& metrics, const std::vector<Report_Line>& lines) {
  Columns columns;
  for (const Report_Line& line : lines) {
    const Row_Title title = Split_Title(line.title);
    columns.name = std::max(columns.name, metrics.horizontalAdvance(title.name));
    columns.unit = std::max(columns.unit, metrics.horizontalAdvance(title.unit));
    columns.value = std::max(columns.value, metrics.horizontalAdvance(line.value));
  }
  return columns;
}

void Paint_Line(QPainter& painter, double top, const Columns& columns, const Report_Line& line) {
  const Row_Title title = Split_Title(line.title);
  const double unit_left = columns.name + column_gap;
  const double value_left = unit_left + columns.unit + column_gap;
  painter.drawText(QRectF(0, top, columns.name, line_height), one_line, title.name);
  painter.drawText(QRectF(unit_left, top, columns.unit, line_height), Qt::AlignRight | one_line,
                   title.unit);
  painter.drawText(QRectF(value_left, top, columns.value, line_height), Qt::AlignRight | one_line,
                   line.value);
}

}  // namespace

void Paint_Parameters(QPainter& painter, double width, const std::vector<Report_Line>& lines) {
  painter.setFont(Report_Font(heading_size));
  painter.drawText(QRectF(0, 0, width, 2 * heading_size), one_line, "Calcuration Parameters");

  const QFont font = Report_Font(text_size);
  const Columns columns = Fit_Columns(QFontMetricsF(font), lines);
  painter.setFont(font);
  // A long value makes the list smaller rather than run out of the page.
  const double scale = std::min(1.0, width / columns.all());
  painter.translate(0, 2 * heading_size);
  painter.scale(scale, scale);
  painter.setPen(QPen(Qt::black, 0.75));
  double top = 0;
  painter.drawLine(QLineF(0, top, columns.all(), top));
  for (const Report_Line& line : lines) {
    Paint_Line(painter, top, columns, line);
    top += line_height;
  }
  painter.drawLine(QLineF(0, top, columns.all(), top));
}

bool Print_Parameters(QPrinter& printer, const std::vector<Report_Line>& lines) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const double scale = printer.resolution() / pixels_an_inch;
  painter.scale(scale, scale);
  painter.translate(margin, margin);
  const double width = printer.pageRect(QPrinter::Inch).width() * pixels_an_inch;
  Paint_Parameters(painter, width - 2 * margin, lines);
  return true;
}

}  // namespace branok
