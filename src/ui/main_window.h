// BRANOK60, the program's one window: menus, toolbar, status bar, and the child windows in its
// middle. It holds the open mine and routes each command to the room that does the work.
#pragma once

#include <QFont>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/settings.h"
#include "drawing/cad.h"
#include "files/project.h"
#include "prep/check.h"
#include "prep/edit_commands.h"
#include "prep/edit_history.h"
#include "thermal/diagrams.h"
#include "thermal/result_basis.h"
#include "ui/analysis_panel.h"
#include "ui/command_table.h"
#include "ui/qt_dialogue.h"

class QAction;
class QKeyEvent;
class QLineEdit;
class QMdiSubWindow;
class QToolBar;

namespace branok {

class Help_Window;
class MDIAna;
class MDICad;
class MDIData;
class MDIGraph;
class Picture_Window;
class Start_Page;
class Status_Bar;

class BRANOK60 : public QMainWindow {
  Q_OBJECT
 public:
  /// The window with the sample network in the database; it takes the stored position when that is
  /// on a screen.
  BRANOK60(Program_Folders folders, Settings settings, QWidget* parent = nullptr);
  ~BRANOK60() override;
  BRANOK60(const BRANOK60&) = delete;
  BRANOK60& operator=(const BRANOK60&) = delete;
  BRANOK60(BRANOK60&&) = delete;
  BRANOK60& operator=(BRANOK60&&) = delete;

  /// Gives the command of a menu entry by its name ("mnuFileComPrefile" with index 1), as if it had
  /// been chosen there: nothing happens when it is disabled.
  void give_command(const QString& name, int index = -1);

  /// Opens a data file, as File Open does once it has the name.
  void open_file(const std::filesystem::path& file);

  /// The open mine.
  [[nodiscard]] Project& project() { return project_; }

  // --- What is enabled and what is visible

  /// The word of the child window on top: "none", "database", "analysis", "graphic", "cad".
  [[nodiscard]] QString window_tag() const;
  /// What has the focus for the Edit commands: "none", "pressure", "flow", ...
  [[nodiscard]] QString edit_tag() const;

  /// Which of the child windows' own menus show; the Edit menu shows with any of them.
  void Set_Menu_Visible(bool database, bool analysis, bool graph, bool cad);
  void Set_Edit_Menu_State(bool print, bool copy, bool cut, bool paste, bool rows);
  /// The toolbar's buttons by key. Of the drawing buttons "camera" follows a, "zoomin" and
  /// "zoomout" b, "mark attach" and "rect" c.
  void Set_Toolbar_State(bool print, bool copy, bool cut, bool paste, bool a, bool b, bool c,
                         bool refresh);
  /// Zoom follows f and rolling its inverse (a picture in space rolls, a flat one zooms); colours,
  /// level band and saving follow g; the colour index needs results as well.
  void Set_Graph_Menu_State(bool f, bool g);
  /// Draws the picture of the window on top, by its tag, anew.
  void Refresh_Active_Picture();

  // --- The commands, each called by the command table alone

  void File_New(int);
  void File_Open(int);
  void File_Save(int);
  void File_Save_As(int);
  void File_Recent(int row);
  void File_Exit(int);

  void Edit_Undo(int);
  void Edit_Redo(int);
  void Edit_Cut(int);
  void Edit_Copy_Command(int);
  void Edit_Paste(int);
  void Edit_Paste_Insert(int);
  void Edit_Insert1(int);
  void Edit_Del1(int);
  void Edit_Inserts(int);
  void Edit_Dels(int);

  void Data_Check(int);
  void Data_Find(int);
  void Fan_Diagram(int);
  void Data_Calc(int index);
  void Data_Wend(int index);
  void Data_Kind(int index);
  void Data_Shape(int index);
  void Data_Option(int);
  void Data_Reset(int);

  void Analysis_Display(int);
  void Analysis_Find(int);
  void Analysis_Press(int);
  void Analysis_Annual(int);
  void Analysis_Monthly(int);
  void Analysis_Set_Const_Temp(int);
  void Analysis_Diagram(int);
  void Analysis_Graph(int);
  void Analysis_Leng(int);
  void Analysis_Switch(int);
  void Analysis_Para(int);

  void Graphic_Clear(int);
  void Graphic_In(int);
  void Graphic_Out(int);
  void Graphic_Attach(int);
  void Graphic_Area(int);
  void Graphic_View(int);
  void Graphic_Color(int);
  void Graphic_Dim(int index);
  void Graphic_Node_Info(int index);
  void Graphic_Temp(int);
  void Graphic_Para(int);
  void Graphic_Lvl(int);
  void Graphic_Create(int);

  void CAD_Clear(int);
  void CAD_In(int);
  void CAD_Out(int);
  void CAD_Attach(int);
  void CAD_Area(int);
  void CAD_View(int);
  void CAD_Color(int);
  void CAD_Airway_Info(int index);
  void CAD_Move(int);
  void CAD_Del(int);
  void CAD_Frm(int);

  void Picture_Save(int);
  void Picture_Max(int);

