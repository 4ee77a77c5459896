// The panel of runs behind the Analysis window. It keeps the values of the runs for as long as the
// program lives, and shows them in the window while there is one.
#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "core/database.h"
#include "core/panel.h"

namespace branok {

class MDIAna;

/// Titles of the pressure fields, lblTitle(0) to (13); a unit stands behind the title of its field.
/// lblTitle(1) and (3) are the values of the two titles before them.
void Set_Flow_Titles(Panel& panel);

/// The kind of results with which a mine comes up: "Seasonal-Flow" when they are of a season, else
/// "none".
std::string_view Opening_State(const Database& db);

class Analysis_Panel : public Panel {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;
  explicit Analysis_Panel(Clock now = std::chrono::steady_clock::now);

  /// The window that shows the values; it attaches itself when it is made and detaches itself when
  /// it goes.
  void attach(MDIAna* window) { window_ = window; }
  void detach() { window_ = nullptr; }

  /// Forgets the runs of the mine before: labels, bars, and the commands that runs open are as the
  /// mine's own results say. Raises Run_Time_Error when its results are of no season.
  void reset(const Database& db);

  /// From here on the values are shown now and then.
  void start_run() { last_shown_ = now_(); }

  /// Shows the values when they have not been shown for a thirtieth of a second. Called thousands
  /// of times in a run, so it mostly just looks at the clock.
  void refresh() override;

  /// Shows the last values, before a box and at the end of a run.
  void show_all();

  void Set_Result_State(std::string_view kind) override;

  /// The last pass of the flow solver since the reset.
  void pass_ended(const Pass_Report& pass) override { last_pass_ = pass; }
  [[nodiscard]] const std::optional<Pass_Report>& last_pass() const { return last_pass_; }

 private:
  Clock now_;
  std::chrono::steady_clock::time_point last_shown_;
  MDIAna* window_ = nullptr;
  std::optional<Pass_Report> last_pass_;
};

}  // namespace branok
