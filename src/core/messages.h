// The program's own messages, each text once, letter for letter.
#pragma once

#include <string>
#include <string_view>

#include "core/dialogue.h"

namespace branok::messages {

/// A run-time fault in the calculation named `what`.
Message Calculation_Error(std::string_view what);

/// A file command or file operation that could not be done; `title` names it, with its quotes.
Message File_Error(std::string_view title);

/// A recent file that has gone.
Message File_Not_Found(std::string_view name);

/// The solver's own failures.
Message Too_Many_Passes();
Message Divergence();
Message Memory_Over();

/// After a flow run.
Message Confirm_Flow();

/// The question whether present results are the start values of a flow run.
Message Ask_Results_Initial();

/// After an annual run.
Message Save_Annual_Results();

/// Around a seasonal run.
Message Season_Needs_Annual();
Message Ask_Replace_Annual();
Message Ask_Season_Flow();
Message Season_Complete(std::string_view season);

/// Before a save of data that no check has seen.
Message Ask_Check_Before_Save();

/// Before the program ends; `checked` tells of checks since the last open or save.
Message Ask_Exit(bool checked);

/// Before another mine takes the place of one whose edits are in no file.
Message Ask_Leave_Mine();

/// A command that is still to come.
Message Not_Available_Yet(std::string_view command);

/// A cell of a grid that must hold a number and does not.
Message Not_Numeric();

/// A cell of a grid whose number is out of range: `item` is its column in the messages' form
/// ("'Area' Column"), the bounds are texts as the column shows them.
Message Out_Of_Range(std::string_view item, std::string_view folder, std::string_view low,
                     std::string_view high);

/// What the check of the data finds. `item` is the column or field in the messages' form, `folder`
/// the folder in its own.
Message Not_Positive(std::string_view item, std::string_view folder);
Message Wrong_Input(std::string_view item, std::string_view folder);
Message Missing_Input(std::string_view name, std::string_view folder);
Message Airway_Row_Fault(int row);
Message Node_Row_Missing(int row);
/// The name of an airway: a number is missing (or above `limit`, when that is given), both are the
/// same, it has more numbers than two.
Message Input_Node_Number(int limit = 0);
Message Same_Node_Numbers();
Message Airway_Undefined();
Message Airway_Exists_Already();
Message Five_Connections();
/// Whether an airway that is no longer in the grid goes, and one that is new in it comes. `airway`
/// is "3 -> 7".
Message Ask_Deleted_Airway(std::string_view airway);
Message Ask_Add_Airway(std::string_view airway);
/// A node number that is outside 1..`last`.
Message Node_Out_Of_Range(int last, std::string_view item);
Message Node_Not_Existing(int node, std::string_view folder);
/// `other` is "Fan" or "Inlet".
Message Node_Double_Booked(std::string_view other);
Message Enter_Node(std::string_view item);
Message No_Flow_Direction();
/// `which` is " Standard " or " Driving ".
Message Change_Revolution(std::string_view which);
Message Too_Few_Fan_Points(int fan);
Message Airway_Not_Existing(std::string_view airway, std::string_view folder);
Message Dead_End(int node);
Message Data_All_Right();

Message Ask_Reset_Database();
Message Ask_Delete_Fan(int fan);

/// Where a drawing's first positions come from: the Graphic picture or the survey coordinates
/// (Yes), or a click for each node (No).
Message Ask_Cad_Source(bool graphic);
/// Before a new drawing takes the place of the present one, and after it is made.
Message Ask_Clear_Cad();
Message Cad_Generated();
/// The input box for the node that leaves the network, and the question before it goes.
inline constexpr std::string_view delete_node_prompt = "Delete Node No. ?";
inline constexpr std::string_view delete_node_title = "Del. Node";
Message Ask_Delete_Node(int node);
/// A space of the drawing's frame that would turn it inside out.
Message Frame_Space_Too_Small();
/// A click on a picture that meets neither node nor airway.
Message Nothing_Picked();

/// Before the list of calculation parameters is printed.
Message Ask_Print_Parameters();

}  // namespace branok::messages
