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

// The number of a text, when the parameter may have it. Bounds are compared as the parameter is
// held, so that a bound itself passes.
double Read_Value(const Parameter& parameter, std::string_view text) {
  try {
    const double value = parameter.real != nullptr ? double{Parse_Single(text)}
                                                   : static_cast<double>(Parse_Int16(text));
    if (value >= static_cast<float>(parameter.low) && value <= static_cast<float>(parameter.high)) {
      return value;
    }
  } catch (const Run_Time_Error&) {
    // No number: refused as one out of range is.
  }
  Refuse(parameter, text);
}

void Store(Database& db, const Parameter& parameter, double value) {
  if (parameter.real != nullptr) {
    db.*parameter.real = static_cast<float>(value);
  } else {
    db.*parameter.integer = To_Int16(value);
  }
}

// Stores the values of these parameters and lets the intake's wet bulb follow. Where it cannot, all
// is as before.
void Commit(Database& db, std::span<const Parameter> rows, std::span<const double> values) {
  std::array<double, parameters.size()> before{};
  for (std::size_t row = 0; row < rows.size(); ++row) {
    before[row] = rows[row].get(db);
    Store(db, rows[row], values[row]);
  }
  try {
    Derive_Intake_WBT(db);
  } catch (const Run_Time_Error&) {
    for (std::size_t row = 0; row < rows.size(); ++row) Store(db, rows[row], before[row]);
    throw;
  }
}

}  // namespace

double Parameter::get(const Database& db) const {
  return real != nullptr ? double{db.*real} : static_cast<double>(db.*integer);
}

std::span<const Parameter> Calculation_Parameters() { return parameters; }

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
  const double value = Read_Value(*parameter, text);
  if (name == "Para_IntakeTemp" || name == "Para_IntakeHum") {
    Commit(db, {parameter, 1}, {&value, 1});
  } else {
    Store(db, *parameter, value);
  }
}

std::optional<Parameter_Fault> Fix_Parameters(Database& db, std::span<const std::string> texts) {
  std::array<double, parameters.size()> values{};
  const std::size_t rows = std::min(texts.size(), parameters.size());
  for (std::size_t row = 0; row < rows; ++row) {
    const Parameter& parameter = parameters[row];
    try {
      values[row] =
          parameter.entry == Entry::derived ? parameter.get(db) : Read_Value(parameter, texts[row]);
    } catch (const Run_Time_Error& error) {
      return Parameter_Fault{.row = static_cast<int>(row), .text = error.what()};
    }
  }
  Commit(db, std::span(parameters).first(rows), values);
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
