// A connection that is lost: what is certain is said, nothing acknowledged is lost, nothing is
// saved twice.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <thread>

#include "host/places/company_places.h"
#include "tests/host/postgresql/failing_libpq.h"
#include "tests/host/postgresql/server_fixture.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using namespace testing_support;
using Kind = FileTrouble::Kind;
using InFile = FailedChange::InFile;

constexpr LibpqFailure failures[] = {LibpqFailure::before, LibpqFailure::after,
                                     LibpqFailure::refused, LibpqFailure::memory};

class ServerLosses : public OnServer {
 protected:
  PostgresCompanyFile::Options options() {
    PostgresCompanyFile::Options options = serverOptions();
    options.libpq = &failing_.functions();
    options.patience = std::chrono::milliseconds(100);
    options.make_copy = [](const std::string& path, StoredCompanyFile& from) {
      const auto made = createCopy(path, from, placesOn(Date::carrying(2024, 6, 1)));
      if (const auto* trouble = std::get_if<FileTrouble>(&made)) throw FileTrouble(*trouble);
      return std::get<0>(made);
    };
    options.opening.change_failed = [this](const FailedChange& change) -> FailedChangeAnswer {
      asked_.push_back(change);
      return decide_ ? decide_() : GiveUp();
    };
    return options;
  }
  /// Ends the server's side of every session of the test's program.
  void endSessions() {
    sql("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name = 'test'");
  }

  FailingLibpq failing_;
  TemporaryDirectory directory_;
  std::vector<FailedChange> asked_;
  std::function<FailedChangeAnswer()> decide_;
};

/// A call that fails once, whichever it is, costs at most the change, and says so.
TEST_F(ServerLosses, OfEachCallOnceLeaveTheStateBeforeOrAfter) {
  int acknowledged = 0;
  int refused = 0;
  for (const LibpqFailure failure : failures) {
    for (int call = 1;; ++call) {
      const TableContent before = reread();
      failing_.failAt(0, failure, false);
      const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
      failing_.failAt(call, failure, false);
      const Reports reports = save(file);
      const bool over = failing_.calls() < call;
      failing_.failAt(0, failure, false);
      if (reports.empty()) {
        ++acknowledged;
        EXPECT_EQ(contentOf(*file).size(), before.size() + 1) << "call " << call;
        const TableContent saved = contentOf(*file);
        file->close();
        EXPECT_TRUE(reread() == saved) << "call " << call;
      } else {
        ++refused;
        file->close();
        EXPECT_TRUE(reread() == before) << "call " << call << ", " << reports.front();
      }
      ASSERT_FALSE(HasFailure());
      if (over) break;
    }
  }
  EXPECT_GT(acknowledged, 12) << "lost connections are made again";
  EXPECT_GT(refused, 5);
}

/// A server that stays away leaves the state before or, where only its answer was lost, after.
TEST_F(ServerLosses, OfEachCallForGoodLeaveTheStateBeforeOrAfter) {
  int uncertain = 0;
  for (const LibpqFailure failure : failures) {
    for (int call = 1;; ++call) {
      const TableContent before = reread();
      asked_.clear();
      failing_.failAt(0, failure, true);
      const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
      failing_.failAt(call, failure, true);
      const Reports reports = saveAtOnce(file, 3, "N");
      const bool over = failing_.calls() < call;
      failing_.failAt(0, failure, true);
      file->close();
      const TableContent now = reread();
      const bool all = now.size() == before.size() + 3;
      EXPECT_TRUE(all || now == before) << "call " << call;
      EXPECT_TRUE(all || !reports.empty()) << "call " << call;
      EXPECT_EQ(reports.empty(), over) << "call " << call;
      for (const FailedChange& change : asked_) {
        uncertain += change.in_file == InFile::unknown ? 1 : 0;
        EXPECT_TRUE(change.in_file == InFile::unknown || now == before) << "call " << call;
      }
      ASSERT_FALSE(HasFailure());
      if (over) break;
    }
  }
  EXPECT_GT(uncertain, 0);
}

