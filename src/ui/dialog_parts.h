// What the small dialogs have in common: a typed entry with its caption, and the row of buttons.
#pragma once

#include <QString>
#include <functional>

class QDialog;
class QGridLayout;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

namespace branok {

/// A caption, whose mnemonic leads to the entry, and an entry for a number, in a row of a grid.
QLineEdit* Number_Entry(QGridLayout* grid, int row, const QString& name, const QString& caption);

/// Puts the keyboard into an entry whose text was refused, the text selected.
void Ask_Again(QLineEdit* entry);

QPushButton* Named_Button(const QString& name, const QString& text);

/// "OK", which Enter presses from everywhere, and "Cancel", at the right of a row.
QHBoxLayout* Ok_And_Cancel(QDialog* dialog, const std::function<void()>& ok);

}  // namespace branok
