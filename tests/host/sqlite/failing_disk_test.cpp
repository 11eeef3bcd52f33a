// Every way of changing a company file on a disk that refuses a change, and on one that loses
// what it had taken when the power fails: the state before or after, and nothing acknowledged
// lost.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>

#include "DepCalc/units_following.h"
#include "common/trapped.h"
#include "host/unit_of_work.h"
#include "tests/host/sqlite/company_fixture.h"
#include "tests/host/sqlite/crashing_disk.h"
#include "tests/host/sqlite/failing_vfs.h"
#include "tests/support/effort.h"

namespace depcalc {
namespace {

using testing::HasSubstr;
using namespace testing_support;

/// All that a company file says.
struct Whole {
  TableContent table;
  CompanyInfo info;

  friend bool operator==(const Whole&, const Whole&) = default;
};

Whole wholeOf(SqliteCompanyFile& file) { return {contentOf(file), file.info()}; }

/// The store on a file, and what was reported.
struct Session {
  explicit Session(File opened) : file(std::move(opened)) {
    state.m_orvcf = following;
    state.TableName = asset_table_name;
  }

  void saveNew(const AssetEntry& entry) {
    state.CurrentRecord = newAsset(entry);
    std::int16_t index = 0;
    store.WriteData(index);
  }

  /// As an import saves: all of it in one unit.
  void saveTogether(int assets) {
    HostUnitOfWork& unit = *file->unitOfWork();
    unit.begin();
    for (int i = 0; i < assets; ++i) {
      saveNew({.id = "I" + std::to_string(i), .life = 3.0 + i % 9, .basis = 1000 + i});
    }
    unit.end();
  }

  void edit(std::int16_t index) {
    state.CurrentRecord = store.ReadData(index);
    state.CurrentRecord->AssetName("edited");
    store.WriteData(index);
  }

  void remove(std::int16_t index) {
    const int assets = file->OpenTable(asset_table_name)->Count() - 1;
    const auto records = registerWithout(store, assets, index);
    following->deletion(index, [&] {
      store.DeleteRecord(records, static_cast<std::int16_t>(assets == 1 ? 1 : index - 1));
    });
  }

  void enterUnits(std::int32_t number, const UnitsByYear& units) {
    HostUnitOfWork& unit = *following->unitOfWork();
    unit.begin();
    trapped("units", [&] { UnitsStore(following).put(number, units); });
    trapped("units", [&] { unit.end(); });
  }

  void change(int first_month, bool multi_user) {
    CompanyInfo info = file->info();
    info.first_month = first_month;
    info.multi_user = multi_user;
    file->info(info);
  }

  File file;
  std::shared_ptr<UnitsFollowing> following = std::make_shared<UnitsFollowing>(file);
  StoreState state;
  AssetStore store{state, [] { return Date::carrying(2024, 6, 1); }};
};

struct Operation {
  const char* name;
  void (*act)(Session&);
};

const std::vector<Operation>& operations() {
  static const std::vector<Operation> all{
      {"start-up", [](Session& session) { (void)session.store.open(); }},
      {"save", [](Session& session) { session.saveNew({.id = "new", .life = 12}); }},
      {"first units",
       [](Session& session) {
         session.enterUnits(2, {{2024, 5}});
       }},
      {"more units",
       [](Session& session) {
         session.enterUnits(4, {{2024, 7}, {2025, 8}});
       }},
      {"edit", [](Session& session) { session.edit(2); }},
      {"delete", [](Session& session) { session.remove(1); }},
      {"import", [](Session& session) { session.saveTogether(40); }},
      {"company info", [](Session& session) { session.change(7, false); }},
      {"mode", [](Session& session) { session.change(7, true); }},
      {"delete among many", [](Session& session) { session.remove(1); }},
      {"no units", [](Session& session) { session.enterUnits(1, {}); }},
  };
  return all;
}

class FailingDisk : public CompanyFile {
 protected:
  FailingDisk() {
    save(create(), 4);
    bytes_ = bytesOf(path_);
  }

