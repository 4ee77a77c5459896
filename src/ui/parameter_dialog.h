// The calculation parameters: one grid of values that steer all calculations.
#pragma once

#include <QDialog>
#include <functional>
#include <string_view>

#include "core/database.h"
#include "core/dialogue.h"
#include "thermal/parameters.h"

class QListWidget;

namespace branok {

class Value_Grid;
struct Report_Line;

/// Shown modal. Until "OK/Fix" commits the rows, all of them or none, the database stays as it is,
/// but for the time of a diagram of tried values.
class DlgCPara : public QDialog {
  Q_OBJECT
 public:
  /// Draws the diagram "gtemp" or "intemp" of the values that the database holds at the moment.
  using Draw_Diagram = std::function<void(std::string_view kind)>;

  DlgCPara(Database& db, Dialogue& dialogue, Draw_Diagram draw_diagram, QWidget* parent = nullptr);

 private:
  void make_controls();
  QLayout* make_buttons();
  void load();
  void show_wet_bulb();
  void take_month();
  void show_month();

  void fix();
  void draw(std::string_view kind, std::string_view first, std::string_view second);
  void print();

  /// Runs what a button commands; a fault ends it in a message.
  void run(const std::function<void()>& command);
  void report(const Parameter_Fault& fault);

  [[nodiscard]] std::string text_of(int row) const;
  [[nodiscard]] std::vector<Report_Line> lines() const;

  Database& db_;
  Dialogue& dialogue_;
  Draw_Diagram draw_diagram_;
  int month_ = 0;  ///< as chosen; beyond the list when the data say so
  Value_Grid* grdPara = nullptr;
  QListWidget* lstSeason = nullptr;
};

}  // namespace branok
