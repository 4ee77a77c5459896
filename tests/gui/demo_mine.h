// The demo mine A as windows get it: loaded, and after its runs.
#pragma once

#include "airflow/flow_run.h"
#include "core/safe_file.h"
#include "files/ver6.h"
#include "support/test_doors.h"
#include "thermal/annual.h"
#include "thermal/seasonal.h"

namespace branok {

inline Database Opened(std::string_view bytes) {
  Database db;
  Reset_Database(db);
  Comment_Template comments;
  const Read_Result result = Read_Ver6_Text(db, bytes, comments);
  if (!result.ok) throw Run_Time_Error(result.fault);
  return db;
}

inline Database Demo_Mine() { return Opened(Read_Whole(BRANOK_TEST_DATA "/DATA/mine-a.abk")); }

/// A mine saved and opened again.
inline Database Reopened(const Database& db) { return Opened(Ver6_Text(db, Comment_Template())); }

/// Its flow for the temperature of the intake.
inline Database Demo_Flow() {
  Database db = Demo_Mine();
  Test_Dialogue dialogue;
  Test_Panel panel;
  if (!Ana_Flow_Press(db, dialogue, panel).ok()) throw Run_Time_Error("no flow");
  return db;
}

/// Its flow and temperatures in mid Summer.
inline Database Demo_Summer() {
  Database db = Demo_Flow();
  Test_Dialogue dialogue;
  Test_Panel panel;
  if (!Ana_Annual_Temp(db, dialogue, panel).ok()) throw Run_Time_Error("no year");
  db.Para_Month = 7;
  dialogue.answers = {Answer::yes, Answer::yes};
  if (Ana_Season_Temp(db, dialogue, panel).end != Season_End::complete) {
    throw Run_Time_Error("no season");
  }
  return db;
}

}  // namespace branok
