// The door to the user as the windows stand behind it: message boxes, the status bar, the busy
// pointer.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "core/dialogue.h"

class QCheckBox;

namespace branok {

class Qt_Dialogue : public Dialogue {
 public:
  /// Boxes stand before the active window, or before `window`; remarks go to `on_remark`.
  Qt_Dialogue(QWidget* window, std::function<void(const QString&)> on_remark);
  ~Qt_Dialogue() override;
  Qt_Dialogue(const Qt_Dialogue&) = delete;
  Qt_Dialogue& operator=(const Qt_Dialogue&) = delete;
  Qt_Dialogue(Qt_Dialogue&&) = delete;
  Qt_Dialogue& operator=(Qt_Dialogue&&) = delete;

  /// Beeps when the message asks for it, shows the box with its icon, buttons and default button,
  /// and waits. Escape gives Cancel, else No, else OK. The busy pointer rests meanwhile.
  Answer show(const Message& message) override;
  /// The same box with a check box for all that follow.
  Answer show_one_of_many(const Message& message, std::optional<Answer>& rest) override;
  std::optional<std::string> ask(std::string_view prompt, std::string_view title) override;
  void remark(std::string_view text) override;
  void busy(bool on) override;

  /// Called before every box.
  std::function<void()> before_box = [] {};

  /// Restores the pointer, whatever a failed command left.
  void end_busy();

 private:
  Answer show_box(const Message& message, QCheckBox* for_all);

  QWidget* window_;
  std::function<void(const QString&)> on_remark_;
  int busy_ = 0;
};

}  // namespace branok