  void Option_Tool(int);
  void Option_Font(int);
  void Window_Cascade(int);
  void Window_Tile(int);
  void Window_Icon(int);
  void Window_Select(int index);
  void Help_BRN(int);
  void Help_About(int);

  void Tool_Zoom_In(int);
  void Tool_Zoom_Out(int);
  void Tool_Rect(int);
  void Tool_Mark_Attach(int);
  void Tool_Refresh(int);

  /// Says that a command is still to come.
  void Not_Available_Yet(int);

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void build_menus();
  void build_toolbar();
  void build_middle();
  void place_window();
  [[nodiscard]] QAction* menu_of_letter(const QKeyEvent& key) const;
  [[nodiscard]] bool leaves_undo_to_grids(const QObject* object, const QKeyEvent& key) const;

  QAction* action(const char* name, int index = -1) const;
  QAction* tool(const char* key) const;
  void enable(const char* name, bool on);

  /// Runs a command; whatever goes wrong in it ends in the message that names it.
  void run(const std::function<void()>& command, const char* trap);

  void set_window_tag(const char* tag);
  void set_edit_tag(const QString& tag);
  void window_activated();
  /// Enables in menus and toolbar what the window on top can do now.
  void show_command_state();
  void show_analysis_state();
  void show_database_state();
  void unload_windows();
  void rebuild_recent_menu();
  /// After a load: everything that is on screen shows the present mine.
  void refresh_windows();
  void refresh_status();

  void read_file(const std::filesystem::path& file);
  void opened(const Read_Result& result);
  void save(Save_Command command);
  [[nodiscard]] std::filesystem::path ask_save_name();
  [[nodiscard]] std::filesystem::path save_folder() const;

  MDIData& database_window();
  void bring_up(QWidget& window);
  void fill_grids();
  void edit(const std::function<void()>& act);
  void edit_airways(const std::function<void()>& act);
  void edit_done();
  void data_edited();
  void show_unchecked();
  /// Edits that are in no file: in the grids, or taken in by a check since the last save.
  [[nodiscard]] bool has_unsaved_edits() const;
  void take_saved_head();
  [[nodiscard]] bool may_leave_mine();
  void show_place(const Edit_Place& place);
  void set_in_rows(bool (*set)(Database&, Edit_Copy&, int), int value);
  struct Fan_Trial {
    Database db;
    Check_Result result;
  };
  Fan_Trial check_fan_page(int fan);
  void add_fan();
  void delete_fan();
  using History_Move = std::optional<Edit_Place> (Edit_History::*)(Database&, Edit_Copy&);
  void move_in_history(History_Move way);
  [[nodiscard]] QLineEdit* focused_text() const;
  void tell_paste(const Paste_Result& done);
  std::optional<int> ask_rows(const std::string& verb, const std::string& title);
  void insert_rows(int count);
  void delete_rows(int count);

  MDIAna& analysis_window();
  void run_analysis(const std::function<void()>& calculation);
  void take_file();
  void draw_diagram(Diagram_Kind kind);

  MDIGraph& graphic_window();
  MDICad& cad_window();
  void connect_picture(Picture_Window& window, const char* menu);
  void add_picture(Picture_Window* window, const char* icon);
  /// The Graphic or the CAD window when it is on top, else null.
  [[nodiscard]] Picture_Window* picture_on_top() const;
  void show_picked(const Pick& pick);
  void refresh_pictures();
  void load_pictures();
  void show_graphic_state();
  void show_cad_state();
  void show_picture_tools(const std::string& mode, bool marks);
  bool generate_cad(Cad_Source source);
  void offer_cad();
  void place_new_nodes(const Node_Table<std::int16_t>& before);
  void save_picture(Picture_Window& window, const std::filesystem::path& file);
  void drawing_edited();

  Project project_;
  Edit_Copy edit_;                       // of the open mine, whether its window is open or not
  Edit_History history_;                 // of the edit copy
  bool check_ran_ = false;               // since the last load or save
  bool drawing_edited_ = false;          // likewise, of what the pictures store in the mine
  int placed_nodes_ = 0;                 // of a drawing by mouse that is not complete: in no file
  bool graphic_seen_ = false;            // the Graphic window has shown this mine
  std::string saved_name_, saved_date_;  // of the mine, as its file has them
  Settings settings_;
  Program_Folders folders_;
  Qt_Dialogue dialogue_;
  Analysis_Panel panel_;
  std::filesystem::path last_folder_;  // of the file dialogs
  Result_Basis basis_;                 // what the results were calculated from
  std::vector<std::string> files_;     // opened and saved since the start
  std::optional<QFont> font_;          // chosen for grids and labels

  QMdiArea* area_ = nullptr;
  QToolBar* tlbBRANOK_ = nullptr;
  Status_Bar* status_ = nullptr;
  Start_Page* start_page_ = nullptr;
  QPointer<MDIData> data_;
  QPointer<MDIAna> analysis_;
  QPointer<MDIGraph> graphic_;
  QPointer<MDICad> cad_;
  QPointer<Help_Window> help_;
  QAction* current_ = nullptr;  // whose command runs
};

}  // namespace branok
