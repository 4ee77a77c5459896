#include "ui/database_window.h"

#include <QApplication>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>

#include "core/numbers.h"
#include "ui/fan_page_view.h"
#include "ui/one_line.h"
#include "ui/qt_text.h"

namespace branok {

namespace {

constexpr int network_page = 0;

int Page_Of(Folder folder) { return static_cast<int>(folder) + 1; }

// What is to be done where a grid has nothing to show.
QString Empty_Text(Folder folder) {
  if (folder == Folder::airway) {
    return "No airways yet.\nType the two node numbers of an airway, like 1 - 2, into the first "
           "column, or paste rows from a spreadsheet.";
  }
  if (folder == Folder::node) {
    return "Nodes come from the airways: type those on the page Airways.\nDatabase, Check and Fix "
           "Data (F9) then fills this page.";
  }
  return {};
}

// A page of fields that can be scrolled where the window is smaller than they are.
QScrollArea* Scrolled(QWidget* page) {
  auto* const area = new QScrollArea;
  area->setWidget(page);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
  return area;
}

}  // namespace

MDIData::MDIData(Database& db, Edit_Copy& copy, Edit_History& history, QWidget* parent)
    : QWidget(parent), db_(db), copy_(copy), history_(history) {
  setObjectName("MDIData");
  setWindowTitle("DataBase Window");
  tabData = new QTabWidget(this);
  tabData->setObjectName("tabData");
  tabData->setAccessibleName("Folders of the database");
  tabData->addTab(Scrolled(make_network_page()), "&Basic Data");
  tabData->addTab(make_folder_page(Folder::airway, "grdRoot"), "&Airways");
  tabData->addTab(make_folder_page(Folder::node, "grdNode"), "&Nodes");
  tabData->addTab(make_folder_page(Folder::inlet, "grdInlet"), "&Intake");
  tabData->addTab(Scrolled(make_fan_page()), "&Main Fans");
  tabData->addTab(make_folder_page(Folder::assistfan, "grdAFan"), "Assist &Fans");
  tabData->addTab(make_folder_page(Folder::thermal, "grdThermo"), "&Thermal Cond.");
  for (const Folder folder : all_folders) {
    if (folder == Folder::mainfan) continue;  // its grid is but a part of it
    page(folder).grid->setAccessibleName(tabData->tabText(Page_Of(folder)).remove('&'));
  }
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(4, 4, 4, 4);
  rows->addWidget(tabData);
  tabData->tabBar()->installEventFilter(this);
  make_page_keys();
  connect(tabData, &QTabWidget::currentChanged, this, &MDIData::page_turned);
  connect(qApp, &QApplication::focusChanged, this, &MDIData::tell_target);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { note_focus(now); });
}

// Pages that go one by one are no turn of page.
MDIData::~MDIData() {
  disconnect(qApp, nullptr, this, nullptr);
  tabData->tabBar()->removeEventFilter(this);
  tabData->blockSignals(true);
  delete tabData;
}

// --- The pages

