#include "ui/qt_dialogue.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <algorithm>

#include "core/faults.h"
#include "ui/one_line.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

QMessageBox::Icon Box_Icon(Icon icon) {
  switch (icon) {
    case Icon::information:
      return QMessageBox::Information;
    case Icon::question:
      return QMessageBox::Question;
    case Icon::exclamation:
      return QMessageBox::Warning;
    case Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons Box_Buttons(Buttons buttons) {
  switch (buttons) {
    case Buttons::ok_cancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::yes_no:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::yes_no_cancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::ok:
      break;
  }
  return QMessageBox::Ok;
}

struct Pressed {
  Answer answer;
  QMessageBox::StandardButton button;
};
constexpr Pressed pressed[] = {{Answer::ok, QMessageBox::Ok},
                               {Answer::cancel, QMessageBox::Cancel},
                               {Answer::yes, QMessageBox::Yes},
                               {Answer::no, QMessageBox::No}};

QMessageBox::StandardButton Box_Button(Answer answer) {
  for (const Pressed& pair : pressed) {
    if (pair.answer == answer) return pair.button;
  }
  return QMessageBox::Ok;
}

Answer Box_Answer(int button) {
  for (const Pressed& pair : pressed) {
    if (pair.button == button) return pair.answer;
  }
  return Answer::cancel;
}

// The ordinary pointer while it lives, above a busy one.
class Arrow_Pointer {
 public:
  explicit Arrow_Pointer(bool needed) : needed_(needed) {
    if (needed_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  Arrow_Pointer(const Arrow_Pointer&) = delete;
  Arrow_Pointer& operator=(const Arrow_Pointer&) = delete;
  Arrow_Pointer(Arrow_Pointer&&) = delete;
  Arrow_Pointer& operator=(Arrow_Pointer&&) = delete;
  ~Arrow_Pointer() {
    if (needed_) QApplication::restoreOverrideCursor();
  }

 private:
  bool needed_;
};

// A short text must not cut the title.
int Width_Of_Title(const QDialog& box) {
  constexpr int window_buttons = 140;  // pixels
  return box.fontMetrics().horizontalAdvance(box.windowTitle()) + window_buttons;
}

void Widen_For_Title(QMessageBox& box) {
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  grid->addItem(new QSpacerItem(Width_Of_Title(box), 0), grid->rowCount(), 0, 1,
                grid->columnCount());
}

}  // namespace

Qt_Dialogue::Qt_Dialogue(QWidget* window, std::function<void(const QString&)> on_remark)
    : window_(window), on_remark_(std::move(on_remark)) {}

Qt_Dialogue::~Qt_Dialogue() { end_busy(); }

Answer Qt_Dialogue::show(const Message& message) { return show_box(message, nullptr); }

Answer Qt_Dialogue::show_one_of_many(const Message& message, std::optional<Answer>& rest) {
  QCheckBox for_all("The same for &all that follow");
  for_all.setObjectName("chkForAll");
  const Answer answer = show_box(message, &for_all);
  if (for_all.isChecked()) rest = answer;
  return answer;
}

Answer Qt_Dialogue::show_box(const Message& message, QCheckBox* for_all) {
  // The arithmetic of painting is not the calculation's that shows the box.
  const Float_Faults painting;
  before_box();
  const Arrow_Pointer arrow(busy_ > 0);
  QWidget* const active = QApplication::activeModalWidget();
  QMessageBox box(active != nullptr ? active : window_);
  box.setObjectName("boxMessage");
  box.setWindowTitle(To_Qt(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(To_Qt(message.text));
  box.setIcon(Box_Icon(message.icon));
  box.setStandardButtons(Box_Buttons(message.buttons));
  box.setDefaultButton(Box_Button(message.default_answer));
  const auto escape = message.buttons == Buttons::ok       ? QMessageBox::Ok
                      : message.buttons == Buttons::yes_no ? QMessageBox::No
                                                           : QMessageBox::Cancel;
  box.setEscapeButton(escape);
  if (for_all != nullptr) box.setCheckBox(for_all);
  Widen_For_Title(box);
  if (message.beep) QApplication::beep();
  const Answer answer = Box_Answer(box.exec());
  if (for_all != nullptr) for_all->setParent(nullptr);  // it outlives the box
  return answer;
}

void Qt_Dialogue::remark(std::string_view text) { on_remark_(To_Qt(text)); }

void Qt_Dialogue::busy(bool on) {
  if (on) {
    ++busy_;
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else if (busy_ > 0) {
    --busy_;
    QApplication::restoreOverrideCursor();
  }
}

void Qt_Dialogue::end_busy() {
  while (busy_ > 0) Qt_Dialogue::busy(false);
}

std::optional<std::string> Qt_Dialogue::ask(std::string_view prompt, std::string_view title) {
  const Float_Faults painting;
  before_box();
  const Arrow_Pointer arrow(busy_ > 0);
  QInputDialog box(window_);
  box.setObjectName("boxInput");
  box.setWindowTitle(To_Qt(title));
  box.setLabelText(To_Qt(prompt));
  box.resize(std::max(Width_Of_Title(box), box.sizeHint().width()), box.sizeHint().height());
  if (auto* const text = box.findChild<QLineEdit*>()) Keep_To_One_Line(text);
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return box.textValue().toStdString();
}

}  // namespace branok
