#include "prep/calculators.h"

#include <algorithm>
#include <cmath>

#include "core/airway_rules.h"
#include "core/messages.h"
#include "core/pictures.h"
#include "core/vocabulary.h"
#include "prep/airway_name.h"
#include "prep/cell_rules.h"
#include "prep/edit_commands.h"

namespace branok {

namespace {

constexpr Picture resistance("#0.#");
constexpr Picture friction("#0.######");
constexpr Picture standard_friction("#####0.000000");
constexpr Picture metres("###0.0");
constexpr Picture height("#0.0");
// A least value must not be shown as 0: the row would have no such number when it is read again.
constexpr Picture least_metres("#0.0##");

constexpr std::string_view kinds = "01234567";
constexpr std::string_view winds = "AaBbCc";
constexpr std::string_view shapes = "CcHhSsRr";

// What stops a row, and the column that it is about.
struct Row_Fault {
  Message message;
  int col;
};

[[noreturn]] void Missing(std::string_view name, int col) {
  throw Row_Fault{messages::Missing_Input(name, Folder_Name(Folder::airway)), col};
}

// One row of the airway grid.
class Airway_Row {
 public:
  Airway_Row(Database& db, Edit_Copy& copy, int row) : db_(db), copy_(copy), row_(row) {}

  /// The number of a cell, 0 of a blank one.
  [[nodiscard]] float number(int col) const {
    if (Trim(text(col)).empty()) return 0;
    try {
      return Parse_Single(text(col));
    } catch (const Run_Time_Error&) {
      throw Row_Fault{messages::Not_Numeric(), col};
    }
  }
  [[nodiscard]] float size(int col) const { return std::abs(number(col)); }

  /// Where the cell's one letter stands among `letters`, -1 when it is none of them.
  [[nodiscard]] int letter(int col, std::string_view letters) const {
    const std::string_view cell = Trim(text(col));
    const std::size_t at = cell.size() == 1 ? letters.find(cell) : std::string_view::npos;
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
  }
  [[nodiscard]] int kind() const { return listed(root_column::kind, kinds, "Support Kind List"); }
  [[nodiscard]] int wind() const { return listed(root_column::wind, winds, "Winding List") / 2; }
  [[nodiscard]] int shape() const { return listed(root_column::shape, shapes, "Shape List") / 2; }

  /// The distance of the row's two nodes in m.
  [[nodiscard]] double distance() const {
    const std::string_view name = text(root_column::name);
    if (!Is_Airway_Name(name)) throw Row_Fault{messages::Input_Node_Number(), root_column::name};
    if (auto fault = Cell_Fault(Folder::airway, root_column::name, name)) {
      throw Row_Fault{std::move(*fault), root_column::name};
    }
    const std::optional<Airway_Nodes> nodes = Get_Row_Nodes(name);
    for (const int node : {nodes->left, nodes->right}) {
      // A node that the tables do not know yet has no place: a length from it would be invented.
      if (db_.Node_JuncCount[node] == 0) {
        throw Row_Fault{messages::Node_Not_Existing(node, Folder_Name(Folder::airway)),
                        root_column::name};
      }
    }
    return Node_Distance(db_, nodes->left, nodes->right);
  }

  template <class Number>
  void show(int col, const Picture& picture, Number value) {
    Set_Cell(copy_, Folder::airway, row_, col, picture(value));
    Note_Edit(db_, Folder::airway);
  }
  /// Shows a number that a formula has raised to its least value.
  void show_raised(int col, const Picture& picture, float before, float now) {
    if (now != before) show(col, picture, now);
  }

 private:
  [[nodiscard]] std::string_view text(int col) const { return copy_.grdRoot.text(row_, col); }
  [[nodiscard]] int listed(int col, std::string_view letters, std::string_view item) const {
    const int at = letter(col, letters);
    if (at >= 0) return at;
    throw Row_Fault{messages::Wrong_Input(item, Folder_Name(Folder::airway)), col};
  }

