#include "ui/fan_page_view.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>

#include "prep/cell_rules.h"
#include "prep/edit_commands.h"
#include "ui/edit_grid.h"
#include "ui/one_line.h"
#include "ui/picture_box.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr std::array titles = {"Change\nTotal# of\n Main Fans",
                               "&1. Suction Node",
                               "&2. Discharge. Node",
                               "&3. Standard r.p.m.",
                               "&4. Driving r.p.m.",
                               "&5. Limit Flow",
                               "&6. Comm.",
                               "&7. Pic. File"};

// A field with the same text keeps its caret.
void Show_Text(QLineEdit& field, std::string_view text) {
  const QString shown = To_Qt(text);
  if (field.text() != shown) field.setText(shown);
}

QLabel* Unit(const QString& text) { return new QLabel(text); }

}  // namespace

Fan_Page_View::Fan_Page_View(Database& db, Edit_Copy& copy, QWidget* parent)
    : QWidget(parent), db_(db), copy_(copy) {
  make_controls();
  auto* const all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(fraContena);
  set_tab_order();
  load();
}

void Fan_Page_View::make_controls() {
  fraContena = new QFrame(this);
  fraContena->setObjectName("fraContena");
  page_ = new QWidget(fraContena);
  auto* const rows = new QVBoxLayout(fraContena);
  rows->addLayout(make_head());
  rows->addWidget(page_, 1);

  grdMFan = new Edit_Grid(db_, copy_, Folder::mainfan, page_);
  grdMFan->setObjectName("grdMFan");
  grdMFan->setAccessibleName("Head-flow table");
  connect(grdMFan, &Edit_Grid::keystroke, this, &Fan_Page_View::typed);
  connect(grdMFan, &Edit_Grid::edited, this, &Fan_Page_View::edited);
  Com_Graph = make_button("Com_Graph", "Draw Graph", "mnuDataComGraph");
  Com_Graph->setToolTip("The curves of this fan at its speeds");

  auto* const page_rows = new QVBoxLayout(page_);
  page_rows->setContentsMargins(0, 0, 0, 0);
  page_rows->addLayout(make_fields());
  page_rows->addWidget(grdMFan, 1);
  page_rows->addWidget(Com_Graph, 0, Qt::AlignRight);
}

QPushButton* Fan_Page_View::make_button(const char* name, const QString& caption,
                                        const QString& command_name) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAutoDefault(true);  // Enter presses it as well as Space
  connect(button, &QPushButton::clicked, this, [this, command_name] {
    finish_typing();
    emit command(command_name);
  });
  return button;
}

// The tabs of the fans, and the buttons that change their number.
QLayout* Fan_Page_View::make_head() {
  for (std::size_t k = 0; k < lblTitle.size(); ++k) {
    lblTitle.at(k) = new QLabel(titles.at(k), fraContena);
    lblTitle.at(k)->setObjectName(QString("lblTitle%1").arg(k));
  }
  tabFan = new QTabBar(fraContena);
  tabFan->setObjectName("tabFan");
  tabFan->setAccessibleName("Main fans");
  tabFan->setExpanding(false);
  tabFan->setDrawBase(false);
  connect(tabFan, &QTabBar::currentChanged, this, &Fan_Page_View::turn_to);
  lblNoFan = new QLabel("This mine has no main fan. + adds one.", fraContena);
  lblNoFan->setObjectName("lblNoFan");
  lblNoFan->setForegroundRole(QPalette::PlaceholderText);
  cmdPlus = make_button("cmdPlus", "+", "cmdPlus");
  cmdPlus->setAccessibleName("Add a main fan");
  cmdPlus->setToolTip("Add a main fan");
  cmdMinus = make_button("cmdMinus", "-", "cmdMinus");
  cmdMinus->setAccessibleName("Delete this main fan");
  cmdMinus->setToolTip("Delete this main fan");
  for (QPushButton* button : {cmdPlus, cmdMinus}) {
    button->setFixedWidth(button->sizeHint().height() * 5 / 4);
  }

  auto* const head = new QHBoxLayout;
  head->addWidget(tabFan, 1, Qt::AlignBottom);
  head->addWidget(lblNoFan, 1);
  head->addWidget(lblTitle[0]);
  head->addWidget(cmdPlus);
  head->addWidget(cmdMinus);
  return head;
}

