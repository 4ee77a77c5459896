#include "ui/help_window.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/icon.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr qreal smallest_font = 6;  // points
constexpr qreal largest_font = 36;

QUrl Address(const QString& id) { return QUrl("page:" + id); }

QString Link(const Help_Page& page) {
  return QString("<a href=\"page:%1\">%2</a>").arg(page.id, page.title.toHtmlEscaped());
}

QColor Mix(const QColor& a, const QColor& b, float share) {
  const auto mix = [share](int x, int y) { return static_cast<int>(x + share * (y - x)); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

// Tables are ruled in a shade of the text, and links stay readable on a dark page.
QString Style_Sheet(const QPalette& palette) {
  const QColor page = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  QColor link = palette.color(QPalette::Link);
  const bool dark = page.lightness() < text.lightness();
  if (dark && link.lightnessF() < 0.6F) link = Mix(link, text, 0.5F);
  return QString(
             "h1 { font-size: x-large; } h3 { font-size: medium; }"
             "p, li { line-height: 130%; }"
             "table { border-collapse: collapse; margin-top: 6px; margin-bottom: 6px; }"
             "th, td { border: 1px solid %1; padding: 4px; }"
             "th { background-color: %2; text-align: left; }"
             "a { color: %3; }")
      .arg(Mix(page, text, 0.3F).name(), Mix(page, text, 0.1F).name(), link.name());
}

QString Missing_Text(const QString& file) {
  return QString(
             "<h1>The help file could not be read</h1>"
             "<p>It should be here:</p><p><b>%1</b></p>"
             "<p>The file is missing or damaged. Installing BRANOK again puts it back; everything "
             "else works without it.</p>")
      .arg(file.toHtmlEscaped());
}

}  // namespace

/// Shows the pages of the book under their addresses, and nothing else: no file, no network.
class Help_Text : public QTextBrowser {
 public:
  Help_Text(const Help_Book& book, QWidget* parent) : QTextBrowser(parent), book_(book) {}

  QVariant loadResource(int /*type*/, const QUrl& name) override {
    const int place = name.scheme() == "page" ? book_.find(name.path()) : -1;
    return place < 0 ? QVariant() : page_html(static_cast<std::size_t>(place));
  }

 private:
  // The page under its heading; a chapter lists its pages, and each page leads to the next.
  [[nodiscard]] QString page_html(std::size_t place) const {
    const std::vector<Help_Page>& pages = book_.pages();
    const Help_Page& page = pages[place];
    QString html = "<h1>" + page.title.toHtmlEscaped() + "</h1>" + page.html;
    html.replace("href=\"#", "href=\"page:");
    std::size_t next = place + 1;
    if (page.level == 1) {
      QString list;
      for (std::size_t p = next; p < pages.size() && pages[p].level > 1; ++p) {
        list += "<li>" + Link(pages[p]) + "</li>";
      }
      if (!list.isEmpty()) html += "<p><b>In this chapter</b></p><ul>" + list + "</ul>";
    }
    if (next < pages.size()) html += "<hr><p>Next: " + Link(pages[next]) + "</p>";
    return html;
  }

  const Help_Book& book_;
};

Help_Window::Help_Window(const std::filesystem::path& file, QWidget* parent)
    : QWidget(parent, Qt::Window), book_(file) {
  setObjectName("Help");
  setWindowTitle("BRANOK Help");
  setWindowIcon(Icon_Of("help"));
  setAttribute(Qt::WA_QuitOnClose, false);  // the program ends with its main window

  txtPage_ = new Help_Text(book_, this);
  txtPage_->setObjectName("txtPage");
  txtPage_->setAccessibleName("Page of the guide");
  txtPage_->document()->setDocumentMargin(16);
  // When sourceChanged comes, source() still names the page before.
  connect(txtPage_, &QTextBrowser::historyChanged, this, &Help_Window::page_changed);

  auto* const sides = new QSplitter(this);
  sides->addWidget(make_left_side());
  sides->addWidget(txtPage_);
  sides->setStretchFactor(1, 1);
  sides->setChildrenCollapsible(false);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(make_tools());
  layout->addWidget(sides, 1);
  resize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 42);
  sides->setSizes({width() * 3 / 10, width() * 7 / 10});

  take_colours();
  if (book_.pages().empty()) {
    txtSearch_->setEnabled(false);
    txtPage_->setHtml(Missing_Text(Name_To_Qt(file)));
  } else {
    make_contents();
    open(book_.pages().front().id);
  }
  txtPage_->setFocus();
}

