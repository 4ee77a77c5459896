// The user's guide: one file, split into its pages by its headings.
//
// The file is one HTML document in UTF-8. Each <h1 id="..."> and <h2 id="..."> begins a page that
// reaches to the next of them; a link to a page is <a href="#id">. A reader of HTML shows the file
// as it is, the help window shows it page by page.
#pragma once

#include <QString>
#include <filesystem>
#include <vector>

namespace branok {

struct Help_Page {
  QString id;
  QString title;
  int level;     ///< 1 a chapter, 2 a page of the chapter before it
  QString html;  ///< what stands below the heading
  QString text;  ///< the same without markup, for searching
};

class Help_Book {
 public:
  Help_Book() = default;

  /// The pages in the file's order; none when the file is missing or is no help file.
  explicit Help_Book(const std::filesystem::path& file);

  [[nodiscard]] const std::vector<Help_Page>& pages() const { return pages_; }

  /// The place of the page with this id among the pages, -1 when there is none.
  [[nodiscard]] int find(const QString& id) const;

  /// The places of the pages that hold each of the words, in title or text, whatever the case;
  /// pages with a word in their title first.
  [[nodiscard]] std::vector<int> search(const QStringList& words) const;

 private:
  std::vector<Help_Page> pages_;
};

}  // namespace branok
