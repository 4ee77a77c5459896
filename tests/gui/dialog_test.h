// A small dialog on the screen, driven by keys and mouse.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <memory>
#include <stdexcept>

#include "support/test_doors.h"

// How a failed comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out) { *out << qPrintable(text); }

namespace branok {

template <class Dialog>
class Dialog_Test : public testing::Test {
 protected:
  template <class... Arguments>
  void show(Arguments&&... arguments) {
    dialog = std::make_unique<Dialog>(std::forward<Arguments>(arguments)...);
    dialog->show();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }

  template <class Control>
  Control& control(const QString& name) {
    auto* const found = dialog->template findChild<Control*>(name);
    if (found == nullptr) throw std::runtime_error(name.toStdString());
    return *found;
  }
  QLineEdit& entry(const QString& name) { return control<QLineEdit>(name); }
  QString text(const QString& name) { return entry(name).text(); }

  void press(const QString& name) {
    QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton);
  }
  void type(const QString& name, const QString& typed) {
    QLineEdit& field = entry(name);
    field.setFocus();
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, typed);
  }
  void key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const focus = dialog->focusWidget();
    QTest::keyClick(focus != nullptr ? focus : dialog.get(), pressed, modifiers);
  }

  /// OK is refused with this message alone, and the entry waits for another text.
  void refused_at(const QString& name, const std::string& message) {
    dialogue.shown.clear();
    press("cmdOK");
    ASSERT_EQ(dialogue.shown.size(), 1U);
    EXPECT_EQ(dialogue.shown[0].text, message);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(entry(name).hasFocus());
    EXPECT_EQ(entry(name).selectedText(), text(name));
  }

  /// The captions that lead to entries.
  QStringList captions() {
    QStringList all;
    for (const QLabel* label : dialog->template findChildren<QLabel*>()) {
      if (label->buddy() != nullptr) all << label->text() + "|" + label->buddy()->objectName();
    }
    return all;
  }

  /// The controls that Tab goes through from the one with the focus, once round.
  QStringList tab_order() {
    QStringList names;
    while (!names.contains(dialog->focusWidget()->objectName())) {
      names << dialog->focusWidget()->objectName();
      key(Qt::Key_Tab);
    }
    return names;
  }

  Test_Dialogue dialogue;
  std::unique_ptr<Dialog> dialog;
};

}  // namespace branok
