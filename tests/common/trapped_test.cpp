// The error trap of a procedure and where its reports go.
#include "common/trapped.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/support/reports.h"

namespace depcalc {
namespace {

TEST(ErrorTrap, SaysWhetherTheBodyCameToItsEnd) {
  Reports reports;
  int steps = 0;
  EXPECT_TRUE(trapped("DepCalc::WriteData", [&] { ++steps; }));
  EXPECT_TRUE(reports.all().empty());
  EXPECT_FALSE(trapped("DepCalc::WriteData", [&] {
    ++steps;
    throw RuntimeError::objectNotSet();
  }));
  EXPECT_EQ(steps, 2);
}

TEST(ErrorTrap, ReportsNumberAndDescription) {
  const std::pair<RuntimeError, const char*> cases[] = {
      {RuntimeError::invalidCall(), "P Error#5: Invalid procedure call or argument"},
      {RuntimeError::overflow(), "P Error#6: Overflow"},
      {RuntimeError::outOfMemory(), "P Error#7: Out of memory"},
      {RuntimeError::subscriptOutOfRange(), "P Error#9: Subscript out of range"},
      {RuntimeError::divisionByZero(), "P Error#11: Division by zero"},
      {RuntimeError::typeMismatch(), "P Error#13: Type mismatch"},
      {RuntimeError::objectNotSet(), "P Error#91: Object variable or With block variable not set"},
  };
  for (const auto& [error, report] : cases) {
    Reports reports;
    trapped("P", [&error = error] { throw RuntimeError(error); });
    EXPECT_EQ(reports.last(), report);
  }
}

TEST(ErrorTrap, TakesAContainerThatCannotGrowForOutOfMemory) {
  Reports reports;
  EXPECT_FALSE(trapped("P", [] { throw std::bad_alloc(); }));
  EXPECT_FALSE(trapped("P", [] { throw std::length_error("vector"); }));
  EXPECT_EQ(reports.all(),
            (std::vector<std::string>{"P Error#7: Out of memory", "P Error#7: Out of memory"}));
}

TEST(ErrorTrap, LetsTheProgramsOwnMistakesThrough) {
  Reports reports;
  EXPECT_THROW(trapped("P", [] { throw std::logic_error("slip"); }), std::logic_error);
  EXPECT_TRUE(reports.all().empty());
}

TEST(ErrorReportHookTest, NestsAndGivesBack) {
  Reports outer;
  {
    Reports inner;
    ReportError("first");
    EXPECT_EQ(inner.last(), "first");
  }
  ReportError("second");
  EXPECT_EQ(outer.all(), std::vector<std::string>{"second"});
}

TEST(ErrorReportHookTest, NobodyListening) { EXPECT_NO_THROW(ReportError("unheard")); }

}  // namespace
}  // namespace depcalc