QLayout* Fan_Page_View::make_fields() {
  for (int k = 1; k <= Fan_Page::last_field; ++k) {
    auto* const text = new QLineEdit(page_);
    Keep_To_One_Line(text);
    text->setObjectName(QString("txtData%1").arg(k));
    text->installEventFilter(this);
    connect(text, &QLineEdit::textEdited, this, [this, k](const QString& t) { take_field(k, t); });
    if (k != Fan_Page::comment) {
      text->setAlignment(Qt::AlignRight);
      text->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    lblTitle.at(static_cast<std::size_t>(k))->setBuddy(text);
    txtData_.at(static_cast<std::size_t>(k - 1)) = text;
  }
  cboView3 = new Picture_Box("cboView3", page_);
  cboView3->installEventFilter(this);
  connect(cboView3, &Picture_Box::renamed, this, &Fan_Page_View::take_picture);
  connect(cboView3, &Picture_Box::edited, this, &Fan_Page_View::edited);
  lblTitle[7]->setBuddy(cboView3);

  Surface_Fan = new QCheckBox("Surface Main Fan", page_);
  Surface_Fan->setObjectName("Surface_Fan");
  connect(Surface_Fan, &QCheckBox::clicked, this, &Fan_Page_View::take_surface);
  auto* const Set_Fan = new QLabel(
      "For the case of Surface Fan, Suction and Discharge Nodes are set to the same node.", page_);
  Set_Fan->setObjectName("Set_Fan");
  Set_Fan->setForegroundRole(QPalette::PlaceholderText);
  Set_Fan->setWordWrap(true);

  auto* const grid = new QGridLayout;
  constexpr int left = 0;
  constexpr int right = 3;
  constexpr int columns = 7;
  const auto add = [&](int k, int row, int column, const QString& unit) {
    grid->addWidget(lblTitle.at(static_cast<std::size_t>(k)), row, column);
    grid->addWidget(field(k), row, column + 1);
    if (!unit.isEmpty()) grid->addWidget(Unit(unit), row, column + 2);
  };
  add(Fan_Page::suction, 0, left, {});
  add(Fan_Page::discharge, 1, left, {});
  add(Fan_Page::std_rpm, 0, right, "r.p.m.");
  add(Fan_Page::drive_rpm, 1, right, "r.p.m.");
  add(Fan_Page::limit_flow, 2, right, "m\u00b3/min");
  grid->addWidget(Surface_Fan, 2, left, 1, 2);
  grid->addWidget(Set_Fan, 3, left, 1, columns);
  grid->addWidget(lblTitle[Fan_Page::comment], 4, left);
  grid->addWidget(field(Fan_Page::comment), 4, left + 1, 1, columns - 1);
  grid->addWidget(lblTitle[7], 5, left);
  grid->addWidget(cboView3, 5, left + 1, 1, columns - 1);
  grid->setColumnMinimumWidth(2, 2 * fontMetrics().height());
  grid->setColumnStretch(columns - 1, 1);
  return grid;
}

void Fan_Page_View::set_tab_order() {
  const std::array<QWidget*, 13> order = {tabFan,      cmdPlus,  cmdMinus, field(1), field(2),
                                          Surface_Fan, field(3), field(4), field(5), field(6),
                                          cboView3,    grdMFan,  Com_Graph};
  for (std::size_t k = 1; k < order.size(); ++k) setTabOrder(order.at(k - 1), order.at(k));
}

void Fan_Page_View::load() {
  touched_ = false;
  refresh();
  cboView3->setCurrentIndex(0);
}

void Fan_Page_View::refresh() {
  show_tabs();
  const int f = copy_.fan_in_front;
  static const Fan_Page none;
  const Fan_Page& page = f > 0 ? copy_.fan(f) : none;
  page_->setEnabled(f > 0);
  for (int k = 1; k <= Fan_Page::last_field; ++k) {
    Show_Text(*field(k), page.text.at(static_cast<std::size_t>(k)));
  }
  Surface_Fan->setChecked(f > 0 && page.surface);
  show_discharge();
  show_pictures();
  show_faults();
  grdMFan->refresh();
}

void Fan_Page_View::show_tabs() {
  const QSignalBlocker quiet(tabFan);
  const int fans = copy_.MFan_GridTotal;
  while (tabFan->count() > fans) tabFan->removeTab(tabFan->count() - 1);
  while (tabFan->count() < fans) {
    tabFan->addTab(QString("Main Fan No.%1").arg(tabFan->count() + 1));
  }
  tabFan->setCurrentIndex(copy_.fan_in_front - 1);
  tabFan->setVisible(fans > 0);
  lblNoFan->setVisible(fans == 0);
  cmdMinus->setEnabled(fans > 0);
}

void Fan_Page_View::show_pictures() {
  const int f = copy_.fan_in_front;
  if (f > 0) {
    cboView3->show_names(copy_.fan(f).pictures);
  } else {
    cboView3->show_none();
  }
}

// A surface fan has one node: the second field only shows it.
void Fan_Page_View::show_discharge() {
  QLineEdit* const discharge = field(Fan_Page::discharge);
  const bool follows = Surface_Fan->isChecked();
  discharge->setReadOnly(follows);
  discharge->setFocusPolicy(follows ? Qt::ClickFocus : Qt::StrongFocus);
  const int f = copy_.fan_in_front;
  if (f > 0) Show_Text(*discharge, copy_.fan(f).text[Fan_Page::discharge]);
}

void Fan_Page_View::show_faults() {
  for (int k = 1; k <= Fan_Page::last_field; ++k) {
    QLineEdit* const text = field(k);
    const auto fault = Fan_Field_Fault(k, text->text().toStdString());
    QPalette colours = palette();
    if (text->isReadOnly()) colours.setBrush(QPalette::Base, colours.window());
    if (fault) colours.setColor(QPalette::Base, Doubt_Color(colours));
    text->setPalette(colours);
    text->setToolTip(fault ? To_Qt(fault->text) : QString());
    text->setAccessibleDescription(text->toolTip());
  }
}

void Fan_Page_View::take_field(int number, const QString& text) {
  if (!Set_Fan_Field(db_, copy_, number, text.toStdString())) return;
  touched_ = true;
  show_discharge();
  show_faults();
  emit typed();
}

void Fan_Page_View::take_picture(int slot, const QString& name) {
  if (Set_Fan_Picture(db_, copy_, slot, name.toStdString())) emit typed();
}

void Fan_Page_View::take_surface(bool surface) {
  finish_typing();
  if (!Set_Surface_Fan(db_, copy_, surface)) return;
  show_discharge();
  show_faults();
  emit edited();
}

void Fan_Page_View::turn_to(int tab) {
  finish_typing();  // it belongs to the page that was in front
  copy_.fan_in_front = tab + 1;
  cboView3->setCurrentIndex(0);
  refresh();
}

void Fan_Page_View::finish_typing() {
  grdMFan->commit_editor();
  cboView3->finish();
  leave(field_of(focused_text()));
}

// Formats a field (0 is none of the fields), and ends the act of typing.
void Fan_Page_View::leave(int number) {
  const int f = copy_.fan_in_front;
  if (f > 0 && number > 0) {
    const std::string shown =
        Format_Fan_Field(number, copy_.fan(f).text.at(static_cast<std::size_t>(number)));
    if (Set_Fan_Field(db_, copy_, number, shown)) touched_ = true;
    Show_Text(*field(number), shown);
    show_discharge();
    show_faults();
  }
  if (!touched_) return;
  touched_ = false;
  emit edited();
}

void Fan_Page_View::show_place(const Edit_Place& place) {
  finish_typing();
  if (place.fan >= 1 && place.fan <= copy_.MFan_GridTotal) copy_.fan_in_front = place.fan;
  refresh();
  if (place.field >= 1 && place.field <= Fan_Page::last_field) {
    field(place.field)->setFocus(Qt::TabFocusReason);
    field(place.field)->selectAll();
  } else if (place.row > 0) {
    grdMFan->show_cell(place.row, std::max<int>(place.col, fan_column::flow));
  }
}

QLineEdit* Fan_Page_View::focused_text() const {
  if (cboView3->hasFocus()) return cboView3->lineEdit();
  auto* const text = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  return text != nullptr && isAncestorOf(text) ? text : nullptr;
}

bool Fan_Page_View::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    if (go_on(field_of(object), static_cast<QKeyEvent*>(event)->key())) return true;
  } else if (event->type() == QEvent::FocusOut) {
    // A menu or another window takes the keyboard for a moment only: the caret stays.
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const bool comes_back = reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
                            reason == Qt::ActiveWindowFocusReason;
    if (!comes_back) leave(field_of(object));
  }
  return QWidget::eventFilter(object, event);
}

