// Undo and redo of the CAD drawing: where its nodes lay after each act.
#pragma once

#include <vector>

#include "core/database.h"
#include "drawing/cad.h"

namespace branok {

/// Like the history of the grids it compares: what differs after an act is a step.
class Cad_History {
 public:
  /// Begins anew with the drawing as it is: after a load, or when nodes have left the network.
  void start(const Database& db, const Cad& cad);
  /// After an act. An act that changed nothing is no step.
  void note(const Database& db, const Cad& cad);

  [[nodiscard]] bool can_undo() const { return now_ > 0; }
  [[nodiscard]] bool can_redo() const { return now_ + 1 < states_.size(); }
  /// The drawing as it was before the last act, or after it again. Lists are not rebuilt.
  void undo(Database& db, Cad& cad);
  void redo(Database& db, Cad& cad);

 private:
  struct State {
    Node_Table<float> X, Y;
    std::int16_t drawn = 0;  // Flag_Cad
    int placed = 0;          // Cad_InputNode
    bool operator==(const State&) const = default;
  };
  static State State_Of(const Database& db, const Cad& cad);
  void restore(Database& db, Cad& cad) const;

  std::vector<State> states_;
  std::size_t now_ = 0;
};

}  // namespace branok
