// The graphic parameters: one grid of what the pictures are drawn with.
#pragma once

#include <QDialog>

#include "core/dialogue.h"
#include "drawing/graphic_parameters.h"

namespace branok {

class Value_Grid;

/// Shown modal. Until OK commits the rows, all of them or none, the database stays as it is.
class DlgGPara : public QDialog {
  Q_OBJECT
 public:
  DlgGPara(Database& db, const Graphic& graphic, Dialogue& dialogue, QWidget* parent = nullptr);

 private:
  void show_values(const Graphic_Values& values);
  void set_default();
  void ok();
  void report(const Graphic_Fault& fault);

  Database& db_;
  const Graphic& graphic_;
  Dialogue& dialogue_;
  Graphic_Values values_{};  ///< as shown last; a row left alone keeps its own to the last digit
  Value_Grid* grdPara;
};

}  // namespace branok
