// The window of the program's diagrams.
#pragma once

#include <QDialog>
#include <functional>

#include "thermal/diagrams.h"

class QLabel;

namespace branok {

class Diagram_Chart;

class DlgGraph : public QDialog {
  Q_OBJECT
 public:
  explicit DlgGraph(Diagram diagram, QWidget* parent = nullptr);

  /// The diagram of main fan `fan` of 1..`fans`, with a way to the others. `diagram_of` makes a
  /// fan's diagram; what it raises for the first fan comes out of here, what it raises for another
  /// is shown in its place.
  DlgGraph(int fans, int fan, std::function<Diagram(int)> diagram_of, QWidget* parent = nullptr);

 private:
  void set_up();
  void show_diagram(Diagram diagram);
  void show_fan(int fan);
  void add_fan_chooser(int fans, int fan);
  void copy();
  void print();

  Diagram_Chart* grhGraph;
  QLabel* picTemp;  // holds the picture that was copied last
  std::function<Diagram(int)> diagram_of_;
};

/// Shows the diagram and waits until it is closed.
void Draw_Diagram(QWidget* parent, Diagram diagram);

/// As DlgGraph's second constructor; raises what it raises.
void Draw_Fan_Diagram(QWidget* parent, int fans, int fan, std::function<Diagram(int)> diagram_of);

}  // namespace branok
