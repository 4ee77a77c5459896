#include "ui/data_option_dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <charconv>

#include "core/airway_rules.h"
#include "core/messages.h"
#include "core/numbers.h"
#include "core/pictures.h"
#include "ui/dialog_parts.h"

namespace branok {

namespace {

constexpr std::array mark_names = {"Stopping", "Double Doors", "Single Door", "Regulator"};
constexpr std::string_view folder = "Data Range Option";

// A data file keeps marks as whole numbers of seven digits.
constexpr Picture whole("######0");
constexpr double largest_mark = 9999999;

constexpr std::int16_t all_airways = -1;
constexpr std::int16_t selected_rows = 0;

QString Mark_Text(float mark) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.begin(), text.end(), mark, std::chars_format::fixed).ptr;
  return QString::fromLatin1(text.data(), end - text.data());
}

// Raises Run_Time_Error when the text is no number.
float Whole_Mark(const QString& text) {
  return Parse_Single(whole(Parse_Double(text.toStdString())));
}

std::optional<Message> Mark_Fault(std::size_t k, const QString& text, double lowest,
                                  double highest) {
  const std::string item = "'" + std::string(mark_names.at(k)) + "' Box";
  try {
    const float mark = Whole_Mark(text);
    if (mark <= 0) return messages::Not_Positive(item, folder);
    if (mark >= lowest && mark <= highest) return std::nullopt;
  } catch (const Run_Time_Error&) {
    return messages::Not_Numeric();
  }
  return messages::Out_Of_Range(item, folder, whole(lowest), whole(highest));
}

template <std::size_t n>
int Checked(const std::array<QRadioButton*, n>& options) {
  for (std::size_t k = 0; k < n; ++k) {
    if (options[k]->isChecked()) return static_cast<int>(k);
  }
  return 0;
}

