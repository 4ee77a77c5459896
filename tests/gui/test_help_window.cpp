// The guide: its file, its pages, and the window that shows them; the icons.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>
#include <filesystem>

#include "core/messages.h"
#include "core/numbers.h"
#include "prep/cell_rules.h"
#include "thermal/parameters.h"
#include "ui/help_window.h"
#include "ui/icon.h"
#include "ui/qt_text.h"

namespace branok {
namespace {

const std::filesystem::path guide = BRANOK_TEST_DATA "/branok.hlp";

QString Whole_File(const QString& name) {
  QFile file(name);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
  return QString::fromUtf8(file.readAll());
}

// A file of this content in a folder that goes with the test.
class Help_File : public testing::Test {
 protected:
  std::filesystem::path file(const QByteArray& content) {
    QFile out(folder_.filePath("test.hlp"));
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(content);
    return out.fileName().toStdString();
  }

 private:
  QTemporaryDir folder_;
};

class Help : public Help_File {
 protected:
  explicit Help(const std::filesystem::path& file = guide) : window_(file) {}

  void show() {
    window_.show_index();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  }
  template <typename Widget>
  Widget& child(const char* name) {
    Widget* const found = window_.findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }
  QString text() { return child<QTextBrowser>("txtPage").toPlainText(); }
  QLineEdit& search() { return child<QLineEdit>("txtSearch"); }
  QListWidget& hits() { return child<QListWidget>("lstHits"); }
  QTreeWidget& contents() { return child<QTreeWidget>("treContents"); }
  // The key goes to whichever control has the keyboard.
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const focus = window_.focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &window_, key, modifiers);
  }

  Help_Window window_;
};

TEST(Help_Book, The_Guide_Has_A_Page_For_Each_Topic) {
  const Help_Book book(guide);
  for (const char* id :
       {"welcome",         "start",        "words",      "main-window",    "menus",
        "toolbar",         "status-bar",   "exit",       "files",          "file-new",
        "file-open",       "file-save",    "abk",        "own-files",      "database",
        "data-pages",      "typing",       "paste",      "calculate",      "fan-pages",
        "data-find",       "data-options", "check",      "check-messages", "analysis",
        "analyze-page",    "wetness",      "find",       "nodal-results",  "temperature-frame",
        "airways-results", "switch",       "const-temp", "runs",           "flow",
        "annual",          "seasonal",     "messages",   "parameters",     "diagrams",
        "print",           "copy",         "keyboard",   "batch",          "troubleshooting",
        "not-yet",         "graphic",      "cad"}) {
    const int place = book.find(id);
    ASSERT_GE(place, 0) << id;
    EXPECT_GT(book.pages()[static_cast<std::size_t>(place)].text.size(), 60) << id;
  }
}

TEST(Help_Book, Every_Heading_Is_A_Page_Of_Its_Own) {
  const Help_Book book(guide);
  const QString document = Whole_File(BRANOK_TEST_DATA "/branok.hlp");
  EXPECT_EQ(document.count("<h1") + document.count("<h2"),
            static_cast<qsizetype>(book.pages().size()));
  QSet<QString> ids;
  for (const Help_Page& page : book.pages()) ids.insert(page.id);
  EXPECT_EQ(ids.size(), static_cast<qsizetype>(book.pages().size()));
  EXPECT_EQ(book.pages().front().level, 1);
}

TEST(Help_Book, Every_Link_Leads_To_A_Page) {
  const Help_Book book(guide);
  static const QRegularExpression link("href=\"([^\"]*)\"");
  int links = 0;
  for (const Help_Page& page : book.pages()) {
    for (auto at = link.globalMatch(page.html); at.hasNext(); ++links) {
      const QString target = at.next().captured(1);
      EXPECT_TRUE(target.startsWith('#') && book.find(target.mid(1)) >= 0)
          << page.id.toStdString() << " leads to " << target.toStdString();
    }
  }
  EXPECT_GT(links, 20);
}

