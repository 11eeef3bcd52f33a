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

TEST(ErrorTrap, TellsAListenerWithoutMemoryThatThereIsNone) {
  std::vector<int> numbers;
  const ErrorReportHook hook([&](const ErrorReport& report) {
    numbers.push_back(report.number);
    throw std::bad_alloc();
  });
  EXPECT_FALSE(trapped("P", [] { throw RuntimeError(75, "Permission denied"); }));
  EXPECT_EQ(numbers, (std::vector<int>{75, 7}));
}

TEST(ErrorReportTest, SaysWhoseTheErrorIs) {
  for (int number = 0; number < 500; ++number) {
    const ErrorReport report{"P", number, "text"};
    const bool of_values =
        number == 5 || number == 6 || number == 9 || number == 11 || number == 13;
    EXPECT_EQ(report.isOfValues(), of_values) << number;
    EXPECT_EQ(report.isOfMemory(), number == 7) << number;
  }
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
    ReportError({"P", 5, "first"});
    EXPECT_EQ(inner.last(), "P Error#5: first");
  }
  ReportError({"P", 5, "second"});
  EXPECT_EQ(outer.all(), std::vector<std::string>{"P Error#5: second"});
}

TEST(ErrorReportHookTest, NobodyListening) { EXPECT_NO_THROW(ReportError({"P", 5, "unheard"})); }

}  // namespace
}  // namespace depcalc
