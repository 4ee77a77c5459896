#include "ui/frame_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "core/messages.h"
#include "core/numbers.h"
#include "ui/dialog_parts.h"

namespace branok {

namespace {

constexpr std::array captions = {"1 . &Up       Space", "2 . &Down  Space", "3 . &Left     Space",
                                 "4 . &Right  Space"};
constexpr std::array boxes = {"'Up Space' Box", "'Down Space' Box", "'Left Space' Box",
                              "'Right Space' Box"};

// A drawing of 550 nodes that is made smaller still has its nodes at one point, for good.
constexpr double most = 1000;

std::optional<Message> Fault_Of(std::size_t entry, double percent) {
  if (percent <= -50) return messages::Frame_Space_Too_Small();
  if (percent <= most) return std::nullopt;
  return messages::Out_Of_Range(boxes.at(entry), "CAD  Frame", "-50", "1000");
}

}  // namespace

DlgFrame::DlgFrame(Dialogue& dialogue, QWidget* parent) : QDialog(parent), dialogue_(dialogue) {
  setObjectName("DlgFrame");
  setWindowTitle("CAD  Frame");
  setModal(true);
  auto* const all = new QGridLayout(this);
  for (std::size_t k = 0; k < txtValue.size(); ++k) {
    const int row = static_cast<int>(k);
    txtValue[k] = Number_Entry(all, row, QString("txtValue%1").arg(k), captions.at(k));
    txtValue[k]->setText("0");
    txtValue[k]->setToolTip(
        "The drawing shrinks away from this side; a negative space pulls it outward");
    all->addWidget(new QLabel("%"), row, 2);
  }
  all->setColumnStretch(1, 1);
  all->setRowStretch(4, 1);
  all->addLayout(Ok_And_Cancel(this, [this] { ok(); }), 5, 0, 1, 3);
  Ask_Again(txtValue[0]);
}

void DlgFrame::ok() {
  std::array<double, 4> percent{};
  for (std::size_t k = 0; k < percent.size(); ++k) {
    const auto typed = percent_in(k);
    if (!typed) return;
    percent[k] = *typed;
  }
  space_ = {.up = percent[0], .down = percent[1], .left = percent[2], .right = percent[3]};
  accept();
}

std::optional<double> DlgFrame::percent_in(std::size_t entry) {
  QLineEdit* const field = txtValue.at(entry);
  const std::optional<double> percent = Number_In(field->text().toStdString());
  const std::optional<Message> fault =
      percent ? Fault_Of(entry, *percent) : messages::Not_Numeric();
  if (!fault) return percent;
  dialogue_.show(*fault);
  Ask_Again(field);
  return std::nullopt;
}

}  // namespace branok
