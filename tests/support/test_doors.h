// The doors as a test stands behind them: every box is recorded and answered from a script.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "core/dialogue.h"
#include "core/panel.h"

namespace branok {

class Test_Dialogue : public Dialogue {
 public:
  std::vector<Message> shown;
  std::vector<std::string> remarks;
  std::deque<Answer> answers;      ///< taken in turn; when empty a box gets its default answer
  std::vector<std::string> asked;  ///< prompts and titles of input boxes
  std::deque<std::optional<std::string>> typed;  ///< into them, in turn; then they are cancelled
  std::optional<Answer> for_all;                 ///< given once to one of many questions
  int busy_depth = 0;
  int times_busy = 0;

  Answer show(const Message& message) override {
    shown.push_back(message);
    if (answers.empty()) return message.default_answer;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  Answer show_one_of_many(const Message& message, std::optional<Answer>& rest) override {
    const Answer answer = show(message);
    rest = for_all;
    return for_all.value_or(answer);
  }
  std::optional<std::string> ask(std::string_view prompt, std::string_view title) override {
    asked.push_back(std::string(title) + ": " + std::string(prompt));
    if (typed.empty()) return std::nullopt;
    std::optional<std::string> text = typed.front();
    typed.pop_front();
    return text;
  }
  void remark(std::string_view text) override { remarks.emplace_back(text); }
  void busy(bool on) override {
    busy_depth += on ? 1 : -1;
    times_busy += on ? 1 : 0;
  }

  [[nodiscard]] bool showed(std::string_view part) const {
    for (const Message& message : shown) {
      if (message.text.find(part) != std::string::npos) return true;
    }
    return false;
  }
};

class Test_Panel : public Panel {
 public:
  std::vector<Pass_Report> passes;
  std::vector<Sweep_Report> sweeps;
  void pass_ended(const Pass_Report& pass) override { passes.push_back(pass); }
  void sweep_ended(const Sweep_Report& sweep) override { sweeps.push_back(sweep); }
};

}  // namespace branok
