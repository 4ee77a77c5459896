#include "batch/commands.h"

#include <cstdio>
#include <exception>
#include <utility>

#include "airflow/flow_run.h"
#include "batch/arguments.h"
#include "batch/output.h"
#include "batch/pictures.h"
#include "batch/terminal.h"
#include "core/safe_file.h"
#include "core/text.h"
#include "files/comment_template.h"
#include "files/ver6.h"
#include "prep/check.h"
#include "thermal/annual.h"
#include "thermal/parameters.h"
#include "thermal/seasonal.h"

namespace branok {

namespace {

void Print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

// One mine and the doors through which its runs speak.
class Session {
 public:
  explicit Session(Progress progress) : panel_(progress), dialogue_(panel_) {}

  Exit load(const std::filesystem::path& file);
  Exit take(const Step& step);
  void summary() const { Print(Mine_Summary(db_)); }

 private:
  Exit flow(Answer start);
  Exit annual();
  Exit season(int month, Answer with_flow);
  Exit change_switch(const Step& step);
  Exit check();
  Exit calculate(const Step& step);
  Exit save(const std::filesystem::path& file);
  Exit csv(const std::filesystem::path& folder);
  Exit info(const Step& step);
  Exit picture(const std::string& view, const std::filesystem::path& file);
  Exit refuse(const std::string& why);

  Database db_;
  Edit_Copy copy_;             // what a check and the calculators work on
  Comment_Template comments_;  // of the mine: they go back into its saves
  Picture_Options options_;    // for the pictures that follow
  Terminal_Panel panel_;
  Terminal_Dialogue dialogue_;
};

Exit Session::refuse(const std::string& why) {
  panel_.clear_line();
  std::fprintf(stderr, "branok-batch: %s\n", why.c_str());
  return Exit::run_failed;
}

Exit Session::load(const std::filesystem::path& file) {
  Reset_Database(db_);
  const Read_Result result = Read_Ver6(db_, file, comments_, dialogue_);
  if (result.ok) return Exit::done;
  std::string where = file.string();
  if (result.line > 0) where += ", line " + std::to_string(result.line);
  where += ": ";
  // A file that could not be opened is named in the fault itself.
  if (result.fault.starts_with(file.string())) where.clear();
  std::fprintf(stderr, "branok-batch: %s%s\n", where.c_str(), result.fault.c_str());
  return Exit::file_failed;
}

Exit Session::flow(Answer start) {
  dialogue_.results_as_start = start;
  const Flow_Result result = Ana_Flow_Press(db_, dialogue_, panel_);
  panel_.clear_line();
  Print(std::string("Flow analysis: ") + (result.ok() ? "converged\n" : "failed\n"));
  if (result.passes > 0) Print(Flow_Summary(db_, result));
  return result.ok() ? Exit::done : Exit::run_failed;
}

Exit Session::annual() {
  if (db_.Flag_Results == 0) {
    return refuse("the annual run needs flow results: take --flow before --annual");
  }
  const Annual_Result result = Ana_Annual_Temp(db_, dialogue_, panel_);
  panel_.clear_line();
  Print(std::string("Annual temperature and flow: ") + (result.ok() ? "converged\n" : "failed\n"));
  if (!result.fault.empty()) dialogue_.remark(result.fault);
  static constexpr Picture degrees("##0.00");
  Print("  sweeps                  " + std::to_string(result.sweeps) + ", last change " +
        degrees(result.max_change).text() + " deg C\n");
  Print("  recirculated nodes      " + std::to_string(result.recirculation.size()) + '\n');
  Print(Temperature_Summary(db_));
  Print(Flow_Summary(db_, result.flow));
  if (!result.ok()) return Exit::run_failed;
  if (!result.flow.ok()) {
    dialogue_.remark("warning: the last flow solution of the annual run did not converge");
  }
  return Exit::done;
}

Exit Session::season(int month, Answer with_flow) {
  db_.Para_Month = static_cast<std::int16_t>(month);
  dialogue_.flow_for_season = with_flow;
  if (db_.Flag_Results == 0 && db_.Flag_Temp != 0) {
    return refuse("a season needs flow results: take --flow and --annual before it");
  }
  const Season_Result result = Ana_Season_Temp(db_, dialogue_, panel_);
  panel_.clear_line();
  Print("Seasonal temperature, " + std::string(Trim(Season_Of(db_))) + ": " +
        (result.ok() ? "complete\n" : "failed\n"));
  if (result.end == Season_End::needs_annual) return Exit::run_failed;
  if (!result.fault.empty()) dialogue_.remark(result.fault);
  Print("  recirculated nodes      " + std::to_string(result.recirculation.size()) + '\n');
  Print(Temperature_Summary(db_));
  if (result.end == Season_End::complete || result.end == Season_End::flow_failed) {
    Print(Flow_Summary(db_, result.flow));
  }
  return result.ok() ? Exit::done : Exit::run_failed;
}

Exit Session::change_switch(const Step& step) {
  const int slot = Find_Slot(db_, step.node1, step.node2);
  const std::string airway = std::to_string(step.node1) + "-" + std::to_string(step.node2);
  if (slot == 0) return refuse("there is no airway " + airway);
  const bool changed = Change_Switch(db_, step.node1, slot);
  const bool closed = db_.Root_Switch(slot, step.node1) == 1;
  Print("Switch " + airway + ": " + (closed ? "closed" : "open") +
        (changed ? "\n" : ", unchanged: above 10000 murgue an airway is a fixed stop\n"));
  return Exit::done;
}

Exit Session::check() {
  Fill_Database_Window(db_, copy_);
  Mark_All_Edited(db_);
  const bool passed = Check_Data(db_, copy_, dialogue_).passed;
  Print(std::string("Check of the data: ") + (passed ? "passed\n" : "failed\n"));
  return passed ? Exit::done : Exit::run_failed;
}

Exit Session::calculate(const Step& step) {
  Fill_Database_Window(db_, copy_);
  const std::int16_t range = std::exchange(db_.Opt_CalRange, std::int16_t{-1});
  const std::optional<Edit_Place> fault = Calculate(db_, copy_, step.calculator, dialogue_);
  db_.Opt_CalRange = range;
  const bool passed = !fault && Check_Data(db_, copy_, dialogue_).passed;
  Print("Calculate " + step.text + (passed ? ": done for all airways\n" : ": failed\n"));
  return passed ? Exit::done : Exit::run_failed;
}

Exit Session::save(const std::filesystem::path& file) {
  if (!Write_Ver6(db_, file, comments_, dialogue_)) return Exit::file_failed;
  Print("Saved " + file.string() + '\n');
  return Exit::done;
}

Exit Session::csv(const std::filesystem::path& folder) {
  const std::string nodes = Nodes_Csv(db_);
  const std::string airways = Airways_Csv(db_);
  try {
    std::filesystem::create_directories(folder);
    Write_Whole(folder / "nodes.csv", nodes);
    Write_Whole(folder / "airways.csv", airways);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "branok-batch: %s: %s\n", folder.c_str(), error.what());
    return Exit::file_failed;
  }
  Print("Wrote nodes.csv and airways.csv to " + folder.string() + '\n');
  return Exit::done;
}

Exit Session::info(const Step& step) {
  options_.node_info = step.node_info.value_or(options_.node_info);
  options_.airway_info = step.airway_info.value_or(options_.airway_info);
  Print("Information in pictures: " + step.text + '\n');
  return Exit::done;
}

Exit Session::picture(const std::string& view, const std::filesystem::path& file) {
  Painting painting;
  try {
    painting = Draw_Mine(db_, view, options_, dialogue_);
  } catch (const Run_Time_Error& error) {
    return refuse("no picture " + view + ": " + error.what());
  }
  try {
    Start_Painting();
    Write_Picture(file, painting);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "branok-batch: %s\n", error.what());
    return Exit::file_failed;
  }
  Print("Wrote picture " + view + " to " + file.string() + '\n');
  return Exit::done;
}

