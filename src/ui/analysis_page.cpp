#include "ui/analysis_page.h"

#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "core/numbers.h"
#include "thermal/temperature_run.h"
#include "ui/analysis_panel.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr int area_option = 0;
constexpr int evaporative_option = 1;

constexpr int list_margin = 4;  // pixels around the lines of a list

// A value that is no number shows as nothing; the run itself tells what has gone wrong.
QString Shown(const Label& label) {
  try {
    return To_Qt(label.text());
  } catch (const Run_Time_Error&) {
    return {};
  }
}

}  // namespace

Analysis_Page::Analysis_Page(QWidget* parent) : QScrollArea(parent) {
  Com_Calc_Flow = make_button("Com_Calc_Flow", "Calc Flow for given Temp.", "mnuAnalysisComPress");
  Com_Calc_Annu = make_button("Com_Calc_Annu", "Calc Ann. Temp.", "mnuAnalysisComAnnual");
  Com_Calc_Season = make_button("Com_Calc_Season", "Calc Seasonal Var.", "mnuAnalysisComMonthly");
  Com_Set_Temp = make_button("Com_Set_Temp", "Set Const. Temp", "mnuAnalysisComSetConst_Temp");
  Com_EditPara = make_button("Com_EditPara", "Edit Para.", "mnuAnalysisComPara");
  build_wetness();
  Com_Fan_Diagram = make_button("Com_Fan_Diagram", "Fan D&iagram...", "fan_diagram");
  for (int k = 0; k < displays; ++k) {
    lblDisp[static_cast<std::size_t>(k)] = make_label(QString("lblDisp%1").arg(k));
  }
  for (int k = 0; k < titles; ++k) {
    lblTitle[static_cast<std::size_t>(k)] = make_label(QString("lblTitle%1").arg(k));
  }

  auto* const page = new QWidget;
  auto* const columns = new QHBoxLayout;
  columns->addLayout(command_column());  // in view however small the window is
  columns->addWidget(pressure_frame(), 1);
  columns->addWidget(temperature_frame(), 1);
  auto* const rows = new QVBoxLayout(page);
  rows->addWidget(lblDisp[0]);
  rows->addLayout(columns, 1);
  setWidget(page);
  setWidgetResizable(true);
  page->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  set_tab_order();
  show_heading_bold();
  fit_labels();
}

// Buttons and options first, the lists last.
void Analysis_Page::set_tab_order() {
  std::vector<QWidget*> order = {Com_Calc_Flow, Com_Calc_Annu, Com_Calc_Season, Com_Set_Temp,
                                 Com_EditPara,  optWetR[0],    optWetR[1],      Com_Fan_Diagram};
  order.insert(order.end(), lists_.begin(), lists_.end());
  for (std::size_t k = 1; k < order.size(); ++k) setTabOrder(order[k - 1], order[k]);
}

QPushButton* Analysis_Page::make_button(const char* name, const QString& caption,
                                        const char* menu_command) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAutoDefault(true);  // Enter presses it as well as Space
  connect(button, &QPushButton::clicked, this,
          [this, menu_command] { emit command(menu_command); });
  return button;
}

QLabel* Analysis_Page::make_label(const QString& name) {
  auto* const label = new QLabel(this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

// A number stands at the right of a field of fixed width, so that nothing moves while it changes.
QLabel* Analysis_Page::make_value(QLabel* label) {
  label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  label->setAutoFillBackground(true);
  label->setBackgroundRole(QPalette::Base);
  label->setForegroundRole(QPalette::Text);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setMargin(2);
  QSizePolicy policy = label->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  label->setSizePolicy(policy);
  return label;
}

// A label of many lines in a view that scrolls.
QScrollArea* Analysis_Page::make_list(int display) {
  QLabel* const label = lblDisp[static_cast<std::size_t>(display)];
  label->setMargin(list_margin);
  auto* const list = new QScrollArea;
  list->setWidget(label);
  label->setBackgroundRole(QPalette::Base);
  label->setForegroundRole(QPalette::Text);
  list->viewport()->setBackgroundRole(QPalette::Base);
  list->viewport()->setAutoFillBackground(true);
  lists_.push_back(list);
  return list;
}

QProgressBar* Analysis_Page::make_bar(int number, const QString& what) {
  auto* const bar = new QProgressBar;
  bar->setObjectName(QString("pgbPercent%1").arg(number));
  bar->setAccessibleName(what);
  bar->setRange(0, 100);
  pgbPercent[static_cast<std::size_t>(number)] = bar;
  return bar;
}

void Analysis_Page::add_row(QGridLayout& grid, int row, int title, QLabel* value, int unit) {
  grid.addWidget(lblTitle[static_cast<std::size_t>(title)], row, 0);
  grid.addWidget(make_value(value), row, 1);
  grid.addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding), row, 3);
  if (unit >= 0) grid.addWidget(lblTitle[static_cast<std::size_t>(unit)], row, 2);
}

