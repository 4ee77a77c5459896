// The page "Main Fans" of the Database window: one tab for each fan, with the fan's fields and its
// head-flow table.
#pragma once

#include <QWidget>
#include <array>

#include "prep/edit_copy.h"

class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabBar;

namespace branok {

class Edit_Grid;
class Picture_Box;

class Fan_Page_View : public QWidget {
  Q_OBJECT
 public:
  /// The database and its edit copy must outlive the view.
  Fan_Page_View(Database& db, Edit_Copy& copy, QWidget* parent = nullptr);

  /// Shows the fans of another mine.
  void load();
  /// Shows the texts as they are now: after a command, an undo, another page in front.
  void refresh();

  /// Ends what is being typed in a field or in the grid, as leaving it does.
  void finish_typing();
  /// Goes to a page, and to its field or the cell of its grid.
  void show_place(const Edit_Place& place);

  [[nodiscard]] Edit_Grid* grid() const { return grdMFan; }
  /// The text box of this page that has the keyboard, the grid's editor too; null when none has.
  [[nodiscard]] QLineEdit* focused_text() const;

 signals:
  /// A text has changed while it is typed.
  void typed();
  /// An act is done: a field was left with another text, a cell was committed, the box clicked.
  void edited();
  /// A command of the main window: "cmdPlus", "cmdMinus", "mnuDataComGraph".
  void command(const QString& name);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void make_controls();
  QPushButton* make_button(const char* name, const QString& caption, const QString& command_name);
  QLayout* make_head();
  QLayout* make_fields();
  void set_tab_order();

  void show_tabs();
  void show_pictures();
  void show_discharge();
  void show_faults();

  void take_field(int field, const QString& text);
  void take_picture(int slot, const QString& name);
  void take_surface(bool surface);
  void turn_to(int tab);
  void leave(int number);
  bool go_on(int number, int key);

  [[nodiscard]] int field_of(const QObject* object) const;
  [[nodiscard]] QLineEdit* field(int number) const;
  [[nodiscard]] QLineEdit* next_field(int number, int step) const;

  Database& db_;
  Edit_Copy& copy_;
  bool touched_ = false;  // what has the keyboard was typed into

  QFrame* fraContena = nullptr;
  QTabBar* tabFan = nullptr;
  QLabel* lblNoFan = nullptr;
  QPushButton *cmdPlus = nullptr, *cmdMinus = nullptr, *Com_Graph = nullptr;
  QWidget* page_ = nullptr;                                 // the fan in front
  std::array<QLabel*, 8> lblTitle{};                        // 0 counts the fans, 1..7 the fields
  std::array<QLineEdit*, Fan_Page::last_field> txtData_{};  // txtData1 to txtData6
  Picture_Box* cboView3 = nullptr;
  QCheckBox* Surface_Fan = nullptr;
  Edit_Grid* grdMFan = nullptr;
};

}  // namespace branok
