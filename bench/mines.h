// The mines that are measured: the two demo mines and a generated one of full size.
#pragma once

#include "core/safe_file.h"
#include "files/ver6.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"

namespace branok {

enum Measured_Mine { mine_a, mine_c, generated_550 };

inline std::string Mine_Bytes(Measured_Mine mine) {
  return Read_Whole(std::string(BRANOK_TEST_DATA "/DATA/") +
                    (mine == mine_a ? "mine-a.abk" : "mine-c.abk"));
}

/// The mine as a load leaves it, without results.
inline Database Mine(Measured_Mine mine) {
  if (mine == generated_550) {
    return Make_Mine({.nodes = 550, .seed = 3, .inlets = 3, .assist_fans = 2, .thermo_rows = 5});
  }
  Database db;
  Reset_Database(db);
  Comment_Template comments;
  const Read_Result result = Read_Ver6_Text(db, Mine_Bytes(mine), comments);
  if (!result.ok) throw Run_Time_Error(result.fault);
  return db;
}

}  // namespace branok
