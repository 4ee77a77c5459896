// The colours of a picture.
#pragma once

#include <QDialog>

#include "drawing/colors.h"

class QComboBox;

namespace branok {

class Color_Button;
class Color_Picture;

/// Shown modal. Works on a copy of its own: the caller takes it after OK.
class DlgColor : public QDialog {
  Q_OBJECT
 public:
  DlgColor(const Color_Copy& colors, Color_Set set, QWidget* parent = nullptr);

  [[nodiscard]] const Color_Copy& colors() const { return colors_; }

 private:
  [[nodiscard]] std::size_t entry() const;  ///< of the colour table: the row that is chosen
  void choose_color();
  void set_colors(const Color_Copy& colors);
  void show_colors();

  Color_Copy colors_;
  QComboBox* cboColor;
  Color_Button* lblColor;
  Color_Picture* picSample;
};

}  // namespace branok