QWidget* Help_Window::make_left_side() {
  auto* const side = new QWidget(this);
  txtSearch_ = new QLineEdit(side);
  txtSearch_->setObjectName("txtSearch");
  txtSearch_->setPlaceholderText("Search (Ctrl+F)");
  txtSearch_->setClearButtonEnabled(true);
  txtSearch_->installEventFilter(this);
  connect(txtSearch_, &QLineEdit::textChanged, this, &Help_Window::search);
  connect(txtSearch_, &QLineEdit::returnPressed, this, [this] {
    lstHits_->setCurrentRow(0);
    open_hit(lstHits_->item(0));
  });

  lblHits_ = new QLabel(side);
  lblHits_->setObjectName("lblHits");
  lblHits_->setWordWrap(true);
  lblHits_->hide();

  treContents_ = new QTreeWidget(side);
  treContents_->setObjectName("treContents");
  treContents_->setAccessibleName("Contents");
  treContents_->setHeaderHidden(true);
  connect(treContents_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item != nullptr) open(item->data(0, Qt::UserRole).toString());
  });

  lstHits_ = new QListWidget(side);
  lstHits_->setObjectName("lstHits");
  lstHits_->setAccessibleName("Pages found");
  connect(lstHits_, &QListWidget::currentItemChanged, this, &Help_Window::open_hit);
  connect(lstHits_, &QListWidget::itemClicked, this, &Help_Window::open_hit);

  left_ = new QStackedWidget(side);
  left_->addWidget(treContents_);
  left_->addWidget(lstHits_);

  auto* const layout = new QVBoxLayout(side);
  layout->setContentsMargins(6, 6, 0, 6);
  layout->addWidget(txtSearch_);
  layout->addWidget(lblHits_);
  layout->addWidget(left_, 1);
  return side;
}

QToolBar* Help_Window::make_tools() {
  auto* const tools = new QToolBar(this);
  const auto add = [&](const char* icon, const QString& name, const QList<QKeySequence>& keys,
                       auto&& done) {
    auto* const action = new QAction(Icon_Of(icon), name, this);
    action->setShortcuts(keys);
    action->setToolTip(name + " (" + keys.front().toString(QKeySequence::NativeText) + ")");
    connect(action, &QAction::triggered, this, done);
    addAction(action);  // its keys work in the whole window
    return action;
  };
  QAction* const back = add("back", "Back", {{Qt::ALT | Qt::Key_Left}, {Qt::Key_Back}},
                            [this] { txtPage_->backward(); });
  QAction* const forward = add("forward", "Forward", {{Qt::ALT | Qt::Key_Right}, {Qt::Key_Forward}},
                               [this] { txtPage_->forward(); });
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(txtPage_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(txtPage_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

  tools->addActions({back, forward});
  tools->addSeparator();
  tools->addAction(add("zoomin", "Larger text",
                       {{Qt::CTRL | Qt::Key_Plus}, {Qt::CTRL | Qt::Key_Equal}},
                       [this] { zoom(1); }));
  tools->addAction(
      add("zoomout", "Smaller text", {{Qt::CTRL | Qt::Key_Minus}}, [this] { zoom(-1); }));
  add("", "Normal text", {{Qt::CTRL | Qt::Key_0}}, [this] { txtPage_->setFont({}); });
  add("", "Search", {{Qt::CTRL | Qt::Key_F}}, [this] {
    txtSearch_->setFocus(Qt::ShortcutFocusReason);
    txtSearch_->selectAll();
  });
  add("", "Close", {{Qt::Key_Escape}}, [this] {
    // The first Escape ends a search, the next one closes.
    if (txtSearch_->text().isEmpty()) {
      close();
    } else {
      txtSearch_->clear();
    }
  });
  return tools;
}

void Help_Window::make_contents() {
  const QSignalBlocker quiet(treContents_);
  QTreeWidgetItem* chapter = nullptr;
  for (const Help_Page& page : book_.pages()) {
    auto* const item = new QTreeWidgetItem({page.title});
    item->setData(0, Qt::UserRole, page.id);
    if (page.level == 1 || chapter == nullptr) {
      treContents_->addTopLevelItem(item);
      chapter = item;
    } else {
      chapter->addChild(item);
    }
  }
  treContents_->expandAll();
}

void Help_Window::show_page(const QString& id) {
  if (!book_.pages().empty()) {
    txtSearch_->clear();
    open(book_.find(id) >= 0 ? id : book_.pages().front().id);
  }
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  txtPage_->setFocus();
}

QString Help_Window::page() const {
  return txtPage_ != nullptr ? txtPage_->source().path() : QString();
}

void Help_Window::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || page().isEmpty()) return;
  const int top = txtPage_->verticalScrollBar()->value();
  take_colours();
  txtPage_->reload();
  highlight();
  txtPage_->verticalScrollBar()->setValue(top);
}

