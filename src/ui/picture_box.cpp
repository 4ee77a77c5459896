#include "ui/picture_box.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include "ui/one_line.h"
#include "ui/qt_text.h"

namespace branok {

Picture_Box::Picture_Box(const QString& name, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setAccessibleName("Picture File");
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(40);
  setMinimumWidth(120);  // in a small window it gives way
  Keep_To_One_Line(lineEdit());
  setToolTip("Up to three picture files: choose a place, type a name");
  addItems(QStringList{"", "", ""});
  connect(lineEdit(), &QLineEdit::textEdited, this, &Picture_Box::take_text);
  connect(lineEdit(), &QLineEdit::editingFinished, this, &Picture_Box::finish);
  connect(this, &QComboBox::currentIndexChanged, this, [this](int place) {
    lineEdit()->setPlaceholderText(QString("no picture %1").arg(place + 1));
    finish();
  });
  show_none();
}

void Picture_Box::show_names(const Names& names) {
  setEnabled(true);
  lineEdit()->setPlaceholderText(QString("no picture %1").arg(currentIndex() + 1));
  for (int place = 0; place < max_pictures; ++place) {
    const QString name = To_Qt(names.at(static_cast<std::size_t>(place)));
    if (itemText(place) != name) setItemText(place, name);
  }
}

void Picture_Box::show_none() {
  show_names({});
  setCurrentIndex(0);
  setEnabled(false);
  lineEdit()->setPlaceholderText({});
}

// The list follows the text without touching it: the caret stays where it is.
void Picture_Box::take_text(const QString& text) {
  typed_ = true;
  {
    const QSignalBlocker quiet(model());
    setItemText(currentIndex(), text);
  }
  emit renamed(currentIndex() + 1, text);
}

void Picture_Box::finish() {
  if (!typed_) return;
  typed_ = false;
  emit edited();
}

}  // namespace branok
