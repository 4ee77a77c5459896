// What the middle of the main window shows while no child window is open: what to do next.
#pragma once

#include <QWidget>

#include "core/settings.h"

class QVBoxLayout;

namespace branok {

class Start_Page : public QWidget {
  Q_OBJECT
 public:
  explicit Start_Page(QWidget* parent);

  /// Offers the recent files anew.
  void show_recent(const Settings& settings);

 signals:
  /// A button asks for the menu command of this name.
  void command(const QString& name, int index);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void add(const QString& caption, const char* icon, const char* name, const char* command,
           int index);

  QVBoxLayout* buttons_;
};

}  // namespace branok
