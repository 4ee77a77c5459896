// The data options: how the grids of the Database window behave, and from which resistances on an
// airway is marked as a regulator in the plan.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "core/database.h"
#include "core/dialogue.h"

class QGroupBox;
class QLineEdit;
class QRadioButton;

namespace branok {

/// Shown modal. OK stores the options and marks; until then the database stays as it is. New marks
/// give all airways their regulator classes anew.
class DlgData_Option : public QDialog {
  Q_OBJECT
 public:
  DlgData_Option(Database& db, Dialogue& dialogue, QWidget* parent = nullptr);

 private:
  QGroupBox* move_frame();
  QGroupBox* grid_frame();
  QGroupBox* range_frame();
  QGroupBox* mark_frame();
  void load();
  void show_marks(const std::array<float, 4>& marks);

  void ok();
  /// The marks as typed; nothing when one is wrong, which has been told.
  std::optional<std::array<float, 4>> typed_marks();
  void report(std::size_t mark, const Message& message);

  Database& db_;
  Dialogue& dialogue_;
  std::array<QRadioButton*, 2> Move_sel{};
  std::array<QRadioButton*, 3> Op_GridSel{};
  std::array<QRadioButton*, 2> Op_CalRange{};
  std::array<QLineEdit*, 4> ResRange{};
};

}  // namespace branok