// Pressures and flows of the main fans side by side, each list below its title and unit.
QLayout* Analysis_Page::fan_lists() {
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(fontMetrics().height());
  int column = 0;
  for (const auto& [title, display] : {std::pair(7, 3), std::pair(9, 4)}) {
    auto* const heading = new QHBoxLayout;
    heading->addWidget(lblTitle[static_cast<std::size_t>(title)]);
    heading->addStretch(1);
    heading->addWidget(lblTitle[static_cast<std::size_t>(title) + 1]);
    grid->addLayout(heading, 0, column);
    grid->addWidget(make_list(display), 1, column);
    ++column;
  }
  return grid;
}

QGroupBox* Analysis_Page::pressure_frame() {
  fraBase0 = new QGroupBox("Pressure Analysis");
  fraBase0->setObjectName("fraBase0");
  QLabel* const method = make_label("lblMethod");
  method->setText("Skyline Choleski's method");
  auto* const grid = new QGridLayout(fraBase0);
  grid->addWidget(method, 0, 0, 1, 4);
  add_row(*grid, 1, 0, lblTitle[1]);
  add_row(*grid, 2, 2, lblTitle[3]);
  add_row(*grid, 3, 4, lblDisp[1]);
  add_row(*grid, 4, 5, lblDisp[2], 6);
  grid->addLayout(fan_lists(), 5, 0, 1, 4);
  grid->setRowStretch(5, 1);
  grid->setColumnStretch(3, 1);
  add_row(*grid, 6, 11, lblDisp[5], 12);
  add_row(*grid, 7, 13, lblDisp[6]);
  grid->addWidget(make_bar(0, "Pressure Analysis"), 8, 0, 1, 4);
  grid->addWidget(Com_Fan_Diagram, 9, 0, 1, 4, Qt::AlignRight);
  return fraBase0;
}

QGroupBox* Analysis_Page::temperature_frame() {
  fraBase1 = new QGroupBox("Temperature Analysis");
  fraBase1->setObjectName("fraBase1");
  auto* const grid = new QGridLayout(fraBase1);
  for (int display = 8; display < displays; ++display) {
    add_row(*grid, display - 8, 2 * display, lblDisp[static_cast<std::size_t>(display)],
            2 * display + 1);
  }
  // Heads and lines of the recirculation stand below one another by their blanks.
  for (QLabel* label : {lblTitle[14], lblDisp[7]}) {
    label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  }
  lblTitle[14]->setIndent(list_margin + 1);
  grid->addWidget(lblTitle[15], 9, 0, 1, 4);
  grid->addWidget(lblTitle[14], 10, 0, 1, 4);
  grid->addWidget(make_list(7), 11, 0, 1, 4);
  grid->setRowStretch(11, 1);
  grid->setColumnStretch(3, 1);
  grid->addWidget(make_bar(1, "Temperature Analysis"), 12, 0, 1, 4);
  return fraBase1;
}

void Analysis_Page::build_wetness() {
  fraSprtr = new QGroupBox("&Wetness Selection", this);
  fraSprtr->setObjectName("fraSprtr");
  auto* const rows = new QVBoxLayout(fraSprtr);
  constexpr std::array captions = {"&Area Ratio", "&Evaporative Ratio"};
  constexpr std::array tags = {"area", "evaporate"};
  for (std::size_t k = 0; k < optWetR.size(); ++k) {
    optWetR[k] = new QRadioButton(captions[k], fraSprtr);
    optWetR[k]->setObjectName(QString("optWetR%1").arg(k));
    rows->addWidget(optWetR[k]);
    connect(optWetR[k], &QRadioButton::clicked, this,
            [this, tag = tags[k]] { emit wet_tag_chosen(tag); });
  }
}

QLayout* Analysis_Page::command_column() {
  auto* const column = new QVBoxLayout;
  for (QPushButton* button :
       {Com_Calc_Flow, Com_Calc_Annu, Com_Calc_Season, Com_Set_Temp, Com_EditPara}) {
    column->addWidget(button);
  }
  column->addSpacing(fontMetrics().height());
  column->addWidget(fraSprtr);
  column->addStretch(1);
  return column;
}

