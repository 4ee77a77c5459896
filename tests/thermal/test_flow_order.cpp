#include "thermal/flow_order.h"

#include <gtest/gtest.h>

#include "flows.h"

namespace branok {
namespace {

constexpr Picture two_decimals("0.00");

// Runs the passes; the nodes in their order, a blank between passes as 0.
std::vector<int> Visits(Flow_Order& order, Label* label = nullptr, std::size_t most = 5000) {
  std::vector<int> visits;
  while (order.begin_pass() && visits.size() < most) {
    while (const int i = order.next_ready()) {
      visits.push_back(i);
      for (const Inflow& inflow : order.inflows(i)) {
        if (order.left_out(inflow) && label != nullptr) {
          order.log_left_out(*label, "   ", two_decimals);
        }
      }
    }
    if (!order.another_pass()) break;
    visits.push_back(0);
  }
  return visits;
}

TEST(FlowOrder, ReachesAsFarAsTheNumberingAllows) {
  Database db = Line_Mine(4);
  Flow_Order order(db);
  order.set_intake(1);
  EXPECT_EQ(Visits(order), (std::vector{2, 3, 4}));
  EXPECT_EQ(order.passes(), 1);
}

TEST(FlowOrder, RepeatsAgainstTheNumbering) {
  Database db = Flat_Mine(4);
  Add_Flow(db, 1, 4, 5);
  Add_Flow(db, 4, 3, 5);
  Add_Flow(db, 3, 2, 5);
  Prepare(db);
  Flow_Order order(db);
  order.set_intake(1);
  EXPECT_EQ(Visits(order), (std::vector{4, 0, 3, 0, 2}));
}

TEST(FlowOrder, ComputesANodeWithoutInflowAtOnce) {
  Database db = Flat_Mine(4);
  Add_Flow(db, 1, 4, 5);
  Add_Flow(db, 2, 4, 5);
  Prepare(db);
  Flow_Order order(db);
  order.set_intake(1);
  EXPECT_EQ(Visits(order), (std::vector{2, 4}));
  EXPECT_FLOAT_EQ(order.Node_Inflow[2], 1e-5F);
  EXPECT_FLOAT_EQ(order.Node_Inflow[4], 10.00001F);
  EXPECT_EQ(order.Node_Inflow[3], 0);
}

TEST(FlowOrder, OpensALoopByItsSmallInflow) {
  Database db = Loop_Mine();
  Flow_Order order(db);
  order.set_intake(1);
  Label label;
  label.set("No Recirculate");
  // Five fruitless passes allow 5 % at node 2; when all is known it is visited again.
  EXPECT_EQ(Visits(order, &label), (std::vector{0, 0, 0, 0, 0, 0, 2, 3, 4, 5, 0, 2}));
  EXPECT_EQ(order.passes(), 8);
  EXPECT_EQ(order.recirculation(), std::vector<std::string>{"  1     2   0.05\n"});
  EXPECT_EQ(label.text(), "  1     2   0.05\n");
}

TEST(FlowOrder, LogsALineForEveryLoop) {
  Database db = Loop_Mine(2);
  Flow_Order order(db);
  order.set_intake(1);
  Label label;
  Visits(order, &label);
  EXPECT_EQ(label.text(), "  1     2   0.05\n  1     6   0.05\n");
  EXPECT_EQ(order.recirculation().size(), 2U);
}

TEST(FlowOrder, WaitsForAnInflowOfJustTheAllowedShare) {
  Database db = Loop_Mine();
  db.Root_Flow(Find_Slot(db, 2, 4), 2) = -0.01F;
  Flow_Order order(db);
  order.set_intake(1);
  order.Node_Inflow[2] = 1;
  for (int pass = 1; pass <= 3; ++pass) {
    ASSERT_TRUE(order.begin_pass());
    EXPECT_EQ(order.next_ready(), 0);
    EXPECT_EQ(order.allowance(), pass < 3 ? 0 : -0.01F);
    order.another_pass();
  }
}

TEST(FlowOrder, WidensByOnePercentAndFallsBackAfterProgress) {
  Database db = Loop_Mine();
  Flow_Order order(db);
  order.set_intake(1);
  for (int pass = 1; pass <= 8; ++pass) {
    ASSERT_TRUE(order.begin_pass());
    while (order.next_ready() != 0) continue;
    order.another_pass();
    const double expected = pass == 1 || pass >= 7 ? 0 : -0.01 * (pass - 1);
    EXPECT_NEAR(order.allowance(), expected, 1e-6) << pass;
  }
}

TEST(FlowOrder, OpensALoopThatNoAirLeaves) {
  Database db = Flat_Mine(4);
  db.Inlet_Total = 0;
  Add_Flow(db, 2, 3, 5);
  Add_Flow(db, 3, 4, 5);
  Add_Flow(db, 4, 2, 5);
  Prepare(db);
  Flow_Order order(db);
  const std::vector<int> visits = Visits(order);
  EXPECT_EQ(std::count(visits.begin(), visits.end(), 2), 2);
  EXPECT_GT(order.passes(), 100);
  EXPECT_LT(order.passes(), 110);
}

TEST(FlowOrder, GivesUpAfterAThousandPasses) {
  Database db = Knot_Mine();
  Flow_Order order(db);
  order.set_intake(1);
  Visits(order);
  EXPECT_EQ(order.passes(), 1000);
  EXPECT_EQ(order.left(), 5);
}

TEST(FlowOrder, RefusesNumbersOutsideTheNetwork) {
  Database db = Line_Mine(3);
  Flow_Order order(db);
  EXPECT_THROW(order.set_intake(4), Run_Time_Error);
  EXPECT_THROW(order.set_intake(0), Run_Time_Error);
  db.Node_Junc(1, 2) = 9;
  EXPECT_THROW(Flow_Order{db}, Run_Time_Error);
}

}  // namespace
}  // namespace branok
