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

/// A command that is still to come.
Message Not_Available_Yet(std::string_view command);

/// A cell of a grid that must hold a number and does not.
Message Not_Numeric();

/// A cell of a grid whose number is out of range: `item` is its column in the messages' form
/// ("'Area' Column"), the bounds are texts as the column shows them.
Message Out_Of_Range(std::string_view item, std::string_view folder, std::string_view low,
                     std::string_view high);

/// Before the list of calculation parameters is printed.
Message Ask_Print_Parameters();

}  // namespace branok::messages