TEST_F(ServerLosses, OfASessionBetweenTwoSavesAreMadeGood) {
  const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
  EXPECT_THAT(save(file), IsEmpty());
  endSessions();
  EXPECT_THAT(save(file), IsEmpty());
  EXPECT_THAT(asked_, IsEmpty());
  testServer().set("idle_session_timeout", "50");
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  testServer().set("idle_session_timeout", "0");
  EXPECT_THAT(save(file), IsEmpty());
  testServer().stop("fast");
  testServer().start();
  EXPECT_THAT(save(file), IsEmpty());
  EXPECT_THAT(asked_, IsEmpty());
  const TableContent saved = contentOf(*file);
  EXPECT_EQ(saved.size(), before_.size() + 4);
  file->close();
  EXPECT_TRUE(reread() == saved);
}

TEST_F(ServerLosses, OfAServerThatIsAwayAreAskedAboutAndTriedAgain) {
  const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
  testServer().stop("fast");
  decide_ = [this]() -> FailedChangeAnswer {
    if (asked_.size() == 2) testServer().start();
    return TryAgain();
  };
  EXPECT_THAT(save(file), IsEmpty());
  ASSERT_THAT(asked_, SizeIs(2));
  EXPECT_EQ(asked_[0].in_file, InFile::nothing);
  EXPECT_THAT(asked_[0].trouble.description(), HasSubstr("cannot be reached"));
  EXPECT_THAT(asked_[0].trouble.description(), HasSubstr("Nothing of the last change was saved"));
  const TableContent saved = contentOf(*file);
  file->close();
  EXPECT_TRUE(reread() == saved);
}

TEST_F(ServerLosses, OfAServerThatStaysAwayGoOnInAFile) {
  const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
  const std::string path = directory_.path() + "/kept.company";
  testServer().stop("fast");
  decide_ = [path] { return GoOnWithCopy{path}; };
  EXPECT_THAT(save(file), IsEmpty());
  EXPECT_EQ(file->path(), path);
  EXPECT_THAT(save(file), IsEmpty());
  file->OpenTable("ZEM:DepCalc")->Item(4)->Delete();
  const TableContent saved = contentOf(*file);
  EXPECT_EQ(saved.size(), before_.size() + 1);
  testServer().start();
  EXPECT_THAT(save(file), IsEmpty());
  const TableContent last = contentOf(*file);
  file->close();
  const auto opened = openCompany(path, placesOn(Date::carrying(2024, 6, 1)));
  EXPECT_TRUE(contentOf(*std::get<0>(opened)) == last);
  EXPECT_TRUE(reread() == before_) << "the server has what it had";
}

TEST_F(ServerLosses, OfTheLockToSomebodyElseWriteNothing) {
  const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
  endSessions();
  ServerFile other;
  for (int i = 0; i < 100 && other == nullptr; ++i) {
    const auto opened = PostgresCompanyFile::open(address_, serverOptions());
    if (std::holds_alternative<ServerFile>(opened)) other = std::get<ServerFile>(opened);
  }
  ASSERT_NE(other, nullptr);
  EXPECT_THAT(save(file), Each(HasSubstr("is in use by")));
  EXPECT_EQ(asked_.back().trouble.kind(), Kind::locked);
  EXPECT_EQ(asked_.back().in_file, InFile::nothing);
  EXPECT_TRUE(file->lost());
  EXPECT_TRUE(contentOf(*file) == before_);
  EXPECT_THAT(save(other), IsEmpty());
  const TableContent theirs = contentOf(*other);
  other->close();
  EXPECT_THAT(save(file), Each(HasSubstr("was changed by somebody else")));
  file->close();
  EXPECT_TRUE(reread() == theirs);
}

/// The answer to the commit is lost, and somebody else is faster than the next try.
TEST_F(ServerLosses, OfTheLastAnswerAndTheLockKnowThatTheChangeWasSaved) {
  static PostgresCompanyFile::Options others;
  static std::string address;
  static ServerFile other;
  others = serverOptions();
  address = address_;
  const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
  file->unitOfWork()->begin();
  EXPECT_THAT(save(file), IsEmpty());
  const TableContent saved = contentOf(*file);
  constexpr int commit = 5;  // BEGIN, company, records, tables, COMMIT
  failing_.failAt(commit, LibpqFailure::after, false);
  failing_.before_call = [] {
    static int calls = 0;
    if (++calls != commit + 1) return;
    for (int i = 0; i < 100 && other == nullptr; ++i) {
      const auto opened = PostgresCompanyFile::open(address, others);
      if (std::holds_alternative<ServerFile>(opened)) other = std::get<ServerFile>(opened);
    }
  };
  file->unitOfWork()->end();
  failing_.before_call = nullptr;
  EXPECT_THAT(asked_, IsEmpty()) << "it was saved";
  ASSERT_NE(other, nullptr);
  EXPECT_TRUE(contentOf(*other) == saved);
  EXPECT_TRUE(contentOf(*file) == saved);
  ASSERT_TRUE(file->lost());
  EXPECT_EQ(file->lost()->kind(), Kind::locked);
  EXPECT_THAT(save(file), Each(HasSubstr("is in use by")));
  EXPECT_TRUE(contentOf(*other) == saved);
  other->close();
  other.reset();
}

