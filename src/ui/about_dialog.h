// What the program is, which version, and under which licence.
#pragma once

#include <QDialog>

namespace branok {

class DlgAbout : public QDialog {
  Q_OBJECT
 public:
  explicit DlgAbout(QWidget* parent = nullptr);
};

}  // namespace branok
