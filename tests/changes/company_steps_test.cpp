// What the steps of a company are called.
#include "changes/company_steps.h"

#include <gtest/gtest.h>

#include "tests/changes/undoable_company.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using namespace testing_support;

TEST(CompanySteps, AreCalledWhatWasDone) {
  TemporaryDirectory directory;
  UndoableCompany company(directory.path());
  const auto last = [&] { return company.recorder().history().steps().back().title; };
  const auto about = [&] {
    const std::size_t position = company.recorder().history().position();
    return assetOfStep(company.recorder().changesOf(position - 1), false).value_or(0);
  };

  company.saveNew("TRK-014", 5, "SL");
  EXPECT_EQ(last(), (StepTitle{StepKind::saved, "TRK-014", 1}));
  EXPECT_EQ(about(), 1);
  company.import(3, "IMP-");
  EXPECT_EQ(last(), (StepTitle{StepKind::imported, "", 3}));
  EXPECT_EQ(about(), 0);
  company.saveEdited(2, "Lathe", 500);
  EXPECT_EQ(last(), (StepTitle{StepKind::saved, "IMP-0", 1}));
  EXPECT_EQ(about(), 2);
  company.dispose(3, false);
  EXPECT_EQ(last(), (StepTitle{StepKind::disposed, "IMP-1", 1}));
  company.dispose(3, true);
  EXPECT_EQ(last(), (StepTitle{StepKind::put_back, "IMP-1", 1}));
  company.saveNew("PRESS", 5, "UOP");
  company.enterUnits(5, 2024, 100);
  EXPECT_EQ(last(), (StepTitle{StepKind::units, "PRESS", 1}));
  EXPECT_EQ(about(), 5);
  company.saveEdited(5, "Press", 700);
  EXPECT_EQ(last(), (StepTitle{StepKind::saved, "PRESS", 1}));
  company.remove(1);
  EXPECT_EQ(last(), (StepTitle{StepKind::deleted, "TRK-014", 1}));
  EXPECT_EQ(about(), 0);
  company.saveNew("", 5, "SL");
  EXPECT_EQ(last(), (StepTitle{StepKind::saved, "Truck ", 1}));
  company.recorder().setInfo({"Other", 7, false});
  EXPECT_EQ(last(), (StepTitle{StepKind::company, "", 0}));
  company.recalculate();
  EXPECT_EQ(last().kind, StepKind::recalculated);
}

/// A step takes little more than what changed: fifty deletions at the top of a large register fit.
TEST(CompanySteps, OfADeletionTakeLittleWhereManyMoveUp) {
  TemporaryDirectory directory;
  UndoableCompany company(directory.path());
  company.import(500, "IMP-");
  const std::size_t before = company.recorder().history().bytes();
  company.remove(1);
  EXPECT_LT(company.recorder().history().bytes() - before, 500U * 50U);
}

/// So do an import of the whole register and its undoing: value by value what it was.
TEST(CompanySteps, OfTheLongestRegisterFitAndLeadBack) {
  TemporaryDirectory directory;
  UndoableCompany company(directory.path());
  company.saveNew("FIRST", 5, "SL");
  const Content first = company.content();
  company.import(32'765, "IMP-");
  const Content all = company.content();
  company.remove(1);
  const std::size_t deletion = company.recorder().history().steps().back().changes.size();
  EXPECT_LT(50 * deletion, History::most_bytes);
  company.recorder().undo();
  EXPECT_TRUE(same(company.content(), all));
  company.recorder().undo();
  EXPECT_TRUE(same(company.content(), first));
  company.close();
  company.open();
  company.recorder().redo();
  EXPECT_TRUE(same(company.content(), all));
}

}  // namespace
}  // namespace depcalc
