#include "drawing/cad_history.h"

namespace branok {

namespace {

constexpr std::size_t most_steps = 500;

}  // namespace

Cad_History::State Cad_History::State_Of(const Database& db, const Cad& cad) {
  return {db.Node_CadX, db.Node_CadY, db.Flag_Cad, cad.Cad_InputNode};
}

void Cad_History::start(const Database& db, const Cad& cad) {
  states_ = {State_Of(db, cad)};
  now_ = 0;
}

void Cad_History::note(const Database& db, const Cad& cad) {
  State state = State_Of(db, cad);
  if (states_.empty() || state == states_[now_]) return;
  states_.resize(now_ + 1);
  states_.push_back(std::move(state));
  if (states_.size() > most_steps) states_.erase(states_.begin());
  now_ = states_.size() - 1;
}

void Cad_History::undo(Database& db, Cad& cad) {
  if (!can_undo()) return;
  --now_;
  restore(db, cad);
}

void Cad_History::redo(Database& db, Cad& cad) {
  if (!can_redo()) return;
  ++now_;
  restore(db, cad);
}

void Cad_History::restore(Database& db, Cad& cad) const {
  const State& state = states_[now_];
  db.Node_CadX = state.X;
  db.Node_CadY = state.Y;
  db.Flag_Cad = state.drawn;
  cad.Cad_InputNode = state.placed;
}

}  // namespace branok
