// The status bar: the last remark, the mine, its file, the state of its results, the keyboard and
// the time.
#pragma once

#include <QBasicTimer>
#include <QLabel>
#include <QStatusBar>
#include <filesystem>
#include <string>

#include "core/database.h"

namespace branok {

/// The state of the results in words: "No results", "Results: Flow", "Results: Annual", "Results:
/// mid Summer" (`season`); "Results out of date: Annual, an airway was switched" when the data have
/// changed since.
std::string Results_Text(const Database& db, const std::string& season,
                         const std::string& outdated);

class Remark_Label;

class Status_Bar : public QStatusBar {
  Q_OBJECT
 public:
  explicit Status_Bar(QWidget* parent);

  /// A remark: shown until the next one or the next command, in full as a tool tip.
  void show_remark(const QString& text);
  void clear_remarks();
  /// What lies under the pointer: shown instead of the remarks until it is empty.
  void show_hint(const QString& text);

  void show_mine(const Database& db, const std::filesystem::path& file, const std::string& season,
                 const std::string& outdated);

  /// Pages of the Database window whose edits no check has seen yet; empty when there are none.
  void show_unchecked(const QStringList& pages);

  /// Reads the state of the lock keys and shows it.
  void show_keyboard();

 protected:
  void timerEvent(QTimerEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void show_time();
  void fit_fields();

  QLabel* field(const char* name, const QString& tip);

  void show_remarks();

  QStringList remarks_;
  QString hint_;
  Remark_Label* remark_;
  QLabel* mine_;
  QLabel* file_;
  QLabel* edits_;
  QLabel* results_;
  QLabel* caps_;
  QLabel* num_;
  QLabel* time_;
  QString mine_name_, file_name_, results_text_;  // in full
  QBasicTimer clock_;
};

}  // namespace branok
