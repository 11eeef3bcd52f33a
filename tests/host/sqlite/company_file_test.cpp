// Company files: what is opened, what is refused, what a failing disk and a damaged file leave.
#include "host/sqlite/company_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <random>

#include "host/sqlite/company_path.h"
#include "host/stored/digest.h"
#include "host/stored/record_text.h"
#include "host/unit_of_work.h"
#include "tests/host/sqlite/company_fixture.h"
#include "tests/host/sqlite/failing_vfs.h"

namespace depcalc {
namespace {

using testing::HasSubstr;
using namespace testing_support;
using Kind = FileTrouble::Kind;

TEST(Digest, IsXxh64) {
  // The values that the algorithm's own tests have.
  EXPECT_EQ(digestOf("", 0), 0xEF46DB3751D8E999U);
  EXPECT_EQ(digestOf("a", 0), 0xD24EC4F1A98C6E5BU);
  EXPECT_EQ(digestOf("abc", 0), 0x44BC2CF5AD770999U);
  EXPECT_EQ(digestOf("Nobody inspects the spammish repetition", 0), 0xFBCEA83C8A378BF1U);
  EXPECT_NE(digestOf("abc", 1), digestOf("abc", 0));
}

TEST(RecordText, RefusesWhatIsNotItsOwn) {
  for (const char* text : {"", "{", "{}x", "{\"a\"}", "{\"a\":}", "{\"a\":1,}", "{\"a\":1.5x}",
                           "{\"a\":99999}", "{\"a\":tru}", "{\"a\":\"\\x\"}", "{\"a\":\"",
                           "{\"a\":{\"date\":\"2024-13-01\"}}", "{\"a\":{\"date\":\"2024"}) {
    EXPECT_THROW((void)recordOfText(text), RuntimeError) << text;
  }
  EXPECT_TRUE(recordOfText("{}").entries().empty());
}

TEST(RecordText, IsWrittenAsItWasRead) {
  for (const char* text :
       {"{\"a\":-0e+00}", "{\"a\":5e-324}", "{\"a\":1.7976931348623157e+308}", "{\"a\":1e-01}",
        "{\"a\":-32768}", "{\"a\":-0.0001}", "{\"a\":922337203685477.5807}",
        "{\"a\":99999999999999.9999}", "{\"a\":-922337203685477.5808}", "{\"a\":null}",
        "{\"a\":{\"date\":\"0100-01-01\"}}", "{\"a\":{\"date\":\"2024-02-29\"}}"}) {
    EXPECT_EQ(textOfRecord(recordOfText(text)), text);
  }
}

TEST_F(CompanyFile, KeepsTheCompany) {
  const CompanyInfo info{.name = "Caf\xC3\xA9 \"O'Hara\"", .first_month = 7, .multi_user = true};
  {
    const File file = openOf(SqliteCompanyFile::create(path_, info, options()));
    EXPECT_EQ(file->info(), info);
    EXPECT_TRUE(file->IsMultiUser());
  }
  const File file = openOf(SqliteCompanyFile::open(path_, options()));
  EXPECT_EQ(file->info(), info);
  file->info({.name = "New", .first_month = 6, .multi_user = false});
  file->close();
  EXPECT_EQ(openOf(SqliteCompanyFile::open(path_, options()))->info().name, "New");
}

/// The form as any program reads it, from the file's head.
int formIn(const std::string& path) { return bytesOf(path).at(63); }

/// What the program before the units was would do.
bool isNewerForFormerPrograms(const std::string& path) {
  try {
    requireCompanyHeader(path, "", 1);
  } catch (const FileTrouble& trouble) {
    EXPECT_EQ(trouble.kind(), FileTrouble::Kind::newer);
    EXPECT_THAT(trouble.description(),
                HasSubstr("was written by a newer version of the program (format 2; this one "
                          "reads up to format 1). Use that version."));
    return true;
  }
  return false;
}

TEST_F(CompanyFile, IsOfTheSecondFormWithItsFirstUnitsAndNotBefore) {
  const std::string copy = directory_.path() + "/copy.company";
  const File file = create();
  save(file, 2);
  UnitsStore units(file);
  EXPECT_TRUE(units.unitsOf(2).empty());
  units.put(2, {});
  units.assetDeleted(3);
  save(file, 1);
  EXPECT_EQ(formIn(path_), 1) << "nothing was entered";
  EXPECT_FALSE(isNewerForFormerPrograms(path_));
  file->unitOfWork()->begin();
  units.put(2, {{2024, 5}});
  EXPECT_EQ(formIn(path_), 1) << "not yet";
  file->unitOfWork()->abandon();
  save(file, 1);
  EXPECT_EQ(formIn(path_), 1) << "nothing was kept";

  units.put(2, {{2024, 5}});
  EXPECT_EQ(formIn(path_), 2);
  EXPECT_TRUE(isNewerForFormerPrograms(path_));
  EXPECT_FALSE(file->saveCopy(copy).has_value());
  EXPECT_EQ(formIn(copy), 2) << "so is a copy";
  units.put(2, {});
  file->close();
  EXPECT_EQ(formIn(path_), 2) << "once there were units, there is a table for them";
  const File again = openOf(SqliteCompanyFile::open(path_, options()));
  EXPECT_TRUE(UnitsStore(again).numbers().empty());
  const File copied = openOf(SqliteCompanyFile::open(copy, options()));
  EXPECT_EQ(UnitsStore(copied).unitsOf(2), (UnitsByYear{{2024, 5}}));
}

TEST_F(CompanyFile, BeginsItsFiscalYearOnOrBeforeToday) {
  const File file = create();
  struct Case {
    int month;
    Date start;
  };
  for (const Case& each :
       {Case{1, Date::carrying(2024, 1, 1)}, Case{6, Date::carrying(2024, 6, 1)},
        Case{7, Date::carrying(2023, 7, 1)}, Case{12, Date::carrying(2023, 12, 1)}}) {
    file->info({.name = "Acme", .first_month = each.month});
    EXPECT_EQ(file->FiscalYearStart(), each.start);
  }
  EXPECT_THROW(file->info({.name = "Acme", .first_month = 13}), RuntimeError);
}

TEST_F(CompanyFile, KeepsItsLockWhateverElseIsTriedInThisProcess) {
  const File file = create();
  save(file, 1);
  for (int i = 0; i < 3; ++i) {
    const auto trouble = troubleOf(SqliteCompanyFile::open(path_, options()));
    ASSERT_TRUE(trouble);
    EXPECT_EQ(trouble->kind(), Kind::locked);
    EXPECT_THAT(trouble->description(), HasSubstr(path_));
    EXPECT_THAT(trouble->description(), HasSubstr("by this program"));
  }
  const pid_t child = ::fork();
  if (child == 0) {
    const auto trouble = troubleOf(SqliteCompanyFile::open(path_, options()));
    const bool refused = trouble && trouble->kind() == Kind::locked &&
                         trouble->description().find("process") != std::string::npos;
    ::_exit(refused ? 0 : 1);
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0) << "another process is refused and told who holds the file";
  file->close();
  EXPECT_NE(openOf(SqliteCompanyFile::open(path_, options())), nullptr);
}

TEST_F(CompanyFile, RefusesToOverwriteAndLeavesNothingBehind) {
  writeBytes(path_, "mine");
  EXPECT_EQ(troubleOf(SqliteCompanyFile::create(path_, {.name = "x"}, options()))->kind(),
            Kind::exists);
  EXPECT_EQ(bytesOf(path_), "mine");
  const std::string missing = directory_.path() + "/none/a.company";
  EXPECT_EQ(troubleOf(SqliteCompanyFile::create(missing, {.name = "x"}, options()))->kind(),
            Kind::not_found);
  std::filesystem::remove(path_);
  create()->close();
  int entries = 0;
  for (const auto& entry : std::filesystem::directory_iterator(directory_.path())) {
    EXPECT_EQ(entry.path().string(), path_);
    ++entries;
  }
  EXPECT_EQ(entries, 1);
}

/// In a child that is not root, on a file or in a directory that it may not write.
TEST_F(CompanyFile, KeepsTheRecordsOfEachTableApart) {
  {
    const File file = create();
    for (const char* name : {"one", "another", "a third"}) {
      const auto record = file->OpenTable(name)->Add(0);
      record->Fields().SetValue("name", StoredValue::text(name));
      record->Modified(true);
      record->Commit();
    }
  }
  const File file = openOf(SqliteCompanyFile::open(path_, options()));
  for (const char* name : {"one", "another", "a third"}) {
    EXPECT_EQ(file->OpenTable(name)->Item(0)->Fields().GetValue("name").asText(), name);
  }
}

TEST_F(CompanyFile, IsNotWrittenWhereNothingHasChanged) {
  save(create(), 2);
  const std::string before = bytesOf(path_);
  {
    const File file = openOf(SqliteCompanyFile::open(path_, options()));
    file->unitOfWork()->begin();
    file->unitOfWork()->end();
    file->unitOfWork()->begin();
    file->unitOfWork()->abandon();
    file->unitOfWork()->begin();
    file->unitOfWork()->end();
  }
  EXPECT_EQ(bytesOf(path_), before);
}

TEST_F(CompanyFile, ReadsWhatItMayNotWriteAndSaysSoWhereItShouldWrite) {
  save(create(), 2);
  std::filesystem::permissions(directory_.path(), std::filesystem::perms(0755));
  const auto inUnprivilegedChild = [&](mode_t file_mode, mode_t directory_mode) {
    std::filesystem::permissions(path_, std::filesystem::perms(file_mode));
    std::filesystem::permissions(directory_.path(), std::filesystem::perms(directory_mode));
    const pid_t child = ::fork();
    if (child == 0) {
      if (::getuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(9);
      const auto writing = troubleOf(SqliteCompanyFile::open(path_, options()));
      const auto reading = SqliteCompanyFile::open(path_, options("", false));
      const bool refused = writing && writing->kind() == Kind::read_only &&
                           writing->description().find(path_) != std::string::npos;
      const auto* file = std::get_if<File>(&reading);
      const bool readable = file != nullptr && contentOf(**file).size() == 3;
      ::_exit((refused ? 0 : 1) + (readable ? 0 : 2));
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    std::filesystem::permissions(directory_.path(), std::filesystem::perms(0755));
    return WEXITSTATUS(status);
  };
  const std::string before = bytesOf(path_);
  EXPECT_EQ(inUnprivilegedChild(0444, 0755), 0) << "file";
  EXPECT_EQ(inUnprivilegedChild(0666, 0555), 0) << "directory";
  EXPECT_EQ(bytesOf(path_), before);
}

TEST_F(CompanyFile, ChangesNothingWhereChangesAreRefusedUntilItIsOpenedAgain) {
  save(create(), 2);
  const std::string before = bytesOf(path_);
  {
    const File file = openOf(SqliteCompanyFile::open(path_, options()));
    const TableContent content = contentOf(*file);
    file->refuseChanges();
    std::vector<std::string> reports;
    const ErrorReportHook hook(
        [&](const ErrorReport& report) { reports.push_back(report.text()); });
    StoreState state;
    state.m_orvcf = file;
    state.TableName = asset_table_name;
    state.CurrentRecord = newAsset({.id = "more"});
    AssetStore store(state, [] { return Date::carrying(2024, 6, 1); });
    std::int16_t index = 0;
    store.WriteData(index);
    store.DeleteRecord({newAsset({.id = "moved up"}), nullptr}, 0);
    const auto refusal = HasSubstr("Error#57: " + path_ + " could not be read completely");
    EXPECT_THAT(reports, testing::ElementsAre(refusal, refusal));
    EXPECT_THROW(file->info({.name = "Other", .first_month = 2}), FileTrouble);
    EXPECT_TRUE(contentOf(*file) == content);
  }
  EXPECT_EQ(bytesOf(path_), before);
  save(openOf(SqliteCompanyFile::open(path_, options())), 1);
  EXPECT_NE(bytesOf(path_), before);
}

// --- A disk that fails ---------------------------------------------------------------------------

TEST_F(CompanyFile, ReportsASaveThatTheDiskRefusesAndGoesOnAfterwards) {
  FailingVfs vfs;
  save(create(), 1);
  const File file = openOf(SqliteCompanyFile::open(path_, options(vfs.name())));
  StoreState state;
  state.m_orvcf = file;
  AssetStore store(state, [] { return Date::carrying(2024, 6, 1); });
  (void)store.open();
  const TableContent before = contentOf(*file);
  std::vector<std::string> reports;
  const ErrorReportHook hook([&](const ErrorReport& report) { reports.push_back(report.text()); });
  const auto saveOne = [&] {
    state.CurrentRecord = newAsset({.id = "more"});
    std::int16_t index = 0;
    store.WriteData(index);
  };
  vfs.failAt(3, FailingVfs::Failure::disk_full, false);
  saveOne();
  EXPECT_THAT(reports, testing::ElementsAre(HasSubstr("WriteData Error#61: " + path_)));
  const auto trouble = file->takeTrouble();
  ASSERT_TRUE(trouble);
  EXPECT_EQ(trouble->kind(), Kind::disk_full);
  EXPECT_THAT(trouble->description(), HasSubstr("disk is full"));
  EXPECT_FALSE(file->takeTrouble()) << "told once";
  EXPECT_TRUE(contentOf(*file) == before);
  saveOne();
  EXPECT_EQ(reports.size(), 1U);
  EXPECT_EQ(contentOf(*file).size(), 3U);
}

// --- Damage
// ----------------------------------------------------------------------------------------

class DamagedCompanyFile : public CompanyFile {
 protected:
  DamagedCompanyFile() {
    const File file = create();
    file->unitOfWork()->begin();
    save(file, 60, 12);
    for (int n = 1; n <= 60; n += 2) UnitsStore(file).put(n, {{2024, 5.0 * n}, {2025, 0.25}});
    file->unitOfWork()->end();
    content_ = contentOf(*file);
    info_ = file->info();
    file->close();
    bytes_ = bytesOf(path_);
    std::cout << "seed " << seed_ << ", " << bytes_.size() << " bytes\n";
  }

  std::size_t below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
  }

  /// Opens the file with these bytes: it is refused, or all is as it was.
  bool isRefused(const std::string& bytes) {
    writeBytes(path_, bytes);
    const auto opened = SqliteCompanyFile::open(path_, options());
    const auto* file = std::get_if<File>(&opened);
    if (file == nullptr) {
      EXPECT_FALSE(std::get<FileTrouble>(opened).description().empty());
      return true;
    }
    EXPECT_TRUE(contentOf(**file) == content_);
    EXPECT_EQ((*file)->info(), info_);
    return false;
  }

  unsigned seed_ = std::random_device{}();
  std::mt19937 random_{seed_};
  std::string bytes_;
  TableContent content_;
  CompanyInfo info_;
};

TEST_F(DamagedCompanyFile, NeverShowsAFlippedBit) {
  int refused = 0;
  for (int i = 0; i < 1000; ++i) {
    std::string bytes = bytes_;
    const std::size_t at = below(bytes.size());
    const std::size_t bit = below(8);
    bytes[at] = static_cast<char>(bytes[at] ^ (1 << bit));
    refused += isRefused(bytes) ? 1 : 0;
    ASSERT_FALSE(HasFailure()) << "seed " << seed_ << ", byte " << at << ", bit " << bit;
  }
  EXPECT_GT(refused, 400) << "about half of the file is records and what says how many there are";
}

TEST_F(DamagedCompanyFile, NeverShowsATruncatedFile) {
  for (int i = 0; i < 300; ++i) {
    const std::size_t size = below(bytes_.size());
    EXPECT_TRUE(isRefused(bytes_.substr(0, size))) << "seed " << seed_ << ", size " << size;
  }
}

TEST_F(DamagedCompanyFile, NeverShowsZeroedPages) {
  int refused = 0;
  for (int i = 0; i < 300; ++i) {
    const std::size_t page = std::size_t{512} << below(5);
    const std::size_t at = below(bytes_.size() / page) * page;
    std::string bytes = bytes_;
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), page, '\0');
    refused += isRefused(bytes) ? 1 : 0;
    ASSERT_FALSE(HasFailure()) << "seed " << seed_ << ", " << page << " bytes at " << at;
  }
  EXPECT_GT(refused, 150);
}

TEST_F(DamagedCompanyFile, NeverShowsAPageOfAnotherTime) {
  // A write that the disk lost: one page is that of the file before the last save.
  writeBytes(path_, bytes_);
  const File file = openOf(SqliteCompanyFile::open(path_, options()));
  save(file, 1);
  content_ = contentOf(*file);
  file->close();
  const std::string newer = bytesOf(path_);
  int refused = 0;
  for (std::size_t at = 0; at + 8192 <= std::min(newer.size(), bytes_.size()); at += 8192) {
    std::string bytes = newer;
    bytes.replace(at, 8192, bytes_, at, 8192);
    refused += isRefused(bytes) ? 1 : 0;
    ASSERT_FALSE(HasFailure()) << "page at " << at;
  }
  EXPECT_GT(refused, 2) << "record, table and company at least";
}

}  // namespace
}  // namespace depcalc
