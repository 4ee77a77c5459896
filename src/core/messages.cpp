#include "core/messages.h"

namespace branok::messages {

namespace {

Message Warning(std::string text) {
  return {.text = std::move(text), .icon = Icon::exclamation, .beep = true};
}

Message Information(std::string text) {
  return {.text = std::move(text), .icon = Icon::information, .beep = true};
}

Message Yes_No(std::string text, Topic topic) {
  return {.text = std::move(text),
          .icon = Icon::question,
          .buttons = Buttons::yes_no,
          .default_answer = Answer::yes,
          .beep = true,
          .topic = topic};
}

Message Ok_Cancel(std::string text) {
  return {.text = std::move(text),
          .icon = Icon::question,
          .buttons = Buttons::ok_cancel,
          .default_answer = Answer::ok,
          .beep = true};
}

}  // namespace

Message Calculation_Error(std::string_view what) {
  return Warning("Calculation Error about " + std::string(what) +
                 " occurred, please check data !\n"
                 "[ Recommendation: For security of data, \n"
                 "save data as another group!]");
}

Message File_Error(std::string_view title) {
  return Warning("Sorry, failed " + std::string(title) + " command.");
}

Message File_Not_Found(std::string_view name) {
  return Warning("Not found \"" + std::string(name) + "\"file.\nPlease Try Again.");
}

Message Too_Many_Passes() {
  return Warning(
      "This calclation was interrupted by the number of iterations (>100) !\n"
      "[Recommendation: Check data, especially Intake, fan-set & fan-flow-direc. nodal no. !]");
}

Message Divergence() {
  return Warning(
      "\nThis calclation was interrupted by divergence of results !\n"
      "[Recommendation: Check Data, especially Intake, fan-set & fan-flow-direc. nodal no. !]");
}

Message Memory_Over() {
  return Warning(
      "Memory will be over \n"
      "for press. & flow calculation.\n"
      "Do optimize nodal No.!");
}

Message Confirm_Flow() { return Information("After confirmation, push button !"); }

Message Ask_Results_Initial() {
  return {.text =
              "Calculation results are existing!\n"
              "Do you want to use results data as initial value ?\n"
              "If you select 'Yes' button, set results data.\n"
              "Or you select 'No' button, set arbitrary data.\n"
              "When set arbitrary data, present results data will be lost!\n"
              "Or you select 'Cancel' button, do not analyze pressure.",
          .icon = Icon::question,
          .buttons = Buttons::yes_no_cancel,
          .default_answer = Answer::no,
          .beep = true,
          .topic = Topic::results_as_start};
}

Message Save_Annual_Results() {
  return Information(
      "Recommendation: Save Annual calculation results,\n"
      "before calculation of Monthly Temp. & Hum.");
}

Message Season_Needs_Annual() {
  return Information(
      "Seasonal Temp. can be calculated after calculation of Annual Flow Temperature!");
}

Message Ask_Replace_Annual() {
  return Yes_No(
      "Annual Temp. Data will be replaced with Monthly Data!\n"
      "[Recommendation : before calculate Monthly Temp., \n"
      "save calculation results.]\n"
      "If you select 'Yes' button, start Calculation.\n"
      "Or 'No' button, stop calculation.",
      Topic::replace_annual);
}

Message Ask_Season_Flow() {
  return Yes_No(
      "Temp. & Hum. calculations are complete!\n"
      "Calculate Press. & Flow for Monthly Temp. ?",
      Topic::flow_for_season);
}

Message Season_Complete(std::string_view season) {
  return Information("Flow, Temp. & Hum. calculation are complete\nfor  " + std::string(season));
}

Message Ask_Check_Before_Save() {
  return {.text =
              "You have not checked Network Data.\n"
              "Doing Check Data is recommended to revise Data.\n"
              "Do you want to do Check Data ?",
          .title = "Check Data",
          .icon = Icon::question,
          .buttons = Buttons::yes_no,
          .default_answer = Answer::yes,
          .beep = true,
          .topic = Topic::check_before_save};
}

Message Ask_Exit(bool checked) {
  const std::string question = "Do you really want to exit the application?";
  return {.text = checked ? "The edited Data may be lost.\n" + question : question,
          .icon = Icon::question,
          .buttons = Buttons::yes_no,
          .default_answer = Answer::no,
          .beep = true};
}

Message Ask_Leave_Mine() {
  Message question = Yes_No(
      "The edited Data may be lost.\nDo you really want to leave the present mine?", Topic::none);
  question.default_answer = Answer::no;
  return question;
}

Message Not_Available_Yet(std::string_view command) {
  std::string text = "\"";
  text.append(command).append("\" is not available yet.");
  return Information(std::move(text));
}

Message Not_Numeric() { return Warning("Please input numeric data."); }

Message Out_Of_Range(std::string_view item, std::string_view folder, std::string_view low,
                     std::string_view high) {
  return Warning(std::string(item) + " in " + std::string(folder) + " The value should be from " +
                 std::string(low) + "  to  " + std::string(high) + " .\nChange value !");
}

Message Not_Positive(std::string_view item, std::string_view folder) {
  return Warning(std::string(item) + " in " + std::string(folder) +
                 "\nPlease Input Positive Value.");
}

Message Wrong_Input(std::string_view item, std::string_view folder) {
  return Warning("Input data on " + std::string(item) + " in " + std::string(folder) +
                 " is Wrong!");
}

Message Missing_Input(std::string_view name, std::string_view folder) {
  return Warning("Please input " + std::string(name) + " in " + std::string(folder) +
                 " has not inputed.");
}

Message Airway_Row_Fault(int row) {
  return Warning("Please input airway  data on row No." + std::to_string(row));
}

Message Node_Row_Missing(int row) {
  return Warning("Please input nodal data on row No." + std::to_string(row));
}

Message Input_Node_Number(int limit) {
  if (limit == 0) return Warning("Input Node Number.");
  return Warning("Input Node Number.\n(Max" + std::to_string(limit) + ")");
}

Message Same_Node_Numbers() { return Warning("Nodes have Same Number."); }

Message Airway_Undefined() { return Warning("The airway No. can't define!"); }

Message Airway_Exists_Already() { return Warning("Same airway is existing!"); }

Message Five_Connections() { return Warning("Total connected No. is five points."); }

Message Ask_Deleted_Airway(std::string_view airway) {
  return Ok_Cancel("Deleted airway is\n" + std::string(airway));
}

Message Ask_Add_Airway(std::string_view airway) {
  return Ok_Cancel("Add airway is " + std::string(airway) + ".");
}

Message Node_Out_Of_Range(int last, std::string_view item) {
  return Warning("Nodal No. range =  1 - " + std::to_string(last) + "\n'" + std::string(item) +
                 "' data is out of range.\nPlease reinput this data.");
}

Message Node_Not_Existing(int node, std::string_view folder) {
  return Warning("Node No." + std::to_string(node) + " in " + std::string(folder) +
                 " is not existing !");
}

Message Node_Double_Booked(std::string_view other) {
  return Warning("Node is double booked with other " + std::string(other) + " set !");
}

Message Enter_Node(std::string_view item) {
  return Warning("Enter the " + std::string(item) + " !");
}

Message No_Flow_Direction() {
  return Warning("Can't set the flow direction node.\nChange the node No. !");
}

Message Change_Revolution(std::string_view which) {
  return Warning("Change the" + std::string(which) + "revolution rate !");
}

Message Too_Few_Fan_Points(int fan) {
  return Warning("The data of flow and head are shortage !\n( Fan #" + std::to_string(fan) + " )");
}

Message Airway_Not_Existing(std::string_view airway, std::string_view folder) {
  return Warning("The airway " + std::string(airway) + " in " + std::string(folder) +
                 " is Not Existing!");
}

Message Dead_End(int node) {
  return Warning("The number of connected airways at Node No." + std::to_string(node) +
                 " is only one.\nSet Intake node or Fan Set node at the node.");
}

Message Data_All_Right() { return Information("The data are all right !"); }

Message Ask_Reset_Database() {
  Message question = Yes_No(
      "The database will be returned to one before the last Data-Check!\n"
      "However, the main fan data will not be changed.\n"
      "Do you proceed ?",
      Topic::none);
  question.title = "Reset Database";
  question.default_answer = Answer::no;
  return question;
}

Message Ask_Delete_Fan(int fan) {
  Message question = Yes_No("Delete Main Fan No." + std::to_string(fan), Topic::none);
  question.default_answer = Answer::no;
  return question;
}

Message Ask_Cad_Source(bool graphic) {
  Message question = Yes_No(std::string("Gnerate rough CAD data from ") +
                                (graphic ? "graphic picture (Yes)" : "E-W,N-S data (Yes)") +
                                "\nDrawing CAD with mouse pointing for each node (No)",
                            Topic::none);
  question.beep = false;
  return question;
}

Message Ask_Clear_Cad() {
  Message question = Yes_No(
      "Clear Present CAD Data. Are you sure ?\n"
      "  If you select 'Yes' button,\n"
      "bleak your pre CAD data file, \n"
      "and create new CAD data from graphic data.",
      Topic::none);
  question.default_answer = Answer::no;
  return question;
}

Message Cad_Generated() { return Information("Generate CAD Data !"); }

Message Ask_Delete_Node(int node) {
  Message question = Ok_Cancel("Deleted nodal No. is " + std::to_string(node) + "\nAre you sure ?");
  question.default_answer = Answer::cancel;
  return question;
}

Message Frame_Space_Too_Small() { return Warning("More than -50%"); }

Message Nothing_Picked() {
  return Information("There is neither a node nor an airway at this point.");
}

Message Ask_Print_Parameters() { return Yes_No("Print out parameter ?", Topic::none); }

}  // namespace branok::messages
