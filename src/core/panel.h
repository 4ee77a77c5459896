// The door through which a run shows how it goes: the numbered labels and progress bars of the
// Analysis window, the commands that open and close, and a trace of passes and sweeps.
//
// A run writes values; text is made only when somebody looks. So a run of thousands of passes pays
// a few stores a value, and the last values are always there to be shown.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/pictures.h"

namespace branok {

/// One label: a text, a number in a picture with perhaps a text behind it, or a list of numbered
/// lines.
class Label {
 public:
  void set(std::string_view text) {
    kind_ = Kind::text;
    text_ = text;
  }
  /// The number in `picture`, followed by `unit`. Both must outlive the label (constants).
  void set(double value, const Picture& picture, std::string_view unit = {}) {
    kind_ = Kind::real;
    value_ = value;
    picture_ = &picture;
    unit_ = unit;
  }
  void set(float value, const Picture& picture, std::string_view unit = {}) {
    set(double{value}, picture, unit);
    kind_ = Kind::single;
  }
  void set(int value, const Picture& picture, std::string_view unit = {}) {
    set(double{static_cast<double>(value)}, picture, unit);
  }
  /// Adds a line to a text label.
  void append(std::string_view text) { text_ += text; }

  /// Values of fans 1..count, each to be shown as a line "# 1  -> " and the value.
  void set_lines(const float* values, int count, const Picture& picture);

  [[nodiscard]] std::string text() const;

 private:
  enum class Kind { text, real, single, lines };
  Kind kind_ = Kind::text;
  double value_ = 0;
  const Picture* picture_ = nullptr;
  std::string_view unit_;
  std::string text_;
  std::array<float, 16> lines_{};
  int line_count_ = 0;
};

/// What one pass of the flow solver came to.
struct Pass_Report {
  int pass = 0;
  float imbalance = 0;  ///< largest, m3/min
  int node = 0;         ///< where
};

/// What one temperature sweep came to.
struct Sweep_Report {
  int sweep = 0;
  int passes = 0;        ///< passes over the nodes that it took
  float max_change = 0;  ///< largest change of a nodal temperature, deg C
  int recirculated = 0;  ///< inflows left out because their air circulates
};

class Panel {
 public:
  Panel() = default;
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;
  Panel(Panel&&) = delete;
  Panel& operator=(Panel&&) = delete;
  virtual ~Panel() = default;

  std::array<Label, 32> lblDisp;
  std::array<Label, 40> lblTitle;
  std::array<bool, 32> lblDisp_hidden{};  ///< labels that the present run does not use
  std::array<int, 2> pgbPercent{};

  /// Whether the commands that a run opens or closes are available.
  bool mnuAnalysisComDiagram = false;
  bool mnuAnalysisComAnnual = false;
  bool mnuAnalysisComLeng = false;   ///< the entry for the annual results
  bool mnuAnalysisComGraph = false;  ///< the entry for the seasonal results

  /// The kind of results on show: "none", "Flow-Given", "Annual-Flow", "Seasonal-Flow".
  virtual void Set_Result_State(std::string_view kind) { result_state = kind; }
  std::string result_state = "none";

  /// Called after a run has written values. A window repaints now and then, under a Float_Faults of
  /// its own, so that its arithmetic is not taken for the run's; others do nothing.
  virtual void refresh() {}

  virtual void pass_ended(const Pass_Report&) {}
  virtual void sweep_ended(const Sweep_Report&) {}
};

}  // namespace branok
