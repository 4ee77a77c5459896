#include "ui/dialog_parts.h"

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "ui/one_line.h"

namespace branok {

QLineEdit* Number_Entry(QGridLayout* grid, int row, const QString& name, const QString& caption) {
  constexpr int digits = 10;
  auto* const entry = new QLineEdit;
  entry->setObjectName(name);
  entry->setAlignment(Qt::AlignRight);
  entry->setMinimumWidth(entry->fontMetrics().horizontalAdvance(QString(digits, '0')));
  Keep_To_One_Line(entry);
  auto* const label = new QLabel(caption);
  label->setBuddy(entry);
  grid->addWidget(label, row, 0);
  grid->addWidget(entry, row, 1);
  return entry;
}

void Ask_Again(QLineEdit* entry) {
  entry->setFocus();
  entry->selectAll();
}

QPushButton* Named_Button(const QString& name, const QString& text) {
  auto* const button = new QPushButton(text);
  button->setObjectName(name);
  return button;
}

QHBoxLayout* Ok_And_Cancel(QDialog* dialog, const std::function<void()>& ok) {
  auto* const row = new QHBoxLayout;
  row->addStretch();
  QPushButton* const ok_button = Named_Button("cmdOK", "OK");
  ok_button->setDefault(true);
  QObject::connect(ok_button, &QPushButton::clicked, dialog, ok);
  QPushButton* const cancel = Named_Button("cmdCancel", "Cancel");
  QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
  row->addWidget(ok_button);
  row->addWidget(cancel);
  return row;
}

}  // namespace branok
