// A diagram painted: curves, axes, legend and footnote, on the screen in the colours of the
// desktop, on paper and on the clipboard on white.
#pragma once

#include <qcustomplot.h>

#include <array>
#include <memory>

#include "thermal/diagrams.h"

class QPrinter;

namespace branok {

/// Colours and letters of a chart.
struct Chart_Look {
  QColor ground, text, grid;
  std::array<QColor, 6> curves;
  QFont title, axis, small;
};

class Diagram_Chart : public QCustomPlot {
  Q_OBJECT
 public:
  explicit Diagram_Chart(QWidget* parent = nullptr);

  /// Shows the diagram, all of it in view.
  void show_diagram(Diagram diagram);
  [[nodiscard]] const Diagram& diagram() const { return diagram_; }

  /// Brings everything back into view after zooming and dragging.
  void show_all();

  /// What the point nearest to a place of the widget stands for; empty when none is near.
  [[nodiscard]] QString value_at(const QPointF& place) const;

  /// The part in view as a picture on white, with `scale` pixels for each of the widget's.
  [[nodiscard]] QImage picture(double scale) const;

  /// Paints the part in view on the printer's page, on white and as lines and letters. False when
  /// the printer cannot be written to.
  [[nodiscard]] bool paint_page(QPrinter& printer) const;

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void arrange();
  void show_in_row(int row, QCPLayoutElement* element, bool shown);
  void set_look(const Chart_Look& look);
  void take_screen_look();
  void add_series();
  void add_working_point();
  void add_hint();
  void choose_tickers();
  [[nodiscard]] bool logarithmic() const;
  [[nodiscard]] QString point_text(const QString& name, const Diagram_Point& point) const;
  [[nodiscard]] std::unique_ptr<Diagram_Chart> on_paper() const;
  void zoom(double factor);
  void pan(double right, double up);

  Diagram diagram_;
  Chart_Look look_;
  QCPTextElement* title_;
  QCPTextElement* footnote_;
};

}  // namespace branok
