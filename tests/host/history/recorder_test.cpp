// Steps on every kind of host that has units of work.
#include "host/history/recorder.h"

#include <gtest/gtest.h>

#include "common/trapped.h"
#include "host/failing/failing_host.h"
#include "host/sqlite/company_file.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/test_hosts.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

using namespace testing_support;
using Found = StepLog::Found;

const std::vector<FollowedTable> tables{{"Assets", true}, {"Units", false}};

Recorder::Options optionsFor(CompanyInfoAccess info, std::string path) {
  return {.tables = tables,
          .info = std::move(info),
          .path = std::move(path),
          .now = [] { return std::int64_t{1'700'000'000}; },
          .name =
              [](const StepChanges& changes, std::optional<StepKind> said) {
                return StepTitle{said.value_or(StepKind::changed), "",
                                 static_cast<std::int32_t>(changes.records.size())};
              },
          .replaced = {}};
}

/// In one unit of work.
template <typename Change>
void unit(HostCompanyFile& file, Change change) {
  file.unitOfWork()->begin();
  change();
  file.unitOfWork()->end();
}

void put(HostCompanyFile& file, const char* table_name, std::int16_t index, const char* name,
         StoredValue value) {
  const auto table = file.OpenTable(table_name);
  const auto record = table->Exists(index) ? table->Item(index) : table->Add(index);
  record->BeginEdit();
  record->Fields().SetValue(name, std::move(value));
  record->Modified(true);
  record->Commit();
}

void take(HostCompanyFile& file, const char* table_name, std::int16_t index) {
  const auto record = file.OpenTable(table_name)->Item(index);
  record->BeginEdit();
  record->Delete();
}

StoredValue text(const char* value) { return StoredValue::text(value); }

class Recording : public testing::TestWithParam<HostKind> {
 protected:
  void open() {
    const CompanyInfoAccess access{.read = [this] { return info_; },
                                   .write = [this](const CompanyInfo& info) { info_ = info; }};
    recorder_ = std::make_shared<Recorder>(host_->file(), optionsFor(access, history_path_));
  }
  void SetUp() override { open(); }

  [[nodiscard]] std::vector<RecordTexts> records() const { return recorder_->content().tables; }

  TemporaryDirectory directory_;
  std::string history_path_ = directory_.path() + "/undo.history";
  CompanyInfo info_{"Test", 1, false};
  std::unique_ptr<TestHost> host_ = GetParam().make(Date::carrying(2024, 1, 1));
  std::shared_ptr<Recorder> recorder_;
};

TEST_P(Recording, UndoesAndDoesAgainWhatAUnitOfWorkDid) {
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  const auto first = records();
  unit(*recorder_, [&] {
    put(*recorder_, "Assets", 1, "A", text("other"));
    put(*recorder_, "Assets", 1, "B", StoredValue::integer(5));
    put(*recorder_, "Assets", 2, "A", text("two"));
    put(*recorder_, "Units", 7, "FY2024", StoredValue::real(12.5));
  });
  const auto second = records();
  unit(*recorder_, [&] { take(*recorder_, "Assets", 1); });
  const auto third = records();

  recorder_->undo();
  EXPECT_EQ(records(), second);
  recorder_->undo();
  EXPECT_EQ(records(), first);
  recorder_->undo();
  EXPECT_FALSE(recorder_->canUndo());
  EXPECT_TRUE(records()[0].empty());
  for (int i = 0; i < 3; ++i) recorder_->redo();
  EXPECT_FALSE(recorder_->canRedo());
  EXPECT_EQ(records(), third);
}

TEST_P(Recording, KnowsItsStepsAfterReopening) {
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  const auto first = records();
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("two")); });
  recorder_->undo();
  host_->close();
  host_->reopen();
  open();
  EXPECT_EQ(recorder_->found(), Found::steps);
  ASSERT_TRUE(recorder_->canUndo());
  ASSERT_TRUE(recorder_->canRedo());
  recorder_->undo();
  EXPECT_TRUE(records()[0].empty());
  recorder_->redo();
  EXPECT_EQ(records(), first);
}

TEST_P(Recording, OffersNothingOfACompanyThatWasChangedElsewhere) {
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  unit(*host_->file(), [&] { put(*host_->file(), "Assets", 1, "A", text("elsewhere")); });
  open();
  EXPECT_EQ(recorder_->found(), Found::other);
  EXPECT_FALSE(recorder_->canUndo());
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("two")); });
  recorder_->undo();
  EXPECT_EQ(records()[0].at(1), R"({"A":"elsewhere"})");
  EXPECT_FALSE(recorder_->canUndo());
}

