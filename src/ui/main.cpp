// branok, the program with its windows.
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "core/settings.h"
#include "ui/icon.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr int no_display = 3;  // exit code

// A program that cannot show a window says so in one line instead of ending in a core dump.
void Say_Fault(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtFatalMsg) {
    if (type != QtDebugMsg && type != QtInfoMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
    return;
  }
  std::fprintf(stderr, "branok: there is no display to show a window on.\n%s\n", qPrintable(text));
  std::_Exit(no_display);
}

// What a command's own trap has not caught ends in a message, never in the end of the program.
class Application : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& fault) {
      beep();
      QMessageBox::warning(activeWindow(), "BRANOK for Windows",
                           QString("Sorry, something failed: ") + fault.what());
    }
    return false;
  }
};

// The mine that the command line names; Qt has taken its own options out.
std::filesystem::path Named_Mine() {
  for (const QString& word : QApplication::arguments().mid(1)) {
    if (!word.startsWith('-')) return To_Path(word);
  }
  return {};
}

int Show_Window(int argc, char** argv) {
  qInstallMessageHandler(Say_Fault);
  Application application(argc, argv);
  QApplication::setApplicationName("BRANOK");
  QApplication::setApplicationVersion(BRANOK_VERSION);
  QApplication::setDesktopFileName("branok");
  QApplication::setStyle("Fusion");
  QApplication::setWindowIcon(Icon_Of("branok"));
  const Program_Folders folders = Find_Program_Folders(Running_Program_Folder());
  BRANOK60 window(folders, Load_Settings(folders.Ini_Path()));
  window.show();
  const std::filesystem::path mine = Named_Mine();
  if (!mine.empty()) QTimer::singleShot(0, &window, [&] { window.open_file(mine); });
  return QApplication::exec();
}

int Run(int argc, char** argv) {
  const std::string_view word = argc > 1 ? argv[1] : "";
  if (word == "--version") {
    std::puts("branok " BRANOK_VERSION);
    return 0;
  }
  if (word == "--help") {
    std::puts("Usage: branok [FILE.abk]\nOpens the program, and in it the mine of the file.");
    return 0;
  }
  try {
    return Show_Window(argc, argv);
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "branok: %s\n", fault.what());
    return 1;
  }
}

}  // namespace

}  // namespace branok

int main(int argc, char** argv) { return branok::Run(argc, argv); }
