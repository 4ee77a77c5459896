// The window itself: how it is built, what is enabled in it, and how commands run. The commands
// stand in file_commands.cpp, analysis_commands.cpp and window_commands.cpp.
#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "core/messages.h"
#include "prep/fan.h"
#include "ui/analysis_window.h"
#include "ui/cad_window.h"
#include "ui/database_window.h"
#include "ui/graphic_window.h"
#include "ui/help_window.h"
#include "ui/icon.h"
#include "ui/qt_text.h"
#include "ui/start_page.h"
#include "ui/status_bar.h"

namespace branok {

namespace {

constexpr const char* tag_property = "Tag";
constexpr int rolling_period = 25;  // ms

QString Control_Name(const char* name, int index) {
  return index < 0 ? QString(name) : name + QString::number(index);
}

// A caption without its mnemonic, dots and blanks: "Save As".
QString Plain_Caption(QString caption) {
  caption.remove('&');
  while (caption.endsWith('.') || caption.endsWith(' ')) caption.chop(1);
  return caption;
}

// The keys of a command. On most keyboards + is typed with Shift: the key without it will do too.
QList<QKeySequence> Keys_Of(const char* shortcut) {
  QList<QKeySequence> keys = {QKeySequence(shortcut)};
  if (keys.first() == QKeySequence("Ctrl++")) keys << QKeySequence("Ctrl+=");
  return keys;
}

// Screen pixels and twips, the unit of the stored position.
double Twips_Per_Pixel(const QWidget& widget, bool x) {
  return 1440.0 / (x ? widget.logicalDpiX() : widget.logicalDpiY());
}

// The data file that is dragged over the window; empty for anything else, which must not take the
// place of the open mine by a slip.
QString Dragged_Mine(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  if (urls.size() != 1 || !urls.first().isLocalFile()) return {};
  const QFileInfo file(urls.first().toLocalFile());
  const bool mine = file.isFile() && file.suffix().compare("abk", Qt::CaseInsensitive) == 0;
  return mine ? file.filePath() : QString();
}

bool Is_On_A_Screen(const QPoint& place) {
  return QGuiApplication::screenAt(place + QPoint(32, 8)) != nullptr;
}

}  // namespace

BRANOK60::BRANOK60(Program_Folders folders, Settings settings, QWidget* parent)
    : QMainWindow(parent),
      settings_(std::move(settings)),
      folders_(std::move(folders)),
      dialogue_(this, [this](const QString& text) { status_->show_remark(text); }) {
  setObjectName("BRANOK60");
  setWindowTitle("BRANOK(Mine Ventilation Analysis) for Windows Ver.6");
  setWindowIcon(Icon_Of("branok"));
  setAcceptDrops(true);
  // A box in the middle of a run stands before the run's last values.
  dialogue_.before_box = [this] { panel_.show_all(); };
  New_Database(project_.db, Today());
  Fill_Database_Window(project_.db, edit_);
  history_.start(edit_);
  take_saved_head();
  panel_.reset(project_.db);
  std::error_code none;
  if (const auto demo = folders_.installed_file("DATA");
      std::filesystem::is_directory(demo, none)) {
    last_folder_ = demo;
  }
  status_ = new Status_Bar(this);
  setStatusBar(status_);
  build_menus();
  build_toolbar();
  build_middle();
  auto* const tmrRolling = new QTimer(this);
  tmrRolling->setObjectName("tmrRolling");
  tmrRolling->setInterval(rolling_period);
  rebuild_recent_menu();
  window_activated();
  refresh_status();
  place_window();
  QApplication::instance()->installEventFilter(this);
}

BRANOK60::~BRANOK60() {
  // The child windows go first, and quietly: they know the panel and the database.
  area_->disconnect(this);
  for (QMdiSubWindow* const frame : area_->subWindowList()) frame->disconnect(this);
  delete area_;
}

void BRANOK60::build_menus() {
  for (const Top_Menu& top : Menu_Bar()) {
    QMenu* menu = menuBar()->addMenu(top.caption);
    menu->setObjectName(top.name);
    menu->menuAction()->setObjectName(top.name);
    menu->setToolTipsVisible(true);
    QMenu* const outer = menu;
    for (const Menu_Entry& entry : top.entries) {
      if (entry.item == Item::separator) {
        menu->addSeparator()->setObjectName(entry.name);
      } else if (entry.item == Item::menu) {
        menu = menu->addMenu(entry.caption);
        menu->setObjectName(entry.name);
        menu->menuAction()->setObjectName(entry.name);
        menu->setStatusTip(entry.tip);
      } else if (entry.item == Item::end_of_menu) {
        menu = outer;
      } else {
        QAction* const made = menu->addAction(Icon_Of(entry.icon), entry.caption);
        made->setObjectName(Control_Name(entry.name, entry.index));
        made->setToolTip(entry.tip);
        made->setShortcuts(Keys_Of(entry.shortcut));
        made->setCheckable(entry.checkable);
        connect(made, &QAction::triggered, this, [this, made, &entry] {
          current_ = made;
          run([&] { (this->*entry.run)(std::max(entry.index, 0)); }, entry.trap);
        });
      }
    }
  }
  action("mnuOptionComTool")->setChecked(true);
  action("mnuFileComExit")->setMenuRole(QAction::QuitRole);
  action("mnuHelpComAbout")->setMenuRole(QAction::AboutRole);
}

void BRANOK60::build_toolbar() {
  tlbBRANOK_ = addToolBar("Toolbar");
  tlbBRANOK_->setObjectName("tlbBRANOK");
  tlbBRANOK_->setMovable(false);
  tlbBRANOK_->setContextMenuPolicy(Qt::PreventContextMenu);
  for (const Tool& line : Toolbar_Keys()) {
    if (std::string_view(line.key) == "Separater") {
      tlbBRANOK_->addSeparator()->setObjectName(line.key);
      continue;
    }
    QAction* const made = tlbBRANOK_->addAction(Icon_Of(line.icon), line.key);
    made->setObjectName(line.key);
    if (QAction* const same = *line.command != '\0' ? action(line.command) : nullptr) {
      const QString keys = same->shortcut().toString(QKeySequence::NativeText);
      made->setToolTip(keys.isEmpty() ? same->toolTip() : same->toolTip() + " (" + keys + ")");
      connect(made, &QAction::triggered, same, &QAction::trigger);
    } else {
      made->setToolTip(line.tip);
      made->setCheckable(line.checkable);
      connect(made, &QAction::triggered, this, [this, made, &line] {
        current_ = made;
        run([&] { (this->*line.run)(0); }, line.trap);
      });
    }
    tlbBRANOK_->widgetForAction(made)->setObjectName(line.key);
    tlbBRANOK_->widgetForAction(made)->setAccessibleName(made->toolTip());
  }
}

void BRANOK60::build_middle() {
  area_ = new QMdiArea(this);
  area_->setObjectName("area");
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setBackground(palette().brush(QPalette::Window));
  setCentralWidget(area_);
  start_page_ = new Start_Page(area_->viewport());
  auto* const layout = new QVBoxLayout(area_->viewport());
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(start_page_);
  connect(start_page_, &Start_Page::command, this, &BRANOK60::give_command);
  connect(area_, &QMdiArea::subWindowActivated, this, &BRANOK60::window_activated);
  auto* const close_key = new QShortcut(QKeySequence("Ctrl+F4"), this);
  connect(close_key, &QShortcut::activated, area_, &QMdiArea::closeActiveSubWindow);
}

void BRANOK60::place_window() {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  resize(std::min(1180, screen.width() * 9 / 10), std::min(800, screen.height() * 9 / 10));
  const QPoint place(qRound(settings_.left / Twips_Per_Pixel(*this, true)),
                     qRound(settings_.top / Twips_Per_Pixel(*this, false)));
  if (!isMaximized() && Is_On_A_Screen(place)) move(place);
}

QAction* BRANOK60::action(const char* name, int index) const {
  return findChild<QAction*>(Control_Name(name, index));
}

QAction* BRANOK60::tool(const char* key) const {
  return tlbBRANOK_->findChild<QAction*>(key, Qt::FindDirectChildrenOnly);
}

void BRANOK60::enable(const char* name, bool on) { action(name)->setEnabled(on); }

void BRANOK60::give_command(const QString& name, int index) {
  if (QAction* const asked = action(name.toUtf8().constData(), index)) asked->trigger();
}

void BRANOK60::run(const std::function<void()>& command, const char* trap) {
  status_->clear_remarks();
  std::string name = trap;
  try {
    command();
    return;
  } catch (const Calculation_Fault& fault) {
    name = fault.name;
    dialogue_.remark(fault.what());
  } catch (const std::exception& fault) {
    dialogue_.remark(fault.what());
  }
  dialogue_.end_busy();
  const bool is_file_command = name.starts_with('\'');
  dialogue_.show(is_file_command ? messages::File_Error(name) : messages::Calculation_Error(name));
  refresh_status();
  show_command_state();  // the click has turned a check mark that the command did not come to
}

void BRANOK60::Not_Available_Yet(int) {
  if (current_->isCheckable()) current_->setChecked(false);
  dialogue_.show(messages::Not_Available_Yet(Plain_Caption(current_->text()).toStdString()));
}

// --- What is enabled and what is visible

QString BRANOK60::window_tag() const {
  return action("mnuWindowCom")->property(tag_property).toString();
}

QString BRANOK60::edit_tag() const {
  return action("mnuEditCom")->property(tag_property).toString();
}

void BRANOK60::set_window_tag(const char* tag) {
  action("mnuWindowCom")->setProperty(tag_property, tag);
  findChild<QMenu*>("mnuWindowCom")->setProperty(tag_property, tag);
}

void BRANOK60::set_edit_tag(const QString& tag) {
  action("mnuEditCom")->setProperty(tag_property, tag);
  findChild<QMenu*>("mnuEditCom")->setProperty(tag_property, tag);
}

void BRANOK60::Set_Menu_Visible(bool database, bool analysis, bool graph, bool cad) {
  action("mnuDataCom")->setVisible(database);
  action("mnuAnalysisCom")->setVisible(analysis);
  action("mnuGraphcom")->setVisible(graph);
  action("mnuCADCom")->setVisible(cad);
  action("mnuEditCom")->setVisible(database || analysis || graph || cad);
}

void BRANOK60::Set_Edit_Menu_State(bool print, bool copy, bool cut, bool paste, bool rows) {
  enable("mnuFileComPrint", print);
  enable("mnuEditComCopy", copy);
  enable("mnuEditComCut", cut);
  enable("mnuEditComPaste", paste);
  for (const char* const name : {"mnuEditComPasteIns", "mnuEditComInsert1", "mnuEditComDel1",
                                 "mnuEditComInserts", "mnuEditComDels"}) {
    enable(name, rows);
  }
}

void BRANOK60::Set_Toolbar_State(bool print, bool copy, bool cut, bool paste, bool a, bool b,
                                 bool c, bool refresh) {
  tool("print")->setEnabled(print);
  tool("copy")->setEnabled(copy);
  tool("cut")->setEnabled(cut);
  tool("paste")->setEnabled(paste);
  tool("camera")->setEnabled(a);
  tool("zoomin")->setEnabled(b);
  tool("zoomout")->setEnabled(b);
  tool("mark attach")->setEnabled(c);
  tool("rect")->setEnabled(c);
  tool("refresh")->setEnabled(refresh);
}

void BRANOK60::Set_Graph_Menu_State(bool f, bool g) {
  enable("mnuGraphComIn", f);
  enable("mnuGraphComOut", f);
  enable("mnuGraphComRoll", !f);
  enable("mnuGraphComColor", g);
  enable("mnuGraphComLvl", g);
  enable("mnuGraphComSave", g);
  enable("mnuGraphComTemp", g && project_.db.Flag_Results != 0);
}

// A child window has come to the top, or the last one has gone.
void BRANOK60::window_activated() {
  const QMdiSubWindow* const top = area_->currentSubWindow();
  QWidget* const window = top != nullptr ? top->widget() : nullptr;
  const bool database = window != nullptr && window == data_;
  const bool analysis = window != nullptr && window == analysis_;
  const bool graphic = window != nullptr && window == graphic_;
  const bool cad = window != nullptr && window == cad_;
  start_page_->setVisible(area_->subWindowList().isEmpty());
  Set_Menu_Visible(database, analysis, graphic, cad);
  set_window_tag(database   ? "database"
                 : analysis ? "analysis"
                 : graphic  ? "graphic"
                 : cad      ? "cad"
                            : "none");
  status_->show_hint({});
  show_command_state();
}

void BRANOK60::show_command_state() {
  enable("mnuEditComUndo", false);
  enable("mnuEditComRedo", false);
  for (const char* const key : {"zoomin", "rect", "mark attach"}) tool(key)->setChecked(false);
  const QString tag = window_tag();
  if (tag == "database") return show_database_state();
  show_analysis_state();
  if (tag == "graphic") show_graphic_state();
  if (tag == "cad") show_cad_state();
}

void BRANOK60::show_database_state() {
  const QString target = QString::fromStdString(data_->edit_tag());
  const bool nothing = target == "network" || (target == "mainfan" && edit_.fan_in_front == 0);
  const bool any = !nothing;
  set_edit_tag(any ? target : QString("none"));
  const QLineEdit* const field = data_->focused_text();
  const bool changes = any && (field == nullptr || !field->isReadOnly());
  Set_Edit_Menu_State(true, any, changes, changes, target == "airway");
  Set_Toolbar_State(true, any, changes, changes, false, false, false, false);
  enable("mnuEditComUndo", (field != nullptr && field->isUndoAvailable()) || history_.can_undo());
  enable("mnuEditComRedo", (field != nullptr && field->isRedoAvailable()) || history_.can_redo());
}

void BRANOK60::show_analysis_state() {
  const bool analysis = window_tag() == "analysis";
  const std::string page = analysis ? analysis_->page_tag() : "none";
  const bool grid = page == "pressure" || page == "flow";
  set_edit_tag(grid ? QString::fromStdString(page) : QString("none"));
  Set_Edit_Menu_State(analysis, grid, false, grid, false);
  Set_Toolbar_State(analysis, grid, false, grid, false, false, false, analysis);
  action("mnuAnalysisComAnnual")
      ->setProperty(tag_property, QString::fromStdString(project_.db.Wet_Tag));
  enable("mnuAnalysisComAnnual", panel_.mnuAnalysisComAnnual && project_.db.Flag_Results != 0);
  // How a run that failed went on is what the engineer wants to see most.
  enable("mnuAnalysisComDiagram", panel_.mnuAnalysisComDiagram || project_.db.Iter_No > 1);
  enable("mnuAnalysisComLeng", panel_.mnuAnalysisComLeng);
  enable("mnuAnalysisComGraph", panel_.mnuAnalysisComGraph);
}

void BRANOK60::unload_windows() {
  for (QMdiSubWindow* const frame : area_->subWindowList()) {
    frame->close();
    delete frame;
  }
}

void BRANOK60::rebuild_recent_menu() {
  bool any = false;
  for (int row = 0; row < recent_rows; ++row) {
    QAction* const item = action("mnuFileComPrefile", row);
    const std::string& name = settings_.Recent_File.at(static_cast<std::size_t>(row));
    item->setVisible(!name.empty());
    item->setText(QString::fromStdString(name).replace('&', "&&"));
    any = any || !name.empty();
  }
  action("Separeter12")->setVisible(any);
  start_page_->show_recent(settings_);
}

void BRANOK60::refresh_windows() {
  basis_.take_all(project_.db);
  panel_.reset(project_.db);
  fill_grids();
  if (analysis_ != nullptr) analysis_->load();
  load_pictures();
  show_command_state();
  refresh_status();
}

void BRANOK60::refresh_status() {
  status_->show_mine(project_.db, project_.file, basis_.season(), basis_.outdated(project_.db));
  show_unchecked();
  refresh_pictures();
}

// --- Events

void BRANOK60::closeEvent(QCloseEvent* event) {
  if (data_ != nullptr) data_->finish_typing();
  const bool checked = project_.db.Check_Count >= 1;
  if (dialogue_.show(messages::Ask_Exit(checked)) != Answer::yes) {
    event->ignore();
    return;
  }
  // Another BRANOK may have written its files there since this one started: they stay.
  Settings settings = Load_Settings(folders_.Ini_Path());
  for (const std::string& file : files_) Add_Recent(settings, file);
  settings.left = qRound(x() * Twips_Per_Pixel(*this, true));
  settings.top = qRound(y() * Twips_Per_Pixel(*this, false));
  const bool normal = !isMaximized() && !isMinimized() && !isFullScreen();
  try {
    Save_Settings(settings, folders_.Ini_Path(), normal, End_Time());
  } catch (const std::exception& fault) {
    dialogue_.remark(fault.what());
    dialogue_.show(messages::File_Error("'Exit'"));
  }
  if (help_ != nullptr) help_->close();
  event->accept();
}

// The visible top menu that Alt and this key open, or null.
QAction* BRANOK60::menu_of_letter(const QKeyEvent& key) const {
  if (key.modifiers() != Qt::AltModifier || !isActiveWindow() ||
      QApplication::activePopupWidget() != nullptr) {
    return nullptr;
  }
  for (QAction* const top : menuBar()->actions()) {
    const QKeySequence letter = QKeySequence::mnemonic(top->text());
    if (top->isVisible() && letter == QKeySequence(Qt::ALT | key.key())) return top;
  }
  return nullptr;
}

// Ctrl+Z in a field of the Database window where nothing was typed since: the grids' last edit is
// meant.
bool BRANOK60::leaves_undo_to_grids(const QObject* object, const QKeyEvent& key) const {
  const QLineEdit* const field = focused_text();
  if (field == nullptr || field != object) return false;
  return (key.matches(QKeySequence::Undo) && !field->isUndoAvailable()) ||
         (key.matches(QKeySequence::Redo) && !field->isRedoAvailable());
}

// Captions of menus and of controls share letters ("&Analysis", "&Area Ratio"). The menus have
// them, so that a key always does the same.
bool BRANOK60::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    if (leaves_undo_to_grids(object, *static_cast<QKeyEvent*>(event))) return true;
    if (menu_of_letter(*static_cast<QKeyEvent*>(event)) != nullptr) {
      event->accept();
      return true;
    }
  } else if (event->type() == QEvent::KeyPress) {
    if (QAction* const top = menu_of_letter(*static_cast<QKeyEvent*>(event))) {
      menuBar()->setActiveAction(top);
      return true;
    }
  }
  return QMainWindow::eventFilter(object, event);
}

void BRANOK60::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && area_ != nullptr) {
    area_->setBackground(palette().brush(QPalette::Window));
  }
  if (event->type() == QEvent::ActivationChange && status_ != nullptr) status_->show_keyboard();
}

void BRANOK60::dragEnterEvent(QDragEnterEvent* event) {
  if (!Dragged_Mine(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void BRANOK60::dropEvent(QDropEvent* event) {
  const QString file = Dragged_Mine(*event->mimeData());
  if (!file.isEmpty()) open_file(To_Path(file));
}

}  // namespace branok
