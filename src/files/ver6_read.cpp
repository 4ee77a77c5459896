// Reading the one-file format, section by section in their order.
#include <cmath>
#include <vector>

#include "core/messages.h"
#include "core/safe_file.h"
#include "files/ver6.h"
#include "files/ver6_lines.h"
#include "files/ver6_rows.h"

namespace branok {

namespace {

using namespace ver6;

class Reader {
 public:
  Reader(Database& db, std::string_view bytes, Comment_Template& comments)
      : db_(db), lines_(bytes, comments) {}

  /// False where the file is refused without a message; refusal() then says why.
  bool read();

  [[nodiscard]] int line_number() const { return lines_.line_number(); }
  [[nodiscard]] const std::string& refusal() const { return refusal_; }

 private:
  bool refuse(std::string why) {
    refusal_ = std::move(why);
    return false;
  }

  bool Version();
  void Head();
  void Nodes();
  template <class Names>
  void Pictures(Names& names);
  void Airways();
  void Airway_Pictures();
  void Intakes();
  void Main_Fans();
  void Fan_Points();
  void Assist_Fans();
  void Thermal_Rows();
  bool Parameters();
  bool Graphic_Parameters();
  void Regulator_Marks();
  void Node_Results();
  void Airway_Results();
  void Result_Kind(std::string_view kind);
  void Cad();

