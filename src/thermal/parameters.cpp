#include "thermal/parameters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/faults.h"
#include "core/numbers.h"
#include "thermal/moist_air.h"

namespace branok {

namespace {

constexpr double no_bound = -std::numeric_limits<double>::infinity();

// One row with its format written once.
constexpr Parameter Row(std::string_view name, std::string_view title, std::string_view column,
                        std::string_view format, double standard, double low, double high,
                        float Database::*real, Entry entry = Entry::typed) {
  return {name, title, column, format, Picture(format), standard, low, high, entry, real, nullptr};
}

constexpr Parameter Whole_Row(std::string_view name, std::string_view title,
                              std::string_view column, std::string_view format, double standard,
                              double low, double high, std::int16_t Database::*integer,
                              Entry entry = Entry::typed) {
  return {name, title, column, format,  Picture(format), standard,
          low,  high,  entry,  nullptr, integer};
}

using D = Database;

constexpr std::array<Parameter, 13> parameters = {{
    Row("Para_FlowTol", "Allowable  Flow Tolerance     (m\u00b3/min)",
        "'Allowable Flow Tolerance' Column", "#0.0##", 0.1, 0.001, 100, &D::Para_FlowTol),
    Row("Para_Accel", "Convergent Accel. Coeff.      (-)", "'Convergent Accel. Coeff.' Column",
        "0.##", 1.4, 0.4, 1.5, &D::Para_Accel),
    Row("Para_IntakeTemp", "Annual Ave. Intake D.B.Temp.  (\u00b0C)",
        "'Annual Ave. Intake Temp.' Column", "##0.0#", 9, -20, 45, &D::Para_IntakeTemp),
    Row("Para_TempDiff", "Annual Max. Temp. Diff.       (\u00b0C)",
        "'Annual Max. Temp. Diff.' Column", "##0.00", 26.6, 0, 50, &D::Para_TempDiff),
    Row("Para_IntakeHum", "Annual Ave. Intake Hum.         (%)", "'Annual Ave. Intake Hum.' Column",
        "##0.0", 60, 0, 100, &D::Para_IntakeHum),
    Row("Para_IntakeWBT", "Annual Ave. Intake W.B.Temp.  (\u00b0C)",
        "'Annual Ave. Intake W.B.Temp.' Column", "##0.0#", 5.6, no_bound, 100, &D::Para_IntakeWBT,
        Entry::derived),
    Row("Para_RockTemp", "Rock Temp at Datum L.         (\u00b0C)",
        "'Rock Temp at Datum L.' Column", "##0.0#", 17, -20, 50, &D::Para_RockTemp),
    Row("Para_RockGrad", "Rock Temp Gradient          (\u00b0C/m)", "'Rock Temp Gradient' Column",
        "#0.0##", 0.03, no_bound, 0.3, &D::Para_RockGrad),
    Row("Para_RockCond", "Rock Heat Conductivity (kcal/mh\u00b0C)",
        "'Rock Heat Conductivity' Column", "#0.0#", 3, 0.2, 15, &D::Para_RockCond),
    Row("Para_RockDiff", "Rock Temp Diffusivity       (m\u00b2/h)",
        "'Rock Temp Diffusivity' Column", "0.0###", 0.006, 0.0003, 0.1, &D::Para_RockDiff),
    Whole_Row("Para_DatumElev", "Datum Elevation               (m)", "'Datum Elevation' Column",
              "0.0", 0, no_bound, 2000, &D::Para_DatumElev),
    Whole_Row("Para_Month", "Month for Seasoning Thermal Ana. ",
              "'Month for Seasoning Thermal Ana.' Column", "##0", 10, 0, 12, &D::Para_Month,
              Entry::listed),
    Row("Para_InitPress", "", "'Initial Nodal Press.' Column", "0.0##", 0.3, 0, 1,
        &D::Para_InitPress, Entry::no_row),
}};

// A bound in the fewest digits.
std::string Short(double value) {
  constexpr Picture six_decimals("0.######");
  std::string text = six_decimals(value).text();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

[[noreturn]] void Refuse(const Parameter& parameter, std::string_view text) {
  throw Run_Time_Error(std::string(parameter.name) + " must be " + Parameter_Range(parameter) +
                       ", not '" + std::string(text.substr(0, 40)) + "'");
}

// Bounds are compared as the parameter is held, so that a bound itself passes.
bool Is_Allowed(const Parameter& parameter, double value) {
  return value >= static_cast<float>(parameter.low) && value <= static_cast<float>(parameter.high);
}

// What a text is to a parameter. Each is there only when the one before it is.
struct Reading {
  std::optional<double> number;   // what the text says
  std::optional<double> held;     // that number, as the parameter would hold it
  std::optional<double> allowed;  // the same, when it is within the bounds
};

Reading Read(const Parameter& parameter, std::string_view text) {
  Reading reading;
  try {
    reading.number = Parse_Double(text);
    reading.held = parameter.real != nullptr ? double{To_Single(*reading.number)}
                                             : static_cast<double>(To_Int16(*reading.number));
    if (Is_Allowed(parameter, *reading.held)) reading.allowed = reading.held;
  } catch (const Run_Time_Error&) {
    // The reading ends here.
  }
  return reading;
}

// A row still says what it showed: its value may have digits that its picture does not show.
bool Is_Untouched(const Database& db, const Parameter& parameter, std::string_view text) {
  return parameter.real != nullptr && text == Parameter_Text(db, parameter);
}

void Store(Database& db, const Parameter& parameter, double value) {
  if (parameter.real != nullptr) {
    db.*parameter.real = static_cast<float>(value);
  } else {
    db.*parameter.integer = To_Int16(value);
  }
}

// Where no lower bound is set, a whole parameter ends with its 16 bits; a real one has no end that
// would tell the engineer anything.
std::string Low_Text(const Parameter& parameter) {
  if (parameter.low != no_bound) return parameter.picture(parameter.low).text();
  if (parameter.real != nullptr) return "any value below";
  return parameter.picture(int{std::numeric_limits<std::int16_t>::min()}).text();
}

Parameter_Fault Fault(int row, const Reading& reading) {
  const Parameter& parameter = parameters[static_cast<std::size_t>(row)];
  return {.row = row,
          .no_number = !reading.number.has_value(),
          .low = Low_Text(parameter),
          .high = parameter.picture(parameter.high).text()};
}

}  // namespace

double Parameter::get(const Database& db) const {
  return real != nullptr ? double{db.*real} : static_cast<double>(db.*integer);
}

std::span<const Parameter> Calculation_Parameters() { return parameters; }

std::span<const Parameter> Parameter_Rows() {
  return Calculation_Parameters().first(parameters.size() - 1);
}

const Parameter* Find_Parameter(std::string_view name) {
  const auto* const found = std::find_if(parameters.begin(), parameters.end(),
                                         [&](const Parameter& p) { return p.name == name; });
  return found == parameters.end() ? nullptr : found;
}

std::string Parameter_Text(const Database& db, const Parameter& parameter) {
  if (parameter.real != nullptr) return parameter.picture(db.*parameter.real).text();
  if (parameter.entry == Entry::listed) return std::string(Season_Of(db));  // the month
  return parameter.picture(int{db.*parameter.integer}).text();
}

std::string Parameter_Range(const Parameter& parameter) {
  if (parameter.low == no_bound) return "at most " + Short(parameter.high);
  return Short(parameter.low) + " to " + Short(parameter.high);
}

void Set_Parameter(Database& db, std::string_view name, std::string_view text) {
  const Parameter* const parameter = Find_Parameter(name);
  if (parameter == nullptr) throw Run_Time_Error("no parameter is named " + std::string(name));
  if (parameter->entry == Entry::derived) {
    throw Run_Time_Error(std::string(name) + " follows from other parameters and cannot be set");
  }
  const std::optional<double> value = Read(*parameter, text).allowed;
  if (!value) Refuse(*parameter, text);
  Parameter_Trial trial(db);
  Store(db, *parameter, *value);
  if (name == "Para_IntakeTemp" || name == "Para_IntakeHum") Derive_Intake_WBT(db);
  trial.keep();
}

Parameter_Trial::Parameter_Trial(Database& db) : db_(db), month_before_(db.Para_MonthPrev) {
  for (const Parameter& parameter : parameters) before_.push_back(parameter.get(db));
}

Parameter_Trial::~Parameter_Trial() {
  db_.Para_MonthPrev = month_before_;
  if (kept_) return;
  for (std::size_t i = 0; i < parameters.size(); ++i) Store(db_, parameters[i], before_[i]);
}

std::optional<Parameter_Fault> Parameter_Trial::take(int row, std::string_view text) {
  const Parameter& parameter = parameters[static_cast<std::size_t>(row)];
  if (Is_Untouched(db_, parameter, text)) return std::nullopt;
  const Reading reading = Read(parameter, text);
  if (!reading.held) return Fault(row, reading);
  Store(db_, parameter, *reading.held);
  return std::nullopt;
}

std::optional<Parameter_Fault> Parameter_Trial::take_allowed(int row, std::string_view text) {
  const Parameter& parameter = parameters[static_cast<std::size_t>(row)];
  // A value beyond its bounds that is shown rounded to one of them becomes what is shown.
  if (Is_Untouched(db_, parameter, text) && Is_Allowed(parameter, parameter.get(db_))) {
    return std::nullopt;
  }
  const Reading reading = Read(parameter, text);
  if (!reading.allowed) return Fault(row, reading);
  Store(db_, parameter, *reading.allowed);
  return std::nullopt;
}

std::optional<Parameter_Fault> Fix_Parameters(Database& db, std::span<const std::string> texts) {
  Parameter_Trial trial(db);
  const auto rows = static_cast<int>(std::min(texts.size(), Parameter_Rows().size()));
  for (int row = 0; row < rows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    if (parameters[i].entry == Entry::derived) continue;
    if (auto fault = trial.take_allowed(row, texts[i])) return fault;
  }
  Derive_Intake_WBT(db);
  trial.keep();
  return std::nullopt;
}

Intake_Air Derive_Intake_WBT(Database& db) {
  const Float_Faults faults;
  const int elevation = std::max<int>(db.Node_Elev[db.Inlet_Node[1]], 0);
  Intake_Air air;
  air.P = static_cast<float>(Air_Pressure(elevation));
  const float ps = Calc_SatPress(db.Para_IntakeTemp);
  const auto pv = static_cast<float>(double{db.Para_IntakeHum} * ps / 100);
  air.x = Calc_SatHum(air.P, pv);
  const float wet_bulb = Calc_WetBulb(air.P, db.Para_IntakeTemp, air.x);
  faults.check("the intake's wet bulb");
  db.Para_IntakeWBT = wet_bulb;
  return air;
}

}  // namespace branok