TEST(Help_Book, The_Guide_Knows_Each_Parameter_And_Its_Range) {
  const Help_Book book(guide);
  const QString text = book.pages()[static_cast<std::size_t>(book.find("parameters"))].text;
  int typed = 0;
  for (const Parameter& parameter : Calculation_Parameters()) {
    if (parameter.title.empty()) continue;
    const QString title = To_Qt(parameter.title).section("  (", 0, 0).section(" (", 0, 0);
    EXPECT_TRUE(text.contains(title.simplified())) << title.toStdString();
    if (parameter.entry != Entry::typed) continue;
    EXPECT_TRUE(text.contains(To_Qt(Parameter_Range(parameter)))) << title.toStdString();
    ++typed;
  }
  EXPECT_EQ(typed, 10);
}

// What stands in a message beside names and numbers.
QString Fixed_Part(const Message& message, const char* variable) {
  const QString text = To_Qt(message.text).simplified();
  QString longest;
  for (const QString& part : text.split(variable)) {
    if (part.size() > longest.size()) longest = part;
  }
  return longest.trimmed();
}

TEST(Help_Book, The_Guide_Knows_Each_Message_Of_The_Check) {
  const Help_Book book(guide);
  const QString text = book.pages()[static_cast<std::size_t>(book.find("check-messages"))].text +
                       book.pages()[static_cast<std::size_t>(book.find("check"))].text;
  using namespace messages;
  for (const QString& part : {Fixed_Part(Not_Numeric(), "@"),
                              Fixed_Part(Not_Positive("@", "@"), "@"),
                              Fixed_Part(Wrong_Input("@", "@"), "@"),
                              Fixed_Part(Missing_Input("@", "@"), "@"),
                              Fixed_Part(Airway_Row_Fault(7), "7"),
                              Fixed_Part(Node_Row_Missing(7), "7"),
                              Fixed_Part(Input_Node_Number(), "@"),
                              Fixed_Part(Same_Node_Numbers(), "@"),
                              Fixed_Part(Airway_Undefined(), "@"),
                              Fixed_Part(Airway_Exists_Already(), "@"),
                              Fixed_Part(Five_Connections(), "@"),
                              Fixed_Part(Ask_Deleted_Airway("@"), "@"),
                              Fixed_Part(Ask_Add_Airway("@"), "@"),
                              Fixed_Part(Node_Double_Booked("Fan"), "@"),
                              Fixed_Part(Node_Double_Booked("Inlet"), "@"),
                              Fixed_Part(Enter_Node("Suction Node"), "@"),
                              Fixed_Part(No_Flow_Direction(), "@").section(" Change", 0, 0),
                              Fixed_Part(Change_Revolution(" Standard "), "@"),
                              Fixed_Part(Too_Few_Fan_Points(7), "7").section(" (", 0, 0),
                              Fixed_Part(Airway_Not_Existing("@", "@"), "@"),
                              Fixed_Part(Dead_End(7), "7"),
                              Fixed_Part(Data_All_Right(), "@")}) {
    EXPECT_FALSE(part.isEmpty());
    EXPECT_TRUE(text.contains(part)) << part.toStdString();
  }
  for (const char* part : {"The value should be from", "Change value !", "data is out of range.",
                           "is not existing !"}) {
    EXPECT_TRUE(text.contains(part)) << part;
  }
}

TEST(Help_Book, The_Guide_Knows_What_A_Blank_Cell_Takes) {
  const Help_Book book(guide);
  const QString html = book.pages()[static_cast<std::size_t>(book.find("data-pages"))].html;
  static const QRegularExpression row("<tr>(.*?)</tr>",
                                      QRegularExpression::DotMatchesEverythingOption);
  // The rows of the airways' columns end in what a blank cell takes.
  QStringList taken;
  bool airways = false;
  for (auto at = row.globalMatch(html); at.hasNext();) {
    const QString cells = at.next().captured(1);
    if (airways) taken << cells.section("<td>", -1).remove("</td>").trimmed();
    airways = airways || cells.contains("Blank takes");
  }
  ASSERT_GT(taken.size(), int{root_column::height});
  for (int col = root_column::resist; col <= root_column::height; ++col) {
    const std::string_view text = Blank_Takes(col);
    if (col == root_column::kind || col == root_column::wind || col == root_column::shape) {
      EXPECT_EQ(taken[col], To_Qt(text));
    } else {
      EXPECT_EQ(taken[col].toDouble(), Parse_Double(text)) << col;
    }
  }
}