// An option that is none of the frame's shows as its first. Tab goes to the one that is checked.
template <std::size_t n>
void Check(const std::array<QRadioButton*, n>& options, int value) {
  const bool listed = value >= 0 && value < static_cast<int>(n);
  const std::size_t checked = listed ? static_cast<std::size_t>(value) : 0;
  for (std::size_t k = 0; k < n; ++k) {
    options[k]->setChecked(k == checked);
    options[k]->setFocusPolicy(k == checked ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

QLabel* Wrapped(const QString& text) {
  auto* const label = new QLabel(text);
  label->setWordWrap(true);
  return label;
}

// Options of a frame, one below the other.
template <std::size_t n>
QGroupBox* Options(const QString& title, const QString& explanation, const QString& name,
                   std::array<QRadioButton*, n>& options, const std::array<const char*, n>& texts) {
  auto* const frame = new QGroupBox(title);
  auto* const rows = new QVBoxLayout(frame);
  if (!explanation.isEmpty()) rows->addWidget(Wrapped(explanation));
  for (std::size_t k = 0; k < n; ++k) {
    options[k] = new QRadioButton(texts[k], frame);
    options[k]->setObjectName(name + QString::number(k));
    rows->addWidget(options[k]);
  }
  rows->addStretch();
  return frame;
}

}  // namespace

DlgData_Option::DlgData_Option(Database& db, Dialogue& dialogue, QWidget* parent)
    : QDialog(parent), db_(db), dialogue_(dialogue) {
  setObjectName("DlgData_Option");
  setWindowTitle("Data Range Option");
  setModal(true);
  auto* const all = new QGridLayout(this);
  all->addWidget(move_frame(), 0, 0);
  all->addWidget(grid_frame(), 1, 0);
  all->addWidget(range_frame(), 0, 1);
  all->addWidget(mark_frame(), 1, 1);
  all->addLayout(Ok_And_Cancel(this, [this] { ok(); }), 2, 0, 1, 2);
  all->setColumnStretch(1, 1);
  all->setRowStretch(1, 1);
  load();
}

QGroupBox* DlgData_Option::move_frame() {
  return Options<2>("Move Selection after Enter", {}, "Move_sel", Move_sel, {"Down", "Right"});
}

QGroupBox* DlgData_Option::grid_frame() {
  return Options<3>("Grid Selection", "Selection of Airways Grid Cells", "Op_GridSel", Op_GridSel,
                    {"Individual Cells", "Selection by Row", "Selection by Column"});
}

QGroupBox* DlgData_Option::range_frame() {
  QGroupBox* const frame =
      Options<2>("Calculation Option",
                 "Calculation Airways for Length, Perimeter, Resistance, Friction Factor",
                 "Op_CalRange", Op_CalRange, {"All Airways", "One Airway"});
  Op_CalRange[1]->setToolTip("The rows that are selected in the airway grid");
  return frame;
}

QGroupBox* DlgData_Option::mark_frame() {
  auto* const frame = new QGroupBox("Resistance Range [Murgue] VS. CAD Mark");
  auto* const grid = new QGridLayout(frame);
  const int mark_width = fontMetrics().horizontalAdvance(QString(12, '0'));
  for (std::size_t k = 0; k < ResRange.size(); ++k) {
    const int row = static_cast<int>(k);
    auto* const field = new QLineEdit(frame);
    field->setObjectName(QString("ResRange%1").arg(k));
    field->setAlignment(Qt::AlignRight);
    field->setFixedWidth(mark_width);
    field->setToolTip("From this resistance on");
    auto* const name = new QLabel(mark_names.at(k));
    name->setBuddy(field);
    field->setAccessibleName(name->text());
    grid->addWidget(name, row, 0);
    grid->addWidget(field, row, 1);
    ResRange[k] = field;
  }
  grid->addWidget(new QLabel("Ordinary Airway"), 4, 0);
  auto* const below = new QLabel("below");
  below->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grid->addWidget(below, 4, 1);
  auto* const defaults = new QPushButton("Default");
  defaults->setObjectName("Com_Default");
  defaults->setAutoDefault(false);
  connect(defaults, &QPushButton::clicked, this, [this] { show_marks(default_type_marks); });
  grid->addWidget(defaults, 5, 1);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(6, 1);
  return frame;
}

void DlgData_Option::load() {
  Check(Move_sel, db_.Opt_MoveSel);
  Check(Op_GridSel, db_.Opt_GridSel);
  Check(Op_CalRange, db_.Opt_CalRange == all_airways ? 0 : 1);
  show_marks(db_.Root_TypeMark);
}

void DlgData_Option::show_marks(const std::array<float, 4>& marks) {
  for (std::size_t k = 0; k < marks.size(); ++k) ResRange[k]->setText(Mark_Text(marks[k]));
}

void DlgData_Option::ok() {
  const auto marks = typed_marks();
  if (!marks) return;
  db_.Opt_MoveSel = static_cast<std::int16_t>(Checked(Move_sel));
  db_.Opt_GridSel = static_cast<std::int16_t>(Checked(Op_GridSel));
  db_.Opt_CalRange = Checked(Op_CalRange) == 0 ? all_airways : selected_rows;
  if (db_.Root_TypeMark != *marks) {
    db_.Root_TypeMark = *marks;
    Refresh_Regulator_Classes(db_);
  }
  accept();
}

std::optional<std::array<float, 4>> DlgData_Option::typed_marks() {
  bool changed = false;
  for (std::size_t k = 0; k < ResRange.size(); ++k) {
    changed = changed || ResRange[k]->text() != Mark_Text(db_.Root_TypeMark[k]);
  }
  // Marks that came with a file and were left alone are no matter here.
  if (!changed) return db_.Root_TypeMark;

  std::array<float, 4> marks{};
  double highest = largest_mark;
  for (std::size_t k = 0; k < marks.size(); ++k) {
    const double lowest = static_cast<double>(marks.size() - k);  // leaves room for those below
    if (const auto fault = Mark_Fault(k, ResRange[k]->text(), lowest, highest)) {
      report(k, *fault);
      return std::nullopt;
    }
    marks[k] = Whole_Mark(ResRange[k]->text());
    highest = double{marks[k]} - 1;
  }
  return marks;
}

void DlgData_Option::report(std::size_t mark, const Message& message) {
  dialogue_.show(message);
  Ask_Again(ResRange.at(mark));
}

}  // namespace branok