  /// The file's bytes before each operation of the list, and what it says then; and after all.
  void recordStates() {
    restore(bytes_);
    for (const Operation& operation : operations()) {
      before_.push_back(bytesOf(path_));
      Session session(openOf(SqliteCompanyFile::open(path_, options())));
      states_.push_back(wholeOf(*session.file));
      operation.act(session);
      session.file->close();
    }
    states_.push_back(reopened(path_));
  }

  void restore(const std::string& bytes) {
    std::filesystem::remove(path_ + "-journal");
    writeBytes(path_, bytes);
  }

  static Whole reopened(const std::string& path) {
    const File file = openOf(SqliteCompanyFile::open(path, options()));
    return file != nullptr ? wholeOf(*file) : Whole();
  }

  std::string bytes_;
  std::vector<std::string> before_;
  std::vector<Whole> states_;
};

// --- A disk that refuses -------------------------------------------------------------------------

class RefusingDisk : public FailingDisk {
 protected:
  using Failure = FailingVfs::Failure;

  /// Runs the operation with change `n` failing; answers whether there was such a change.
  bool failsAt(std::size_t i, int n, Failure failure, bool and_after) {
    restore(before_[i]);
    Session session(openOf(SqliteCompanyFile::open(path_, options(vfs_.name()))));
    std::vector<std::string> reports;
    const ErrorReportHook hook(
        [&](const ErrorReport& report) { reports.push_back(report.text()); });
    vfs_.failAt(n, failure, and_after);
    bool told = false;
    try {
      operations()[i].act(session);
    } catch (const FileTrouble& trouble) {
      told = true;
      EXPECT_THAT(trouble.description(), HasSubstr(path_));
    }
    for (const std::string& report : reports)
      told = told || report.find(path_) != std::string::npos;
    const auto trouble = session.file->takeTrouble();
    EXPECT_EQ(trouble.has_value(), told) << "an error is told, and in full";
    std::optional<Whole> shown;
    try {
      shown = wholeOf(*session.file);
    } catch (const RuntimeError&) {
      EXPECT_TRUE(and_after) << "a disk that failed once can be read again";
    }
    session.file->close();  // on a disk that may still fail
    const bool reached = vfs_.changes() >= n;
    vfs_.failAt(0, failure, false);
    const Whole kept = reopened(path_);
    EXPECT_TRUE(kept == states_[i + 1] || (told && kept == states_[i])) << describe(kept.table);
    if (shown) {
      EXPECT_TRUE(*shown == kept) << "what is shown is what the disk has";
    }
    if (told) ++(kept == states_[i] ? undone_ : committed_);
    return reached;
  }