TEST(Help_Book, The_Guide_Sets_No_Colours) {
  const QString document = Whole_File(BRANOK_TEST_DATA "/branok.hlp");
  EXPECT_FALSE(document.contains("color"));
  EXPECT_FALSE(document.contains("<img"));
}

TEST(Help_Book, Searches_Title_And_Text_For_All_Words) {
  const Help_Book book(guide);
  const auto found = [&](const QStringList& words) {
    QStringList ids;
    for (const int place : book.search(words)) {
      ids << book.pages()[static_cast<std::size_t>(place)].id;
    }
    return ids;
  };
  EXPECT_EQ(found({"keyboard"}).front(), "keyboard");  // a title comes before texts
  EXPECT_TRUE(found({"NATURAL", "ventilation"}).contains("airways-results"));
  EXPECT_TRUE(found({"diffusivity", "m²/h"}).contains("parameters"));
  EXPECT_TRUE(found({"nowhere-in-the-guide"}).isEmpty());
  EXPECT_TRUE(found({"keyboard", "nowhere-in-the-guide"}).isEmpty());
  EXPECT_TRUE(found({}).isEmpty());
  EXPECT_TRUE(found({"href"}).isEmpty());  // markup is no text
}

TEST_F(Help, Contents_Are_The_Headings) {
  std::vector<QString> titles;
  for (QTreeWidgetItemIterator item(&contents()); *item != nullptr; ++item) {
    titles.push_back((*item)->text(0));
    EXPECT_EQ((*item)->parent() == nullptr ? 1 : 2,
              window_.book().pages()[titles.size() - 1].level);
  }
  ASSERT_EQ(titles.size(), window_.book().pages().size());
  for (std::size_t page = 0; page < titles.size(); ++page) {
    EXPECT_EQ(titles[page], window_.book().pages()[page].title);
  }
}

TEST_F(Help, Stands_Beside_The_Other_Windows) {
  show();
  EXPECT_EQ(window_.objectName(), "Help");
  EXPECT_EQ(window_.windowTitle(), "BRANOK Help");
  EXPECT_TRUE(window_.isWindow());
  EXPECT_FALSE(window_.isModal());
  EXPECT_EQ(window_.page(), "welcome");
}

TEST_F(Help, Shows_Each_Page_Under_Its_Title) {
  show();
  for (const Help_Page& page : window_.book().pages()) {
    window_.show_page(page.id);
    EXPECT_EQ(window_.page(), page.id);
    EXPECT_TRUE(text().startsWith(page.title)) << page.id.toStdString();
    ASSERT_NE(contents().currentItem(), nullptr);
    EXPECT_EQ(contents().currentItem()->text(0), page.title);
  }
}

TEST_F(Help, An_Unknown_Page_Is_The_First) {
  window_.show_page("flow");
  window_.show_page("no-such-page");
  EXPECT_EQ(window_.page(), "welcome");
}

TEST_F(Help, The_Contents_Open_Pages) {
  show();
  contents().setFocus();
  press(Qt::Key_Down);
  EXPECT_EQ(window_.page(), window_.book().pages()[1].id);
  const QTreeWidgetItem* const chapter = contents().topLevelItem(1);
  QTest::mouseClick(contents().viewport(), Qt::LeftButton, {},
                    contents().visualItemRect(chapter).center());
  EXPECT_EQ(window_.page(), "main-window");
}

TEST_F(Help, A_Link_Opens_Its_Page) {
  window_.show_page("welcome");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  // Tab goes to the first link of the page, Enter follows it.
  press(Qt::Key_Tab);
  press(Qt::Key_Return);
  EXPECT_EQ(window_.page(), "start");
}

TEST_F(Help, Back_And_Forward) {
  show();
  window_.show_page("flow");
  window_.show_page("annual");
  press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(window_.page(), "flow");
  press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(window_.page(), "welcome");
  press(Qt::Key_Left, Qt::AltModifier);  // there is nothing before
  EXPECT_EQ(window_.page(), "welcome");
  press(Qt::Key_Right, Qt::AltModifier);
  contents().setFocus();  // from wherever the keyboard is
  press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(window_.page(), "annual");
}

