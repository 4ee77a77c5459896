// The texts that the engineer reads, letter for letter.
#include "core/messages.h"

#include <gtest/gtest.h>

namespace branok {
namespace {

TEST(Messages, CalculationErrorNamesTheCalculation) {
  const Message m = messages::Calculation_Error("Gauss Reduction");
  EXPECT_EQ(m.text,
            "Calculation Error about Gauss Reduction occurred, please check data !\n"
            "[ Recommendation: For security of data, \nsave data as another group!]");
  EXPECT_EQ(m.title, "BRANOK for Windows");
  EXPECT_EQ(m.icon, Icon::exclamation);
  EXPECT_TRUE(m.beep);
}

TEST(Messages, FileErrorNamesTheCommand) {
  EXPECT_EQ(messages::File_Error("'Save'").text, "Sorry, failed 'Save' command.");
  EXPECT_EQ(messages::File_Error("Read Ver.6 Data File").text,
            "Sorry, failed Read Ver.6 Data File command.");
}

TEST(Messages, SolverFailures) {
  EXPECT_EQ(messages::Too_Many_Passes().text,
            "This calclation was interrupted by the number of iterations (>100) !\n"
            "[Recommendation: Check data, especially Intake, fan-set & fan-flow-direc. nodal no. "
            "!]");
  EXPECT_EQ(messages::Divergence().text,
            "\nThis calclation was interrupted by divergence of results !\n"
            "[Recommendation: Check Data, especially Intake, fan-set & fan-flow-direc. nodal no. "
            "!]");
  EXPECT_EQ(messages::Memory_Over().text,
            "Memory will be over \nfor press. & flow calculation.\nDo optimize nodal No.!");
}

TEST(Messages, TheQuestionOnPresentResultsDefaultsToNo) {
  const Message m = messages::Ask_Results_Initial();
  EXPECT_EQ(m.buttons, Buttons::yes_no_cancel);
  EXPECT_EQ(m.default_answer, Answer::no);
  EXPECT_EQ(m.icon, Icon::question);
  EXPECT_EQ(m.text,
            "Calculation results are existing!\n"
            "Do you want to use results data as initial value ?\n"
            "If you select 'Yes' button, set results data.\n"
            "Or you select 'No' button, set arbitrary data.\n"
            "When set arbitrary data, present results data will be lost!\n"
            "Or you select 'Cancel' button, do not analyze pressure.");
}

TEST(Messages, AroundTemperatureRuns) {
  EXPECT_EQ(messages::Save_Annual_Results().text,
            "Recommendation: Save Annual calculation results,\n"
            "before calculation of Monthly Temp. & Hum.");
  EXPECT_EQ(messages::Season_Needs_Annual().text,
            "Seasonal Temp. can be calculated after calculation of Annual Flow Temperature!");
  EXPECT_EQ(messages::Season_Complete("mid Summer").text,
            "Flow, Temp. & Hum. calculation are complete\nfor  mid Summer");
  EXPECT_EQ(messages::Ask_Season_Flow().buttons, Buttons::yes_no);
  EXPECT_EQ(messages::Ask_Season_Flow().text,
            "Temp. & Hum. calculations are complete!\n"
            "Calculate Press. & Flow for Monthly Temp. ?");
  EXPECT_EQ(messages::Ask_Replace_Annual().text,
            "Annual Temp. Data will be replaced with Monthly Data!\n"
            "[Recommendation : before calculate Monthly Temp., \n"
            "save calculation results.]\n"
            "If you select 'Yes' button, start Calculation.\n"
            "Or 'No' button, stop calculation.");
}

TEST(Messages, BeforeAnUncheckedSave) {
  const Message m = messages::Ask_Check_Before_Save();
  EXPECT_EQ(m.title, "Check Data");
  EXPECT_EQ(m.text,
            "You have not checked Network Data.\n"
            "Doing Check Data is recommended to revise Data.\n"
            "Do you want to do Check Data ?");
}

TEST(Messages, OfGridCells) {
  EXPECT_EQ(messages::Not_Numeric().text, "Please input numeric data.");
  const Message m = messages::Out_Of_Range("'Annual Ave. Intake Temp.' Column", "Parameter Folder",
                                           "-20.0", "45.0");
  EXPECT_EQ(m.text,
            "'Annual Ave. Intake Temp.' Column in Parameter Folder The value should be from -20.0  "
            "to  45.0 .\nChange value !");
  EXPECT_EQ(m.title, "BRANOK for Windows");
  EXPECT_EQ(m.icon, Icon::exclamation);
  EXPECT_TRUE(m.beep);
}

TEST(Messages, BeforeTheParametersArePrinted) {
  const Message m = messages::Ask_Print_Parameters();
  EXPECT_EQ(m.text, "Print out parameter ?");
  EXPECT_EQ(m.icon, Icon::question);
  EXPECT_EQ(m.buttons, Buttons::yes_no);
}

TEST(Messages, OnTheFrameOfTheCadPicture) {
  EXPECT_EQ(messages::Frame_Space_Too_Small().text, "More than -50%");
}

}  // namespace
}  // namespace branok