// Down leads from the search field into its hits.
bool Help_Window::eventFilter(QObject* object, QEvent* event) {
  if (object == txtSearch_ && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down && lstHits_->count() > 0) {
    lstHits_->setFocus();
    lstHits_->setCurrentRow(0);
    return true;
  }
  return QWidget::eventFilter(object, event);
}

void Help_Window::take_colours() {
  txtPage_->document()->setDefaultStyleSheet(Style_Sheet(palette()));
}

void Help_Window::open(const QString& id) {
  if (id != page()) txtPage_->setSource(Address(id), QTextDocument::HtmlResource);
}

void Help_Window::open_hit(const QListWidgetItem* hit) {
  if (hit == nullptr) return;
  open(hit->data(Qt::UserRole).toString());
  // The first place found comes into view.
  const QList<QTextEdit::ExtraSelection> places = txtPage_->extraSelections();
  const auto first = std::min_element(places.begin(), places.end(), [](auto& a, auto& b) {
    return a.cursor.selectionStart() < b.cursor.selectionStart();
  });
  if (first == places.end()) return;
  QTextCursor place = first->cursor;
  place.clearSelection();
  txtPage_->setTextCursor(place);
  txtPage_->ensureCursorVisible();
}

void Help_Window::page_changed() {
  highlight();
  const QSignalBlocker quiet(treContents_);
  for (QTreeWidgetItemIterator item(treContents_); *item != nullptr; ++item) {
    if ((*item)->data(0, Qt::UserRole).toString() == page()) treContents_->setCurrentItem(*item);
  }
}

void Help_Window::search() {
  const QSignalBlocker quiet(lstHits_);
  lstHits_->clear();
  for (const int place : book_.search(words())) {
    const Help_Page& page = book_.pages()[static_cast<std::size_t>(place)];
    auto* const item = new QListWidgetItem(page.title, lstHits_);
    item->setData(Qt::UserRole, page.id);
  }
  const bool searching = !words().isEmpty();
  const int hits = lstHits_->count();
  lblHits_->setText(hits == 0   ? "No page holds these words."
                    : hits == 1 ? "1 page"
                                : QString("%1 pages").arg(hits));
  lblHits_->setVisible(searching);
  left_->setCurrentWidget(searching ? static_cast<QWidget*>(lstHits_) : treContents_);
  highlight();
}

void Help_Window::highlight() {
  QList<QTextEdit::ExtraSelection> places;
  for (const QString& word : words()) {
    const QTextDocument& page = *txtPage_->document();
    for (QTextCursor at = page.find(word); !at.isNull(); at = page.find(word, at)) {
      QTextEdit::ExtraSelection place;
      place.cursor = at;
      place.format.setBackground(palette().highlight());
      place.format.setForeground(palette().highlightedText());
      places.push_back(place);
    }
  }
  txtPage_->setExtraSelections(places);
}

void Help_Window::zoom(int steps) {
  const qreal size = txtPage_->font().pointSizeF() + steps;
  if (size >= smallest_font && size <= largest_font) txtPage_->zoomIn(steps);
}

QStringList Help_Window::words() const { return txtSearch_->text().split(' ', Qt::SkipEmptyParts); }

}  // namespace branok
