#include "ui/level_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "core/messages.h"
#include "drawing/level_band.h"
#include "ui/dialog_parts.h"

namespace branok {

namespace {

constexpr std::array captions = {"1 . & Level high", "2 .  &Level   low"};
constexpr std::array boxes = {"'Level high' Box", "'Level low' Box"};

}  // namespace

DlgLevel::DlgLevel(const Database& db, Graphic& graphic, Dialogue& dialogue, QWidget* parent)
    : QDialog(parent),
      db_(db),
      graphic_(graphic),
      dialogue_(dialogue),
      low_before_(graphic.Band_Low),
      high_before_(graphic.Band_High) {
  setObjectName("DlgLevel");
  setWindowTitle("Level Band");
  setModal(true);
  const std::array levels = {db.Range_ZMax, db.Range_ZMin};
  graphic_.Band_Low = db.Range_ZMax;
  graphic_.Band_High = db.Range_ZMin;

  auto* const all = new QGridLayout(this);
  for (std::size_t k = 0; k < txtLevel.size(); ++k) {
    const int row = static_cast<int>(k);
    txtLevel[k] = Number_Entry(all, row, QString("txtLevel%1").arg(k), captions.at(k));
    txtLevel[k]->setText(QString::number(levels.at(k)));
    txtLevel[k]->setToolTip(
        QString("An elevation of %1 to %2 m").arg(db.Range_ZMin).arg(db.Range_ZMax));
    all->addWidget(new QLabel("m"), row, 2);
  }
  all->setColumnStretch(1, 1);
  all->setRowStretch(2, 1);
  all->addLayout(Ok_And_Cancel(this, [this] { ok(); }), 3, 0, 1, 3);
  Ask_Again(txtLevel[0]);
}

void DlgLevel::done(int result) {
  if (result != Accepted) {
    graphic_.Band_Low = low_before_;
    graphic_.Band_High = high_before_;
  }
  QDialog::done(result);
}

void DlgLevel::ok() {
  const auto first = level_in(0);
  if (!first) return;
  const auto second = level_in(1);
  if (!second) return;
  Set_Band(graphic_, *first, *second);
  accept();
}

std::optional<std::int16_t> DlgLevel::level_in(std::size_t entry) {
  QLineEdit* const field = txtLevel.at(entry);
  const auto level = Read_Level(db_, field->text().toStdString());
  if (level) return level;
  dialogue_.show(messages::Out_Of_Range(boxes.at(entry), "Level Band",
                                        std::to_string(db_.Range_ZMin),
                                        std::to_string(db_.Range_ZMax)));
  Ask_Again(field);
  return std::nullopt;
}

}  // namespace branok
