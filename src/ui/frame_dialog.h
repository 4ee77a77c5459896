// The frame of the CAD picture: how much space the drawing gets at each side.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "core/dialogue.h"
#include "drawing/cad.h"

class QLineEdit;

namespace branok {

/// Shown modal. After OK `space` is what was typed.
class DlgFrame : public QDialog {
  Q_OBJECT
 public:
  explicit DlgFrame(Dialogue& dialogue, QWidget* parent = nullptr);

  [[nodiscard]] const Frame_Space& space() const { return space_; }

 private:
  void ok();
  /// The percentage in an entry; nothing when there is none that may be used, which has been told.
  std::optional<double> percent_in(std::size_t entry);

  Dialogue& dialogue_;
  Frame_Space space_;
  std::array<QLineEdit*, 4> txtValue{};
};

}  // namespace branok