Exit Session::take(const Step& step) {
  switch (step.kind) {
    case Step_Kind::flow:
      return flow(Answer::no);
    case Step_Kind::flow_from_results:
      return flow(Answer::yes);
    case Step_Kind::annual:
      return annual();
    case Step_Kind::season:
      return season(step.month, Answer::yes);
    case Step_Kind::season_temperature:
      return season(step.month, Answer::no);
    case Step_Kind::wet:
      db_.Wet_Tag = step.text;
      Take_Wet_Mode(db_);
      Print("Wet-wall method: " + step.text + '\n');
      return Exit::done;
    case Step_Kind::set:
      Set_Parameter(db_, step.name, step.text);
      Print(step.name + " = " + step.text + '\n');
      return Exit::done;
    case Step_Kind::constant_temperature:
      Set_Constant_Temp(db_, true);
      Print("All air has the intake's annual average state\n");
      return Exit::done;
    case Step_Kind::switch_airway:
      return change_switch(step);
    case Step_Kind::check:
      return check();
    case Step_Kind::calculate:
      return calculate(step);
    case Step_Kind::save:
      return save(step.text);
    case Step_Kind::csv:
      return csv(step.text);
    case Step_Kind::table:
      Print(Result_Tables(db_));
      return Exit::done;
    case Step_Kind::info:
      return info(step);
    case Step_Kind::marks:
      options_.marks = step.text == "on";
      Print("Marks in pictures: " + step.text + '\n');
      return Exit::done;
    case Step_Kind::picture:
      return picture(step.name, step.text);
  }
  return Exit::wrong_usage;
}

Exit Run(const Arguments& arguments) {
  Session session(arguments.progress);
  if (const Exit loaded = session.load(arguments.mine); loaded != Exit::done) return loaded;
  if (arguments.steps.empty()) session.summary();
  for (const Step& step : arguments.steps) {
    Exit taken = Exit::run_failed;
    try {
      taken = session.take(step);
    } catch (const Run_Time_Error& error) {
      std::fprintf(stderr, "branok-batch: %s\n", error.what());
    }
    if (taken != Exit::done) return taken;
    if (std::fflush(stdout) != 0) break;
  }
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return Exit::done;
  std::fprintf(stderr, "branok-batch: standard output cannot be written\n");
  return Exit::file_failed;
}

}  // namespace

Exit Run_Batch(const std::vector<std::string>& words) {
  try {
    const Arguments arguments = Parse_Arguments(words);
    if (arguments.help) {
      Print(Usage());
      return Exit::done;
    }
    if (arguments.version) {
      Print("branok-batch " BRANOK_VERSION "\n");
      return Exit::done;
    }
    return Run(arguments);
  } catch (const Wrong_Usage& error) {
    std::fprintf(stderr, "branok-batch: %s\nTry 'branok-batch --help'.\n", error.what());
    return Exit::wrong_usage;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "branok-batch: %s\n", error.what());
    return Exit::run_failed;
  }
}

}  // namespace branok
