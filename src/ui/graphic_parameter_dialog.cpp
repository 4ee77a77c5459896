#include "ui/graphic_parameter_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/messages.h"
#include "ui/dialog_parts.h"
#include "ui/qt_text.h"
#include "ui/value_grid.h"

namespace branok {

namespace {

QStringList Captions() {
  QStringList captions;
  for (std::size_t row = 0; row < graphic_parameter_rows; ++row) {
    captions << To_Qt(Graphic_Caption(row));
  }
  return captions;
}

}  // namespace

DlgGPara::DlgGPara(Database& db, const Graphic& graphic, Dialogue& dialogue, QWidget* parent)
    : QDialog(parent),
      db_(db),
      graphic_(graphic),
      dialogue_(dialogue),
      grdPara(new Value_Grid(Captions(), this)) {
  setObjectName("DlgGPara");
  setWindowTitle("Graphic Parameter");
  setModal(true);
  grdPara->setObjectName("grdPara");
  grdPara->setAccessibleName(windowTitle());
  QPushButton* const standard = Named_Button("cmdDefault", "&Default");
  standard->setToolTip("What suits the extent of this mine");
  connect(standard, &QPushButton::clicked, this, &DlgGPara::set_default);

  auto* const all = new QVBoxLayout(this);
  all->addWidget(grdPara, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(standard);
  buttons->addLayout(Ok_And_Cancel(this, [this] { ok(); }), 1);
  all->addLayout(buttons);
  show_values(Take_Graphic_Values(db));
}

void DlgGPara::show_values(const Graphic_Values& values) {
  values_ = values;
  for (std::size_t row = 0; row < values.size(); ++row) {
    grdPara->set_value(static_cast<int>(row), To_Qt(Graphic_Text(row, values[row])));
  }
}

void DlgGPara::set_default() {
  grdPara->end_editing();
  try {
    show_values(Default_Graphic_Values(db_, graphic_));
  } catch (const Run_Time_Error&) {
    dialogue_.show(messages::Calculation_Error("Edit Parameter command"));
  }
}

void DlgGPara::ok() {
  grdPara->end_editing();
  Graphic_Texts texts;
  for (std::size_t row = 0; row < texts.size(); ++row) {
    texts[row] = grdPara->value(static_cast<int>(row)).toStdString();
  }
  if (const auto fault = Read_Graphic_Values(texts, values_)) return report(*fault);
  Put_Graphic_Values(db_, values_);
  accept();
}

void DlgGPara::report(const Graphic_Fault& fault) {
  const int row = static_cast<int>(fault.row);
  if (fault.no_number && grdPara->value(row).contains(',')) {
    dialogue_.remark("The decimal sign is a point: 12.5");
  }
  dialogue_.show(fault.no_number
                     ? messages::Not_Numeric()
                     : messages::Out_Of_Range(Graphic_Column(fault.row), "Graphic Parameter",
                                              fault.low, fault.high));
  grdPara->open_row(row);
}

}  // namespace branok