TEST_P(Recording, TakesNoStepOfWhatChangesNothing) {
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  unit(*recorder_, [&] { put(*recorder_, "Assets", 0, "Sum", text("a summary")); });
  unit(*recorder_, [&] { put(*recorder_, "Others", 1, "A", text("not followed")); });
  unit(*recorder_, [] {});
  recorder_->setInfo(info_);
  EXPECT_EQ(recorder_->history().steps().size(), 1U);
  open();
  EXPECT_TRUE(recorder_->canUndo());
}

TEST_P(Recording, TakesTheSummaryAlongWhateverBecameOfIt) {
  unit(*recorder_, [&] {
    put(*recorder_, "Assets", 0, "Sum", text("of one"));
    put(*recorder_, "Assets", 1, "A", text("one"));
  });
  const auto first = records();
  unit(*recorder_, [&] {
    take(*recorder_, "Assets", 1);
    take(*recorder_, "Assets", 0);
  });
  unit(*recorder_, [&] { put(*recorder_, "Assets", 0, "Sum", text("made anew")); });
  recorder_->undo();
  EXPECT_EQ(records(), first);
  unit(*recorder_, [&] { put(*recorder_, "Assets", 0, "Sum", text("refreshed")); });
  recorder_->redo();
  EXPECT_TRUE(records()[0].empty());
  recorder_->undo();
  unit(*recorder_, [&] { take(*recorder_, "Assets", 0); });
  recorder_->undo();
  EXPECT_TRUE(records()[0].empty());
}

TEST_P(Recording, OfAUnitThatWasAbandonedLeavesNothing) {
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  recorder_->unitOfWork()->begin();
  put(*recorder_, "Assets", 1, "A", text("two"));
  recorder_->unitOfWork()->abandon();
  EXPECT_EQ(recorder_->history().steps().size(), 1U);
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("three")); });
  recorder_->undo();
  EXPECT_EQ(records()[0].at(1), R"({"A":"one"})");
}

TEST_P(Recording, OfNestedUnitsMakesOneStep) {
  unit(*recorder_, [&] {
    unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
    unit(*recorder_, [&] { put(*recorder_, "Assets", 2, "A", text("two")); });
  });
  EXPECT_EQ(recorder_->history().steps().size(), 1U);
  recorder_->undo();
  EXPECT_TRUE(records()[0].empty());
}

TEST_P(Recording, CutsTheStepsOffWhereAChangeWasInNoUnit) {
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  put(*recorder_, "Assets", 1, "A", text("two"));
  EXPECT_THROW(recorder_->undo(), RuntimeError);
  EXPECT_EQ(records()[0].at(1), R"({"A":"two"})");
  EXPECT_FALSE(recorder_->canUndo());
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("three")); });
  recorder_->undo();
  EXPECT_EQ(records()[0].at(1), R"({"A":"two"})");
}

TEST_P(Recording, UndoesTheCompanysOwnData) {
  const CompanyInfo other{"Other", 4, true};
  recorder_->setInfo(other);
  EXPECT_EQ(recorder_->history().steps().back().title.kind, StepKind::company);
  recorder_->undo();
  EXPECT_EQ(info_, (CompanyInfo{"Test", 1, false}));
  recorder_->redo();
  EXPECT_EQ(info_, other);
}

TEST_P(Recording, SaysWhatEachStepChanged) {
  for (const char* value : {"one", "two", "three", "four"}) {
    unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text(value)); });
  }
  recorder_->undo();
  recorder_->undo();
  const std::vector<std::string> texts{"", R"({"A":"one"})", R"({"A":"two"})", R"({"A":"three"})",
                                       R"({"A":"four"})"};
  for (std::size_t i = 0; i < 4; ++i) {
    const StepChanges changes = recorder_->changesOf(i);
    ASSERT_EQ(changes.records.size(), 1U);
    EXPECT_EQ(changes.records.front().before, texts[i]);
    EXPECT_EQ(changes.records.front().after, texts[i + 1]);
  }
}

