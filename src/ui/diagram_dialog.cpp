#include "ui/diagram_dialog.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSpinBox>
#include <algorithm>
#include <utility>

#include "ui/diagram_chart.h"
#include "ui/printing.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr QSize usual_size(820, 600);
constexpr double least_copy_scale = 2;  // sharp in a report

QPushButton* Button(const char* name, const char* text, QWidget* parent) {
  auto* const button = new QPushButton(text, parent);
  button->setObjectName(name);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

DlgGraph::DlgGraph(Diagram diagram, QWidget* parent)
    : QDialog(parent), grhGraph(new Diagram_Chart(this)), picTemp(new QLabel(this)) {
  set_up();
  show_diagram(std::move(diagram));
}

DlgGraph::DlgGraph(int fans, int fan, std::function<Diagram(int)> diagram_of, QWidget* parent)
    : DlgGraph(diagram_of(fan), parent) {
  diagram_of_ = std::move(diagram_of);
  if (fans > 1) add_fan_chooser(fans, fan);
}

void DlgGraph::set_up() {
  setObjectName("DlgGraph");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  grhGraph->setObjectName("grhGraph");
  picTemp->setObjectName("picTemp");
  picTemp->hide();

  auto* const cmdCopy = Button("cmdCopy", "&Copy", this);
  auto* const cmdPrint = Button("cmdPrint", "&Print Out", this);
  auto* const cmdClose = Button("cmdClose", "Close", this);
  cmdClose->setDefault(true);
  cmdCopy->setToolTip("Put the diagram on the clipboard (Ctrl+C)");
  cmdPrint->setToolTip("Preview and print the diagram (Ctrl+P)");
  connect(cmdCopy, &QPushButton::clicked, this, &DlgGraph::copy);
  connect(cmdPrint, &QPushButton::clicked, this, &DlgGraph::print);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this, &DlgGraph::copy);
  connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, this, &DlgGraph::print);

  auto* const buttons = new QHBoxLayout;
  buttons->setObjectName("laoButtons");
  buttons->addStretch();
  for (QPushButton* button : {cmdCopy, cmdPrint, cmdClose}) buttons->addWidget(button);
  auto* const rows = new QVBoxLayout(this);
  rows->addWidget(grhGraph, 1);
  rows->addLayout(buttons);
  cmdClose->setFocus();
  resize(usual_size.boundedTo(screen()->availableSize() * 0.9));
}

void DlgGraph::show_diagram(Diagram diagram) {
  setWindowTitle(QString::fromStdString(diagram.title));
  grhGraph->show_diagram(std::move(diagram));
}

void DlgGraph::add_fan_chooser(int fans, int fan) {
  auto* const spnFan = new QSpinBox(this);
  spnFan->setObjectName("spnFan");
  spnFan->setRange(1, fans);
  spnFan->setValue(fan);
  auto* const lblFan = new QLabel("&Fan No.", this);
  lblFan->setBuddy(spnFan);
  auto* const buttons = findChild<QHBoxLayout*>("laoButtons");
  buttons->insertWidget(0, lblFan);
  buttons->insertWidget(1, spnFan);
  setTabOrder(grhGraph, spnFan);
  setTabOrder(spnFan, findChild<QPushButton*>("cmdCopy"));
  connect(spnFan, &QSpinBox::valueChanged, this, &DlgGraph::show_fan);
}

void DlgGraph::show_fan(int fan) {
  try {
    show_diagram(diagram_of_(fan));
  } catch (const Run_Time_Error& error) {
    show_diagram(Blank_Fan_Diagram(fan, std::string("This fan has no curve: ") + error.what()));
  }
}

void DlgGraph::copy() {
  const QImage picture = grhGraph->picture(std::max(least_copy_scale, devicePixelRatioF()));
  picTemp->setPixmap(QPixmap::fromImage(picture));
  QGuiApplication::clipboard()->setImage(picture);
}

void DlgGraph::print() {
  Print_With_Preview(
      this, windowTitle(), [this](QPrinter& printer) { return grhGraph->paint_page(printer); },
      QPageLayout::Landscape);
}

void Draw_Diagram(QWidget* parent, Diagram diagram) { DlgGraph(std::move(diagram), parent).exec(); }

void Draw_Fan_Diagram(QWidget* parent, int fans, int fan, std::function<Diagram(int)> diagram_of) {
  DlgGraph(fans, fan, std::move(diagram_of), parent).exec();
}

}  // namespace branok
