// Takes a picture of every window and dialog: screenshots FOLDER light|dark. Nothing is compared; a
// person looks at them.
#include <QDir>
#include <QMdiArea>
#include <QMenu>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTest>
#include <cstdio>

#include "support/temporary_folder.h"
#include "ui/edit_grid.h"
#include "ui/grid_view.h"
#include "ui/main_window.h"
#include "ui/picture_window.h"
#include "user.h"

namespace branok {

namespace {

QPalette Dark() {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(43, 43, 43));
  dark.setColor(QPalette::WindowText, QColor(224, 224, 224));
  dark.setColor(QPalette::Base, QColor(32, 32, 32));
  dark.setColor(QPalette::AlternateBase, QColor(38, 38, 38));
  dark.setColor(QPalette::Text, QColor(224, 224, 224));
  dark.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
  dark.setColor(QPalette::Button, QColor(53, 53, 53));
  dark.setColor(QPalette::ButtonText, QColor(224, 224, 224));
  dark.setColor(QPalette::ToolTipBase, QColor(60, 60, 60));
  dark.setColor(QPalette::ToolTipText, QColor(224, 224, 224));
  dark.setColor(QPalette::Highlight, QColor(47, 101, 158));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::Link, QColor(110, 170, 230));
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(QPalette::Disabled, role, QColor(120, 120, 120));
  }
  return dark;
}

class Photographer {
 public:
  explicit Photographer(const QString& folder) : folder_(folder) {
    user_.look = [this](QWidget& box) { take(box, "box"); };
  }

  void take(QWidget& widget, const QString& name) {
    QTest::qWait(60);
    const QString file =
        QString("%1/%2-%3.png").arg(folder_).arg(++count_, 2, 10, QChar('0')).arg(name);
    if (!widget.grab().save(file)) std::fprintf(stderr, "%s not written\n", qPrintable(file));
  }

  void walk() {
    const Temporary_Folder home;
    std::filesystem::copy(std::filesystem::path(BRANOK_TEST_DATA) / "DATA", home / "DATA");
    BRANOK60 window({.own = home.path(), .installed = {home.path(), BRANOK_TEST_DATA}}, Settings());
    window.show();
    (void)QTest::qWaitForWindowActive(&window);
    take(window, "start");
    window.give_command("mnuFileComOpen");
    window.open_file(home / "DATA" / "mine-a.abk");
    take(window, "analysis-opened");
    runs(window);
    pages(window);
    database(window);
    for (const char* const name :
         {"mnuAnalysisComDiagram", "mnuAnalysisComGraph", "mnuAnalysisComLeng", "mnuDataComGraph",
          "mnuAnalysisComFind", "mnuHelpComAbout", "mnuOptionComFont", "mnuFileComSaveAs"}) {
      window.give_command(name);
    }
    parameters(window);
    pictures(window);
    menus(window);
    window.give_command("mnuHelpComBRN");
    for (QWidget* const top : QApplication::topLevelWidgets()) {
      if (top->objectName() == "Help") take(*top, "help");
    }
    user_.answers = {QMessageBox::Yes};  // the edits of mine A may go
    window.open_file(home / "DATA" / "mine-c.abk");
    take(window, "mine-c");
    pictures(window);
    window.resize(800, 560);
    take(window, "small");
    user_.answers = {QMessageBox::Yes};
    window.close();
  }

 private:
  void runs(BRANOK60& window) {
    user_.answers = {QMessageBox::No, QMessageBox::Ok};
    window.give_command("mnuAnalysisComPress");
    take(window, "flow");
    window.give_command("mnuAnalysisComAnnual");
    take(window, "annual");
    user_.answers = {QMessageBox::Yes, QMessageBox::Yes};
    window.give_command("mnuAnalysisComMonthly");
    take(window, "season");
  }

  // The dialog, its two diagrams, and the preview of its print.
  void parameters(BRANOK60& window) {
    user_.dialogs.push_back([](QDialog& dialog) {
      for (const char* const name : {"Com_InAir_Temp", "Com_GrdTemp", "cmdPrint"}) {
        dialog.findChild<QPushButton*>(name)->click();
      }
      dialog.reject();
    });
    window.give_command("mnuAnalysisComPara");
  }

  void pages(BRANOK60& window) {
    auto* const tabs = window.findChild<QTabWidget*>("tabAna");
    for (int page = 1; page < 3; ++page) {
      tabs->setCurrentIndex(page);
      tabs->currentWidget()->findChild<Grid_View*>()->setFocus();
      take(window, "page");
    }
    tabs->setCurrentIndex(0);
  }

  // The seven pages, a cell that is typed into, a fault that the check points at, and the options.
  void database(BRANOK60& window) {
    window.give_command("mnuWinSelCom", 0);
    auto* const tabs = window.findChild<QTabWidget*>("tabData");
    for (int page = 0; page < tabs->count(); ++page) {
      tabs->setCurrentIndex(page);
      take(window, "database");
    }
    tabs->setCurrentIndex(1);
    auto* const grid = window.findChild<Edit_Grid*>("grdRoot");
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(2, 2));
    QTest::keyClick(grid, '0');
    take(window, "typing");
    QTest::keyClick(grid->editor(), Qt::Key_Return);
    window.give_command("mnuDataComCheck");
    take(window, "fault");
    window.give_command("mnuEditComUndo");
    window.give_command("mnuDataOption");
    window.give_command("mnuWinSelCom", 1);
  }

  // Both picture windows: views, marks, labels, zoomed in, and their dialogs.
  void pictures(BRANOK60& window) {
    window.give_command("mnuWinSelCom", 2);
    take(window, "graphic");
    window.give_command("mnuGraphComAttach");
    for (const int view : {3, 4, 2}) {
      window.give_command("mnuGraphDim", view);
      take(window, "graphic-view");
    }
    window.give_command("mnuGraphNode_Info", 1);
    zoom_in(window, "MDIGraph", "graphic");
    for (const char* const name : {"mnuGraphComColor", "mnuGraphComPara", "mnuGraphComLvl",
                                   "mnuGraphComTemp", "mnuGraphComSave"}) {
      window.give_command(name);
    }
    window.give_command("mnuWinSelCom", 3);
    take(window, "cad");
    window.give_command("mnuCADAirway_Info", 2);
    take(window, "cad-flow");
    zoom_in(window, "MDICad", "cad");
    window.give_command("mnuCADComColor");
    window.give_command("mnuCADComFrm");
    window.give_command("mnuWinSelCom", 1);
  }

  void zoom_in(BRANOK60& window, const QString& name, const QString& title) {
    auto* const picture = window.findChild<Picture_Window*>(name);
    picture->show_area({0.3F, 0.3F, 0.6F, 0.6F});
    take(window, title + "-zoom");
    picture->show_area({});
  }

  void menus(BRANOK60& window) {
    for (QMenu* const menu : window.findChildren<QMenu*>()) {
      if (menu->objectName().isEmpty()) continue;
      menu->popup({0, 0});
      take(*menu, menu->objectName());
      menu->close();
    }
  }

  QString folder_;
  User user_;
  int count_ = 0;
};

}  // namespace

}  // namespace branok

int main(int argc, char** argv) {
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "Usage: screenshots FOLDER light|dark\n");
    return 2;
  }
  QApplication::setStyle("Fusion");
  if (QString(argv[2]) == "dark") QApplication::setPalette(branok::Dark());
  branok::Photographer(argv[1]).walk();
  return 0;
}
