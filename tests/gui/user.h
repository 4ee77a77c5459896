// One who sits before the windows: answers the boxes and dialogs that come up and remembers them.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <deque>
#include <functional>
#include <vector>

namespace branok {

/// A message box as the user has seen it.
struct Seen_Box {
  QString title, text;
  QMessageBox::Icon icon;
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton default_button;
};

class User : public QObject {
 public:
  User() { qApp->installEventFilter(this); }
  ~User() override { qApp->removeEventFilter(this); }
  User(const User&) = delete;
  User& operator=(const User&) = delete;
  User(User&&) = delete;
  User& operator=(User&&) = delete;

  std::vector<Seen_Box> boxes;
  std::deque<QMessageBox::StandardButton> answers;  ///< in turn; when empty the default button
  /// What is done in dialogs that are no message boxes, in turn; when empty Escape is pressed.
  std::deque<std::function<void(QDialog&)>> dialogs;
  std::vector<QString> dialogs_seen;                     ///< their object names
  std::function<void(QWidget&)> look = [](QWidget&) {};  ///< before a box or dialog is answered

  [[nodiscard]] bool saw(const QString& part) const {
    for (const Seen_Box& box : boxes) {
      if (box.text.contains(part)) return true;
    }
    return false;
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Show) {
      // By the next turn of the event loop the dialog waits for its user.
      if (auto* const box = qobject_cast<QMessageBox*>(object)) {
        QTimer::singleShot(0, box, [this, box] { answer(*box); });
      } else if (auto* const dialog = qobject_cast<QDialog*>(object)) {
        if (dialog->isModal()) QTimer::singleShot(0, dialog, [this, dialog] { use(*dialog); });
      }
    }
    return QObject::eventFilter(object, event);
  }

 private:
  void answer(QMessageBox& box) {
    look(box);
    auto* const by_default = qobject_cast<QPushButton*>(box.defaultButton());
    const auto default_button =
        by_default != nullptr ? box.standardButton(by_default) : QMessageBox::NoButton;
    boxes.push_back(
        {box.windowTitle(), box.text(), box.icon(), box.standardButtons(), default_button});
    auto pressed = default_button;
    if (!answers.empty()) {
      pressed = answers.front();
      answers.pop_front();
    }
    if (!box.isVisible()) return;  // answered while it was looked at
    if (box.button(pressed) != nullptr) {
      box.button(pressed)->click();
    } else {
      box.reject();
    }
  }

  void use(QDialog& dialog) {
    look(dialog);
    dialogs_seen.push_back(dialog.objectName());
    if (dialogs.empty()) {
      dialog.reject();
      return;
    }
    const auto act = dialogs.front();
    dialogs.pop_front();
    act(dialog);
  }
};

}  // namespace branok
