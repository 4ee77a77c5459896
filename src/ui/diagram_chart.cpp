#include "ui/diagram_chart.h"

#include <QPrinter>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <limits>

namespace branok {

namespace {

constexpr double title_points = 15;
constexpr double axis_points = 10;
constexpr double small_points = 9;
constexpr double pixels_per_point = 96.0 / 72;
constexpr double near = 12;  // pixels from the pointer to the point it means
constexpr int legend_columns = 3;

// Rows of the chart: title, axes, and what only some diagrams have.
constexpr int title_row = 0;
constexpr int legend_row = 2;
constexpr int footnote_row = 3;

// Colours that the colour-blind tell apart, darker for a light ground and lighter for a dark one.
constexpr std::array<QRgb, 6> on_light = {0xff0072b2, 0xffc24a00, 0xff00825f,
                                          0xffa9427f, 0xff202020, 0xff8a6d00};
constexpr std::array<QRgb, 6> on_dark = {0xff56b4e9, 0xffff9e4a, 0xff3fd6a8,
                                         0xffe58fc0, 0xfff0f0f0, 0xfff0e442};

// Dashes tell the curves apart in black and white; lengths in widths of the pen.
const std::array<QVector<qreal>, 6>& Dashes() {
  static const std::array<QVector<qreal>, 6> dashes = {
      QVector<qreal>{},           QVector<qreal>{7, 3},  QVector<qreal>{2, 2.5},
      QVector<qreal>{8, 3, 2, 3}, QVector<qreal>{14, 4}, QVector<qreal>{8, 3, 2, 3, 2, 3}};
  return dashes;
}

QColor Between(const QColor& a, const QColor& b, double part) {
  const auto mix = [part](int from, int to) {
    return from + static_cast<int>(std::lround(part * (to - from)));
  };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

Chart_Look Look_On(const QColor& ground, const QColor& text) {
  Chart_Look look;
  look.ground = ground;
  look.text = text;
  look.grid = Between(ground, text, 0.25);
  const bool dark = ground.lightness() < 128;
  std::transform(dark ? on_dark.begin() : on_light.begin(), dark ? on_dark.end() : on_light.end(),
                 look.curves.begin(), [](QRgb rgb) { return QColor(rgb); });
  return look;
}

// The same on every device: letters in pixels, of which a page has 96 to the inch.
Chart_Look Paper_Look(const QFont& font) {
  Chart_Look look = Look_On(Qt::white, Qt::black);
  look.title = look.axis = look.small = font;
  look.title.setPixelSize(static_cast<int>(title_points * pixels_per_point));
  look.axis.setPixelSize(static_cast<int>(axis_points * pixels_per_point));
  look.small.setPixelSize(static_cast<int>(small_points * pixels_per_point));
  for (QFont* letters : {&look.title, &look.axis, &look.small}) {
    letters->setHintingPreference(QFont::PreferNoHinting);
  }
  return look;
}

// The range of one coordinate of all points.
QCPRange Extent(const Diagram& diagram, double Diagram_Point::*coordinate) {
  double low = std::numeric_limits<double>::infinity();
  double high = -low;
  const auto take = [&](const Diagram_Point& point) {
    low = std::min(low, point.*coordinate);
    high = std::max(high, point.*coordinate);
  };
  for (const Diagram_Series& series : diagram.series) {
    for (const Diagram_Point& point : series.points) take(point);
  }
  if (diagram.working_point) take(*diagram.working_point);
  return low <= high ? QCPRange(low, high) : QCPRange(0, 1);
}

QCPRange With_Margin(const QCPRange& range) {
  double margin = 0.05 * range.size();
  // A level line stands in the middle of a range of its own size.
  if (!(margin > 0)) margin = std::max(0.05 * std::abs(range.upper), 1.0);
  return {range.lower - margin, range.upper + margin};
}

// Whole decades around the positive values.
QCPRange Decades(const Diagram& diagram) {
  double low = std::numeric_limits<double>::infinity();
  double high = 0;
  for (const Diagram_Point& point : diagram.series[0].points) {
    if (point.y > 0) low = std::min(low, point.y);
    high = std::max(high, point.y);
  }
  const double first = std::floor(std::log10(low));
  const double last = std::max(std::ceil(std::log10(high)), first + 1);
  return {std::pow(10, first), std::pow(10, last)};
}

QCPRange Horizontal_Range(const Diagram& diagram) {
  const QCPRange extent = Extent(diagram, &Diagram_Point::x);
  switch (diagram.kind) {
    case Diagram_Kind::press:
      return {0.5, extent.upper + 0.5};
    case Diagram_Kind::month:
      return {0, 12};
    case Diagram_Kind::intemp:
      return {0, 365};
    case Diagram_Kind::fan:
      return {0, extent.upper > 0 ? 1.02 * extent.upper : 1};
    case Diagram_Kind::temp:
    case Diagram_Kind::gtemp:
      break;
  }
  return With_Margin(extent);
}

QCPRange Vertical_Range(const Diagram& diagram) {
  const QCPRange extent = Extent(diagram, &Diagram_Point::y);
  // Curves end below the axis, where the fan moves no air.
  if (diagram.kind == Diagram_Kind::fan && extent.upper > 0) return {0, 1.08 * extent.upper};
  return With_Margin(extent);
}

QString Number(double value) { return QLocale::c().toString(value, 'g', 6); }

}  // namespace

Diagram_Chart::Diagram_Chart(QWidget* parent)
    : QCustomPlot(parent), title_(new QCPTextElement(this)), footnote_(new QCPTextElement(this)) {
  QLocale numbers = QLocale::c();
  numbers.setNumberOptions(QLocale::OmitGroupSeparator);
  setLocale(numbers);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setMinimumSize(320, 220);
  setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  axisRect()->setRangeZoomFactor(0.85);
  axisRect()->setupFullAxesBox(true);
  arrange();
  take_screen_look();
}

// Title, axes, legend and footnote one below the other, so that the legend covers no curve.
void Diagram_Chart::arrange() {
  QCPLayoutGrid* const rows = plotLayout();
  rows->insertRow(title_row);
  rows->addElement(title_row, 0, title_);
  rows->expandTo(footnote_row + 1, 1);
  for (const int row : {legend_row, footnote_row}) rows->setRowStretchFactor(row, 0.001);
  rows->setRowSpacing(6);
  rows->setMargins({12, 12, 16, 8});
  axisRect()->insetLayout()->take(legend);
  legend->setBorderPen(Qt::NoPen);
  legend->setBrush(Qt::NoBrush);
  legend->setIconSize(44, 12);
  legend->setColumnSpacing(24);
  legend->setMargins({0, 0, 0, 0});
  legend->setFillOrder(QCPLegend::foColumnsFirst);
  legend->setWrap(legend_columns);
  footnote_->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);
}

// An element that is not shown takes no room.
void Diagram_Chart::show_in_row(int row, QCPLayoutElement* element, bool shown) {
  element->setVisible(shown);
  const bool there = plotLayout()->hasElement(row, 0);
  if (shown && !there) plotLayout()->addElement(row, 0, element);
  if (!shown && there) plotLayout()->take(element);
}

void Diagram_Chart::take_screen_look() {
  Chart_Look look = Look_On(palette().color(QPalette::Base), palette().color(QPalette::Text));
  look.title = look.axis = look.small = font();
  look.title.setPointSizeF(title_points);
  look.axis.setPointSizeF(axis_points);
  look.small.setPointSizeF(small_points);
  set_look(look);
}

void Diagram_Chart::set_look(const Chart_Look& look) {
  look_ = look;
  setBackground(QBrush(look.ground));
  title_->setFont(look.title);
  title_->setTextColor(look.text);
  footnote_->setFont(look.axis);
  footnote_->setTextColor(look.text);
  legend->setFont(look.axis);
  legend->setTextColor(look.text);
  const QPen line(look.text, 1);
  for (QCPAxis* axis : axisRect()->axes()) {
    axis->setBasePen(line);
    axis->setTickPen(line);
    axis->setSubTickPen(line);
    axis->setLabelFont(look.axis);
    axis->setLabelColor(look.text);
    axis->setTickLabelFont(look.small);
    axis->setTickLabelColor(look.text);
    axis->grid()->setPen(QPen(look.grid, 1, Qt::DotLine));
    axis->grid()->setZeroLinePen(QPen(look.grid, 1));
  }
}

void Diagram_Chart::show_diagram(Diagram diagram) {
  diagram_ = std::move(diagram);
  title_->setText(QString::fromStdString(diagram_.title));
  footnote_->setText(QString::fromStdString(diagram_.footnote));
  xAxis->setLabel(QString::fromStdString(diagram_.x_title));
  yAxis->setLabel(QString::fromStdString(diagram_.y_title));
  show_in_row(legend_row, legend, diagram_.show_legend && !diagram_.series.empty());
  show_in_row(footnote_row, footnote_, !diagram_.footnote.empty());
  setAccessibleName(title_->text());
  clearPlottables();
  clearItems();
  choose_tickers();
  add_series();
  add_working_point();
  add_hint();
  show_all();
}

void Diagram_Chart::show_all() {
  xAxis->setRange(Horizontal_Range(diagram_));
  yAxis->setRange(logarithmic() ? Decades(diagram_) : Vertical_Range(diagram_));
  replot();
}

// Imbalances span decades while a solution converges. Where none is above 0 there are no decades.
bool Diagram_Chart::logarithmic() const {
  if (diagram_.kind != Diagram_Kind::press) return false;
  return std::any_of(diagram_.series[0].points.begin(), diagram_.series[0].points.end(),
                     [](const Diagram_Point& point) { return point.y > 0; });
}

void Diagram_Chart::choose_tickers() {
  QSharedPointer<QCPAxisTicker> x_ticker(new QCPAxisTicker);
  if (diagram_.kind == Diagram_Kind::press || diagram_.kind == Diagram_Kind::month) {
    // Passes and months are whole numbers.
    const QSharedPointer<QCPAxisTickerFixed> whole(new QCPAxisTickerFixed);
    whole->setTickStep(1);
    whole->setScaleStrategy(QCPAxisTickerFixed::ssMultiples);
    whole->setTickCount(10);
    x_ticker = whole;
  }
  QSharedPointer<QCPAxisTicker> y_ticker(new QCPAxisTicker);
  if (logarithmic()) y_ticker.reset(new QCPAxisTickerLog);
  const auto scale = logarithmic() ? QCPAxis::stLogarithmic : QCPAxis::stLinear;
  for (QCPAxis* axis : {xAxis, xAxis2}) {
    axis->setTicker(x_ticker);
    axis->setSubTicks(diagram_.kind != Diagram_Kind::press);
  }
  for (QCPAxis* axis : {yAxis, yAxis2}) {
    axis->setScaleType(scale);
    axis->setTicker(y_ticker);
  }
  // Numbers on the axes of a diagram without values would stand for nothing.
  for (QCPAxis* axis : axisRect()->axes()) axis->setTicks(diagram_.hint.empty());
}

void Diagram_Chart::add_series() {
  const auto kind = diagram_.kind;
  std::size_t k = 0;
  // Where one curve stands out, it alone is solid.
  const bool one_stands_out = std::any_of(diagram_.series.begin(), diagram_.series.end(),
                                          [](const Diagram_Series& series) { return series.main; });
  std::size_t dash = one_stands_out ? 1 : 0;
  for (const Diagram_Series& series : diagram_.series) {
    // A curve keeps the order of its points.
    auto* const curve = new QCPCurve(xAxis, yAxis);
    curve->setName(QString::fromStdString(series.name));
    for (const Diagram_Point& point : series.points) curve->addData(point.x, point.y);
    const QColor colour = look_.curves[k % look_.curves.size()];
    QPen pen(colour, series.main ? 3 : 2);
    const QVector<qreal>& dashes = Dashes()[series.main ? 0 : dash++ % Dashes().size()];
    if (!dashes.isEmpty()) pen.setDashPattern(dashes);
    curve->setPen(pen);
    if (kind == Diagram_Kind::temp) {
      // Nodes stand in the order of their numbers: joined they would be a scribble.
      curve->setLineStyle(QCPCurve::lsNone);
    }
    if (kind == Diagram_Kind::temp || kind == Diagram_Kind::press || kind == Diagram_Kind::gtemp) {
      curve->setScatterStyle(
          {QCPScatterStyle::ssCircle, QPen(colour, 1.5), QBrush(look_.ground), 6});
    }
    ++k;
  }
}

void Diagram_Chart::add_working_point() {
  if (!diagram_.working_point) return;
  const auto [x, y] = *diagram_.working_point;
  auto* const mark = new QCPCurve(xAxis, yAxis);
  mark->setName("Working point");
  mark->removeFromLegend();
  mark->addData(x, y);
  mark->setLineStyle(QCPCurve::lsNone);
  mark->setScatterStyle({QCPScatterStyle::ssCircle, QPen(look_.text, 2), QBrush(look_.ground), 11});

  auto* const label = new QCPItemText(this);
  label->setText(QString("%1 m\u00b3/min, %2 mmH2O")
                     .arg(QString::number(x, 'f', 0), QString::number(y, 'f', 1)));
  label->setFont(look_.small);
  label->setColor(look_.text);
  label->setBrush(look_.ground);
  label->setPadding({4, 1, 4, 1});
  const bool right_half = x > Horizontal_Range(diagram_).center();
  label->setPositionAlignment((right_half ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  auto* const place = new QCPItemTracer(this);
  place->setVisible(false);
  place->position->setCoords(x, y);
  label->position->setParentAnchor(place->position);
  label->position->setCoords(right_half ? -12 : 12, 0);
}

void Diagram_Chart::add_hint() {
  if (diagram_.hint.empty()) return;
  auto* const hint = new QCPItemText(this);
  hint->setText(QString::fromStdString(diagram_.hint));
  hint->setFont(look_.axis);
  hint->setColor(look_.text);
  hint->setBrush(look_.ground);
  hint->setPadding({8, 8, 8, 8});
  hint->setTextAlignment(Qt::AlignCenter);
  hint->position->setType(QCPItemPosition::ptAxisRectRatio);
  hint->position->setCoords(0.5, 0.5);
}

QString Diagram_Chart::point_text(const QString& name, const Diagram_Point& point) const {
  QString text = name.isEmpty() ? QString() : name + '\n';
  text += QString::fromStdString(diagram_.x_title) + ": " + Number(point.x) + '\n';
  return text + QString::fromStdString(diagram_.y_title) + ": " + Number(point.y);
}

QString Diagram_Chart::value_at(const QPointF& place) const {
  if (!axisRect()->rect().contains(place.toPoint())) return {};
  double nearest = near;
  QString text;
  const auto take = [&](const QString& name, const Diagram_Point& point) {
    const double dx = xAxis->coordToPixel(point.x) - place.x();
    const double dy = yAxis->coordToPixel(point.y) - place.y();
    const double distance = std::hypot(dx, dy);
    if (!(distance < nearest)) return;
    nearest = distance;
    text = point_text(name, point);
  };
  if (diagram_.working_point) take("Working point", *diagram_.working_point);
  for (const Diagram_Series& series : diagram_.series) {
    int number = 0;
    for (const Diagram_Point& point : series.points) {
      ++number;
      take(diagram_.kind == Diagram_Kind::temp ? "Node " + QString::number(number)
                                               : QString::fromStdString(series.name),
           point);
    }
  }
  return text;
}

// --- Paper

std::unique_ptr<Diagram_Chart> Diagram_Chart::on_paper() const {
  auto paper = std::make_unique<Diagram_Chart>();
  paper->set_look(Paper_Look(font()));
  paper->show_diagram(diagram_);
  paper->xAxis->setRange(xAxis->range());
  paper->yAxis->setRange(yAxis->range());
  return paper;
}

QImage Diagram_Chart::picture(double scale) const {
  return on_paper()->toPixmap(width(), height(), scale).toImage();
}

bool Diagram_Chart::paint_page(QPrinter& printer) const {
  QCPPainter painter;
  if (!painter.begin(&printer)) return false;
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNoCaching);
  const double scale = printer.logicalDpiX() / (72 * pixels_per_point);
  painter.scale(scale, scale);
  const QSizeF page = printer.pageRect(QPrinter::DevicePixel).size() / scale;
  // On an upright page the diagram keeps the shape of a lying one.
  const double height = std::min(page.height(), 0.75 * page.width());
  on_paper()->toPainter(&painter, static_cast<int>(page.width()), static_cast<int>(height));
  return true;
}

// --- Keyboard, mouse, palette

void Diagram_Chart::changeEvent(QEvent* event) {
  QCustomPlot::changeEvent(event);
  if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
  const QCPRange x = xAxis->range();
  const QCPRange y = yAxis->range();
  take_screen_look();
  show_diagram(Diagram(diagram_));
  xAxis->setRange(x);
  yAxis->setRange(y);
  replot();
}

void Diagram_Chart::focusInEvent(QFocusEvent* event) {
  QCustomPlot::focusInEvent(event);
  update();
}

void Diagram_Chart::focusOutEvent(QFocusEvent* event) {
  QCustomPlot::focusOutEvent(event);
  update();
}

void Diagram_Chart::paintEvent(QPaintEvent* event) {
  QCustomPlot::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  QStyleOptionFocusRect option;
  option.initFrom(this);
  option.rect = rect().adjusted(2, 2, -2, -2);
  option.backgroundColor = look_.ground;
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void Diagram_Chart::zoom(double factor) {
  for (QCPAxis* axis : {xAxis, yAxis}) {
    const bool log = axis->scaleType() == QCPAxis::stLogarithmic;
    const QCPRange range = axis->range();
    axis->scaleRange(factor, log ? std::sqrt(range.lower * range.upper) : range.center());
  }
  replot();
}

// Moves the view by parts of the ranges.
void Diagram_Chart::pan(double right, double up) {
  const auto move = [](QCPAxis* axis, double part) {
    if (axis->scaleType() == QCPAxis::stLogarithmic) {
      axis->moveRange(std::pow(axis->range().upper / axis->range().lower, part));
    } else {
      axis->moveRange(part * axis->range().size());
    }
  };
  move(xAxis, right);
  move(yAxis, up);
  replot();
}

void Diagram_Chart::keyPressEvent(QKeyEvent* event) {
  constexpr double step = 0.1;
  constexpr double closer = 0.8;
  switch (event->key()) {
    case Qt::Key_Home:
      return show_all();
    case Qt::Key_Plus:
      return zoom(closer);
    case Qt::Key_Minus:
      return zoom(1 / closer);
    case Qt::Key_Left:
      return pan(-step, 0);
    case Qt::Key_Right:
      return pan(step, 0);
    case Qt::Key_Up:
      return pan(0, step);
    case Qt::Key_Down:
      return pan(0, -step);
    default:
      QCustomPlot::keyPressEvent(event);
  }
}

void Diagram_Chart::mouseDoubleClickEvent(QMouseEvent* event) {
  QCustomPlot::mouseDoubleClickEvent(event);
  show_all();
}

void Diagram_Chart::mouseMoveEvent(QMouseEvent* event) {
  QCustomPlot::mouseMoveEvent(event);
  const QString text = event->buttons() == Qt::NoButton ? value_at(event->position()) : QString();
  if (text.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(event->globalPosition().toPoint(), text, this);
  }
}

}  // namespace branok
