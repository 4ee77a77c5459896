#include "ui/index_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "core/messages.h"
#include "paint/painter_surface.h"
#include "ui/dialog_parts.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

// Black or white, whichever is read on the colour.
QColor Ink_On(const QColor& color) {
  constexpr int middle = 128;
  return qGray(color.rgb()) < middle ? Qt::white : Qt::black;
}

QLabel* Named_Label(const QString& name, const QString& text) {
  auto* const label = new QLabel(text);
  label->setObjectName(name);
  return label;
}

}  // namespace

DlgIndex::DlgIndex(Database& db, bool index_on, Dialogue& dialogue, QWidget* parent)
    : QDialog(parent), db_(db), dialogue_(dialogue) {
  setObjectName("DlgIndex");
  setWindowTitle("Color Index Setting");
  setModal(true);
  auto* const all = new QGridLayout(this);
  all->addWidget(range_frame(), 0, 0);
  chkIndex = new QCheckBox("&Display temperature");
  chkIndex->setObjectName("chkIndex");
  chkIndex->setToolTip("Draws each airway in the colour of its temperature");
  all->addWidget(chkIndex, 1, 0);
  all->addLayout(legend(), 0, 1, 3, 1);
  all->addLayout(Ok_And_Cancel(this, [this] { ok(); }), 3, 0, 1, 2);
  all->setRowStretch(2, 1);
  all->setColumnStretch(0, 1);

  chkIndex->setEnabled(Has_Temperatures(db));
  if (Has_Temperatures(db)) {
    chkIndex->setChecked(index_on);
    txtData[0]->setText(To_Qt(Temperature_Text(db.Temp_Max)));
    txtData[1]->setText(To_Qt(Temperature_Text(db.Temp_Min)));
    show_legend({.max = db.Temp_Max, .min = db.Temp_Min});
  }
  Ask_Again(txtData[0]);
}

bool DlgIndex::Index_On() const { return chkIndex->isChecked(); }

QGroupBox* DlgIndex::range_frame() {
  auto* const frame = new QGroupBox("Index &Range");
  frame->setObjectName("fraSp");
  auto* const grid = new QGridLayout(frame);
  txtData[0] = Number_Entry(grid, 0, "txtData0", "&Max temp.");
  txtData[1] = Number_Entry(grid, 1, "txtData1", "M&in temp.");
  for (int row = 0; row < 2; ++row) grid->addWidget(new QLabel("°C"), row, 2);
  QPushButton* const setting = Named_Button("cmdIndex", "&Setting");
  setting->setToolTip("Shows the colours of this range");
  connect(setting, &QPushButton::clicked, this, [this] { set_index(); });
  grid->addWidget(setting, 2, 1);
  grid->setColumnStretch(1, 1);
  return frame;
}

// The scale stands upright, the hottest on top.
QGridLayout* DlgIndex::legend() {
  constexpr int last = 15;
  auto* const grid = new QGridLayout;
  grid->setVerticalSpacing(0);
  const int letter = fontMetrics().averageCharWidth();
  grid->setHorizontalSpacing(letter);
  grid->setContentsMargins(2 * letter, 0, 0, 0);
  QLabel* const head = Named_Label("lblChr", "Temp.");
  head->setAlignment(Qt::AlignCenter);
  grid->addWidget(head, 0, 0);
  const QSize cell(fontMetrics().horizontalAdvance(" -100.0C "), fontMetrics().height() + 2);
  for (int k = 0; k <= last; ++k) {
    QLabel* const label = Named_Label(QString("lblColor%1").arg(k), {});
    label->setAlignment(Qt::AlignCenter);
    label->setAutoFillBackground(true);
    label->setMinimumSize(cell);
    grid->addWidget(label, last - k + 1, 0);
    lblColor.at(static_cast<std::size_t>(k)) = label;
  }
  grid->addWidget(Named_Label("lblDisp0", "Max temp."), 1, 1);
  grid->addWidget(Named_Label("lblDisp1", "Min temp."), last + 1, 1);
  return grid;
}

void DlgIndex::show_legend(const Index_Range& range) {
  const auto cells = Index_Legend(range);
  for (std::size_t k = 0; k < cells.size(); ++k) {
    const QColor color = Color_Of(cells[k].color);
    QPalette palette = lblColor[k]->palette();
    palette.setColor(QPalette::Window, color);
    palette.setColor(QPalette::WindowText, Ink_On(color));
    lblColor[k]->setPalette(palette);
    lblColor[k]->setText(To_Qt(cells[k].label));
  }
}

std::optional<Index_Range> DlgIndex::set_index() {
  const auto max = temperature_in(txtData[0]);
  if (!max) return std::nullopt;
  const auto min = temperature_in(txtData[1]);
  if (!min) return std::nullopt;
  const Index_Range range = Limit_Index(*max, *min);
  txtData[0]->setText(To_Qt(Temperature_Text(range.max)));
  txtData[1]->setText(To_Qt(Temperature_Text(range.min)));
  show_legend(range);
  return range;
}

std::optional<double> DlgIndex::temperature_in(QLineEdit* entry) {
  const auto temperature = Number_In(entry->text().toStdString());
  if (!temperature) {
    dialogue_.show(messages::Not_Numeric());
    Ask_Again(entry);
  }
  return temperature;
}

void DlgIndex::ok() {
  const auto range = set_index();
  if (!range) return;
  db_.Temp_Max = range->max;
  db_.Temp_Min = range->min;
  accept();
}

}  // namespace branok
