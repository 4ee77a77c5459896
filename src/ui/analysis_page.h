// The first page of the Analysis window: what a run shows while it goes, and the buttons that start
// runs. It holds the controls; what they mean is the window's business.
#pragma once

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <array>
#include <vector>

#include "core/panel.h"

namespace branok {

class Analysis_Page : public QScrollArea {
  Q_OBJECT
 public:
  explicit Analysis_Page(QWidget* parent = nullptr);

  /// Puts the panel's values into labels and bars. (Frames have a shape of the name Panel.)
  void show_panel(const branok::Panel& panel);
  /// Brings what has changed to the screen at once, in the middle of a run.
  void repaint_values();

  void show_wet_mode(bool evaporative);
  /// Makes the annual run, the temperature frame and the wetness selection available.
  void set_temperature_available(bool available);
  void set_fan_diagram_available(bool available) { Com_Fan_Diagram->setEnabled(available); }

  /// The font of all labels.
  void apply_font(const QFont& font);

  /// All of the page.
  [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint(); }

  [[nodiscard]] QWidget* first_button() const { return Com_Calc_Flow; }

 signals:
  /// A button was pressed that stands for this menu command.
  void command(const QString& name);
  /// A wet-wall method was chosen: "area" or "evaporate".
  void wet_tag_chosen(const QString& tag);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  static constexpr int displays = 17;
  static constexpr int titles = 34;

  QPushButton* make_button(const char* name, const QString& caption, const char* menu_command);
  QLabel* make_label(const QString& name);
  QLabel* make_value(QLabel* label);
  QScrollArea* make_list(int display);
  QProgressBar* make_bar(int number, const QString& what);
  void add_row(QGridLayout& grid, int row, int title, QLabel* value, int unit = -1);
  QLayout* fan_lists();
  QGroupBox* pressure_frame();
  QGroupBox* temperature_frame();
  QLayout* command_column();
  void build_wetness();
  void set_tab_order();
  void show_heading_bold();
  void fit_labels();
  void fit_titles(const std::vector<std::size_t>& column);
  static void fit_values(const std::vector<QLabel*>& column, const QString& widest);
  void fit_lists();

  QPushButton *Com_Calc_Flow, *Com_Calc_Annu, *Com_Calc_Season, *Com_Set_Temp, *Com_EditPara,
      *Com_Fan_Diagram;
  QGroupBox *fraBase0, *fraBase1, *fraSprtr;
  std::array<QRadioButton*, 2> optWetR;
  std::array<QProgressBar*, 2> pgbPercent{};
  std::array<QLabel*, displays> lblDisp;
  std::array<QLabel*, titles> lblTitle;
  std::vector<QScrollArea*> lists_;
};

}  // namespace branok