TEST_P(Recording, TakesAReplacedFileAsAStep) {
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  unit(*recorder_, [&] { put(*recorder_, "Assets", 2, "A", text("two")); });
  const Content before = recorder_->content();
  unit(*host_->file(), [&] {
    put(*host_->file(), "Assets", 1, "A", text("restored"));
    take(*host_->file(), "Assets", 2);
  });
  info_.name = "Restored";
  Recorder::Options options =
      optionsFor({.read = [this] { return info_; },
                  .write = [this](const CompanyInfo& info) { info_ = info; }},
                 history_path_);
  options.replaced = before;
  recorder_ = std::make_shared<Recorder>(host_->file(), options);
  EXPECT_EQ(recorder_->history().steps().back().title.kind, StepKind::restored);
  recorder_->undo();
  EXPECT_EQ(records(), before.tables);
  EXPECT_EQ(info_, before.info);
  recorder_->undo();
  EXPECT_EQ(records()[0].size(), 1U);
  for (int i = 0; i < 2; ++i) recorder_->redo();
  EXPECT_EQ(records()[0].at(1), R"({"A":"restored"})");
  EXPECT_EQ(info_.name, "Restored");
}

TEST_P(Recording, GoesOnWhereTheHistoryCannotBeWritten) {
  history_path_ = "/dev/null/undo.history";
  open();
  unit(*recorder_, [&] { put(*recorder_, "Assets", 1, "A", text("one")); });
  EXPECT_FALSE(recorder_->isKept());
  EXPECT_EQ(records()[0].at(1), R"({"A":"one"})");
  recorder_->undo();
  EXPECT_TRUE(records()[0].empty());
  open();
  EXPECT_EQ(recorder_->found(), Found::nothing);
}

INSTANTIATE_TEST_SUITE_P(Hosts, Recording, testing::ValuesIn(hostKindsWithUnits()),
                         [](const auto& kind) { return testNameOf(kind.param); });

/// Every nth call of the host fails in an undo and a redo: the company is before or after, the
/// history knows which, and the same can be tried again.
TEST(RecordingFailures, LeaveTheCompanyBeforeOrAfter) {
  TemporaryDirectory directory;
  const auto today = [] { return Date::carrying(2024, 1, 1); };
  auto made = SqliteCompanyFile::create(directory.path() + "/a.company", {"Test", 1, false},
                                        {.today = today, .writable = true, .vfs = ""});
  const auto file = std::get<std::shared_ptr<SqliteCompanyFile>>(made);
  const auto plan = std::make_shared<FailurePlan>();
  const CompanyInfoAccess access{.read = [&] { return file->info(); },
                                 .write =
                                     [&](const CompanyInfo& info) {
                                       plan->change();
                                       file->info(info);
                                     }};
  auto recorder = std::make_shared<Recorder>(
      failingCompanyFile(file, plan), optionsFor(access, directory.path() + "/undo.history"));
  unit(*recorder, [&] {
    for (std::int16_t i = 0; i < 4; ++i) put(*recorder, "Assets", i, "A", text("one"));
  });
  const Content before = recorder->content();
  const CompanyInfo other{"Other", 4, true};
  unit(*file, [&] {
    for (std::int16_t i = 1; i < 4; ++i) take(*file, "Assets", i);
    put(*file, "Assets", 1, "A", text("x"));
    put(*file, "Units", 3, "B", StoredValue::integer(1));
    file->info(other);
  });
  Recorder::Options options = optionsFor(access, directory.path() + "/undo.history");
  options.replaced = before;
  recorder = std::make_shared<Recorder>(failingCompanyFile(file, plan), options);
  const Content after = recorder->content();
  const auto same = [&](const Content& content) {
    plan->fail_at = 0;
    const Content now = recorder->content();
    return now.tables == content.tables && now.info == content.info;
  };
  int failures = 0;
  for (const bool undoing : {true, false}) {
    const Content& from = undoing ? after : before;
    const Content& to = undoing ? before : after;
    for (int nth = 1;; ++nth) {
      plan->calls = 0;
      plan->fail_at = nth;
      try {
        undoing ? recorder->undo() : recorder->redo();
        ASSERT_GT(nth, plan->calls);
        break;
      } catch (const RuntimeError& error) {
        ++failures;
        ASSERT_EQ(error.number(), 57);
        ASSERT_TRUE(same(from)) << nth;
        ASSERT_TRUE(undoing ? recorder->canUndo() : recorder->canRedo()) << nth;
        // A new start sees the same.
        Recorder again(file, optionsFor(access, directory.path() + "/undo.history"));
        ASSERT_EQ(again.history().position(), undoing ? 2U : 1U) << nth;
      }
    }
    ASSERT_TRUE(same(to));
  }
  EXPECT_GT(failures, 40);
}

}  // namespace
}  // namespace depcalc
