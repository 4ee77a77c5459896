// The level band: between which elevations the mine is shown.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "core/dialogue.h"
#include "drawing/graphic.h"

class QLineEdit;

namespace branok {

/// Shown modal. Opening it widens the band to the mine's range; OK narrows it to the two typed
/// levels, any other end gives the picture the band back that it had.
class DlgLevel : public QDialog {
  Q_OBJECT
 public:
  DlgLevel(const Database& db, Graphic& graphic, Dialogue& dialogue, QWidget* parent = nullptr);

  void done(int result) override;

 private:
  void ok();
  /// The level that an entry names; nothing when it is none, which has been told.
  std::optional<std::int16_t> level_in(std::size_t entry);

  const Database& db_;
  Graphic& graphic_;
  Dialogue& dialogue_;
  std::int16_t low_before_, high_before_;
  std::array<QLineEdit*, 2> txtLevel{};
};

}  // namespace branok