TEST_F(Help, Search_Lists_Pages_And_Marks_The_Words) {
  show();
  press(Qt::Key_F, Qt::ControlModifier);
  ASSERT_TRUE(search().hasFocus());
  QTest::keyClicks(&search(), "murgue resistance");
  const std::size_t found = window_.book().search({"murgue", "resistance"}).size();
  ASSERT_GT(found, 1U);
  EXPECT_EQ(hits().count(), static_cast<int>(found));
  EXPECT_TRUE(hits().isVisible());
  EXPECT_FALSE(contents().isVisible());
  EXPECT_EQ(window_.page(), "welcome");  // typing alone leaves the page
  press(Qt::Key_Return);
  EXPECT_EQ(window_.page(), hits().item(0)->data(Qt::UserRole).toString());
  auto& page = child<QTextBrowser>("txtPage");
  ASSERT_FALSE(page.extraSelections().isEmpty());
  for (const QTextEdit::ExtraSelection& place : page.extraSelections()) {
    const QString word = place.cursor.selectedText().toLower();
    EXPECT_TRUE(word == "murgue" || word == "resistance") << word.toStdString();
  }
  press(Qt::Key_Down);
  press(Qt::Key_Down);
  EXPECT_EQ(window_.page(), hits().item(1)->data(Qt::UserRole).toString());
  search().clear();
  EXPECT_TRUE(contents().isVisible());
  EXPECT_TRUE(page.extraSelections().isEmpty());
}

TEST_F(Help, A_Search_Without_Hits_Says_So) {
  show();
  QTest::keyClicks(&search(), "zzzz");
  EXPECT_EQ(hits().count(), 0);
  EXPECT_EQ(child<QLabel>("lblHits").text(), "No page holds these words.");
  QTest::keyClick(&search(), Qt::Key_Return);
  QTest::keyClick(&search(), Qt::Key_Down);
  EXPECT_EQ(window_.page(), "welcome");
}

