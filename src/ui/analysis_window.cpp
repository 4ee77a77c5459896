#include "ui/analysis_window.h"

#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>
#include <array>

#include "airflow/flow_run.h"
#include "thermal/fan_state.h"
#include "ui/analysis_page.h"
#include "ui/grid_view.h"

namespace branok {

namespace {

constexpr Picture passes("###0");
constexpr Picture imbalance("0.00E-00");
constexpr Picture node_number("##0");
constexpr Picture fan_press("##0.00");
constexpr Picture fan_flow("####0.0");

}  // namespace

MDIAna::MDIAna(Database& db, Analysis_Panel& panel, QWidget* parent)
    : QWidget(parent), db_(db), panel_(panel) {
  setObjectName("MDIAna");
  setWindowTitle("Analysis Window");
  tabAna = new QTabWidget(this);
  tabAna->setObjectName("tabAna");
  page_ = new Analysis_Page;
  page_->setObjectName("pageAnalyze");
  tabAna->addTab(page_, "&Analyze");
  grdPress = make_grid(press_, "grdPress", "&Nodal Results");
  grdFlow = make_grid(flow_, "grdFlow", "Airways &Results");
  grdFlow->rows().set_text_columns({switch_column, airway_comment_column});
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(4, 4, 4, 4);
  rows->addWidget(tabAna);
  make_page_keys();

  connect(page_, &Analysis_Page::command, this, &MDIAna::command);
  connect(page_, &Analysis_Page::wet_tag_chosen, this, [this](const QString& tag) {
    db_.Wet_Tag = tag.toStdString();
    emit wet_method_chosen();
  });
  connect(tabAna, &QTabWidget::currentChanged, this, &MDIAna::tell_edit_target);
  panel_.attach(this);
}

MDIAna::~MDIAna() {
  panel_.detach();
  // The views go before the grids that they show, and pages that go one by one are no turn of page.
  for (QObject* sender : std::array<QObject*, 3>{tabAna, grdPress, grdFlow}) {
    sender->blockSignals(true);
  }
  delete tabAna;
}

Grid_View* MDIAna::make_grid(Text_Grid& grid, const QString& name, const QString& title) {
  auto* const page = new QWidget;
  page->setObjectName("page" + name);
  auto* const view = new Grid_View(grid, page);
  view->setObjectName(name);
  view->setAccessibleName(QString(title).remove('&'));
  auto* const rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(view);
  tabAna->addTab(page, title);
  connect(view, &Grid_View::focused, this, &MDIAna::tell_edit_target);
  return view;
}

// Ctrl+PageDown and Ctrl+PageUp turn the pages, where Ctrl+Tab turns windows.
void MDIAna::make_page_keys() {
  for (const auto& [key, step] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
    auto* const turn = new QShortcut(Qt::CTRL | key, this);
    turn->setContext(Qt::WidgetWithChildrenShortcut);
    connect(turn, &QShortcut::activated, tabAna, [this, way = step] {
      tabAna->setCurrentIndex((tabAna->currentIndex() + way + tabAna->count()) % tabAna->count());
    });
  }
}

void MDIAna::load() {
  // Whatever goes wrong below, no row of the mine before stays.
  for (Text_Grid* const grid : {&press_, &flow_}) grid->clear();
  for (Grid_View* const view : {grdPress, grdFlow}) {
    view->show_grid();
    view->set_empty_text(
        db_.Node_Total == 0 ? "No mine is open.\nFile, Open (Ctrl+O) reads one."
                            : "No results yet.\nPress \"Calc Flow for given Temp.\" on the Analyze "
                              "page to calculate pressures and flows.");
  }
  Show_Start_Press(db_, panel_);
  const bool evaporative = db_.Para_WetMode == 1;
  db_.Wet_Tag = evaporative ? "evaporate" : "area";
  page_->show_wet_mode(evaporative);
  Set_Result_State(Opening_State(db_));
  show_last_solution();
  page_->show_panel(panel_);
  Display_Data_Press();
  Display_Data_Flow();
}

void MDIAna::Set_Result_State(std::string_view kind) {
  panel_.result_state = kind;
  setProperty("Tag", QString::fromUtf8(kind.data(), static_cast<int>(kind.size())));
  page_->set_temperature_available(kind != "none" || db_.Flag_Results != 0);
  page_->set_fan_diagram_available(db_.MFan_Total > 0);
  emit state_changed();
}

// The fields of the last solution. The node of the largest imbalance is known of the last run
// alone.
void MDIAna::show_last_solution() {
  panel_.lblDisp[1].set(int{db_.Iter_No}, passes);
  panel_.lblDisp[5].set(db_.Iter_Error[db_.Iter_No], imbalance);
  if (panel_.last_pass()) panel_.lblDisp[6].set(panel_.last_pass()->node, node_number);
  if (db_.Flag_Results == 0 && db_.Iter_No == 0) return;
  std::array<float, max_main_fans> press{};
  std::array<float, max_main_fans> flow{};
  for (int f = 1; f <= db_.MFan_Total; ++f) {
    const Fan_State state = Present_Fan_State(db_, f);
    press[static_cast<std::size_t>(f - 1)] = static_cast<float>(-state.press);
    flow[static_cast<std::size_t>(f - 1)] = static_cast<float>(state.flow);
  }
  panel_.lblDisp[3].set_lines(press.data(), db_.MFan_Total, fan_press);
  panel_.lblDisp[4].set_lines(flow.data(), db_.MFan_Total, fan_flow);
}

void MDIAna::Display_Data_Press() {
  branok::Display_Data_Press(db_, press_);
  grdPress->show_grid();
}

void MDIAna::Display_Data_Flow() {
  branok::Display_Data_Flow(db_, flow_);
  grdFlow->show_grid();
}

void MDIAna::Find(int number) {
  if (tabAna->currentIndex() == analyze_page) tabAna->setCurrentIndex(press_page);
  const bool airways = tabAna->currentIndex() == flow_page;
  const int row = airways ? Find_Airway_Row(db_, number) : Find_Node_Row(db_, number);
  Grid_View* const grid = grid_on_show();
  grid->setFocus();
  grid->go_to_row(row);
}

int MDIAna::selected_airway() const {
  const QModelIndex current = grdFlow->currentIndex();
  const bool chosen =
      current.isValid() && grdFlow->selectionModel()->rowIntersectsSelection(current.row());
  return chosen ? current.row() + Text_Grid::FixedRows : 0;
}

bool MDIAna::change_switch() {
  const std::vector<int> changed = Change_Switch_Of_Row(db_, flow_, selected_airway());
  for (const int row : changed) grdFlow->rows().row_changed(row);
  // What was switched is in view, wherever the command was given.
  if (!changed.empty()) tabAna->setCurrentIndex(flow_page);
  return !changed.empty();
}

void MDIAna::copy_selection() {
  if (Grid_View* const grid = grid_on_show()) grid->copy_selection();
}

Paste_Result MDIAna::paste(std::string_view text) {
  Grid_View* const grid = grid_on_show();
  if (grid == nullptr) return {};
  grid->take_selection();
  const Paste_Result done = Paste_Grid(grid->rows().grid(), text);
  grid->show_grid();
  return done;
}

void MDIAna::apply_font(const QFont& font) {
  page_->apply_font(font);
  grdPress->setFont(font);
  grdFlow->setFont(font);
}

std::string MDIAna::page_tag() const {
  switch (tabAna->currentIndex()) {
    case press_page:
      return "pressure";
    case flow_page:
      return "flow";
    default:
      return "analyze";
  }
}

void MDIAna::tell_edit_target() {
  const bool grid = grid_on_show() != nullptr;
  emit edit_target(grid ? QString::fromStdString(page_tag()) : QString("none"));
}

Grid_View* MDIAna::grid_on_show() const {
  switch (tabAna->currentIndex()) {
    case press_page:
      return grdPress;
    case flow_page:
      return grdFlow;
    default:
      return nullptr;
  }
}

void MDIAna::show_panel() {
  page_->show_panel(panel_);
  page_->repaint_values();
}

// The engineer who opens the window mostly wants to calculate.
void MDIAna::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!shown_before_) page_->first_button()->setFocus();
  shown_before_ = true;
}

}  // namespace branok
