// A text field holds one line: what is pasted into it keeps its characters, not its line ends.
#pragma once

#include <QLineEdit>
#include <QValidator>

namespace branok {

/// Takes the line end behind a pasted text away and makes other line ends and tabs blanks: a cell
/// copied from a spreadsheet brings a line end with it, and a number with one would be none.
class One_Line : public QValidator {
  Q_OBJECT
 public:
  using QValidator::QValidator;
  State validate(QString& text, int& caret) const override;
};

/// Keeps a text field to one line, however text comes into it.
inline void Keep_To_One_Line(QLineEdit* field) { field->setValidator(new One_Line(field)); }

}  // namespace branok
