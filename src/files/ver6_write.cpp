// Writing the one-file format: every record, or run of rows, after its block of comments.
#include <algorithm>

#include "core/messages.h"
#include "core/safe_file.h"
#include "files/row_writer.h"
#include "files/ver6.h"
#include "files/ver6_rows.h"

namespace branok {

namespace {

using namespace ver6;

class Writer {
 public:
  Writer(const Database& db, const Comment_Template& comments) : db_(db), template_(comments) {
    constexpr std::size_t node_bytes = 600;  // a node with its three airways and their results
    const auto nodes = static_cast<std::size_t>(std::clamp<int>(db.Node_Total, 0, max_nodes));
    out_.reserve(8192 + comments.text().size() + nodes * node_bytes);
  }

  std::string text();

 private:
  template <class Describe>
  void Row(Describe describe) {
    Row_Writer row(out_);
    describe(row);
    row.end();
  }

  /// The rows 1..total of a table, each beginning with its number.
  template <class Describe>
  void Rows(int total, const Field& number, Describe describe) {
    for (int k = 1; k <= total; ++k) {
      Row([&](Row_Writer& row) {
        row.number(number, k);
        describe(row, k);
      });
    }
  }

  /// Every slot of every node in use, its row beginning with the numbers of its two ends.
  template <class Describe>
  void Slot_Rows(const Field& from, const Field& to, Describe describe) {
    for (int i = 1; i <= db_.Node_Total; ++i) {
      for (int slot = 1; slot <= db_.Node_JuncCount[i]; ++slot) {
        Row([&](Row_Writer& row) {
          row.number(from, i);
          row.number(to, db_.Node_Junc(slot, i));
          describe(row, i, slot);
        });
      }
    }
  }

  /// Lines of a section that has one block of comments before each.
  template <class Describe>
  void Fixed_Lines(int lines, Describe describe) {
    for (int n = 1; n <= lines; ++n) {
      Begin();
      Row([&](Row_Writer& row) { describe(row, n); });
    }
  }

  template <class Names>
  void Picture_Rows(const Names& names, int owner) {
    for (int p = 1; p <= max_pictures; ++p) {
      if (names(p, owner).empty()) continue;
      Row([&](Row_Writer& row) {
        row.number(picture_file::owner, owner);
        row.text(picture_file::name, names(p, owner));
      });
    }
  }

  void Text_Line(std::string_view text) {
    Row([&](Row_Writer& row) { row.text(Tail{1}, text); });
  }

  /// A text that the user typed: one that would be read back as a comment or the end of a block,
  /// and put every line after it in the wrong place, gets a blank in front.
  void Typed_Line(std::string_view text) {
    Text_Line(text.starts_with('*') ? ' ' + std::string(text) : std::string(text));
  }

  void Begin() { template_.Copy_Comment_Block(out_); }
  void End() { out_ += "**\r\n"; }

  void Head();
  void Nodes();
  void Node_Pictures();
  void Airways();
  void Airway_Pictures();
  void Intakes();
  void Main_Fans();
  void Fan_Tables();
  void Assist_Fans();
  void Thermal_Rows();
  void Parameters();
  void Node_Results();
  void Airway_Results();
  void Cad();
  [[nodiscard]] std::string Kind_Line() const;