void Fan_Page_View::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && grdMFan != nullptr) show_faults();
}

// Up and Down go between the fields; Enter goes on to the next, then to the picture and the grid.
bool Fan_Page_View::go_on(int number, int key) {
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  const bool arrow = number > 0 && (key == Qt::Key_Up || key == Qt::Key_Down);
  if (!enter && !arrow) return false;
  QWidget* to = number > 0 ? next_field(number, key == Qt::Key_Up ? -1 : 1) : nullptr;
  if (enter && to == nullptr) to = number > 0 ? static_cast<QWidget*>(cboView3) : grdMFan;
  if (to != nullptr) to->setFocus(Qt::TabFocusReason);
  return true;
}

// 1..6; 0 for anything else.
int Fan_Page_View::field_of(const QObject* object) const {
  for (int k = 1; k <= Fan_Page::last_field; ++k) {
    if (field(k) == object) return k;
  }
  return 0;
}

QLineEdit* Fan_Page_View::field(int number) const {
  return txtData_.at(static_cast<std::size_t>(number - 1));
}

// The next one that can be typed into, null at the end.
QLineEdit* Fan_Page_View::next_field(int number, int step) const {
  for (int k = number + step; k >= 1 && k <= Fan_Page::last_field; k += step) {
    if (!field(k)->isReadOnly()) return field(k);
  }
  return nullptr;
}

}  // namespace branok
