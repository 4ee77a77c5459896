// The two doors as branok-batch stands behind them: messages and progress on standard error.
#pragma once

#include <chrono>

#include "batch/arguments.h"
#include "core/dialogue.h"
#include "core/panel.h"

namespace branok {

class Terminal_Panel : public Panel {
 public:
  explicit Terminal_Panel(Progress progress);
  ~Terminal_Panel() override { clear_line(); }
  Terminal_Panel(const Terminal_Panel&) = delete;
  Terminal_Panel& operator=(const Terminal_Panel&) = delete;
  Terminal_Panel(Terminal_Panel&&) = delete;
  Terminal_Panel& operator=(Terminal_Panel&&) = delete;

  void pass_ended(const Pass_Report& pass) override;
  void sweep_ended(const Sweep_Report& sweep) override;

  /// Takes the live line away, so that other text has the terminal's line to itself.
  void clear_line();

 private:
  void live_line(const std::string& text);

  Progress progress_;
  bool terminal_;  // standard error is a terminal
  bool line_shown_ = false;
  std::chrono::steady_clock::time_point last_shown_;
};

class Terminal_Dialogue : public Dialogue {
 public:
  explicit Terminal_Dialogue(Terminal_Panel& panel) : panel_(panel) {}

  /// How the coming run's questions are answered; all others are answered Yes.
  Answer results_as_start = Answer::yes;
  Answer flow_for_season = Answer::yes;

  Answer show(const Message& message) override;
  /// Nobody is there to type: the box is cancelled.
  std::optional<std::string> ask(std::string_view prompt, std::string_view title) override;
  void remark(std::string_view text) override;
  void busy(bool) override {}

 private:
  Terminal_Panel& panel_;
};

}  // namespace branok
