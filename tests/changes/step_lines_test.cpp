// What users read of the values that a step changed.
#include "changes/step_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/changes/undoable_company.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {

void PrintTo(const StepLine& line, std::ostream* out) {
  *out << line.about << ", " << line.field << ": " << line.before << " -> " << line.after;
}

namespace {

using namespace testing_support;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct StepLinesOfACompany : testing::Test {
  std::vector<StepLine> last() {
    const std::size_t position = company.recorder().history().position();
    return stepLines(company.recorder().changesOf(position - 1)).lines;
  }
  TemporaryDirectory directory;
  UndoableCompany company{directory.path()};
};

TEST_F(StepLinesOfACompany, SayWhatWasThereBeforeAndAfter) {
  company.saveNew("TRK-014", 5, "SL");
  EXPECT_THAT(last(), Contains(StepLine{"TRK-014", "Basis", "", "10,000.00"}));
  EXPECT_THAT(last(), Contains(StepLine{"TRK-014", "Method", "", "Straight Line"}));
  EXPECT_THAT(last(), Contains(StepLine{"TRK-014", "FY2024", "", "1,800.00"}));
  company.saveEdited(1, "Lathe", 500);
  EXPECT_THAT(last(), ElementsAre(StepLine{"TRK-014", "Name", "Truck TRK-014", "Lathe"},
                                  StepLine{"TRK-014", "Basis", "10,000.00", "500.00"}));
  company.dispose(1, false);
  EXPECT_THAT(last(), Contains(StepLine{"TRK-014", "Disposal Date", "", "06/01/2024"}));
  company.recorder().setInfo({"Other", 7, false});
  EXPECT_THAT(last(),
              ElementsAre(StepLine{"Company", "Name", "Sample", "Other"},
                          StepLine{"Company", "First Month of Fiscal Year", "January", "July"}));
}

TEST_F(StepLinesOfACompany, SayNothingOfAssetsThatOnlyMovedUp) {
  company.import(4, "IMP-");
  company.remove(2);
  for (const StepLine& line : last()) {
    EXPECT_EQ(line.about, "IMP-1");
    EXPECT_EQ(line.after, "");
  }
  EXPECT_THAT(last(), Contains(StepLine{"IMP-1", "Asset ID", "IMP-1", ""}));
}

TEST_F(StepLinesOfACompany, SayTheUnitsByFiscalYear) {
  company.saveNew("PRESS", 5, "UOP");
  company.enterUnits(1, 2024, 100);
  company.enterUnits(1, 2024, 120);
  EXPECT_THAT(last(), ElementsAre(StepLine{"PRESS", "Units Produced, FY2024", "100", "120"}));
}

TEST_F(StepLinesOfACompany, AreBounded) {
  company.import(20, "IMP-");
  const StepLines some = stepLines(company.recorder().changesOf(0), 50);
  EXPECT_LT(some.lines.size(), 80U);
  EXPECT_GT(some.left_out, 10U);
  EXPECT_EQ(stepLines(company.recorder().changesOf(0)).left_out, 0U);
}

}  // namespace
}  // namespace depcalc
