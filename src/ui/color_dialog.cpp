#include "ui/color_dialog.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "drawing/color_sample.h"
#include "drawing/paint.h"
#include "paint/painter_surface.h"
#include "ui/dialog_parts.h"
#include "ui/qt_text.h"

namespace branok {

/// A plain area of one colour, pressed by mouse or Space.
class Color_Button : public QAbstractButton {
 public:
  explicit Color_Button(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
  }
  void show_color(const QColor& color) {
    color_ = color;
    setAccessibleDescription(color.name());
    update();
  }
  [[nodiscard]] QSize sizeHint() const override {
    const int line = fontMetrics().height();
    return {8 * line, 3 * line};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    constexpr int margin = 3;
    QPainter painter(this);
    const QRect area = rect().adjusted(margin, margin, -margin, -margin);
    painter.fillRect(area, color_);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(area.adjusted(0, 0, -1, -1));
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }

 private:
  QColor color_;
};

/// A small drawing in the colours as they are chosen.
class Color_Picture : public QWidget {
 public:
  explicit Color_Picture(QWidget* parent) : QWidget(parent) {
    const int side = 14 * fontMetrics().height();
    setMinimumSize(side, side);
  }
  void show_colors(const Color_Table& colors) {
    colors_ = colors;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Color_Of(colors_[color::back]));
    const int side = std::min(width(), height());
    const QRectF square((width() - side) / 2.0, (height() - side) / 2.0, side, side);
    Painter_Surface surface(painter, square, devicePixelRatioF());
    Paint_Lists(Color_Sample(colors_), surface);
  }

 private:
  Color_Table colors_;
};

namespace {

// The table that the sample is drawn in. A picture in space has three colours only.
Color_Table Sample_Table(const Color_Copy& colors, std::size_t entry) {
  Color_Table table;
  const bool in_space = entry >= color::airway_3d;
  for (int k = 1; k <= Color_Table::last; ++k) {
    table[k] = colors.at(static_cast<std::size_t>(in_space ? color::airway_3d : k));
  }
  if (in_space) {
    table[color::grid] = colors[color::grid_3d];
    table[color::back] = colors[color::back_3d];
  }
  return table;
}

QIcon Color_Icon(const QColor& color, const QWidget& widget) {
  const double ratio = widget.devicePixelRatioF();
  const int side = widget.fontMetrics().height();
  QPixmap area(QSize(2 * side, side) * ratio);
  area.setDevicePixelRatio(ratio);
  area.fill(color);
  QPainter painter(&area);
  painter.setPen(widget.palette().color(QPalette::Text));
  painter.drawRect(QRectF(0, 0, 2 * side - 1, side - 1));
  return area;
}

}  // namespace

// Controls are made in the order in which Tab goes through them.
DlgColor::DlgColor(const Color_Copy& colors, Color_Set set, QWidget* parent)
    : QDialog(parent),
      colors_(colors),
      cboColor(new QComboBox(this)),
      lblColor(new Color_Button(this)),
      picSample(new Color_Picture(this)) {
  setObjectName("DlgColor");
  setWindowTitle(set == Color_Set::cad ? "CAD Color Setting" : "Graphic Color Setting");
  setModal(true);
  cboColor->setObjectName("cboColor");
  cboColor->setAccessibleName("What is coloured");
  for (const std::string_view caption : Color_Captions(set)) cboColor->addItem(To_Qt(caption));
  cboColor->setMaxVisibleItems(cboColor->count());
  const int line = fontMetrics().height();
  cboColor->setIconSize({2 * line, line});
  connect(cboColor, &QComboBox::currentIndexChanged, this, &DlgColor::show_colors);
  lblColor->setObjectName("lblColor");
  lblColor->setAccessibleName("Color");
  lblColor->setToolTip("Click to choose another color");
  connect(lblColor, &QAbstractButton::clicked, this, &DlgColor::choose_color);
  picSample->setObjectName("picSample");

  auto* const all = new QGridLayout(this);
  all->addWidget(cboColor, 0, 0, 1, 2);
  all->addWidget(lblColor, 1, 0, 1, 2);
  const auto add = [&](const char* name, const char* text, int row, int column, auto command) {
    QPushButton* const button = Named_Button(name, text);
    connect(button, &QPushButton::clicked, this, command);
    all->addWidget(button, row, column);
  };
  add("cmdColor", "Setting...", 2, 0, &DlgColor::choose_color);
  add("cmdDefault", "&Default", 3, 0, [this] { set_colors(Default_Colors()); });
  add("cmdMono", "&Mono", 3, 1, [this] { set_colors(Mono_Colors()); });
  all->addWidget(picSample, 0, 2, 5, 1);
  all->setRowStretch(4, 1);
  all->setColumnStretch(2, 1);
  all->addLayout(Ok_And_Cancel(this, [this] { accept(); }), 5, 0, 1, 3);
  show_colors();
}

std::size_t DlgColor::entry() const {
  return static_cast<std::size_t>(cboColor->currentIndex()) + 1;
}

void DlgColor::choose_color() {
  std::int32_t& held = colors_.at(entry());
  QColorDialog chooser(Color_Of(held), this);
  chooser.setObjectName("cmmnClr");
  chooser.setWindowTitle(cboColor->currentText());
  if (chooser.exec() != Accepted) return;
  const QColor chosen = chooser.currentColor();
  held = RGB(chosen.red(), chosen.green(), chosen.blue());
  show_colors();
}

void DlgColor::set_colors(const Color_Copy& colors) {
  colors_ = colors;
  show_colors();
}

void DlgColor::show_colors() {
  for (int row = 0; row < cboColor->count(); ++row) {
    const QColor color = Color_Of(colors_.at(static_cast<std::size_t>(row) + 1));
    cboColor->setItemIcon(row, Color_Icon(color, *cboColor));
  }
  lblColor->show_color(Color_Of(colors_.at(entry())));
  picSample->show_colors(Sample_Table(colors_, entry()));
}

}  // namespace branok
