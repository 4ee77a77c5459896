#include "batch/terminal.h"

#include <unistd.h>

#include <cstdio>

#include "core/pictures.h"
#include "core/text.h"

namespace branok {

namespace {

constexpr auto shown_for = std::chrono::milliseconds(33);  // at most 30 live lines a second
constexpr Picture imbalance_picture("0.000E+00");
constexpr Picture change_picture("##0.0000");

void Print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); }

}  // namespace

Terminal_Panel::Terminal_Panel(Progress progress)
    : progress_(progress), terminal_(isatty(STDERR_FILENO) == 1) {}

void Terminal_Panel::clear_line() {
  if (line_shown_) Print("\r\033[K");
  line_shown_ = false;
}

void Terminal_Panel::live_line(const std::string& text) {
  const auto now = std::chrono::steady_clock::now();
  if (line_shown_ && now - last_shown_ < shown_for) return;
  Print("\r\033[K" + text);
  std::fflush(stderr);
  line_shown_ = true;
  last_shown_ = now;
}

void Terminal_Panel::pass_ended(const Pass_Report& pass) {
  if (progress_ == Progress::quiet || (progress_ == Progress::normal && !terminal_)) return;
  const std::string text = "pass " + std::to_string(pass.pass) + "  largest imbalance " +
                           imbalance_picture(pass.imbalance).text() + " m3/min at node " +
                           std::to_string(pass.node);
  if (progress_ == Progress::trace) {
    Print(text + '\n');
  } else {
    live_line(text);
  }
}

void Terminal_Panel::sweep_ended(const Sweep_Report& sweep) {
  if (progress_ == Progress::quiet || (progress_ == Progress::normal && !terminal_)) return;
  const std::string text = "sweep " + std::to_string(sweep.sweep) + "  passes " +
                           std::to_string(sweep.passes) + "  largest change " +
                           change_picture(sweep.max_change).text() + " deg C  recirculated " +
                           std::to_string(sweep.recirculated);
  if (progress_ == Progress::trace) {
    Print(text + '\n');
  } else {
    live_line(text);
  }
}

Answer Terminal_Dialogue::show(const Message& message) {
  panel_.clear_line();
  Answer answer = message.default_answer;
  if (message.topic == Topic::results_as_start) {
    answer = results_as_start;
  } else if (message.topic == Topic::flow_for_season) {
    answer = flow_for_season;
  } else if (message.buttons == Buttons::yes_no) {
    answer = Answer::yes;
  }
  std::string text = To_Utf8(message.text);
  if (message.buttons != Buttons::ok) {
    text += answer == Answer::yes ? "\n-> Yes" : answer == Answer::no ? "\n-> No" : "\n-> OK";
  }
  Print(text + '\n');
  return answer;
}

std::optional<std::string> Terminal_Dialogue::ask(std::string_view prompt, std::string_view title) {
  remark(std::string(title) + ": " + std::string(prompt) + " Nobody can type here.");
  return std::nullopt;
}

void Terminal_Dialogue::remark(std::string_view text) {
  panel_.clear_line();
  Print("  (" + To_Utf8(text) + ")\n");
}

}  // namespace branok
