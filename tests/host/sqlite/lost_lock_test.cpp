// Company files whose locks, names or contents change while they are open.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <utility>

#include "host/sqlite/company_lock.h"
#include "host/sqlite/lock_holder.h"
#include "tests/host/sqlite/company_fixture.h"

namespace depcalc {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using namespace testing_support;
using Kind = FileTrouble::Kind;

/// A process of its own that tries the file: begun before this one opens it, since it would else
/// have the same notion of what is locked.
class OtherProgram {
 public:
  explicit OtherProgram(std::string path) : path_(std::move(path)) {
    if (::pipe(in_.data()) != 0 || ::pipe(out_.data()) != 0) std::abort();
    process_ = ::fork();
    if (process_ != 0) return;
    ::close(in_[1]);
    for (char request = 0; ::read(in_[0], &request, 1) == 1;) {
      const char answer = answerTo(request) ? 'y' : 'n';
      if (::write(out_[1], &answer, 1) != 1) break;
    }
    ::_exit(0);
  }
  ~OtherProgram() {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    for (const int end : {in_[0], in_[1], out_[0], out_[1]}) ::close(end);
  }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  /// Opens the company as our programs do. It is refused, and told who holds it.
  bool isRefused() { return ask('o'); }
  /// As a tool that knows of no lock but SQLite's, runs a statement of `changes`.
  bool changes(std::size_t number) { return ask(static_cast<char>(number)); }
  /// The same begins to write and does not end.
  bool begins() { return ask('b'); }
  bool ends() { return ask('e'); }

  static constexpr std::array changes_of_record_2{
      "UPDATE record SET fields = fields || ' ' WHERE id % 65536 = 2",
      "DELETE FROM record WHERE id % 65536 = 2",
      "INSERT INTO record SELECT id + 9, fields, digest FROM record WHERE id % 65536 = 2",
      "UPDATE record SET digest = digest + 1 WHERE id % 65536 = 2",
      "UPDATE company SET digest = digest + 1",
      "BEGIN IMMEDIATE; COMMIT",
  };
  static constexpr std::size_t no_change = changes_of_record_2.size() - 1;

 private:
  bool ask(char request) {
    char answer = 0;
    EXPECT_EQ(::write(in_[1], &request, 1), 1);
    EXPECT_EQ(::read(out_[0], &answer, 1), 1);
    return answer == 'y';
  }

  bool answerTo(char request) {
    const std::string holder = "(process " + std::to_string(::getppid()) + ")";
    if (request == 'o') {
      const auto trouble = troubleOf(SqliteCompanyFile::open(path_, options()));
      return trouble && trouble->kind() == Kind::locked &&
             trouble->description().find(holder) != std::string::npos;
    }
    if (request == 'b') return runs("BEGIN EXCLUSIVE");
    const bool done =
        request == 'e' || runs(changes_of_record_2.at(static_cast<std::size_t>(request)));
    sqlite3_close(std::exchange(database_, nullptr));
    return done;
  }

  bool runs(const char* sql) {
    return sqlite3_open(path_.c_str(), &database_) == SQLITE_OK &&
           sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
  }

  std::string path_;
  std::array<int, 2> in_{};
  std::array<int, 2> out_{};
  pid_t process_ = -1;
  sqlite3* database_ = nullptr;
};

class LostLock : public CompanyFile {
 protected:
  LostLock() { make(); }

  void make() {
    store_.reset();
    file_ = create();
    CompanyFile::save(file_, 2);
    store_.emplace(file_);
  }
  std::vector<std::string> save() { return store_->save(); }

  /// What a file dialog does to learn a file's type. The process's locks on it are gone then.
  void openAndCloseElsewhere() const {
    const int descriptor = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(descriptor, 0);
    ::close(descriptor);
  }

