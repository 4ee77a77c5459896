#include "files/cad_member.h"

#include "core/safe_file.h"
#include "files/row_writer.h"
#include "files/ver6_rows.h"

namespace branok {

namespace {

using ver6::Field;
using ver6::Next_Field;
using ver6::Row_Writer;

constexpr Field integer(1, 5, "0");
constexpr Field x(21, 10, "###0.00000");
constexpr Field y(31, 10, "###0.00000");

/// Integers side by side.
template <class... Integers>
void Integer_Fields(Row_Writer& row, Integers... values) {
  int n = 0;
  (row.number(Next_Field(integer, ++n), values), ...);
}

// One line of the file.
template <class Describe>
void Line(std::string& out, Describe describe) {
  Row_Writer row(out);
  describe(row);
  row.end();
}

void Text_Line(std::string& out, std::string_view text) {
  Line(out, [&](Row_Writer& row) { row.text(ver6::Tail{1}, text); });
}

// From, to and class of an airway; blanks where the node has none.
void Slot_Line(std::string& out, const Database& db, int i, int slot) {
  if (slot > db.Node_JuncCount[i]) return Text_Line(out, std::string(15, ' '));
  Line(out, [&](Row_Writer& row) {
    Integer_Fields(row, i, int{db.Node_Junc(slot, i)}, int{db.Root_Type(slot, i)});
  });
}

void Node_Lines(std::string& out, const Database& db, int i) {
  // Number, connected airways, 1 when in use, role, and where it is drawn in the unit square.
  Line(out, [&](Row_Writer& row) {
    Integer_Fields(row, i, int{db.Node_JuncCount[i]}, int{db.Node_Used[i]}, int{db.Node_Type[i]});
    row.number(x, db.Node_CadX[i]);
    row.number(y, db.Node_CadY[i]);
  });
  for (int slot = 1; slot <= max_slots; ++slot) Slot_Line(out, db, i, slot);
  Text_Line(out, {});
}

}  // namespace

std::string Cad_Member(const Database& db, std::string_view today) {
  std::string out;
  Text_Line(out, db.Mine_Name);
  Text_Line(out, today);
  // Highest node number, main fans, intakes.
  Line(out, [&](Row_Writer& row) {
    Integer_Fields(row, int{db.Node_Total}, int{db.MFan_Total}, int{db.Inlet_Total});
  });
  // 0x00BBGGRR: node, airway, number, intake, main fan, assist fan, door, marking, grid,
  // background.
  Line(out, [&](Row_Writer& row) { Color_Fields(row, ver6::cad::color, db.Cad_Color); });
  for (int i = 1; i <= db.Node_Total; ++i) Node_Lines(out, db, i);
  return out;
}

void Write_Cad_Member(const Database& db, const std::filesystem::path& file,
                      std::string_view today) {
  Write_Whole(file, Cad_Member(db, today));
}

}  // namespace branok
