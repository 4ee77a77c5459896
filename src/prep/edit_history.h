// Undo and redo of what the engineer does in the grids, one act a step.
//
// Nothing that edits knows of the history: after each act the copy is compared with what it was
// before, and the rows that differ are kept. So every act, also one that is invented later, can be
// taken back to the last character.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "prep/edit_copy.h"

namespace branok {

class Edit_History {
 public:
  /// Forgets all steps: the copy as it is now is the beginning.
  void start(const Edit_Copy& copy);

  /// Ends an act: what differs from the last step becomes a step, and what could be done again is
  /// forgotten. False when nothing differs.
  bool note(const Edit_Copy& copy);

  [[nodiscard]] bool can_undo() const { return !undo_.empty(); }
  [[nodiscard]] bool can_redo() const { return !redo_.empty(); }

  /// Takes the last step back, or does it again: the copy's texts become what they were, the
  /// folders touched are noted as edited. Returns where it was; nothing when there is no such step.
  std::optional<Edit_Place> undo(Database& db, Edit_Copy& copy);
  std::optional<Edit_Place> redo(Database& db, Edit_Copy& copy);

 private:
  struct Rows {  // of one grid, one behind the other
    std::vector<std::string> cells;
    Picture_Rows pictures;
    int count = 0;
    [[nodiscard]] std::size_t bytes() const;
  };
  struct Change {
    Folder folder = Folder::airway;
    int first = 0;  // row
    Rows before, after;
  };
  struct Pages {
    std::array<Fan_Page, max_main_fans> fan_pages;
    int MFan_GridTotal = 0;
  };
  struct Step {
    std::vector<Change> changes;
    std::optional<Pages> before, after;  // of the main fans, when they differ
    int fan = 0;                         // the first that differs
    std::size_t size = 0;                // bytes of what is kept, about
  };

  [[nodiscard]] static std::optional<Change> Difference(const Edit_Copy& from, const Edit_Copy& to,
                                                        Folder folder);
  static Rows Copy_Rows(const Edit_Copy& copy, Folder folder, int first, int count);
  static void Put_Rows(Edit_Copy& copy, Folder folder, int first, int old_count, const Rows& rows);
  std::optional<Edit_Place> move(std::deque<Step>& from, std::deque<Step>& to, bool back,
                                 Database& db, Edit_Copy& copy);
  void apply(const Step& step, bool back, Edit_Copy& copy) const;
  void forget_oldest();

  Edit_Copy last_;  // as the last step left it
  std::deque<Step> undo_, redo_;
  std::size_t kept_ = 0;  // bytes in all steps
};

}  // namespace branok