TEST_F(ServerLosses, OfACompanyThatWasRemovedAreSaid) {
  const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
  sql("DELETE FROM depcalc.company WHERE filed_as = " + filed());
  EXPECT_THAT(save(file), Each(HasSubstr("was removed from the server")));
  ASSERT_TRUE(file->lost());
  const std::string path = directory_.path() + "/kept.company";
  EXPECT_FALSE(file->saveCopy(path));
  EXPECT_EQ(file->path(), path) << "the copy is all there is";
  EXPECT_TRUE(contentOf(*file) == before_);
}

TEST_F(ServerLosses, OfRoomOnTheServersDiskAreSaid) {
  // A file system of its own is not to be had everywhere; the server's words for it are.
  sql("CREATE OR REPLACE FUNCTION public.no_room() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN "
      "RAISE"
      " EXCEPTION 'could not extend file' USING ERRCODE = 'disk_full'; END $$;"
      " CREATE TRIGGER no_room BEFORE INSERT OR UPDATE ON depcalc.record EXECUTE FUNCTION "
      "public.no_room()");
  const ServerFile file = openOf(PostgresCompanyFile::open(address_, options()));
  decide_ = [this] {
    sql("DROP TRIGGER no_room ON depcalc.record");
    return TryAgain();
  };
  EXPECT_THAT(save(file), IsEmpty());
  ASSERT_THAT(asked_, SizeIs(1));
  EXPECT_EQ(asked_[0].trouble.kind(), Kind::disk_full);
  EXPECT_EQ(asked_[0].in_file, InFile::nothing);
  EXPECT_THAT(asked_[0].trouble.description(), HasSubstr("the server's disk is full"));
  EXPECT_EQ(contentOf(*file).size(), before_.size() + 1);
}

/// A replica takes over while a company is open there; before, it can be read on the replica.
TEST(ServerLossesTo, AReplicaAreNoticedAndGoneOnWith) {
  PostgresServer primary;
  initServer(primary.address());
  const std::string address = primary.address() + "#Acme";
  ServerFile file = openOf(PostgresCompanyFile::create(address, {.name = "Acme"}, serverOptions()));
  EXPECT_THAT(saveAtOnce(file, 5, "R"), IsEmpty());
  const TableContent saved = contentOf(*file);
  file->close();
  PostgresServer replica({.replica_of = primary.directory()});
  const std::string there = replica.address() + "#Acme";
  EXPECT_THAT(troubleOf(PostgresCompanyFile::open(there, serverOptions())),
              HasSubstr("the server is a replica"));
  PostgresCompanyFile::Options reading = serverOptions();
  reading.opening.writable = false;
  EXPECT_TRUE(contentOf(*openOf(PostgresCompanyFile::open(there, reading))) == saved);

  // Two servers in one address: whichever takes changes is the one.
  const auto socket = [](const PostgresServer& server) {
    const std::string whole = server.address();
    return whole.substr(whole.find('@') + 1, whole.rfind('/') - whole.find('@') - 1);
  };
  const std::string both = "postgresql://postgres@" + socket(primary) + "," + socket(replica) +
                           "/postgres?target_session_attrs=read-write#Acme";
  file = openOf(PostgresCompanyFile::open(both, serverOptions()));
  EXPECT_THAT(save(file), IsEmpty());
  for (int i = 0; i < 200; ++i) {
    if (replica.sql("SELECT revision FROM depcalc.company") ==
        primary.sql("SELECT revision FROM depcalc.company")) {
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  primary.stop("immediate");
  replica.promote();
  EXPECT_THAT(save(file), IsEmpty());
  const TableContent last = contentOf(*file);
  EXPECT_EQ(last.size(), saved.size() + 2);
  file->close();
  EXPECT_TRUE(contentOf(*openOf(PostgresCompanyFile::open(there, serverOptions()))) == last);
}

}  // namespace
}  // namespace depcalc