  FailingVfs vfs_;
  int undone_ = 0;
  int committed_ = 0;  ///< though an error was told
};

TEST_F(RefusingDisk, EndsTheOpeningOfTheStore) {
  Session session(openOf(SqliteCompanyFile::open(path_, options(vfs_.name()))));
  session.change(7, false);  // so that the opening has a fiscal year's end to write
  std::vector<std::string> reports;
  const ErrorReportHook hook([&](const ErrorReport& report) { reports.push_back(report.text()); });
  vfs_.failAt(1, Failure::disk_full, true);
  EXPECT_THROW((void)session.store.open(), FileTrouble) << "no view is answered";
  EXPECT_THAT(reports, testing::Each(HasSubstr("DepCalc::company file")));
  session.file->close();
  vfs_.failAt(0, Failure::disk_full, false);
}

TEST_F(RefusingDisk, IsNoneOfAnOpeningThatChangesNothing) {
  openOf(SqliteCompanyFile::open(path_, options()))->close();
  const std::string before = bytesOf(path_);
  Session session(openOf(SqliteCompanyFile::open(path_, options(vfs_.name()))));
  vfs_.failAt(1, Failure::disk_full, true);
  EXPECT_NO_THROW((void)session.store.open());
  session.file->close();
  vfs_.failAt(0, Failure::disk_full, false);
  EXPECT_EQ(bytesOf(path_), before);
}

TEST_F(RefusingDisk, LeavesTheStateBeforeOrAfterAndSaysSoWhicheverChangeFails) {
  recordStates();
  int failures = 0;
  for (std::size_t i = 0; i < operations().size(); ++i) {
    for (const Failure failure : {Failure::disk_full, Failure::io_error}) {
      for (const bool and_after : {false, true}) {
        for (int n = 1; failsAt(i, n, failure, and_after); ++n, ++failures) {
          ASSERT_FALSE(HasFailure())
              << operations()[i].name << ", change " << n << (and_after ? " and all after it" : "");
        }
        ASSERT_FALSE(HasFailure()) << operations()[i].name;
      }
    }
  }
  std::cout << failures << " failures: " << undone_ << " undone, " << committed_
            << " told though the disk had taken all\n";
  EXPECT_GT(undone_, 100);
  EXPECT_GT(committed_, 0) << "a commit that fails may have committed";
  for (const auto kind : {DiskChange::Kind::create, DiskChange::Kind::write, DiskChange::Kind::sync,
                          DiskChange::Kind::remove}) {
    EXPECT_GT(vfs_.refusals(kind), 0);
  }
}

TEST_F(RefusingDisk, KeepsAChangeWhoseLargeJournalCannotBeShortened) {
  std::filesystem::remove(path_);
  {
    const File file = create();
    file->unitOfWork()->begin();
    save(file, 800, 50);
    file->unitOfWork()->end();
  }
  Session session(openOf(SqliteCompanyFile::open(path_, options(vfs_.name()))));
  const TableContent before = contentOf(*session.file);
  vfs_.failEvery(DiskChange::Kind::truncate);
  session.remove(1);
  EXPECT_GT(vfs_.refusals(DiskChange::Kind::truncate), 0);
  EXPECT_TRUE(session.file->takeTrouble());
  const TableContent shown = contentOf(*session.file);
  EXPECT_EQ(shown.size() + 1, before.size()) << "the commit came before";
  session.file->close();
  EXPECT_TRUE(reopened(path_).table == shown);
}

TEST_F(RefusingDisk, MakesNoFileThatCannotBeFinished) {
  std::filesystem::remove(path_);
  for (const Failure failure : {Failure::disk_full, Failure::io_error}) {
    for (const bool and_after : {false, true}) {
      bool reached = true;
      for (int n = 1; reached; ++n) {
        vfs_.failAt(n, failure, and_after);
        const auto made = SqliteCompanyFile::create(path_, {.name = "Acme"}, options(vfs_.name()));
        reached = vfs_.changes() >= n;
        vfs_.failAt(0, failure, false);
        if (const auto trouble = troubleOf(made)) {
          EXPECT_TRUE(reached);
          EXPECT_THAT(trouble->description(), HasSubstr(directory_.path()));
        }
        // Made and not to be opened is possible: the making was complete before the disk failed.
        if (std::filesystem::exists(path_)) {
          if (!troubleOf(made)) std::get<File>(made)->close();
          EXPECT_EQ(reopened(path_).info.name, "Acme");
          std::filesystem::remove(path_);
        } else {
          EXPECT_TRUE(troubleOf(made));
        }
        EXPECT_TRUE(std::filesystem::is_empty(directory_.path())) << "change " << n;
        ASSERT_FALSE(HasFailure()) << "change " << n;
      }
    }
  }
}

// --- A disk that forgets -------------------------------------------------------------------------

class ForgettingDisk : public FailingDisk {
 protected:
  using Loss = CrashingDisk::Loss;

  /// The power fails now: what is left is one of the states from `first` to `last`.
  void crash(std::size_t first, std::size_t last, Loss loss) {
    ++crashes_;
    disk_.leave(path_, left_, loss, random_);
    if (std::filesystem::exists(left_ + "-journal")) ++with_journal_;
    const Whole kept = reopened(left_);
    bool known = false;
    for (std::size_t i = first; i <= last; ++i) known = known || kept == states_[i];
    if (loss == Loss::everything && kept == states_[first]) ++lost_;
    EXPECT_TRUE(known) << describe(kept.table);
  }