  const Database& db_;
  Template_Cursor template_;
  std::string out_;
};

std::string Writer::text() {
  Text_Line(first_line);
  Head();
  Nodes();
  Node_Pictures();
  Airways();
  Airway_Pictures();
  Intakes();
  Main_Fans();
  Fan_Tables();
  Assist_Fans();
  Thermal_Rows();
  Parameters();
  Node_Results();
  Airway_Results();
  Cad();
  return std::move(out_);
}

void Writer::Head() {
  Begin();
  Row([&](Row_Writer& row) { Totals_Row(row, db_); });
  Begin();
  Typed_Line(db_.Mine_Date);
  Begin();
  Typed_Line(db_.Mine_Name);
  Begin();
  Typed_Line(db_.Mine_Note[1]);
  for (int k = 2; k <= 3; ++k) Text_Line(db_.Mine_Note[k]);
  End();
}

// A node without connections is not written: only Node_Total remembers its number.
void Writer::Nodes() {
  Begin();
  for (int i = 1; i <= db_.Node_Total; ++i) {
    if (db_.Node_JuncCount[i] <= 0) continue;
    Row([&](Row_Writer& row) {
      row.number(node::number, i);
      Node_Row(row, db_, i);
    });
  }
  End();
}

void Writer::Node_Pictures() {
  Begin();
  for (int i = 1; i <= db_.Node_Total; ++i) {
    if (db_.Node_JuncCount[i] > 0) Picture_Rows(db_.Node_Pict, i);
  }
  End();
}

void Writer::Airways() {
  Begin();
  Slot_Rows(airway::from, airway::to,
            [&](Row_Writer& row, int i, int slot) { Airway_Row(row, db_, i, slot); });
  End();
}

void Writer::Airway_Pictures() {
  Begin();
  for (int i = 1; i <= db_.Node_Total; ++i) {
    for (int slot = 1; slot <= db_.Node_JuncCount[i]; ++slot) {
      for (int p = 1; p <= max_pictures; ++p) {
        const std::string& name = db_.Root_Pict(p, slot, i);
        if (name.empty()) continue;
        Row([&](Row_Writer& row) {
          row.number(airway_picture::from, i);
          row.number(airway_picture::to, db_.Node_Junc(slot, i));
          row.text(airway_picture::name, name);
        });
      }
    }
  }
  End();
}

void Writer::Intakes() {
  Begin();
  Rows(db_.Inlet_Total, inlet::number, [&](Row_Writer& row, int k) { Inlet_Row(row, db_, k); });
  End();
  Begin();
  for (int k = 1; k <= db_.Inlet_Total; ++k) Picture_Rows(db_.Inlet_Pict, k);
  End();
}

void Writer::Main_Fans() {
  Begin();
  Rows(db_.MFan_Total, main_fan::number,
       [&](Row_Writer& row, int f) { Main_Fan_Row(row, db_, f); });
  End();
  Begin();
  for (int f = 1; f <= db_.MFan_Total; ++f) Picture_Rows(db_.MFan_Pict, f);
  End();
}

void Writer::Fan_Tables() {
  Begin();
  Rows(db_.MFan_Total, fan_coef::number,
       [&](Row_Writer& row, int f) { Fan_Coef_Row(row, db_, f); });
  End();
  Begin();
  for (int f = 1; f <= db_.MFan_Total; ++f) {
    for (int point = 1; point <= db_.MFan_HQCount[f]; ++point) {
      Row([&](Row_Writer& row) {
        row.number(fan_point::number, f);
        Fan_Point_Row(row, db_, f, point);
      });
    }
  }
  End();
}

void Writer::Assist_Fans() {
  Begin();
  Rows(db_.AFan_Total, assist_fan::number,
       [&](Row_Writer& row, int k) { Assist_Fan_Row(row, db_, k); });
  End();
  Begin();
  for (int k = 1; k <= db_.AFan_Total; ++k) Picture_Rows(db_.AFan_Pict, k);
  End();
}

void Writer::Thermal_Rows() {
  Begin();
  Rows(db_.Thermo_Total, thermal::number,
       [&](Row_Writer& row, int k) { Thermal_Row(row, db_, k); });
  End();
}

// Calculation parameters, graphic parameters, regulator marks with the data option.
void Writer::Parameters() {
  Fixed_Lines(parameter::lines, [&](Row_Writer& row, int n) { Parameter_Line(row, db_, n); });
  End();
  Fixed_Lines(graphic::lines, [&](Row_Writer& row, int n) { Graphic_Line(row, db_, n); });
  End();
  Fixed_Lines(marks::lines, [&](Row_Writer& row, int n) { Mark_Line(row, db_, n); });
  End();
}

void Writer::Node_Results() {
  Begin();
  if (db_.Flag_Results != 0) {
    Rows(db_.Node_Total, node_result::number,
         [&](Row_Writer& row, int i) { Node_Result_Row(row, db_, i); });
  }
  End();
}

// The kind stands in the file even when no results follow.
void Writer::Airway_Results() {
  Begin();
  Text_Line(Kind_Line());
  Begin();
  if (db_.Flag_Results != 0) {
    Slot_Rows(airway_result::from, airway_result::to,
              [&](Row_Writer& row, int i, int slot) { Airway_Result_Row(row, db_, i, slot); });
  }
  End();
}

std::string Writer::Kind_Line() const {
  if (db_.Flag_Annual == 1) return std::string(airway_result::annual);
  if (db_.Flag_Season != 1) return std::string(airway_result::given);
  return std::string(airway_result::season) + ' ' + std::string(Season_Of(db_));
}

void Writer::Cad() {
  Begin();
  Row([&](Row_Writer& row) { Color_Fields(row, cad::color, db_.Cad_Color); });
  Begin();
  if (db_.Flag_Cad != 0) {
    Rows(db_.Node_Total, cad::number, [&](Row_Writer& row, int i) { Cad_Row(row, db_, i); });
  }
  End();
}

}  // namespace

std::string Ver6_Text(const Database& db, const Comment_Template& comments) {
  return Writer(db, comments).text();
}

bool Write_Ver6(const Database& db, const std::filesystem::path& file,
                const Comment_Template& comments, Dialogue& dialogue) {
  Busy busy(dialogue);
  try {
    Write_Whole(file, Ver6_Text(db, comments));
    return true;
  } catch (const Run_Time_Error& fault) {
    busy.end();
    dialogue.remark(fault.what());
    dialogue.show(messages::File_Error("Save Ver.6 Data File"));
    return false;
  }
}

}  // namespace branok
