#include "ui/parameter_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "core/messages.h"
#include "core/vocabulary.h"
#include "ui/parameter_report.h"
#include "ui/printing.h"
#include "ui/qt_text.h"
#include "ui/value_grid.h"

namespace branok {

namespace {

constexpr int last_month = 12;  // of the seasons; 12 is the early winter after 11

int Row_Of(std::string_view name) {
  return static_cast<int>(Find_Parameter(name) - Parameter_Rows().data());
}

QStringList Titles() {
  QStringList titles;
  for (const Parameter& parameter : Parameter_Rows()) titles << To_Qt(parameter.title);
  return titles;
}

}  // namespace

DlgCPara::DlgCPara(Database& db, Dialogue& dialogue, Draw_Diagram draw_diagram, QWidget* parent)
    : QDialog(parent), db_(db), dialogue_(dialogue), draw_diagram_(std::move(draw_diagram)) {
  setObjectName("DlgCPara");
  setWindowTitle("Calculation Parameters");
  setModal(true);
  make_controls();
  load();
  connect(grdPara, &Value_Grid::cellChanged, this, [this](int row) {
    if (row == Row_Of("Para_IntakeTemp") || row == Row_Of("Para_IntakeHum")) show_wet_bulb();
  });
  connect(grdPara, &Value_Grid::change_wanted, this, [this](int row) {
    if (row == Row_Of("Para_Month")) lstSeason->setFocus();
  });
  connect(lstSeason, &QListWidget::itemSelectionChanged, this, &DlgCPara::take_month);
}

// Controls are made in the order in which Tab goes through them.
void DlgCPara::make_controls() {
  grdPara = new Value_Grid(Titles(), this);
  grdPara->setObjectName("grdPara");
  grdPara->setAccessibleName(windowTitle());
  grdPara->set_quiet(Row_Of("Para_IntakeWBT"));
  grdPara->set_chosen(Row_Of("Para_Month"));

  lstSeason = new QListWidget(this);
  lstSeason->setObjectName("lstSeason");
  lstSeason->setSpacing(1);
  for (std::size_t month = 0; month <= last_month; ++month) {
    lstSeason->addItem(To_Qt(Season_Name[month]));
  }
  constexpr int scroll_bar_room = 48;
  lstSeason->setFixedWidth(lstSeason->sizeHintForColumn(0) + scroll_bar_room);
  auto* const month_label = new QLabel("&Month", this);
  month_label->setBuddy(lstSeason);

  auto* const all = new QGridLayout(this);
  all->addWidget(grdPara, 0, 0, 2, 1);
  all->addWidget(month_label, 0, 1);
  all->addWidget(lstSeason, 1, 1);
  all->addLayout(make_buttons(), 2, 0, 1, 2);
  all->setColumnStretch(0, 1);
  all->setRowStretch(1, 1);
}

QLayout* DlgCPara::make_buttons() {
  auto* const row = new QHBoxLayout;
  const auto add = [this, row](const char* name, const QString& text, const auto& command) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, command);
    row->addWidget(button);
    return button;
  };
  add("Com_InAir_Temp", "Graph for Intake Air Temp",
      [this] { run([this] { draw("intemp", "Para_IntakeTemp", "Para_TempDiff"); }); });
  add("Com_GrdTemp", "Graph for Ini. Rock Temp",
      [this] { run([this] { draw("gtemp", "Para_RockTemp", "Para_RockGrad"); }); });
  add("cmdPrint", "&Print", [this] { run([this] { print(); }); });
  row->addStretch();
  add("cmdOK", "OK/Fix", [this] { run([this] { fix(); }); })->setDefault(true);
  add("cmdCancel", "Cancel", [this] { reject(); });
  return row;
}

