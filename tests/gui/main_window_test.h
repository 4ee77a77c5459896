// The main window in a program folder of its own, with a user before it.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <fstream>
#include <memory>

#include "support/temporary_folder.h"
#include "ui/grid_view.h"
#include "ui/main_window.h"
#include "user.h"

// How a failed comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out) { *out << qPrintable(text); }

namespace branok {

class Main_Window : public testing::Test {
 protected:
  Main_Window() { start(); }

  /// A window as the program shows it, with the settings that stand in the folder.
  void start() {
    window_.reset();
    const Program_Folders folders = this->folders();
    window_ = std::make_unique<BRANOK60>(folders, Load_Settings(folders.Ini_Path()));
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    window_->activateWindow();
    (void)QTest::qWaitForWindowActive(window_.get(), 1000);
  }

  [[nodiscard]] Program_Folders folders() const {
    return {.own = home_.path(), .installed = {home_.path(), BRANOK_TEST_DATA}};
  }

  [[nodiscard]] QAction* action(const QString& name) const {
    return window_->findChild<QAction*>(name);
  }
  [[nodiscard]] QToolButton* tool(const QString& key) const {
    return window_->findChild<QToolBar*>("tlbBRANOK")->findChild<QToolButton*>(key);
  }
  template <class Widget>
  [[nodiscard]] Widget* control(const QString& name) const {
    return window_->findChild<Widget*>(name);
  }
  [[nodiscard]] QString status(const QString& field) const {
    return control<QLabel>(field)->text();
  }
  /// What the status bar says of the results, in full.
  [[nodiscard]] QString results() const { return control<QLabel>("stbResults")->toolTip(); }
  [[nodiscard]] QWidget* analysis() const { return control<QWidget>("MDIAna"); }
  void give(const QString& name) const { action(name)->trigger(); }

  /// Lets the user choose a file in the next file dialog.
  void choose(const std::filesystem::path& file) {
    user_.dialogs.push_back([file](QDialog& dialog) {
      auto* const name = dialog.findChild<QLineEdit*>("fileNameEdit");
      name->setText(QString::fromStdString(file.string()));
      QTest::keyClick(name, Qt::Key_Return);
      if (dialog.isVisible()) dialog.reject();  // the choice was refused
    });
  }
  void open(const std::filesystem::path& file) {
    choose(file);
    give("mnuFileComOpen");
  }

  /// A copy of a demo mine that a test may overwrite.
  [[nodiscard]] std::filesystem::path mine(const std::string& name) const {
    auto copy = home_ / name;
    std::filesystem::copy_file(std::filesystem::path(BRANOK_TEST_DATA) / "DATA" / name, copy,
                               std::filesystem::copy_options::overwrite_existing);
    return copy;
  }

  [[nodiscard]] static std::string bytes(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  /// All data rows of a grid as they are shown.
  [[nodiscard]] std::vector<QStringList> rows(const QString& grid) const {
    const QAbstractItemModel* const model = control<Grid_View>(grid)->model();
    std::vector<QStringList> all;
    for (int row = 0; row < model->rowCount(); ++row) {
      QStringList cells;
      for (int col = 0; col < model->columnCount(); ++col) {
        cells << model->index(row, col).data().toString();
      }
      all.push_back(cells);
    }
    return all;
  }

  Temporary_Folder home_;
  User user_;
  std::unique_ptr<BRANOK60> window_;
};

}  // namespace branok
