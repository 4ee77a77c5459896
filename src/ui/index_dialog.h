// The colour index: which temperatures the colours of the picture in space stand for.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "core/database.h"
#include "core/dialogue.h"
#include "drawing/color_index.h"

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;

namespace branok {

/// Shown modal. OK stores the ends of the scale as Temp_Max and Temp_Min; until then the database
/// stays as it is. Temperatures can be displayed when a run has left some.
class DlgIndex : public QDialog {
  Q_OBJECT
 public:
  /// `index_on`: whether temperatures are displayed now.
  DlgIndex(Database& db, bool index_on, Dialogue& dialogue, QWidget* parent = nullptr);

  /// Whether airways are to be drawn in the colours of their temperatures.
  [[nodiscard]] bool Index_On() const;

 private:
  QGroupBox* range_frame();
  QGridLayout* legend();
  void show_legend(const Index_Range& range);

  /// "Setting": brings the typed ends within their limits and shows the scale. Nothing when a text
  /// is no number, which has been told.
  std::optional<Index_Range> set_index();
  std::optional<double> temperature_in(QLineEdit* entry);
  void ok();

  Database& db_;
  Dialogue& dialogue_;
  std::array<QLineEdit*, 2> txtData{};
  std::array<QLabel*, 16> lblColor{};
  QCheckBox* chkIndex;
};

}  // namespace branok