QWidget* MDIData::make_network_page() {
  lblDataVer = new QLabel;
  lblDataVer->setObjectName("lblDataVer");
  txtMine = make_text("txtMine", &Database::Mine_Name);
  txtTime = make_text("txtTime", &Database::Mine_Date);
  txtMine->setToolTip("The check keeps the first 12 characters");
  cboView5 = new Picture_Box("cboView5");
  cboView5->setToolTip("Pictures of the mine. The data file has no place for these names");
  connect(cboView5, &Picture_Box::renamed, this, [this](int slot, const QString& name) {
    db_.Mine_Pict[slot] = name.toStdString();
    emit typed();
  });
  connect(cboView5, &Picture_Box::edited, this, &MDIData::note_act);

  auto* const Frm_Mine = new QGroupBox("Mine Data");
  Frm_Mine->setObjectName("Frm_Mine");
  auto* const fields = new QFormLayout(Frm_Mine);
  fields->setContentsMargins(16, 16, 16, 16);
  fields->setVerticalSpacing(10);
  fields->setHorizontalSpacing(16);
  fields->addRow("Data Version :", lblDataVer);
  fields->addRow("Name of &Mine :", txtMine);
  fields->addRow("&Revised Date :", txtTime);
  fields->addRow("Picture File :", cboView5);
  auto* const guide = new QLabel(
      "Airways come first: type or paste them on the page Airways, each with its two node numbers. "
      "Database, Check and Fix Data (F9) makes the nodes from them. Then follow the elevations of "
      "the nodes, the intakes and the main fans.");
  guide->setObjectName("lblGuide");
  guide->setWordWrap(true);
  guide->setForegroundRole(QPalette::PlaceholderText);
  guide->setContentsMargins(16, 8, 16, 8);

  auto* const page = new QWidget;
  auto* const rows = new QVBoxLayout(page);
  rows->setContentsMargins(24, 24, 24, 24);
  for (QWidget* const part : {static_cast<QWidget*>(Frm_Mine), static_cast<QWidget*>(guide)}) {
    part->setMaximumWidth(fontMetrics().averageCharWidth() * 90);
    rows->addWidget(part);
  }
  rows->addStretch();
  return page;
}

// A field that is stored as it is typed.
QLineEdit* MDIData::make_text(const char* name, std::string Database::*field) {
  auto* const text = new QLineEdit;
  text->setObjectName(name);
  Keep_To_One_Line(text);
  connect(text, &QLineEdit::textEdited, this, [this, field](const QString& typed) {
    db_.*field = typed.toStdString();
    emit edited();
  });
  return text;
}

QWidget* MDIData::make_folder_page(Folder folder, const char* grid_name) {
  auto* const widget = new QWidget;
  auto* const rows = new QVBoxLayout(widget);
  rows->setContentsMargins(0, 0, 0, 0);
  Folder_Page& page = pages_.at(static_cast<std::size_t>(folder));
  page.grid = new Edit_Grid(db_, copy_, folder, widget);
  page.grid->setObjectName(grid_name);
  page.grid->set_empty_text(Empty_Text(folder));
  connect(page.grid, &Edit_Grid::edited, this, &MDIData::note_act);
  connect(page.grid, &Edit_Grid::keystroke, this, &MDIData::typed);
  connect(page.grid, &Edit_Grid::editor_focus, this, &MDIData::tell_target);
  connect(page.grid, &Edit_Grid::context_menu, this, &MDIData::context_menu);
  connect(page.grid, &Edit_Grid::current_changed, this, [this, folder] { show_pictures(folder); });
  rows->addWidget(page.grid);
  if (Picture_Column(folder) == 0) return widget;
  make_pictures(folder, page);
  auto* const line = new QHBoxLayout;
  line->setContentsMargins(8, 2, 8, 6);
  auto* const title = new QLabel("Picture File :");
  title->setBuddy(page.pictures);
  line->addWidget(title);
  line->addWidget(page.pictures);
  line->addStretch();
  rows->addLayout(line);
  return widget;
}

QWidget* MDIData::make_fan_page() {
  fan_page_ = new Fan_Page_View(db_, copy_);
  pages_.at(static_cast<std::size_t>(Folder::mainfan)).grid = fan_page_->grid();
  connect(fan_page_, &Fan_Page_View::typed, this, &MDIData::typed);
  connect(fan_page_, &Fan_Page_View::edited, this, &MDIData::note_act);
  connect(fan_page_, &Fan_Page_View::command, this, &MDIData::command);
  connect(fan_page_->grid(), &Edit_Grid::editor_focus, this, &MDIData::tell_target);
  connect(fan_page_->grid(), &Edit_Grid::context_menu, this, &MDIData::context_menu);
  return fan_page_;
}