  Database& db_;
  Section_Lines lines_;
  std::string refusal_;
  Node_Table<std::uint8_t> in_nodes_;  ///< nodes that the nodes section holds
};

bool Reader::read() {
  if (!Version()) return false;
  Reset_For_Read(db_);
  Head();
  Nodes();
  Pictures(db_.Node_Pict);
  Airways();
  Airway_Pictures();
  Intakes();
  Pictures(db_.Inlet_Pict);
  Main_Fans();
  Pictures(db_.MFan_Pict);
  lines_.rows(
      [&](const Row_Reader& row) { Fan_Coef_Row(row, db_, row.integer(fan_coef::number)); });
  Fan_Points();
  Assist_Fans();
  Pictures(db_.AFan_Pict);
  Thermal_Rows();
  if (!Parameters() || !Graphic_Parameters()) return false;
  Regulator_Marks();
  Node_Results();
  Airway_Results();
  Cad();
  Derive_After_Load(db_);
  return true;
}

bool Reader::Version() {
  const std::string_view first = lines_.raw_line();
  db_.Data_Ver = Parse_Int16(first.substr(first.size() - std::min<std::size_t>(first.size(), 1)));
  return db_.Data_Ver == 6 || refuse("the data are of version " + std::to_string(db_.Data_Ver));
}

void Reader::Head() {
  const Row_Reader totals(lines_.Next_Data_Line());
  Totals_Row(totals, db_);
  db_.Mine_Date = Trim(lines_.Next_Data_Line());
  db_.Mine_Name = lines_.Next_Data_Line();
  db_.Mine_Note[1] = lines_.Next_Data_Line();
  db_.Mine_Note[2] = lines_.raw_line();
  db_.Mine_Note[3] = lines_.raw_line();
  lines_.end_head();
}

// A node that raises the upper end of the depth range is not compared with the lower end.
void Reader::Nodes() {
  int highest = -10000;
  int lowest = 10000;
  lines_.rows([&](const Row_Reader& row) {
    const int i = std::abs(row.integer(node::number));
    in_nodes_[i] = 1;
    Node_Row(row, db_, i);
    db_.Node_Total = std::max(db_.Node_Total, static_cast<std::int16_t>(i));
    if (db_.Node_JuncCount[i] <= 0) return;
    const int elev = db_.Node_Elev[i];
    if (elev > highest) {
      highest = elev;
    } else if (elev < lowest) {
      lowest = elev;
    }
  });
  db_.Range_ZMax = static_cast<std::int16_t>(highest);
  db_.Range_ZMin = static_cast<std::int16_t>(lowest);
}

// The names of one owner close up in the order of their lines.
template <class Names>
void Reader::Pictures(Names& names) {
  List<int, Names::last> count;
  lines_.rows([&](const Row_Reader& row) {
    const int owner = row.integer(picture_file::owner);
    row.text(picture_file::name, names(++count[owner], owner));
  });
}

// The k-th line of a node fills its slot k; which node that slot leads to stands in the nodes
// section. A line of a node that the nodes section lacks lives on as a comment.
void Reader::Airways() {
  Node_Table<std::int16_t> count;
  const auto store = [&](const Row_Reader& row) {
    const int i = row.integer(airway::from);
    const int j = row.integer(airway::to);
    const bool known = in_nodes_[i] != 0 && in_nodes_[j] != 0;
    if (!known) return lines_.keep_as_comment(lines_.row());
    const std::int16_t slot = ++count[i];
    Airway_Row(row, db_, i, slot);
    if (i < j) db_.Node_UpSlot(++db_.Node_UpCount[i], i) = slot;
  };
  lines_.rows(store, true);

  for (int i = 1; i <= max_nodes; ++i) {
    db_.Node_JuncCount[i] = count[i];
    for (int unused = count[i] + 1; unused <= max_slots; ++unused) db_.Node_Junc(unused, i) = 0;
  }
}

// A line whose two nodes are not connected goes to the slot of the line before it.
void Reader::Airway_Pictures() {
  constexpr std::size_t side = max_nodes + 1;
  std::vector<std::uint8_t> count;  // by pair of nodes; most mines have no pictures at all
  int slot = 0;
  lines_.rows([&](const Row_Reader& row) {
    if (count.empty()) count.resize(side * side);
    const int i = row.integer(airway_picture::from);
    const int j = row.integer(airway_picture::to);
    if (const int found = Find_Slot(db_, i, j)) slot = found;
    if (j < 0 || j > max_nodes) Outside_Table(j, max_nodes);
    const int picture = ++count[static_cast<std::size_t>(j) * side + static_cast<std::size_t>(i)];
    if (picture > max_pictures) Outside_Table(picture, max_pictures);
    row.text(airway_picture::name, db_.Root_Pict(picture, slot, i));
  });
}

void Reader::Intakes() {
  lines_.rows([&](const Row_Reader& row) { Inlet_Row(row, db_, row.integer(inlet::number)); });
}

void Reader::Main_Fans() {
  lines_.rows(
      [&](const Row_Reader& row) { Main_Fan_Row(row, db_, row.integer(main_fan::number)); });
}

// The number of points is what stands here, not what the fan's own line says.
void Reader::Fan_Points() {
  int fan = 0;
  std::int16_t points = 0;
  lines_.rows([&](const Row_Reader& row) {
    const int next = row.integer(fan_point::number);
    if (next != fan) {
      if (points > 0) db_.MFan_HQCount[fan] = points;
      fan = next;
      points = 0;
    }
    Fan_Point_Row(row, db_, fan, ++points);
  });
  if (points > 0) db_.MFan_HQCount[fan] = points;
  for (int f = 1; f <= db_.MFan_Total; ++f) {
    if (db_.MFan_HQCount[f] > max_fan_points) Outside_Table(db_.MFan_HQCount[f], max_fan_points);
  }
}

void Reader::Assist_Fans() {
  lines_.rows(
      [&](const Row_Reader& row) { Assist_Fan_Row(row, db_, row.integer(assist_fan::number)); });
}

void Reader::Thermal_Rows() {
  lines_.rows([&](const Row_Reader& row) {
    const int k = row.integer(thermal::number);
    Thermal_Row(row, db_, k);
    db_.Thermo_Total = std::max(db_.Thermo_Total, static_cast<std::int16_t>(k));
  });
}

bool Reader::Parameters() {
  const int count = lines_.fixed_lines(
      parameter::lines, [&](const Row_Reader& row, int n) { Parameter_Line(row, db_, n); });
  Season_Of(db_);  // the month must have one
  Take_Wet_Mode(db_);
  return count <= parameter::lines || refuse("too many calculation parameters");
}

bool Reader::Graphic_Parameters() {
  const int count = lines_.fixed_lines(
      graphic::lines, [&](const Row_Reader& row, int n) { Graphic_Line(row, db_, n); });
  return count <= graphic::lines || refuse("too many graphic parameters");
}

void Reader::Regulator_Marks() {
  std::string_view first;
  if (!lines_.first_line(first)) return;
  const Row_Reader four(first);
  Mark_Line(four, db_, 1);
  bool option_read = false;
  lines_.rows(
      [&](const Row_Reader& row) {
        if (!option_read) Mark_Line(row, db_, 2);
        option_read = true;
      },
      true);
}

// A connected node without a row takes the pressure of the first node it leads to.
void Reader::Node_Results() {
  Node_Table<std::uint8_t> has_row;
  const int count = lines_.rows([&](const Row_Reader& row) {
    const int i = row.integer(node_result::number);
    Node_Result_Row(row, db_, i);
    has_row[i] = 1;
  });
  if (count == 0) return;
  db_.Flag_Results = flag_true;
  for (int i = 1; i <= db_.Node_Total; ++i) {
    if (has_row[i] == 0 && db_.Node_JuncCount[i] > 0) {
      db_.Node_Press[i] = db_.Node_Press[db_.Node_Junc(1, i)];
    }
    db_.Node_PressInit[i] = db_.Node_Press[i];
  }
}

void Reader::Airway_Results() {
  std::string_view kind;
  if (!lines_.first_line(kind)) return;
  Result_Kind(kind);
  lines_.rows([&](const Row_Reader& row) {
    const int i = row.integer(airway_result::from);
    const int slot = Find_Slot(db_, i, row.integer(airway_result::to));
    if (slot == 0) return;
    Airway_Result_Row(row, db_, i, slot);
    db_.Flag_Results = flag_true;
  });
}

void Reader::Result_Kind(std::string_view kind) {
  if (kind.starts_with(airway_result::annual)) {
    db_.Flag_Annual = 1;
    db_.Flag_Temp = flag_true;
    return;
  }
  db_.Flag_Season = kind.starts_with(airway_result::season) ? 1 : 0;
  db_.Flag_Annual = db_.Flag_Temp = 0;
}

void Reader::Cad() {
  std::string_view colors;
  if (!lines_.first_line(colors, End::exact)) return;
  const Row_Reader ten(colors);
  Color_Fields(ten, cad::color, db_.Cad_Color);
  const auto store = [&](const Row_Reader& row) { Cad_Row(row, db_, row.integer(cad::number)); };
  if (lines_.rows(store, false, End::exact) > 0) db_.Flag_Cad = flag_true;
}

}  // namespace

Read_Result Read_Ver6_Text(Database& db, std::string_view bytes, Comment_Template& comments) {
  comments.clear();
  Reader reader(db, bytes, comments);
  Read_Result result;
  try {
    result.ok = reader.read();
    result.silent = !result.ok;
    result.fault = reader.refusal();
  } catch (const Run_Time_Error& fault) {
    result.fault = fault.what();
  }
  result.line = reader.line_number();
  return result;
}

Read_Result Read_Ver6(Database& db, const std::filesystem::path& file, Comment_Template& comments) {
  try {
    return Read_Ver6_Text(db, Read_Whole(file), comments);
  } catch (const Run_Time_Error& fault) {
    Read_Result unread;
    unread.fault = fault.what();
    return unread;
  }
}

Read_Result Read_Ver6(Database& db, const std::filesystem::path& file, Comment_Template& comments,
                      Dialogue& dialogue) {
  Busy busy(dialogue);
  Read_Result result = Read_Ver6(db, file, comments);
  if (result.ok || result.silent) return result;
  busy.end();
  dialogue.show(messages::File_Error("Read Ver.6 Data File"));
  return result;
}

}  // namespace branok