TEST_F(Help, Zoom_Changes_The_Text_Within_Bounds) {
  show();
  auto& page = child<QTextBrowser>("txtPage");
  const qreal normal = page.font().pointSizeF();
  press(Qt::Key_Plus, Qt::ControlModifier);
  press(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(page.font().pointSizeF(), normal + 2);
  press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(page.font().pointSizeF(), normal + 1);
  press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(page.font().pointSizeF(), normal);
  for (int k = 0; k < 100; ++k) press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_GE(page.font().pointSizeF(), 6);
  for (int k = 0; k < 100; ++k) press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_LE(page.font().pointSizeF(), 36);
}

TEST_F(Help, Escape_Closes) {
  show();
  press(Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  show();
  press(Qt::Key_F, Qt::ControlModifier);
  press(Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(Help, Colours_Follow_The_Palette) {
  window_.show_page("words");
  QPalette dark;
  dark.setColor(QPalette::Base, QColor("#2b2b2b"));
  dark.setColor(QPalette::Text, QColor("#e8e8e8"));
  dark.setColor(QPalette::Link, Qt::blue);
  window_.setPalette(dark);
  EXPECT_EQ(window_.page(), "words");
  EXPECT_TRUE(text().startsWith("Words and units"));
  const auto& page = child<QTextBrowser>("txtPage");
  EXPECT_EQ(page.palette().color(QPalette::Base), QColor("#2b2b2b"));
  // A link is light enough to be read on the dark page.
  QTextCursor link = page.document()->find("Change Switch");
  ASSERT_FALSE(link.isNull());
  EXPECT_GT(link.charFormat().foreground().color().lightnessF(), 0.6F);
}

class Missing_Help : public Help {
 protected:
  Missing_Help() : Help("/nowhere/branok.hlp") {}
};

TEST_F(Missing_Help, Says_Where_The_File_Should_Be) {
  show();
  EXPECT_TRUE(text().contains("The help file could not be read"));
  EXPECT_TRUE(text().contains("/nowhere/branok.hlp"));
  EXPECT_EQ(window_.page(), "");
  EXPECT_EQ(contents().topLevelItemCount(), 0);
  window_.show_page("flow");
  window_.setPalette(QPalette(Qt::black));
  EXPECT_TRUE(text().contains("The help file could not be read"));
  press(Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(Help_File, What_Is_No_Help_File_Has_No_Pages) {
  constexpr qsizetype megabyte = 1024 * 1024;
  QByteArray random(5 * megabyte, Qt::Uninitialized);
  QRandomGenerator generator(1);
  generator.fillRange(reinterpret_cast<quint32*>(random.data()), random.size() / 4);
  for (const QByteArray& content :
       {random, random.left(2 * megabyte), QByteArray(), QByteArray("<h1>no id</h1> text"),
        QByteArray("<h1 id=\"a\">A</h1>text \xff\xfe"), QByteArray(megabyte, '<'),
        QByteArray("<h1 id=\"a\">").repeated(100000)}) {
    Help_Window window(file(content));
    window.show_index();
    EXPECT_TRUE(window.book().pages().empty());
    EXPECT_TRUE(window.findChild<QTextBrowser*>("txtPage")->toPlainText().contains(
        "The help file could not be read"));
  }
}

TEST_F(Help_File, Pages_Reach_From_Heading_To_Heading) {
  const Help_Book book(
      file("before<h1 id=\"a\">A &amp; B</h1>\n<p>one &lt;x&gt;</p><h2 id=\"b\">C</h2>"
           "<h3>D</h3>two</body></html>"));
  ASSERT_EQ(book.pages().size(), 2U);
  EXPECT_EQ(book.pages()[0].title, "A & B");
  EXPECT_EQ(book.pages()[0].text, "one <x>");
  EXPECT_EQ(book.pages()[1].level, 2);
  EXPECT_EQ(book.pages()[1].text, "D two");
  EXPECT_EQ(book.find("b"), 1);
  EXPECT_EQ(book.find(""), -1);
}

TEST(Icons, Each_One_Shows_At_Small_And_Large_Size) {
  const QString list = Whole_File(BRANOK_TEST_SOURCE "/../src/ui/ui.qrc");
  static const QRegularExpression entry("<file alias=\"([a-z-]+)\\.svg\">");
  int icons = 0;
  for (auto at = entry.globalMatch(list); at.hasNext(); ++icons) {
    const std::string name = at.next().captured(1).toStdString();
    const QIcon icon = Icon_Of(name);
    ASSERT_FALSE(icon.isNull()) << name;
    for (const int size : {16, 48}) {
      const QImage picture = icon.pixmap(QSize(size, size), 1.0).toImage();
      ASSERT_EQ(picture.width(), size) << name;
      int inked = 0;
      for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) inked += qAlpha(picture.pixel(x, y)) > 128 ? 1 : 0;
      }
      EXPECT_GT(inked, size * size / 20) << name << " at " << size;
    }
  }
  EXPECT_EQ(icons, list.count("<file"));
  EXPECT_GE(icons, 38);
}

TEST(Icons, Toolbar_And_Menus_Have_Theirs) {
  for (const char* name : {"new",
                           "open",
                           "save",
                           "check-data",
                           "print",
                           "cut",
                           "copy",
                           "paste",
                           "undo",
                           "redo",
                           "zoomin",
                           "zoomout",
                           "rect",
                           "camera",
                           "mark-attach",
                           "refresh",
                           "help",
                           "find",
                           "fan",
                           "calc-flow",
                           "calc-annual",
                           "calc-season",
                           "parameters",
                           "diagram-press",
                           "diagram-month",
                           "diagram-length",
                           "switch",
                           "const-temp",
                           "about",
                           "exit",
                           "font",
                           "cascade",
                           "tile",
                           "window-database",
                           "window-analysis",
                           "window-graphic",
                           "window-cad",
                           "branok"}) {
    EXPECT_FALSE(Icon_Of(name).isNull()) << name;
  }
}

TEST(Icons, No_Name_Gives_No_Icon) {
  EXPECT_TRUE(Icon_Of("").isNull());
  EXPECT_TRUE(Icon_Of("no-such-icon").isNull());
  EXPECT_TRUE(Icon_Of("../ui").isNull());
}

}  // namespace
}  // namespace branok