void DlgCPara::load() {
  for (int row = 0; row < grdPara->rowCount(); ++row) {
    const Parameter& parameter = Parameter_Rows()[static_cast<std::size_t>(row)];
    if (parameter.entry == Entry::typed) {
      grdPara->set_value(row, To_Qt(Parameter_Text(db_, parameter)));
    }
  }
  show_wet_bulb();
  month_ = db_.Para_Month;
  if (month_ >= 0 && month_ <= last_month) lstSeason->setCurrentRow(month_);
  show_month();
}

// The wet bulb of the intake air as the rows have it now; blank where there is none.
void DlgCPara::show_wet_bulb() {
  std::string text;
  try {
    Parameter_Trial trial(db_);
    const int temperature = Row_Of("Para_IntakeTemp");
    const int humidity = Row_Of("Para_IntakeHum");
    if (!trial.take(temperature, text_of(temperature)) &&
        !trial.take(humidity, text_of(humidity))) {
      Derive_Intake_WBT(db_);
      text = Parameter_Text(db_, *Find_Parameter("Para_IntakeWBT"));
    }
  } catch (const Run_Time_Error&) {
    text.clear();
  }
  grdPara->set_value(Row_Of("Para_IntakeWBT"), To_Qt(text));
}

void DlgCPara::take_month() {
  // Nothing is selected when the chosen month was clicked away: it stays what it was.
  if (!lstSeason->selectedItems().isEmpty()) month_ = lstSeason->currentRow();
  show_month();
}

void DlgCPara::show_month() {
  const bool listed = month_ >= 0 && month_ <= last_month;
  grdPara->set_value(Row_Of("Para_Month"),
                     listed ? To_Qt(Season_Name[static_cast<std::size_t>(month_)]).trimmed()
                            : QString::number(month_));
}

void DlgCPara::fix() {
  std::vector<std::string> texts(Parameter_Rows().size());
  for (std::size_t row = 0; row < texts.size(); ++row) texts[row] = text_of(static_cast<int>(row));
  if (const auto fault = Fix_Parameters(db_, texts)) {
    report(*fault);
  } else {
    accept();
  }
}

void DlgCPara::draw(std::string_view kind, std::string_view first, std::string_view second) {
  Parameter_Trial trial(db_);
  for (const std::string_view name : {first, second}) {
    const int row = Row_Of(name);
    if (const auto fault = trial.take(row, text_of(row))) return report(*fault);
  }
  if (month_ >= 0 && month_ <= last_month) trial.begin_year(month_);
  draw_diagram_(kind);
}

void DlgCPara::print() {
  if (dialogue_.show(messages::Ask_Print_Parameters()) != Answer::yes) return;
  Print_With_Preview(this, windowTitle(), [this](QPrinter& printer) {
    const Busy busy(dialogue_);
    return Print_Parameters(printer, lines());
  });
}

// Nothing may pass through the event loop, so every kind of fault ends here.
void DlgCPara::run(const std::function<void()>& command) {
  grdPara->end_editing();
  try {
    command();
  } catch (const std::exception&) {
    dialogue_.show(messages::Calculation_Error("Edit Parameter command"));
  }
}

void DlgCPara::report(const Parameter_Fault& fault) {
  const Parameter& parameter = Parameter_Rows()[static_cast<std::size_t>(fault.row)];
  if (fault.no_number && grdPara->value(fault.row).contains(',')) {
    dialogue_.remark("The decimal sign is a point: 12.5");
  }
  dialogue_.show(fault.no_number ? messages::Not_Numeric()
                                 : messages::Out_Of_Range(parameter.column, "Parameter Folder",
                                                          fault.low, fault.high));
  grdPara->open_row(fault.row);
}

std::string DlgCPara::text_of(int row) const {
  return row == Row_Of("Para_Month") ? std::to_string(month_) : grdPara->value(row).toStdString();
}

std::vector<Report_Line> DlgCPara::lines() const {
  std::vector<Report_Line> lines;
  lines.reserve(Parameter_Rows().size());
  for (int row = 0; row < grdPara->rowCount(); ++row) {
    lines.push_back({.title = grdPara->item(row, 0)->text(), .value = grdPara->value(row)});
  }
  return lines;
}

}  // namespace branok
