// What becomes of a change that a company file did not take.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>

#include "tests/host/sqlite/company_fixture.h"
#include "tests/host/sqlite/failing_vfs.h"

namespace depcalc {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using namespace testing_support;
using Kind = FileTrouble::Kind;

/// A company of two assets, open, and a user who decides.
class FailedChangeOf : public CompanyFile {
 protected:
  FailedChangeOf() {
    save(create(), 2);
    SqliteCompanyFile::Options asking = options(vfs_.name());
    asking.change_failed = [this](const FailedChange& change) {
      asked_.push_back(change);
      return decide_();
    };
    file_ = openOf(SqliteCompanyFile::open(path_, asking));
    store_.emplace(file_);
    before_ = contentOf(*file_);
  }

  void fillDisk() { vfs_.failAt(1, FailingVfs::Failure::disk_full, true); }
  void clearDisk() { vfs_.failAt(0, FailingVfs::Failure::disk_full, false); }
  TableContent contentAt(const std::string& path) {
    const File file = openOf(SqliteCompanyFile::open(path, options()));
    return file != nullptr ? contentOf(*file) : TableContent();
  }

  FailingVfs vfs_;
  File file_;
  std::optional<OpenStore> store_;
  TableContent before_;
  std::vector<FailedChange> asked_;
  std::function<FailedChangeAnswer()> decide_ = [] { return GiveUp(); };
  const std::string copy_ = directory_.path() + "/copy.company";
};

TEST_F(FailedChangeOf, ACompanyIsHeldWhileTheUserIsAsked) {
  fillDisk();
  decide_ = [this] {
    EXPECT_THAT(contentOf(*file_), SizeIs(before_.size() + 1));
    return GiveUp();
  };
  EXPECT_THAT(store_->save(), ElementsAre(HasSubstr("Error#61: " + path_)));
  ASSERT_THAT(asked_, SizeIs(1));
  EXPECT_EQ(asked_[0].trouble.kind(), Kind::disk_full);
  EXPECT_EQ(asked_[0].in_file, FailedChange::InFile::nothing);
  EXPECT_TRUE(contentOf(*file_) == before_) << "given up";
  EXPECT_TRUE(file_->takeTrouble());
}

TEST_F(FailedChangeOf, ACompanyIsTriedAgainAsOftenAsTheUserWants) {
  fillDisk();
  decide_ = [this] {
    if (asked_.size() == 3) clearDisk();
    return TryAgain();
  };
  EXPECT_THAT(store_->save(), IsEmpty()) << "nobody hears of what went well in the end";
  EXPECT_THAT(asked_, SizeIs(3));
  EXPECT_FALSE(file_->takeTrouble());
  const TableContent saved = contentOf(*file_);
  EXPECT_THAT(saved, SizeIs(before_.size() + 1));
  file_->close();
  EXPECT_TRUE(reread() == saved);
}

TEST_F(FailedChangeOf, ACompanyGoesIntoACopyThatTakesItsPlace) {
  fillDisk();
  decide_ = [this] {
    clearDisk();
    return GoOnWithCopy{copy_};
  };
  EXPECT_THAT(store_->save(), IsEmpty());
  EXPECT_EQ(file_->path(), copy_);
  const TableContent saved = contentOf(*file_);
  EXPECT_THAT(saved, SizeIs(before_.size() + 1));
  EXPECT_TRUE(reread() == before_) << "the first file is as it was, and free";
  EXPECT_EQ(troubleOf(SqliteCompanyFile::open(copy_, options()))->kind(), Kind::locked);
  EXPECT_THAT(store_->save(), IsEmpty());
  file_->close();
  EXPECT_THAT(contentAt(copy_), SizeIs(before_.size() + 2));
}

TEST_F(FailedChangeOf, ACompanyIsAskedAboutAgainWhereTheCopyFailsToo) {
  fillDisk();
  const std::string taken = directory_.path() + "/taken.company";
  std::ofstream(taken) << "mine";
  decide_ = [&]() -> FailedChangeAnswer {
    if (asked_.size() == 1) return GoOnWithCopy{taken};
    if (asked_.size() == 2) return GoOnWithCopy{copy_};
    return GiveUp();
  };
  EXPECT_THAT(store_->save(), SizeIs(1));
  ASSERT_THAT(asked_, SizeIs(3));
  EXPECT_EQ(asked_[1].trouble.kind(), Kind::exists);
  EXPECT_EQ(asked_[2].trouble.kind(), Kind::disk_full);
  EXPECT_EQ(bytesOf(taken), "mine");
  EXPECT_FALSE(std::filesystem::exists(copy_));
  EXPECT_EQ(file_->path(), path_);
  EXPECT_TRUE(contentOf(*file_) == before_);
}

/// The copy is made before the change that gives the file its second form is in any.
TEST_F(FailedChangeOf, TheFirstUnitsAreWrittenIntoTheCopy) {
  fillDisk();
  decide_ = [this] {
    clearDisk();
    return GoOnWithCopy{copy_};
  };
  file_->unitOfWork()->begin();
  UnitsStore(file_).put(2, {{2024, 5}});
  file_->unitOfWork()->end();
  EXPECT_THAT(asked_, SizeIs(1));
  const TableContent saved = contentOf(*file_);
  EXPECT_THAT(saved, SizeIs(before_.size() + 1));
  file_->close();
  EXPECT_TRUE(contentAt(copy_) == saved);
  EXPECT_TRUE(reread() == before_) << "the first file is as it was";
}

TEST_F(FailedChangeOf, ADeletionIsWrittenIntoTheCopy) {
  fillDisk();
  decide_ = [this] {
    clearDisk();
    return GoOnWithCopy{copy_};
  };
  file_->OpenTable(asset_table_name)->Item(2)->Delete();
  EXPECT_THAT(asked_, SizeIs(1));
  const TableContent saved = contentOf(*file_);
  EXPECT_THAT(saved, SizeIs(before_.size() - 1));
  file_->close();
  EXPECT_TRUE(contentAt(copy_) == saved);
}

TEST_F(FailedChangeOf, AFileThatIsGoneGoesIntoACopy) {
  std::filesystem::remove(path_);
  decide_ = [this] { return GoOnWithCopy{copy_}; };
  EXPECT_THAT(store_->save(), IsEmpty());
  ASSERT_THAT(asked_, SizeIs(1));
  EXPECT_EQ(asked_[0].trouble.kind(), Kind::lost);
  file_->close();
  EXPECT_THAT(contentAt(copy_), SizeIs(before_.size() + 1));
  EXPECT_FALSE(std::filesystem::exists(path_));
}

/// A medium that was taken away, a file that was cut off: all there is of the company is in memory.
TEST_F(FailedChangeOf, AFileThatCannotBeReadGoesIntoACopyAllTheSame) {
  decide_ = [this] { return GoOnWithCopy{copy_}; };
  std::filesystem::resize_file(path_, 0);
  std::filesystem::remove(path_);
  EXPECT_THAT(store_->save(), IsEmpty());
  file_->close();
  EXPECT_THAT(contentAt(copy_), SizeIs(before_.size() + 1));
}

/// The last thing that a commit does is to remove its journal: without that it has happened or not,
/// as the disk pleases.
TEST_F(FailedChangeOf, ACompanySaysWhatTheFileHasOfIt) {
  for (int n = 1; n < 40 && !HasFailure(); ++n) {
    vfs_.failAt(n, FailingVfs::Failure::io_error, false);
    const std::size_t count = contentOf(*file_).size();
    const std::size_t asked = asked_.size();
    store_->save();
    clearDisk();
    if (asked_.size() == asked) break;
    const bool kept = asked_.back().in_file == FailedChange::InFile::all;
    EXPECT_NE(asked_.back().in_file, FailedChange::InFile::unknown);
    EXPECT_THAT(contentOf(*file_), SizeIs(kept ? count + 1 : count)) << "change " << n;
  }
  EXPECT_GT(asked_.size(), 3U);
}

TEST_F(FailedChangeOf, NothingIsNeededToSaveACopy) {
  EXPECT_FALSE(file_->saveCopy(copy_));
  EXPECT_EQ(file_->path(), path_) << "the open company stays the open one";
  EXPECT_TRUE(contentAt(copy_) == before_);
  EXPECT_EQ(contentAt(copy_).size(), before_.size());
  EXPECT_EQ(file_->saveCopy(copy_)->kind(), Kind::exists);
  EXPECT_EQ(file_->saveCopy(path_)->kind(), Kind::exists);
  EXPECT_THAT(store_->save(), IsEmpty());
  EXPECT_TRUE(contentAt(copy_) == before_) << "the copy is one of its time";
  EXPECT_THAT(asked_, IsEmpty());
}

TEST_F(FailedChangeOf, ACopyOfAFileThatIsGoneTakesItsPlace) {
  std::filesystem::remove(path_);
  EXPECT_FALSE(file_->saveCopy(copy_));
  EXPECT_EQ(file_->path(), copy_);
  EXPECT_THAT(store_->save(), IsEmpty());
  file_->close();
  EXPECT_THAT(contentAt(copy_), SizeIs(before_.size() + 1));
}

/// What another program put into the file meanwhile belongs to it, not into the copy.
TEST_F(FailedChangeOf, ACompanyThatWasChangedElsewhereIsCopiedAsItIsHere) {
  const TableContent here = contentOf(*file_);
  const std::string bytes = bytesOf(path_);
  writeBytes(path_, bytes.substr(0, bytes.size() - 8192));
  EXPECT_FALSE(file_->saveCopy(copy_));
  EXPECT_TRUE(contentAt(copy_) == here);
}

}  // namespace
}  // namespace depcalc
