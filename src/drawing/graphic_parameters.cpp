#include "drawing/graphic_parameters.h"

#include <limits>
#include <memory>
#include <variant>

#include "core/numbers.h"
#include "core/pictures.h"

namespace branok {

namespace {

using Field = std::variant<std::int16_t Database::*, std::int32_t Database::*, float Database::*,
                           double Database::*>;

struct Row {
  std::string_view caption;
  Field field;
  Picture picture;
  double low, high;  // bounds of a typed value
};

constexpr Row Whole(std::string_view caption, std::int32_t Database::*field, const char* picture) {
  using Limits = std::numeric_limits<std::int32_t>;
  return {caption, field, Picture(picture), Limits::min(), Limits::max()};
}

constexpr Row Short(std::string_view caption, std::int16_t Database::*field, const char* picture) {
  using Limits = std::numeric_limits<std::int16_t>;
  return {caption, field, Picture(picture), Limits::min(), Limits::max()};
}

// The plan is drawn with these factors: with 0 there is none, and one beyond a hundred leaves a
// line of it.
constexpr Row Times(std::string_view caption, float Database::*field) {
  return {caption, field, Picture("#0.0"), 0.1, 100};
}

// The nearest plane of the picture in space lies at 1 m; a data file has room for ten digits.
constexpr Row Far(std::string_view caption, double Database::*field) {
  return {caption, field, Picture("###0"), 2, 9999999999};
}

using D = Database;

constexpr std::array<Row, graphic_parameter_rows> rows = {{
    Whole("Trans. E-W Range(m)  /2", &D::GPara_TransEW, "###0"),
    Whole("Trans. N-S Range(m)  /2", &D::GPara_TransNS, "###0"),
    Whole("Trans. Elvation Range(m)/2", &D::GPara_TransZ, "###0"),
    Short("Rotate E-W Ax.Range(deg.)/2", &D::GPara_RotEW, "##0"),
    Short("Rotate S-N Ax.Range(deg.)/2", &D::GPara_RotSN, "##0"),
    Short("Rotate Ver.Ax.Range(deg.)/2", &D::GPara_RotVer, "##0"),
    Short("Zoom Angle Range x10", &D::GPara_ZoomAngle, "#0"),
    Times("E-W  Times(-)", &D::GPara_EWTimes),
    Times("N-S  Times(-)", &D::GPara_NSTimes),
    Times("Elevation Times(-)", &D::GPara_ElevTimes),
    Far("Far length(m)/2", &D::GPara_FarLength),
    Short("Airway Diameter Times", &D::GPara_DiaTimes, "#0"),
}};

// A number as the row shows it: a whole one goes to the even neighbour.
double Shown(std::size_t row, double number) {
  const Picture& picture = rows[row].picture;
  const bool real = std::holds_alternative<float Database::*>(rows[row].field);
  return real ? Parse_Double(picture(number)) : Round(number);
}

}  // namespace

Graphic_Values Take_Graphic_Values(const Database& db) {
  Graphic_Values values{};
  for (std::size_t row = 0; row < values.size(); ++row) {
    values[row] =
        std::visit([&](auto field) { return static_cast<double>(db.*field); }, rows[row].field);
  }
  return values;
}

void Put_Graphic_Values(Database& db, const Graphic_Values& values) {
  for (std::size_t row = 0; row < values.size(); ++row) {
    std::visit(
        [&](auto field) {
          auto& held = db.*field;
          held = static_cast<std::remove_reference_t<decltype(held)>>(values[row]);
        },
        rows[row].field);
  }
}

Graphic_Values Default_Graphic_Values(const Database& db, const Graphic& graphic) {
  const auto trial = std::make_unique<Database>(db);
  Gpara_Default(*trial, graphic);
  return Take_Graphic_Values(*trial);
}

std::string_view Graphic_Caption(std::size_t row) { return rows[row].caption; }

std::string Graphic_Column(std::size_t row) {
  const std::string_view caption = rows[row].caption;
  return "'" + std::string(caption.substr(0, caption.find('('))) + "' Column";
}

std::string Graphic_Text(std::size_t row, double value) {
  const Row& r = rows[row];
  const bool real = std::holds_alternative<float Database::*>(r.field);
  // A 32-bit value has seven digits.
  return real ? r.picture(static_cast<float>(value)).text() : r.picture(value).text();
}

std::optional<Graphic_Fault> Read_Graphic_Values(const Graphic_Texts& texts,
                                                 Graphic_Values& values) {
  Graphic_Values read = values;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const Row& r = rows[row];
    const std::optional<double> number = Number_In(texts[row]);
    if (number && texts[row] != Graphic_Text(row, values[row])) read[row] = Shown(row, *number);
    if (number && read[row] >= r.low && read[row] <= r.high) continue;
    return Graphic_Fault{.row = row,
                         .no_number = !number,
                         .low = Graphic_Text(row, r.low),
                         .high = Graphic_Text(row, r.high)};
  }
  values = read;
  return std::nullopt;
}

}  // namespace branok