void MDIData::make_pictures(Folder folder, Folder_Page& page) {
  page.pictures = new Picture_Box("cboView" + QString::number(static_cast<int>(folder)));
  connect(page.pictures, &Picture_Box::renamed, this,
          [this, folder, grid = page.grid](int slot, const QString& name) {
            const int row = grid->currentIndex().row() + Text_Grid::FixedRows;
            Set_Picture_Name(copy_, folder, row, slot, name.toStdString());
            Note_Edit(db_, folder);
            grid->rows().row_changed(row);
            emit typed();
          });
  connect(page.pictures, &Picture_Box::edited, this, &MDIData::note_act);
}

// Ctrl+PageDown and Ctrl+PageUp turn the pages, where Ctrl+Tab turns windows.
void MDIData::make_page_keys() {
  for (const auto& [key, step] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
    auto* const turn = new QShortcut(Qt::CTRL | key, this);
    turn->setContext(Qt::WidgetWithChildrenShortcut);
    connect(turn, &QShortcut::activated, tabData, [this, way = step] {
      tabData->setCurrentIndex((tabData->currentIndex() + way + tabData->count()) %
                               tabData->count());
      first_field()->setFocus();
    });
  }
}

// The keyboard goes to the page, unless it is at the tabs to turn on, or in another window.
void MDIData::page_turned() {
  finish_typing();
  const bool here = isAncestorOf(QApplication::focusWidget());
  if (here && !by_arrows_) first_field()->setFocus();
  by_arrows_ = false;
  tell_target();
}

// Arrow keys on the tabs go from page to page and stay there.
bool MDIData::eventFilter(QObject* object, QEvent* event) {
  if (object == tabData->tabBar()) {
    if (event->type() == QEvent::KeyPress) by_arrows_ = true;
    if (event->type() == QEvent::KeyRelease) by_arrows_ = false;
  }
  return QWidget::eventFilter(object, event);
}

void MDIData::note_focus(QWidget* now) {
  if (!away_ && isVisible() && isAncestorOf(now)) last_focus_ = now;
}

void MDIData::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!shown_before_) first_field()->setFocus();
  shown_before_ = true;
  if (away_) QTimer::singleShot(0, this, &MDIData::come_back);
}

void MDIData::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  away_ = true;
}

// A window behind another one is hidden, and its keyboard wanders to whatever field comes next. It
// comes back to where the engineer has left it.
void MDIData::come_back() {
  away_ = false;
  QWidget* const now = QApplication::focusWidget();
  const bool mine = now == nullptr || isAncestorOf(now);
  if (mine && last_focus_ != nullptr && last_focus_->isVisible()) last_focus_->setFocus();
}

QWidget* MDIData::first_field() const {
  Edit_Grid* const grid = grid_view();
  if (grid == nullptr) return txtMine;
  // Without a fan there is nothing to type: the buttons that add one come next.
  return grid->isEnabled() ? static_cast<QWidget*>(grid) : fan_page_;
}

// --- What is shown

void MDIData::load() {
  for (const Folder_Page& page : pages_) {
    page.grid->discard_editor();
    page.grid->scrollToTop();
    page.grid->horizontalScrollBar()->setValue(0);
  }
  fan_page_->load();
  apply_options();
  refresh();
  tabData->setCurrentIndex(network_page);
  last_focus_ = first_field();
  tell_target();
}

void MDIData::refresh() {
  show_mine();
  fan_page_->refresh();
  for (const Folder folder : all_folders) {
    if (folder != Folder::mainfan) page(folder).grid->refresh();
  }
}

// A name filled up with blanks would be typed on behind them; a text on which somebody is at work
// keeps its caret.
void MDIData::show_mine() {
  lblDataVer->setText(QString::number(db_.Data_Ver));
  const auto show = [](QLineEdit& field, const std::string& text) {
    const QString shown = To_Qt(text.substr(0, text.find_last_not_of(' ') + 1));
    if (field.text() != shown && To_Qt(text) != field.text()) field.setText(shown);
  };
  show(*txtMine, db_.Mine_Name);
  show(*txtTime, db_.Mine_Date);
  cboView5->show_names({db_.Mine_Pict[1], db_.Mine_Pict[2], db_.Mine_Pict[3]});
}