  /// In the middle of operation `now_`.
  void crashInside() {
    if (!watching_ || HasFailure()) return;
    const int random_losses = inLongRun() ? 40 : 2;
    crash(now_, now_ + 1, Loss::everything);
    crash(now_, now_ + 1, Loss::nothing);
    for (int i = 0; i < random_losses; ++i) crash(now_, now_ + 1, Loss::some);
  }

  unsigned seed_ = std::random_device{}();
  std::mt19937 random_{seed_};
  std::string left_ = directory_.path() + "/left.company";
  std::size_t now_ = 0;
  bool watching_ = false;
  int crashes_ = 0;
  int with_journal_ = 0;
  int lost_ = 0;
  CrashingDisk disk_{[this](int) { crashInside(); }};
};

TEST_F(ForgettingDisk, LeavesTheStateBeforeOrAfterAndNothingAcknowledgedIsLost) {
  std::cout << "seed " << seed_ << '\n';
  recordStates();
  restore(bytes_);
  disk_.trust(path_);
  Session session(openOf(SqliteCompanyFile::open(path_, options(disk_.vfs()))));
  for (now_ = 0; now_ < operations().size(); ++now_) {
    watching_ = true;
    operations()[now_].act(session);
    watching_ = false;
    // Acknowledged: whatever the disk forgets now, it is there.
    for (const Loss loss : {Loss::everything, Loss::some}) crash(now_ + 1, now_ + 1, loss);
    ASSERT_FALSE(HasFailure()) << operations()[now_].name << ", seed " << seed_;
  }
  --now_;
  now_ = operations().size();
  session.file->close();
  crash(now_, now_, Loss::everything);
  std::cout << crashes_ << " crashes, " << with_journal_ << " with a journal to go by\n";
  EXPECT_GT(with_journal_, crashes_ / 4);
  EXPECT_GT(lost_, 8) << "what was not synced is lost";
}

TEST_F(ForgettingDisk, TakesAnUnfinishedChangeBackThoughThePowerFailsAgainMeanwhile) {
  std::cout << "seed " << seed_ << '\n';
  recordStates();
  // The import is cut off at every change, and so is the recovery from each of these.
  const std::size_t import = 4;
  std::vector<std::string> files;
  std::vector<std::string> journals;
  {
    restore(before_[import]);
    CrashingDisk* disk = nullptr;
    const auto keepLeft = [&](int) {
      disk->leave(path_, left_, Loss::nothing, random_);
      if (!std::filesystem::exists(left_ + "-journal")) return;
      files.push_back(bytesOf(left_));
      journals.push_back(bytesOf(left_ + "-journal"));
    };
    CrashingDisk first(keepLeft);
    disk = &first;
    first.trust(path_);
    Session session(openOf(SqliteCompanyFile::open(path_, options(first.vfs()))));
    operations()[import].act(session);
  }
  ASSERT_GT(files.size(), 5U);
  now_ = import;
  const std::size_t stride = inLongRun() ? 1 : 3;
  for (std::size_t i = 0; i < files.size(); i += stride) {
    restore(files[i]);
    writeBytes(path_ + "-journal", journals[i]);
    disk_.trust(path_);
    disk_.trust(path_ + "-journal");
    watching_ = true;
    const File file = openOf(SqliteCompanyFile::open(path_, options(disk_.vfs())));
    watching_ = false;
    ASSERT_FALSE(HasFailure()) << "change " << i << ", seed " << seed_;
    crash(now_, now_ + 1, Loss::everything);
  }
  std::cout << crashes_ << " crashes\n";
  EXPECT_GT(crashes_, 20);
}

TEST_F(ForgettingDisk, OwesNothingOnceAFileIsMade) {
  std::filesystem::remove(path_);
  const File file =
      openOf(SqliteCompanyFile::create(path_, {.name = "Acme"}, options(disk_.vfs())));
  ASSERT_NE(file, nullptr);
  EXPECT_FALSE(disk_.owes());
  Session session(file);
  session.saveNew({.id = "first"});
  EXPECT_FALSE(disk_.owes());
}

}  // namespace
}  // namespace depcalc
