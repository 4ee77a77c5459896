// The door to the user as the windows stand behind it: message boxes, the status bar, the busy
// pointer.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "core/dialogue.h"

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
  void remark(std::string_view text) override;
  void busy(bool on) override;

  /// Called before every box.
  std::function<void()> before_box = [] {};

  /// Restores the pointer, whatever a failed command left.
  void end_busy();

  /// An input box: the typed text, or nothing when it was cancelled.
  std::optional<std::string> ask(std::string_view prompt, std::string_view title);

 private:
  QWidget* window_;
  std::function<void(const QString&)> on_remark_;
  int busy_ = 0;
};

}  // namespace branok
