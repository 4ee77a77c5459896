#include "ui/one_line.h"

namespace branok {

namespace {

bool Ends_A_Line(QChar c) {
  return c == '\n' || c == '\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

}  // namespace

QValidator::State One_Line::validate(QString& text, int& caret) const {
  // What was pasted ends at the caret.
  while (caret > 0 && caret <= text.size() && Ends_A_Line(text[caret - 1])) {
    text.remove(--caret, 1);
  }
  for (QChar& c : text) {
    if (Ends_A_Line(c) || c == '\t') c = ' ';
  }
  return Acceptable;
}

}  // namespace branok
