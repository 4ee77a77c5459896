// The door through which the program speaks with its user: messages, questions, file names.
//
// The windows, the batch program and the tests each stand behind it in their own way, so that
// calculations and files never know who is asked.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace branok {

inline constexpr std::string_view program_title = "BRANOK for Windows";

enum class Icon { none, information, question, exclamation };
enum class Buttons { ok, ok_cancel, yes_no, yes_no_cancel };
enum class Answer { ok = 1, cancel = 2, yes = 6, no = 7 };

/// What a question is about, for one who answers without reading (the batch program, a test).
enum class Topic { none, results_as_start, replace_annual, flow_for_season, check_before_save };

/// One box: lines of text separated by '\n'.
struct Message {
  std::string text;
  std::string title = std::string(program_title);
  Icon icon = Icon::none;
  Buttons buttons = Buttons::ok;
  Answer default_answer = Answer::ok;
  bool beep = false;  ///< sounded before the box is shown
  Topic topic = Topic::none;
};

class Dialogue {
 public:
  Dialogue() = default;
  Dialogue(const Dialogue&) = delete;
  Dialogue& operator=(const Dialogue&) = delete;
  Dialogue(Dialogue&&) = delete;
  Dialogue& operator=(Dialogue&&) = delete;
  virtual ~Dialogue() = default;

  /// Shows a box and waits for its button.
  virtual Answer show(const Message& message) = 0;

  /// Shows one of a row of like questions. The user may give the answer for all that follow, which
  /// then stands in `rest`; the asker does not show those.
  virtual Answer show_one_of_many(const Message& message, std::optional<Answer>& rest) {
    (void)rest;
    return show(message);
  }

  /// An input box: the typed text, or nothing when it was cancelled.
  virtual std::optional<std::string> ask(std::string_view prompt, std::string_view title) = 0;

  /// A remark beside the boxes: where a fault lies, what may be its cause. Shown in the status bar
  /// or on standard error; never waits.
  virtual void remark(std::string_view text) = 0;

  /// The busy pointer, on and off.
  virtual void busy(bool on) = 0;
};

/// Busy pointer while it lives; the pointer is restored on every way out.
class Busy {
 public:
  explicit Busy(Dialogue& dialogue) : dialogue_(dialogue) { dialogue_.busy(true); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  Busy(Busy&&) = delete;
  Busy& operator=(Busy&&) = delete;
  ~Busy() { end(); }
  /// Restores the pointer now, before a box is shown.
  void end() {
    if (on_) dialogue_.busy(false);
    on_ = false;
  }

 private:
  Dialogue& dialogue_;
  bool on_ = true;
};

}  // namespace branok
