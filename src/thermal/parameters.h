// The calculation parameters: one table of what the parameter grid shows, what may be entered, and
// how a parameter is read and set by its name.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/database.h"
#include "core/pictures.h"

namespace branok {

/// How a parameter comes by its value.
enum class Entry {
  typed,    ///< a row of the grid that is edited
  derived,  ///< a row of the grid that shows a consequence of others
  listed,   ///< a row of the grid whose value is chosen from the list of seasons
  no_row,   ///< not in the grid
};

struct Parameter {
  std::string_view name;    ///< "Para_FlowTol"
  std::string_view title;   ///< of its row, with the unit; empty without a row
  std::string_view column;  ///< as messages name it: "'Annual Ave. Intake Temp.' Column"
  std::string_view format;  ///< the text of the picture
  Picture picture;
  double standard;  ///< default value
  double low;       ///< least value allowed; -infinity when there is no such bound
  double high;      ///< greatest value allowed
  Entry entry;
  float Database::*real;            ///< where a real parameter is held, or null
  std::int16_t Database::*integer;  ///< where a whole one is held, or null

  [[nodiscard]] double get(const Database& db) const;
};

/// The rows of grdPara in their order, then Para_InitPress.
std::span<const Parameter> Calculation_Parameters();

/// The rows of grdPara alone.
std::span<const Parameter> Parameter_Rows();

/// The parameter of this name, or null.
const Parameter* Find_Parameter(std::string_view name);

/// The value as its row shows it: in its picture, the month by its name.
std::string Parameter_Text(const Database& db, const Parameter& parameter);

/// The allowed values in words: "0.001 to 100", "at most 0.3".
std::string Parameter_Range(const Parameter& parameter);

/// Sets a parameter by name from a text; Para_IntakeWBT follows the intake's air. Raises
/// Run_Time_Error with a text for the user, which names the parameter and its bounds, when there is
/// no such parameter, when it is derived, or when the text is no number or one out of range;
/// nothing is changed then.
void Set_Parameter(Database& db, std::string_view name, std::string_view text);

/// What is wrong with the text of a row of the parameter grid.
struct Parameter_Fault {
  int row;           ///< index into Parameter_Rows
  bool no_number;    ///< the text holds no number; else it holds one that the row must not have
  std::string low;   ///< the row's bounds in its picture; a real parameter without a lower bound
  std::string high;  ///< has words there
};

/// Tries values out: while it lives, the database holds what was taken; at its end the parameters
/// are as they were at its beginning, unless they were kept. Rows are those of Parameter_Rows, the
/// month's text is its number. A row whose text still is what the row shows keeps its value to the
/// last digit, shown or not.
class Parameter_Trial {
 public:
  explicit Parameter_Trial(Database& db);
  Parameter_Trial(const Parameter_Trial&) = delete;
  Parameter_Trial& operator=(const Parameter_Trial&) = delete;
  Parameter_Trial(Parameter_Trial&&) = delete;
  Parameter_Trial& operator=(Parameter_Trial&&) = delete;
  ~Parameter_Trial();

  /// Takes any number that the parameter can hold.
  std::optional<Parameter_Fault> take(int row, std::string_view text);
  /// Takes a number within the row's bounds.
  std::optional<Parameter_Fault> take_allowed(int row, std::string_view text);
  /// Lets the intake graph begin its year with this month, 0..12.
  void begin_year(int month) { db_.Para_MonthPrev = static_cast<std::int16_t>(month); }
  void keep() { kept_ = true; }

 private:
  Database& db_;
  std::vector<double> before_;
  std::int16_t month_before_;
  bool kept_ = false;
};

/// "OK/Fix" of the parameter grid: `texts` are its rows' values in order (the derived row's text is
/// not read). Tests every row; when all pass, commits them and derives Para_IntakeWBT. Else reports
/// the first that does not, and changes nothing. Raises Run_Time_Error, and changes nothing, where
/// the intake's air has no wet bulb.
std::optional<Parameter_Fault> Fix_Parameters(Database& db, std::span<const std::string> texts);

/// The intake air at the annual average.
struct Intake_Air {
  float P = 1;  ///< atm, at the first intake; 1 at or below sea level
  float x = 0;  ///< humidity ratio, from the vapour pressure
};

/// Sets Para_IntakeWBT from Para_IntakeTemp and Para_IntakeHum at the first intake's elevation:
/// relative humidity times saturation pressure is the vapour pressure. Returns the air it used.
/// Raises Run_Time_Error where there is no wet bulb.
Intake_Air Derive_Intake_WBT(Database& db);

}  // namespace branok