  Database& db_;
  Edit_Copy& copy_;
  int row_;
};

struct Row_Data {
  float area = 0, peri = 0, length = 0;
};

// What resistance and friction are computed from. A perimeter that is missing comes from the area
// and the shape, a length from the two nodes; both are shown in the row.
Row_Data Get_Row_Data(Airway_Row& row) {
  Row_Data data{.area = row.size(root_column::area),
                .peri = row.size(root_column::peri),
                .length = row.size(root_column::length)};
  if (data.area == 0) Missing("Airway Area(>0)", root_column::area);
  if (data.peri == 0) {
    const int shape = row.letter(root_column::shape, shapes);
    if (shape < 0) Missing("Airway Perimeter(>0)", root_column::peri);
    data.peri = Perimeter_Of_Shape(data.area, shape / 2);
    row.show(root_column::peri, metres, data.peri);
  }
  if (data.length == 0) {
    data.length = To_Single(row.distance());
    if (data.length == 0) Missing("Airway Length(>0)", root_column::length);
    row.show(root_column::length, metres, data.length);
  }
  return data;
}

void Show_Resistance(Airway_Row& row) {
  const float fric = row.number(root_column::fric);
  Row_Data data = Get_Row_Data(row);
  if (!(fric > 0)) Missing("Friction Factor = 0) ", root_column::fric);
  const Row_Data before = data;
  float used_fric = fric;
  const float resist = Calc_Resist(data.area, data.length, data.peri, used_fric);
  row.show_raised(root_column::length, least_metres, before.length, data.length);
  row.show_raised(root_column::peri, least_metres, before.peri, data.peri);
  row.show_raised(root_column::fric, friction, fric, used_fric);
  row.show(root_column::resist, resistance, resist);
}

void Show_Friction(Airway_Row& row) {
  const float resist = row.number(root_column::resist);
  Row_Data data = Get_Row_Data(row);
  if (!(resist > 0)) Missing("Resistance = 0", root_column::resist);
  const Row_Data before = data;
  const float fric = Calc_Fric(resist, data.area, data.length, data.peri);
  row.show_raised(root_column::length, least_metres, before.length, data.length);
  row.show_raised(root_column::peri, least_metres, before.peri, data.peri);
  row.show(root_column::fric, friction, fric);
}

float Needed_Area(const Airway_Row& row) {
  const float area = row.size(root_column::area);
  if (area == 0) Missing("Area(>0) ", root_column::area);
  return area;
}

void Calculate_Row(Airway_Row row, Calculator calculator) {
  switch (calculator) {
    case Calculator::resistance:
      return Show_Resistance(row);
    case Calculator::length:
      // One metre more than the distance of the nodes.
      return row.show(root_column::length, metres, row.distance() + 1.0);
    case Calculator::perimeter:
      return row.show(root_column::peri, metres, Perimeter_Of_Shape(Needed_Area(row), row.shape()));
    case Calculator::friction:
      return Show_Friction(row);
    case Calculator::standard:
      return row.show(root_column::fric, standard_friction,
                      Root_FricTable.at(static_cast<std::size_t>(row.kind()))
                          .at(static_cast<std::size_t>(row.wind())));
    case Calculator::height:
      return row.show(root_column::height, height, Height_Of_Shape(Needed_Area(row), row.shape()));
  }
}

float Of_Shape(const std::array<double, 4>& factors, float area, int shape) {
  if (shape < 0 || shape > 3) Outside_Table(shape, 3, 0);
  return To_Single(factors[static_cast<std::size_t>(shape)] * std::sqrt(double{area}));
}

}  // namespace

std::optional<Edit_Place> Calculate(Database& db, Edit_Copy& copy, Calculator calculator,
                                    Dialogue& dialogue) {
  const bool all = db.Opt_CalRange == -1;
  const Row_Range rows =
      all ? Row_Range{Text_Grid::FixedRows, copy.grdRoot.Rows() - 1} : Selected_Rows(copy.grdRoot);
  const auto passed_over = [&](int row) {
    return all ? !Is_Airway_Name(copy.grdRoot.text(row, root_column::name))
               : copy.grdRoot.is_blank(row);
  };
  for (int row = rows.first; row <= rows.last; ++row) {
    if (passed_over(row)) continue;
    try {
      Calculate_Row(Airway_Row(db, copy, row), calculator);
    } catch (const Row_Fault& fault) {
      dialogue.remark(std::string(Folder_Name(Folder::airway)) + ", row " + std::to_string(row));
      dialogue.show(fault.message);
      return Edit_Place{.folder = Folder::airway, .row = row, .col = fault.col};
    }
  }
  return std::nullopt;
}

float Calc_Fric(float resist, float area, float& length, float& peri) {
  const double a3 = double{area} * area * area + 1e-8;
  peri = std::max(peri, 0.01F);
  length = std::max(length, 0.3F);
  const double fric = double{resist} / 1000 / (double{length} * peri) * a3;
  return To_Single(std::min(fric, 99999.0));
}

double Node_Distance(const Database& db, int i, int j) {
  const double dx = double(db.Node_EW[i]) - db.Node_EW[j];
  const double dy = double(db.Node_SN[i]) - db.Node_SN[j];
  const double dz = double(db.Node_Elev[i]) - db.Node_Elev[j];
  return Int(10 * std::sqrt(dx * dx + dy * dy + dz * dz)) * 0.1;
}

float Perimeter_Of_Shape(float area, int shape) {
  return Of_Shape({3.544, 3.74, 4.0, 4.1}, area, shape);
}

float Height_Of_Shape(float area, int shape) {
  return Of_Shape({1.13, 0.8915, 1.0, 0.8}, area, shape);
}

}  // namespace branok
