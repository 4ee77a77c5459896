// The Analysis window: the runs are started here, watched while they go, and their results read in
// two grids.
#pragma once

#include <QTabWidget>
#include <QWidget>
#include <string>
#include <string_view>

#include "core/database.h"
#include "core/text_grid.h"
#include "prep/edit_commands.h"
#include "thermal/result_grids.h"
#include "ui/analysis_panel.h"

namespace branok {

class Analysis_Page;
class Grid_View;

class MDIAna : public QWidget {
  Q_OBJECT
 public:
  /// Database and panel must outlive the window. It shows what they hold once it is loaded.
  MDIAna(Database& db, Analysis_Panel& panel, QWidget* parent = nullptr);
  MDIAna(const MDIAna&) = delete;
  MDIAna& operator=(const MDIAna&) = delete;
  MDIAna(MDIAna&&) = delete;
  MDIAna& operator=(MDIAna&&) = delete;
  ~MDIAna() override;

  /// Shows the mine as it is: start pressures, wet-wall method (which also becomes Wet_Tag), state,
  /// last solution, both grids. Called when another mine has been opened; the panel is reset
  /// before. Raises Run_Time_Error when the mine holds a number outside its table.
  void load();

  /// Makes frames, options and buttons available for the kind of results: "none", "Flow-Given",
  /// "Annual-Flow" or "Seasonal-Flow". The property Tag remembers it.
  void Set_Result_State(std::string_view kind);

  /// Fill the grids with the present results. Raise Run_Time_Error, the grid staying as it was,
  /// when the results hold a number outside its table.
  void Display_Data_Press();
  void Display_Data_Flow();

  /// Goes to a node in the grid on show; from the first page in the grid of the nodes.
  void Find(int number);

  /// The current row of the airways' grid, 0 when there is none.
  [[nodiscard]] int selected_airway() const;

  /// Opens or closes the airway of the current row. False when nothing has changed.
  bool change_switch();

  /// Copies the selection of the grid on show.
  void copy_selection();

  /// Spreads clipboard text over the grid on show. What was calculated comes back with the next
  /// refresh.
  Paste_Result paste(std::string_view text);

  /// The font of grids and labels.
  void apply_font(const QFont& font);

  /// The page on show: "analyze", "pressure" or "flow".
  [[nodiscard]] std::string page_tag() const;

  /// Shows the panel's values at once, in the middle of a run too.
  void show_panel();

  /// The grids as data, for reports.
  [[nodiscard]] const Text_Grid& nodal_results() const { return press_; }
  [[nodiscard]] const Text_Grid& airway_results() const { return flow_; }

 signals:
  /// A button was pressed: the name of its menu command, or "fan_diagram".
  void command(const QString& name);
  /// What the Edit commands work on: "pressure", "flow" or "none".
  void edit_target(const QString& tag);
  /// A wetness option was clicked; Wet_Tag has it.
  void wet_method_chosen();
  /// Set_Result_State has been called.
  void state_changed();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  enum Page { analyze_page, press_page, flow_page };

  Grid_View* make_grid(Text_Grid& grid, const QString& name, const QString& title);
  void make_page_keys();
  void tell_edit_target();
  void show_last_solution();
  [[nodiscard]] Grid_View* grid_on_show() const;

  Database& db_;
  Analysis_Panel& panel_;
  Text_Grid press_ = Nodal_Results_Grid();
  Text_Grid flow_ = Airway_Results_Grid();
  QTabWidget* tabAna;
  Analysis_Page* page_;
  Grid_View *grdPress, *grdFlow;
  bool shown_before_ = false;
};

}  // namespace branok