  OtherProgram other_{path_};
  File file_;
  std::optional<OpenStore> store_;
};

TEST_F(LostLock, IsNotLostToAnotherOfOurPrograms) {
  openAndCloseElsewhere();
  EXPECT_TRUE(other_.isRefused());
  save();
  EXPECT_TRUE(other_.isRefused());
  file_->close();
  EXPECT_FALSE(other_.isRefused());
}

TEST_F(LostLock, SurvivesARefusalInThisProcess) {
  EXPECT_TRUE(troubleOf(SqliteCompanyFile::open(path_, options())));
  EXPECT_FALSE(other_.changes(OtherProgram::no_change));
}

TEST_F(LostLock, IsTakenAgainBeforeAChange) {
  openAndCloseElsewhere();
  ASSERT_TRUE(other_.changes(OtherProgram::no_change)) << "SQLite's lock is gone";
  EXPECT_THAT(save(), IsEmpty());
  EXPECT_FALSE(other_.changes(OtherProgram::no_change)) << "and is back";
  file_->close();
  EXPECT_EQ(reread().size(), 4U);
}

TEST_F(LostLock, LeavesTheFileAsAnotherProgramChangedItMeanwhile) {
  for (std::size_t change = 0; change < OtherProgram::no_change; ++change) {
    openAndCloseElsewhere();
    const char* const sql = OtherProgram::changes_of_record_2.at(change);
    ASSERT_TRUE(other_.changes(change)) << sql;
    const std::string before = bytesOf(path_);
    EXPECT_THAT(save(), testing::Contains(HasSubstr("changed by another program"))) << sql;
    const auto trouble = file_->takeTrouble();
    ASSERT_TRUE(trouble) << sql;
    EXPECT_EQ(trouble->kind(), Kind::changed);
    EXPECT_EQ(bytesOf(path_), before) << sql;
    file_->close();
    std::filesystem::remove(path_);
    make();
  }
}

TEST_F(LostLock, LetsACopyHaveAllThatIsHereWhereAnotherProgramChangedTheFile) {
  const std::string copy = directory_.path() + "/copy.company";
  for (std::size_t change = 0; change < OtherProgram::no_change; ++change) {
    file_->close();
    SqliteCompanyFile::Options asking = options();
    asking.change_failed = [&](const FailedChange&) { return GoOnWithCopy{copy}; };
    file_ = openOf(SqliteCompanyFile::open(path_, asking));
    CompanyFile::save(file_, 3);
    store_.emplace(file_);
    openAndCloseElsewhere();
    ASSERT_TRUE(other_.changes(change));
    EXPECT_THAT(save(), IsEmpty());
    const TableContent here = contentOf(*file_);
    EXPECT_EQ(here.size(), 7U) << "the summary, two assets, three and one";
    file_->close();
    const File copied = openOf(SqliteCompanyFile::open(copy, options()));
    ASSERT_NE(copied, nullptr) << change;
    EXPECT_TRUE(contentOf(*copied) == here) << change;
    copied->close();
    std::filesystem::remove(copy);
    std::filesystem::remove(path_);
    make();
  }
}

TEST_F(LostLock, RefusesAChangeWhileAnotherProgramHasTheFile) {
  openAndCloseElsewhere();
  ASSERT_TRUE(other_.begins());
  EXPECT_THAT(save(), testing::Contains(HasSubstr("is in use by")));
  EXPECT_TRUE(other_.ends());
}

TEST_F(LostLock, WritesNothingIntoAFileThatIsGone) {
  const std::string other = directory_.path() + "/other.company";
  std::filesystem::rename(path_, other);
  const std::string before = bytesOf(other);
  EXPECT_THAT(save(), testing::Contains(HasSubstr("Error#53: " + path_ + " is no longer")));
  EXPECT_EQ(file_->takeTrouble()->kind(), Kind::lost);
  ASSERT_TRUE(file_->lost());
  EXPECT_THAT(file_->lost()->description(), HasSubstr("is no longer"));
  EXPECT_EQ(bytesOf(other), before);
  std::filesystem::rename(other, path_);
  EXPECT_THAT(save(), IsEmpty()) << "back in its place";
  EXPECT_FALSE(file_->lost());
}

TEST_F(LostLock, WritesNothingWhereAnotherFileHasTheName) {
  std::filesystem::copy_file(path_, path_ + ".new");
  const std::string before = bytesOf(path_);
  std::filesystem::rename(path_ + ".new", path_);
  EXPECT_THAT(save(), testing::Contains(HasSubstr(path_ + " is now a different file")));
  ASSERT_TRUE(file_->lost());
  EXPECT_THAT(file_->lost()->description(), HasSubstr("is now a different file"));
  EXPECT_EQ(bytesOf(path_), before);
}

TEST(LockHolder, IsNobodyOfAFileThatIsNotLockedWhateverElseIs) {
  const TemporaryDirectory directory;
  const std::string locked = directory.path() + "/locked.company";
  const std::string free = directory.path() + "/free.company";
  openOf(SqliteCompanyFile::create(free, {.name = "Free"}, options()))->close();
  const File held = openOf(SqliteCompanyFile::create(locked, {.name = "Locked"}, options()));
  EXPECT_EQ(lockHolder(locked), " by this program");
  EXPECT_EQ(lockHolder(free), "");
}

/// As on a file system that makes a lock of the whole file one of all its bytes.
TEST(CompanyLockOfAByte, StandsBesideSqlitesOwnAndIsNotDroppedEither) {
  const TemporaryDirectory directory;
  const std::string path = directory.path() + "/acme.company";
  openOf(SqliteCompanyFile::create(path, {.name = "Acme"}, options()))->close();
  const CompanyLock lock(path, CompanyLock::Way::one_byte);
  Database database(path, Database::Access::read_write, "");
  holdDatabase(database);
  EXPECT_TRUE(lock.sqliteHolds());
  ::close(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  EXPECT_FALSE(lock.sqliteHolds());
  holdDatabaseAgain(database);
  EXPECT_TRUE(lock.sqliteHolds());
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    try {
      const CompanyLock other(path, CompanyLock::Way::one_byte);
      ::_exit(1);
    } catch (const FileTrouble& trouble) {
      ::_exit(trouble.kind() == Kind::locked ? 0 : 2);
    }
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

/// Where a program is started without standard input, the file gets the descriptor 0.
TEST(CompanyLockOfTheFirstDescriptor, IsOneLikeAnyOther) {
  const TemporaryDirectory directory;
  const std::string path = directory.path() + "/acme.company";
  openOf(SqliteCompanyFile::create(path, {.name = "Acme"}, options()))->close();
  const pid_t child = ::fork();
  if (child == 0) {
    std::array<int, 2> locked{};
    if (::pipe(locked.data()) != 0) ::_exit(9);
    ::close(0);
    const pid_t second = ::fork();
    if (second == 0) {
      char is_locked = 0;
      ::close(locked[1]);
      if (::read(locked[0], &is_locked, 1) != 1) ::_exit(9);
      try {
        const CompanyLock other(path);
        ::_exit(1);
      } catch (const FileTrouble& trouble) {
        ::_exit(trouble.kind() == Kind::locked ? 0 : 2);
      }
    }
    try {
      const CompanyLock one(path);
      if (::write(locked[1], "!", 1) != 1) ::_exit(9);
      int status = -1;
      ::waitpid(second, &status, 0);
      ::_exit(WIFEXITED(status) ? WEXITSTATUS(status) : 8);
    } catch (const FileTrouble&) {
      ::_exit(7);
    }
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

/// In processes that are not root.
TEST(CompanyLockOfReaders, IsSharedWhereNobodyMayWrite) {
  const TemporaryDirectory directory;
  const std::string path = directory.path() + "/acme.company";
  openOf(SqliteCompanyFile::create(path, {.name = "Acme"}, options()))->close();
  std::filesystem::permissions(directory.path(), std::filesystem::perms(0755));
  std::filesystem::permissions(path, std::filesystem::perms(0444));
  const pid_t child = ::fork();
  if (child == 0) {
    if (::getuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(9);
    const CompanyLock one(path);
    const pid_t second = ::fork();
    if (second == 0) {
      const CompanyLock other(path);
      ::_exit(7);
    }
    int status = -1;
    ::waitpid(second, &status, 0);
    ::_exit(WEXITSTATUS(status));
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 7);
}

}  // namespace
}  // namespace depcalc