void MDIData::show_pictures(Folder folder) {
  Folder_Page& page = pages_.at(static_cast<std::size_t>(folder));
  if (page.pictures == nullptr) return;
  const auto row = static_cast<std::size_t>(page.grid->currentIndex().row() + Text_Grid::FixedRows);
  const Picture_Rows& names = *copy_.pictures(folder);
  page.pictures->finish();  // of the row before
  // The empty row behind the airways is none yet: nothing can have a picture there.
  const bool any = row >= Text_Grid::FixedRows && row < names.size() &&
                   !copy_.grid(folder).is_blank(static_cast<int>(row));
  if (row != page.picture_row) page.pictures->setCurrentIndex(0);
  page.picture_row = row;
  if (!any) {
    page.pictures->show_none();
  } else {
    page.pictures->show_names(names[row]);
  }
}

void MDIData::apply_font(const QFont& font) {
  tabData->setFont(font);
  for (const Folder_Page& page : pages_) page.grid->setFont(font);
}

void MDIData::apply_options() { page(Folder::airway).grid->apply_options(); }

// --- What the commands work on

std::string MDIData::page_tag() const {
  return folder() ? std::string(Page_Tag(*folder())) : "network";
}

std::optional<Folder> MDIData::folder() const {
  const int front = tabData->currentIndex();
  if (front == network_page) return std::nullopt;
  return all_folders.at(static_cast<std::size_t>(front - 1));
}

std::string MDIData::edit_tag() const {
  const QLineEdit* const text = focused_text();
  if (text == nullptr) return page_tag();
  if (!folder()) return text == txtTime ? "datatextT" : "datatextM";
  return "datatext" + std::to_string(Page_Of(*folder()));
}

// The window remembers its field while a menu has the keyboard.
QLineEdit* MDIData::focused_text() const {
  Edit_Grid* const grid = grid_view();
  if (grid != nullptr && grid->editing()) return grid->editor();
  QWidget* const field = focusWidget();
  if (field == nullptr || !field->isVisibleTo(this)) return nullptr;
  if (const auto* const box = qobject_cast<QComboBox*>(field)) return box->lineEdit();
  return qobject_cast<QLineEdit*>(field);
}

Edit_Grid* MDIData::grid_view() const { return folder() ? page(*folder()).grid : nullptr; }

const MDIData::Folder_Page& MDIData::page(Folder folder) const {
  return pages_.at(static_cast<std::size_t>(folder));
}

void MDIData::finish_typing() {
  for (const Folder_Page& page : pages_) {
    page.grid->commit_editor();
    if (page.pictures != nullptr) page.pictures->finish();
  }
  fan_page_->finish_typing();
  cboView5->finish();
}

void MDIData::take_selection() {
  if (Edit_Grid* const grid = grid_view()) grid->take_selection();
}

void MDIData::copy_selection() {
  if (const QLineEdit* const text = focused_text()) {
    text->copy();
  } else if (Edit_Grid* const grid = grid_view()) {
    grid->copy_selection();
  }
}

void MDIData::show_place(const Edit_Place& place) {
  finish_typing();
  tabData->setCurrentIndex(Page_Of(place.folder));
  if (place.folder == Folder::mainfan) {
    fan_page_->show_place(place);
  } else if (place.row > 0) {
    grid_view()->show_cell(place.row, place.col);
  } else {
    grid_view()->setFocus();
  }
}

void MDIData::tell_target() {
  std::string target = edit_tag();
  if (target == target_) return;
  target_ = std::move(target);
  emit target_changed();
}

void MDIData::note_act() {
  history_.note(copy_);
  if (folder()) show_pictures(*folder());
  emit edited();
}

}  // namespace branok
