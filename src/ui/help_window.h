// The help window: contents and search at the left, a page of the guide at the right. It stands
// beside the main window, which can be used meanwhile.
#pragma once

#include <QWidget>
#include <filesystem>

#include "ui/help_book.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QStackedWidget;
class QToolBar;
class QTreeWidget;

namespace branok {

class Help_Text;

class Help_Window : public QWidget {
  Q_OBJECT
 public:
  /// A file that is missing or is no help file gives a window that says so.
  explicit Help_Window(const std::filesystem::path& file, QWidget* parent = nullptr);

  /// Brings the window to the front with this page, or with the first one when there is no such
  /// page.
  void show_page(const QString& id);
  void show_index() { show_page({}); }

  [[nodiscard]] const Help_Book& book() const { return book_; }
  /// The id of the page on show; empty when the guide could not be read.
  [[nodiscard]] QString page() const;

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QWidget* make_left_side();
  QToolBar* make_tools();
  void make_contents();
  void take_colours();
  void open(const QString& id);
  void open_hit(const QListWidgetItem* hit);
  void page_changed();
  void search();
  void highlight();
  void zoom(int steps);
  [[nodiscard]] QStringList words() const;

  Help_Book book_;
  QLineEdit* txtSearch_ = nullptr;
  QLabel* lblHits_ = nullptr;
  QStackedWidget* left_ = nullptr;  // contents or hits
  QTreeWidget* treContents_ = nullptr;
  QListWidget* lstHits_ = nullptr;
  Help_Text* txtPage_ = nullptr;
};

}  // namespace branok
