#include "ui/command_table.h"

#include "ui/main_window.h"

namespace branok {

namespace {

using W = BRANOK60;

constexpr Menu_Entry Do(const char* name, const char* caption, const char* tip, const char* icon,
                        const char* shortcut, Command_Procedure run, const char* trap) {
  return {Item::command, name, caption, tip, icon, shortcut, run, trap, -1, false};
}
// An entry of an array of entries.
constexpr Menu_Entry Do(const char* name, int index, const char* caption, const char* tip,
                        const char* icon, const char* shortcut, Command_Procedure run,
                        const char* trap) {
  return {Item::command, name, caption, tip, icon, shortcut, run, trap, index, false};
}
constexpr Menu_Entry Check(const char* name, const char* caption, const char* tip,
                           Command_Procedure run, const char* trap) {
  return {Item::command, name, caption, tip, "", "", run, trap, -1, true};
}
constexpr Menu_Entry Check(const char* name, int index, const char* caption, const char* tip,
                           Command_Procedure run, const char* trap) {
  return {Item::command, name, caption, tip, "", "", run, trap, index, true};
}
// A mouse mode of a picture: checked while it is on.
constexpr Menu_Entry Mode(const char* name, const char* caption, const char* tip, const char* icon,
                          const char* shortcut, Command_Procedure run, const char* trap) {
  return {Item::command, name, caption, tip, icon, shortcut, run, trap, -1, true};
}
constexpr Menu_Entry Line(const char* name) {
  return {Item::separator, name, "", "", "", "", nullptr, "", -1, false};
}
constexpr Menu_Entry Menu(const char* name, const char* caption, const char* tip) {
  return {Item::menu, name, caption, tip, "", "", nullptr, "", -1, false};
}
constexpr Menu_Entry End() {
  return {Item::end_of_menu, "", "", "", "", "", nullptr, "", -1, false};
}

// The layout of these tables says more than a formatter would.
// clang-format off

constexpr Menu_Entry file_menu[] = {
  Do("mnuFileComNew",    "&New",     "Start anew with the sample network",   "new",   "Ctrl+N", &W::File_New,  "'New'"),
  Do("mnuFileComOpen",   "&Open...", "Open a mine from its data file",       "open",  "Ctrl+O", &W::File_Open, "'Open...'"),
  Do("mnuFileComSave",   "&Save",    "Save the mine with its results",       "save",  "Ctrl+S", &W::File_Save, "'Save'"),
  Do("mnuFileComSaveAs", "Save &As...", "Save the mine under another name",  "",      "Ctrl+Shift+S", &W::File_Save_As, "'Save As...'"),
  Line("mnuSepereter1"),
  Do("mnuFileComImport", "&Import Ver.4 and 5 Data ..", "Read a project of an older version", "", "", &W::Not_Available_Yet, "'Import...'"),
  Do("mnuFileComExport", "&Export Ver.5 Data ...", "Write the project for an older version", "", "", &W::Not_Available_Yet, "'Export...'"),
  Line("mnuSepereter2"),
  Do("mnuFileComPrint",  "&Print...", "Print what the window on top holds",  "print", "Ctrl+P", &W::Not_Available_Yet, "'Print...'"),
  Line("Separeter12"),
  Do("mnuFileComPrefile", 0, "", "Open this mine again", "", "", &W::File_Recent, "'Open...'"),
  Do("mnuFileComPrefile", 1, "", "Open this mine again", "", "", &W::File_Recent, "'Open...'"),
  Do("mnuFileComPrefile", 2, "", "Open this mine again", "", "", &W::File_Recent, "'Open...'"),
  Do("mnuFileComPrefile", 3, "", "Open this mine again", "", "", &W::File_Recent, "'Open...'"),
  Line("Separeter11"),
  Do("mnuFileComExit",   "E&xit", "Leave the program", "exit", "Ctrl+Q", &W::File_Exit, "'Exit'"),
};

constexpr Menu_Entry edit_menu[] = {
  Do("mnuEditComUndo",     "&Undo",            "Take the last edit back", "undo",  "Ctrl+Z", &W::Edit_Undo, "Undo command"),
  Do("mnuEditComRedo",     "&Redo",            "Do the edit again that was taken back", "redo", "Ctrl+Shift+Z", &W::Edit_Redo, "Redo command"),
  Line("mnuSepereterUndo"),
  Do("mnuEditComCut",      "Cu&t",             "Move the selection to the clipboard", "cut",   "Ctrl+X", &W::Edit_Cut, "Cut command"),
  Do("mnuEditComCopy",     "&Copy",            "Copy the selection to the clipboard", "copy",  "Ctrl+C", &W::Edit_Copy_Command, "Copy command"),
  Do("mnuEditComPaste",    "&Paste Overwrite", "Paste over the cells from the current one on", "paste", "Ctrl+V", &W::Edit_Paste, "Paste command"),
  Do("mnuEditComPasteIns", "Paste &Insert",    "Paste as new rows",                   "",      "Ctrl+Shift+V", &W::Edit_Paste_Insert, "Paste command"),
  Line("mnuSepereter3"),
  Do("mnuEditComInsert1",  "Insert a row",     "Insert an empty row here",            "",      "", &W::Edit_Insert1, "Insert Row command"),
  Do("mnuEditComDel1",     "Delete a row",     "Delete the current row",              "",      "", &W::Edit_Del1, "Delete Row command"),
  Do("mnuEditComInserts",  "Insert rows",      "Insert several empty rows here",      "",      "", &W::Edit_Inserts, "Insert Row command"),
  Do("mnuEditComDels",     "Delete rows",      "Delete several rows from here on",    "",      "", &W::Edit_Dels, "Delete Row command"),
};

constexpr Menu_Entry data_menu[] = {
  Do("mnuDataComCheck", "&Check and Fix Data", "Check the data and make them ready for the analysis", "check-data", "F9", &W::Data_Check, "DataBase Window"),
  Do("mnuDataComFind",  "&Find...",            "Find a node or an airway",     "find", "Ctrl+F", &W::Data_Find, "DataBase Window"),
  Do("mnuDataComGraph", "Fan &Diagram",        "Show the curves of a main fan", "fan", "",      &W::Fan_Diagram, "Fan Diagram menu"),
  Line("mnuSepereter4"),
  Do("mnuDataComView",  "&View Attached Picture File", "Show the picture of the current row", "", "", &W::Not_Available_Yet, "View command"),
  Do("mnuDataComAssc",  "&Import Picture File...", "Attach a picture to the current row",     "", "", &W::Not_Available_Yet, "Associate command"),
  Line("mnuSepereter5"),
  Menu("mnuDataComCalc", "Ca&lculate", "Calculate values of the airways"),
    Do("mnuDataCalc", 0, "Cal. &Resistance based on Friction F.",   "", "", "", &W::Data_Calc, "Calcurate menu"),
    Do("mnuDataCalc", 1, "Cal. &Length between 2 Nodes",            "", "", "", &W::Data_Calc, "Calcurate menu"),
    Do("mnuDataCalc", 2, "Cal. &Perimeter from Area",               "", "", "", &W::Data_Calc, "Calcurate menu"),
    Do("mnuDataCalc", 3, "Cal. &Friction Factor from Resistance",   "", "", "", &W::Data_Calc, "Calcurate menu"),
    Do("mnuDataCalc", 4, "Input Friction F. from &Standard Table",  "", "", "", &W::Data_Calc, "Calcurate menu"),
    Do("mnuDataCalc", 5, "Cal. Hight based on Area && Shape",        "", "", "", &W::Data_Calc, "Calcurate menu"),
  End(),
  Menu("mnuDataComWend", "Degree of &Winding", "Set the winding of the selected airways"),
    Do("mnuDataWend", 0, "A = &Straight",     "", "", "", &W::Data_Wend, "Winding menu"),
    Do("mnuDataWend", 1, "B = &Midium Curve", "", "", "", &W::Data_Wend, "Winding menu"),
    Do("mnuDataWend", 2, "C = Ha&rd Curve",   "", "", "", &W::Data_Wend, "Winding menu"),
  End(),
  Menu("mnuDataComKind", "&Kind of Support", "Set the support of the selected airways"),
    Do("mnuDataKind", 0, "Steel Support",  "", "", "", &W::Data_Kind, "Support Kind menu"),
    Do("mnuDataKind", 1, "Wood Support",   "", "", "", &W::Data_Kind, "Support Kind menu"),
    Do("mnuDataKind", 2, "Smooth Lining",  "", "", "", &W::Data_Kind, "Support Kind menu"),
    Do("mnuDataKind", 3, "Rough Lining",   "", "", "", &W::Data_Kind, "Support Kind menu"),
    Do("mnuDataKind", 4, "Lining+St.Sup.", "", "", "", &W::Data_Kind, "Support Kind menu"),
    Do("mnuDataKind", 5, "Non - Support",  "", "", "", &W::Data_Kind, "Support Kind menu"),
    Do("mnuDataKind", 6, "Leak",           "", "", "", &W::Data_Kind, "Support Kind menu"),
    Do("mnuDataKind", 7, "Air Duct",       "", "", "", &W::Data_Kind, "Support Kind menu"),
  End(),
  Menu("mnuDataComShape", "Shape of Cross Section", "Set the shape of the selected airways"),
    Do("mnuDataShape", 0, "C = &Circle",    "", "", "", &W::Data_Shape, "Shape menu"),
    Do("mnuDataShape", 1, "H = &Horseshoe", "", "", "", &W::Data_Shape, "Shape menu"),
    Do("mnuDataShape", 2, "S = &Square",    "", "", "", &W::Data_Shape, "Shape menu"),
    Do("mnuDataShape", 3, "R = &Rectangle", "", "", "", &W::Data_Shape, "Shape menu"),
  End(),
  Line("mnuSepereter6"),
  Do("mnuDataOption", "&Option Setting...", "How grids move and select, and where marks begin", "", "", &W::Data_Option, "DataBase Window"),
  Do("mnuDataReset",  "Reset Database to Last Check", "Take all edits since the last check back", "", "", &W::Data_Reset, "DataBase Window"),
};

constexpr Menu_Entry analysis_menu[] = {
  Do("mnuAnalysisComDisp",   "D&ispaly/Refresh Results", "Fill the result grids anew", "refresh", "F5", &W::Analysis_Display, "Display Analysis menu"),
  Do("mnuAnalysisComFind",   "&Find Node/Airway...",     "Go to a node in the result grid", "find", "Ctrl+F", &W::Analysis_Find, "Display Analysis menu"),
  Line("mnuSepereter7"),
  Do("mnuAnalysisComPress",  "Flow Analysis for &Given Con.", "Calculate pressures and flows for the present temperatures", "calc-flow", "F6", &W::Analysis_Press, "Analysis Window"),
  Do("mnuAnalysisComAnnual", "&Annual Temp. and Flow",        "Calculate the annual temperatures and humidities with their flows", "calc-annual", "F7", &W::Analysis_Annual, "Analysis Window"),
  Do("mnuAnalysisComMonthly","Seasonal Temp. &Var. and Flow", "Calculate the temperatures of a season with their flows", "calc-season", "F8", &W::Analysis_Monthly, "Analysis Window"),
  Do("mnuAnalysisComSetConst_Temp", "Set Constant &Temp.",    "Give all air the intake's annual average state", "const-temp", "", &W::Analysis_Set_Const_Temp, "Analysis Window"),
  Line("mnuSepereter8"),
  Do("mnuAnalysisComDiagram", "Press.Convergence Diagram", "How the imbalance fell from iteration to iteration", "diagram-press", "", &W::Analysis_Diagram, "Press. Diagram menu"),
  Do("mnuAnalysisComGraph",   "Seasonal Temp. Var Graph",  "Air temperatures through the year",                 "diagram-month", "", &W::Analysis_Graph, "Display Temp. menu"),
  Do("mnuAnalysisComLeng",    "Length-Temp. Graph",        "Air temperature by the way that the air has gone",  "diagram-length", "", &W::Analysis_Leng, "Display Temp. menu"),
  Line("mnuSepereter9"),
  Do("mnuAnalysisComSwitch",  "Change &Switch Airway Stop/Open", "Close or open the airway of the current row", "switch", "Ctrl+T", &W::Analysis_Switch, "Change Switch menu"),
  Do("mnuAnalysisComPara",    "&Edit Parameter...",        "Intake air, rock, tolerance and month",             "parameters", "Ctrl+E", &W::Analysis_Para, "Edit Parameter menu"),
};

constexpr Menu_Entry graphic_menu[] = {
  Do("mnuGraphComClear",  "&Redraw",      "Draw the picture anew",           "refresh", "F5",     &W::Graphic_Clear, "Graphic Window"),
  Mode("mnuGraphComIn",     "Zoom &In",     "Enlarge a part of the picture",   "zoomin",  "Ctrl++", &W::Graphic_In, "Graphic Window"),
  Do("mnuGraphComOut",    "Zoom &Out",    "Show the whole picture",          "zoomout", "Ctrl+-", &W::Graphic_Out, "Graphic Window"),
  Check("mnuGraphComAttach", "Mark Attach", "Show or hide the marks",        &W::Graphic_Attach, "Graphic Window"),
  Mode("mnuGraphComArea",   "Select &Area", "Select a part of the picture",    "rect",    "",       &W::Graphic_Area, "Graphic Window"),
  Mode("mnuGraphComView",   "Show &View",   "Show what stands under the pointer", "",     "",       &W::Graphic_View, "Show View menu"),
  Do("mnuGraphComColor",  "&Color Setting...", "Colours of the picture",     "",        "",       &W::Graphic_Color, "Color Setting menu"),
  Menu("mnuGraphComDim", "Graphic &Dimension", "How the mine is looked at"),
    Check("mnuGraphDim", 0, "3D &WF",   "Lines in space",      &W::Graphic_Dim, "3D Graphic command"),
    Check("mnuGraphDim", 1, "3D &Surf", "Tubes in space",      &W::Graphic_Dim, "3D Graphic command"),
    Check("mnuGraphDim", 2, "2D&H",     "Plan",                &W::Graphic_Dim, "Graphic Window"),
    Check("mnuGraphDim", 3, "2D &E-W",  "Section east-west",   &W::Graphic_Dim, "Graphic Window"),
    Check("mnuGraphDim", 4, "2D &N-S",  "Section north-south", &W::Graphic_Dim, "Graphic Window"),
  End(),
  Menu("mnuGraphComNode_Info", "Node_&Info", "What stands beside the nodes"),
    Check("mnuGraphNode_Info", 0, "&None",      "", &W::Graphic_Node_Info, "Graphic Node_Info menu"),
    Check("mnuGraphNode_Info", 1, "Sea &Level", "", &W::Graphic_Node_Info, "Graphic Node_Info menu"),
    Check("mnuGraphNode_Info", 2, "&S-N Pos.",  "", &W::Graphic_Node_Info, "Graphic Node_Info menu"),
    Check("mnuGraphNode_Info", 3, "&E-W Pos.",  "", &W::Graphic_Node_Info, "Graphic Node_Info menu"),
  End(),
  Do("mnuGraphComSave",   "&Save Picture...", "Save the picture as a file", "", "", &W::Picture_Save, "'Save Picture...'"),
  Do("mnuGraphComMax",    "&Full Screen",     "Show the picture on the whole screen", "", "F11", &W::Picture_Max, "Graphic Window"),
  Do("mnuGraphComCamera", "&Camera...",       "Move and turn the view in space", "camera", "", &W::Not_Available_Yet, "3D Graphic command"),
  Check("mnuGraphComRoll", "A&uto Rolling",   "Let the picture in space turn", &W::Not_Available_Yet, "Auto Rolling command"),
  Do("mnuGraphComTemp",   "Color Index for Temp..", "Which colours stand for which temperatures", "", "", &W::Graphic_Temp, "Color Setting menu"),
  Do("mnuGraphComPara",   "Graphic &Parameter...",  "Position, turn and scale of the mine",       "", "", &W::Graphic_Para, "Graphic Window"),
  Do("mnuGraphComLvl",    "Level &Band...",         "Show only nodes between two levels",         "", "", &W::Graphic_Lvl, "Graphic Window"),
  Do("mnuGraphComCreate", "Cr&eate CAD Data",       "Make the schematic drawing from this picture", "", "", &W::Graphic_Create, "CAD Window"),
};

constexpr Menu_Entry cad_menu[] = {
  Do("mnuCADComClear",  "&Redraw",      "Draw the picture anew",         "refresh", "F5",     &W::CAD_Clear, "CAD Window"),
  Mode("mnuCADComIn",     "Zoom &In",     "Enlarge a part of the picture", "zoomin",  "Ctrl++", &W::CAD_In, "CAD Window"),
  Do("mnuCADComOut",    "Zoom &Out",    "Show the whole picture",        "zoomout", "Ctrl+-", &W::CAD_Out, "CAD Window"),
  Check("mnuCADComAttach", "Mark Attach", "Show or hide the marks",      &W::CAD_Attach, "CAD Window"),
  Mode("mnuCADComArea",   "Select &Area", "Select a part of the picture",  "rect",    "",       &W::CAD_Area, "CAD Window"),
  Mode("mnuCADComView",   "Show &View",   "Show what stands under the pointer", "",   "",       &W::CAD_View, "Show View menu"),
  Do("mnuCADComColor",  "&Color Setting...", "Colours of the drawing",   "",        "",       &W::CAD_Color, "Color Setting menu"),
  Menu("mnuCADComAirway_Info", "&Airway_Info", "What stands beside the airways"),
    Check("mnuCADAirway_Info", 0, "&None",             "", &W::CAD_Airway_Info, "CAD Airway_Info menu"),
    Check("mnuCADAirway_Info", 1, "&Resistance",       "", &W::CAD_Airway_Info, "CAD Airway_Info menu"),
    Check("mnuCADAirway_Info", 2, "&Flow Rate",        "", &W::CAD_Airway_Info, "CAD Airway_Info menu"),
    Check("mnuCADAirway_Info", 3, "&Temperature",      "", &W::CAD_Airway_Info, "CAD Airway_Info menu"),
    Check("mnuCADAirway_Info", 4, "F&riction F.x1000", "", &W::CAD_Airway_Info, "CAD Airway_Info menu"),
    Check("mnuCADAirway_Info", 5, "N&ote/Caption",     "", &W::CAD_Airway_Info, "CAD Airway_Info menu"),
  End(),
  Do("mnuCADComSave",       "&Save Picture...",      "Save the drawing as a file",            "", "", &W::Picture_Save, "'Save Picture...'"),
  Do("mnuCADComMax",        "&Full Screen",          "Show the drawing on the whole screen",  "", "F11", &W::Picture_Max, "CAD Window"),
  Mode("mnuCADComMove",       "Move &Node",            "Move nodes of the drawing",             "", "", &W::CAD_Move, "CAD Window"),
  Do("mnuCADComDel",        "&Delete Node...",       "Delete a node with its airways",        "", "", &W::CAD_Del, "Delete Node menu"),
  Do("mnuCADComFrm",        "&Edit Frame...",        "Change the space around the drawing",   "", "", &W::CAD_Frm, "Edit Frame menu"),
  Do("mnuCADComRenum_Node", "&Renumbering Nodes...", "Number the nodes along the network",    "", "", &W::Not_Available_Yet, "Renumbering Nodal menu"),
};

constexpr Menu_Entry option_menu[] = {
  Check("mnuOptionComTool", "&ToolBar View", "Show or hide the toolbar", &W::Option_Tool, "ToolBar View menu"),
  Do("mnuOptionComFont", "&Font...", "Font of the grids and labels of the window on top", "font", "", &W::Option_Font, "'Font...'"),
};

constexpr Menu_Entry window_menu[] = {
  Do("mnuWindowComCascade", "&Cascade", "Lay the windows over one another", "cascade", "", &W::Window_Cascade, "Select Window menu"),
  Do("mnuWindowComTile",    "&Tile",    "Lay the windows side by side",     "tile",    "", &W::Window_Tile,    "Select Window menu"),
  Do("mnuWindowComIcon",    "&Icon",    "Line the minimised windows up",    "",        "", &W::Window_Icon,    "Select Window menu"),
  Line("mnuSepereter10"),
  Do("mnuWinSelCom", 0, "&1 Database", "The network as grids",               "window-database", "Ctrl+1", &W::Window_Select, "Select Window menu"),
  Do("mnuWinSelCom", 1, "&2 Analysis", "Calculations and their results",     "window-analysis", "Ctrl+2", &W::Window_Select, "Select Window menu"),
  Do("mnuWinSelCom", 2, "&3 Graphic",  "The mine in plan, section and space", "window-graphic", "Ctrl+3", &W::Window_Select, "Select Window menu"),
  Do("mnuWinSelCom", 3, "&4 CAD",      "The schematic drawing",              "window-cad",      "Ctrl+4", &W::Window_Select, "Select Window menu"),
};

constexpr Menu_Entry help_menu[] = {
  Do("mnuHelpComBRN",   "&Help BRANOK...", "The user's guide", "help",  "F1", &W::Help_BRN,   "About command"),
  Do("mnuHelpComAbout", "&About...",       "About BRANOK",     "about", "",   &W::Help_About, "About command"),
};

constexpr Top_Menu menu_bar[] = {
  {"mnuFileCom",     "&File",     file_menu},
  {"mnuEditCom",     "&Edit",     edit_menu},
  {"mnuDataCom",     "&Database", data_menu},
  {"mnuAnalysisCom", "&Analysis", analysis_menu},
  {"mnuGraphcom",    "&Graphic",  graphic_menu},
  {"mnuCADCom",      "&CAD",      cad_menu},
  {"mnuOptionCom",   "&Option",   option_menu},
  {"mnuWindowCom",   "&Window",   window_menu},
  {"mnuHelpCom",     "&Help",     help_menu},
};

constexpr Tool tools[] = {
  {"new",         "new",         "mnuFileComNew"},
  {"open",        "open",        "mnuFileComOpen"},
  {"save",        "save",        "mnuFileComSave"},
  {"Separater",   "",            ""},
  {"Check Data",  "check-data",  "mnuDataComCheck"},
  {"print",       "print",       "mnuFileComPrint"},
  {"Separater",   "",            ""},
  {"cut",         "cut",         "mnuEditComCut"},
  {"copy",        "copy",        "mnuEditComCopy"},
  {"paste",       "paste",       "mnuEditComPaste"},
  {"Separater",   "",            ""},
  {"zoomin",      "zoomin",      "", &W::Tool_Zoom_In,     "Enlarge a part of the picture (Ctrl++)", "Select Window menu", true},
  {"zoomout",     "zoomout",     "", &W::Tool_Zoom_Out,    "Show the whole picture (Ctrl+-)", "Select Window menu"},
  {"rect",        "rect",        "", &W::Tool_Rect,        "Select a part of the picture",    "Select Window menu", true},
  {"camera",      "camera",      "mnuGraphComCamera"},
  {"mark attach", "mark-attach", "", &W::Tool_Mark_Attach, "Show or hide the marks",          "Select Window menu", true},
  {"Separater",   "",            ""},
  {"refresh",     "refresh",     "", &W::Tool_Refresh,     "Show the window on top anew (F5)", "Select Window menu"},
  {"help",        "help",        "mnuHelpComBRN"},
};

// clang-format on

}  // namespace

std::span<const Top_Menu> Menu_Bar() { return menu_bar; }

std::span<const Tool> Toolbar_Keys() { return tools; }

}  // namespace branok
