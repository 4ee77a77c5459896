#include "core/panel.h"

#include <gtest/gtest.h>

#include <vector>

namespace branok {
namespace {

constexpr Picture one_place("##0.0");

TEST(Label, ShowsTextsNumbersAndUnits) {
  Label label;
  EXPECT_EQ(label.text(), "");
  label.set("No Recirculate");
  EXPECT_EQ(label.text(), "No Recirculate");
  label.set(12.34F, one_place, "mmH2O");
  EXPECT_EQ(label.text(), "12.3mmH2O");
  label.set(7, one_place);
  EXPECT_EQ(label.text(), "7.0");
}

TEST(Label, ASingleKeepsItsSevenDigits) {
  static constexpr Picture many("0.0000000000");
  Label label;
  label.set(0.1F, many);
  EXPECT_EQ(label.text(), "0.1000000000");
}

TEST(Label, ShowsOneLineAFan) {
  const std::vector<float> values = {-10.5F, 20.0F};
  Label label;
  label.set_lines(values.data(), 2, one_place);
  EXPECT_EQ(label.text(), "# 1  -> -10.5\n# 2  -> 20.0\n");
}

}  // namespace
}  // namespace branok
