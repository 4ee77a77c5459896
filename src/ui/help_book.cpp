#include "ui/help_book.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextDocumentFragment>
#include <algorithm>

#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr qint64 largest_file = 4 << 20;  // bytes; what is larger is no help file

// The file's text, empty when it cannot be read or is no text.
QString Read(const std::filesystem::path& name) {
  QFile file(Name_To_Qt(name));
  if (!file.open(QIODevice::ReadOnly) || file.size() > largest_file) return {};
  QStringDecoder decode(QStringDecoder::Utf8);
  QString text = decode(file.readAll());
  return decode.hasError() || text.contains(QChar::Null) ? QString() : text;
}

QString Without_Markup(const QString& html) {
  return QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
}

bool Holds(const QString& text, const QString& word) {
  return text.contains(word, Qt::CaseInsensitive);
}

}  // namespace

Help_Book::Help_Book(const std::filesystem::path& file) {
  static const QRegularExpression heading("<h([12]) id=\"([a-z0-9-]+)\">([^<]*)</h\\1>");
  static const QRegularExpression end_of_body("</body>.*$",
                                              QRegularExpression::DotMatchesEverythingOption);
  const QString document = Read(file).remove(end_of_body);
  qsizetype begin = 0;  // of the present page's html
  const auto close_page = [&](qsizetype end) {
    if (pages_.empty()) return;
    Help_Page& page = pages_.back();
    page.html = document.mid(begin, end - begin);
    page.text = Without_Markup(page.html);
  };
  for (auto at = heading.globalMatch(document); at.hasNext();) {
    const QRegularExpressionMatch match = at.next();
    close_page(match.capturedStart());
    begin = match.capturedEnd();
    pages_.push_back({.id = match.captured(2),
                      .title = Without_Markup(match.captured(3)),
                      .level = match.captured(1).toInt(),
                      .html = {},
                      .text = {}});
  }
  close_page(document.size());
}

int Help_Book::find(const QString& id) const {
  const auto found = std::find_if(pages_.begin(), pages_.end(),
                                  [&](const Help_Page& page) { return page.id == id; });
  return found == pages_.end() ? -1 : static_cast<int>(found - pages_.begin());
}

std::vector<int> Help_Book::search(const QStringList& words) const {
  std::vector<int> in_title;
  std::vector<int> in_text;
  for (std::size_t place = 0; place < pages_.size() && !words.isEmpty(); ++place) {
    const Help_Page& page = pages_[place];
    const auto here = [&](const QString& word) {
      return Holds(page.title, word) || Holds(page.text, word);
    };
    if (!std::all_of(words.begin(), words.end(), here)) continue;
    const bool title = std::any_of(words.begin(), words.end(),
                                   [&](const QString& word) { return Holds(page.title, word); });
    (title ? in_title : in_text).push_back(static_cast<int>(place));
  }
  in_title.insert(in_title.end(), in_text.begin(), in_text.end());
  return in_title;
}

}  // namespace branok