void Analysis_Page::show_panel(const branok::Panel& panel) {
  for (std::size_t k = 0; k < lblDisp.size(); ++k) {
    lblDisp[k]->setText(Shown(panel.lblDisp[k]));
    lblDisp[k]->setVisible(!panel.lblDisp_hidden[k]);
  }
  for (std::size_t k = 0; k < lblTitle.size(); ++k) {
    lblTitle[k]->setText(Shown(panel.lblTitle[k]));
  }
  // No layout does this for them in the middle of a run.
  for (QScrollArea* list : lists_) list->widget()->adjustSize();
  for (std::size_t k = 0; k < pgbPercent.size(); ++k) pgbPercent[k]->setValue(panel.pgbPercent[k]);
}

// One synchronous paint takes along everything in the window that waits for one.
void Analysis_Page::repaint_values() { lblDisp[0]->repaint(); }

void Analysis_Page::show_wet_mode(bool evaporative) {
  optWetR[evaporative ? evaporative_option : area_option]->setChecked(true);
}

void Analysis_Page::set_temperature_available(bool available) {
  fraBase1->setEnabled(available);
  fraSprtr->setEnabled(available);
  for (QRadioButton* option : optWetR) option->setEnabled(available);
  Com_Calc_Annu->setEnabled(available);
}

void Analysis_Page::apply_font(const QFont& font) {
  for (QLabel* label : findChildren<QLabel*>()) label->setFont(font);
  // The recirculation lines stand below one another by their blanks.
  QFont columns = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  columns.setPointSizeF(font.pointSizeF());
  for (QLabel* label : {lblTitle[14], lblDisp[7]}) label->setFont(columns);
  show_heading_bold();
  fit_labels();
}

void Analysis_Page::show_heading_bold() {
  QFont bold = lblTitle[0]->font();
  bold.setBold(true);
  lblDisp[0]->setFont(bold);
}

// Sizes from the font, so that nothing moves during a run: every title, unit and value has the room
// of the widest text that may stand there.
void Analysis_Page::fit_labels() {
  fit_titles({0, 2, 4, 5, 11, 13});
  fit_titles({6, 12});
  fit_titles({16, 18, 20, 22, 24, 26, 28, 30, 32});
  fit_titles({17, 19, 21, 23, 25, 27, 29, 31, 33});
  fit_values({lblTitle[1], lblTitle[3], lblDisp[1], lblDisp[2], lblDisp[5], lblDisp[6]},
             "-99999.999mmH2O");
  fit_values({lblDisp.begin() + 8, lblDisp.end()}, "-999999.99");
  fit_lists();
}

// Labels of one column that hold a title or unit of any run.
void Analysis_Page::fit_titles(const std::vector<std::size_t>& column) {
  branok::Panel annual;
  branok::Panel season;
  Set_Flow_Titles(annual);
  Set_Annual_Titles(annual);
  Set_Season_Titles(season);
  const QFontMetrics metrics(lblTitle[0]->font());
  int width = 0;
  for (const std::size_t k : column) {
    for (const Label& title : {annual.lblTitle[k], season.lblTitle[k]}) {
      width = std::max(width, metrics.horizontalAdvance(Shown(title)));
    }
  }
  for (const std::size_t k : column) lblTitle[k]->setFixedSize(width + 2, metrics.height());
}

void Analysis_Page::fit_values(const std::vector<QLabel*>& column, const QString& widest) {
  const QFontMetrics metrics(column[0]->font());
  const int frame = 2 * (column[0]->frameWidth() + column[0]->margin()) + 2;
  const QSize size(metrics.horizontalAdvance(widest) + frame, metrics.height() + frame);
  for (QLabel* label : column) label->setFixedSize(size);
}

// At least three lines of a fan's values, with the scroll bar beside them.
void Analysis_Page::fit_lists() {
  for (QScrollArea* list : lists_) {
    const QFontMetrics metrics(list->widget()->font());
    const int edges = 2 * (list_margin + list->frameWidth());
    const int bar = list->verticalScrollBar()->sizeHint().width();
    list->setMinimumSize(metrics.horizontalAdvance("# 15  -> -9999.99") + bar + edges,
                         3 * metrics.lineSpacing() + edges);
    list->widget()->adjustSize();
  }
}

void Analysis_Page::changeEvent(QEvent* event) {
  QScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fit_labels();
}

}  // namespace branok
