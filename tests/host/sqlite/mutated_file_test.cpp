// Company files damaged in thousands of ways, alone and with the journal beside them: refused, or
// read as they were written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <ctime>
#include <iostream>
#include <random>

#include "tests/host/sqlite/company_fixture.h"
#include "tests/support/effort.h"

namespace depcalc {
namespace {

using testing::HasSubstr;
using namespace testing_support;

class MutatedCompanyFile : public SampleCompanyFile {
 protected:
  MutatedCompanyFile() {
    std::cout << "seed " << seed_ << '\n';
    makeOther();
    makeInterrupted();
  }

  std::size_t below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
  }

  /// One damage of any kind.
  void damage(std::string& bytes) {
    const std::size_t pages = (bytes.size() + page_size - 1) / page_size;
    const auto page = [&] { return below(pages) * page_size; };
    switch (below(9)) {
      case 0:
        for (std::size_t i = 0, bits = 1 + below(8); i < bits; ++i) {
          char& byte = bytes[below(bytes.size())];
          byte = static_cast<char>(byte ^ (1 << below(8)));
        }
        return;
      case 1: {
        const std::size_t run = 1 + below(300);
        for (std::size_t at = below(bytes.size()), i = 0; i < run && at < bytes.size(); ++i) {
          bytes[at++] = static_cast<char>(below(256));
        }
        return;
      }
      case 2: {
        const std::size_t a = page();
        const std::size_t b = page();
        const std::string first = bytes.substr(a, page_size);
        const std::string second = bytes.substr(b, page_size);
        bytes.replace(a, first.size(), second);
        if (b < bytes.size()) bytes.replace(b, second.size(), first);
        return;
      }
      case 3:
        bytes.resize(below(bytes.size() + 1));
        return;
      case 4:
        bytes.append(1 + below(3 * page_size), static_cast<char>(below(256)));
        return;
      case 5:
        for (std::size_t at = page(), i = 0; i < page_size && at < bytes.size(); ++i) {
          bytes[at++] = '\0';
        }
        return;
      case 6: {
        const std::size_t at = page();
        if (at < other_.size()) bytes.replace(at, page_size, other_, at, page_size);
        return;
      }
      case 7: {
        // A number of the file's head, or of a page's.
        const std::size_t at = below(2) == 0 ? below(108) : page() + below(12);
        constexpr char extremes[] = {'\0', '\1', '\2', '\x7F', '\x80', '\xFF'};
        for (std::size_t i = 0, size = 1 + below(4); i < size && at + i < bytes.size(); ++i) {
          bytes[at + i] = extremes[below(sizeof extremes)];
        }
        return;
      }
      default: {
        // A piece of the file at another place.
        const std::size_t size = 1 + below(page_size);
        const std::string piece = bytes.substr(below(bytes.size()), size);
        bytes.replace(below(bytes.size()), piece.size(), piece);
        return;
      }
    }
  }

  /// Opens the file: it is refused, or all is as it was.
  bool isRefused() {
    const auto began = std::clock();
    const auto opened = SqliteCompanyFile::open(path_, options());
    const auto* file = std::get_if<File>(&opened);
    if (file == nullptr) {
      EXPECT_THAT(std::get<FileTrouble>(opened).description(), HasSubstr(path_));
    } else {
      EXPECT_TRUE(contentOf(**file) == content_);
      EXPECT_EQ((*file)->info().name, "Acme");
    }
    EXPECT_LT(static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC, 2);
    return file == nullptr;
  }

  static int mutations() { return Effort{.usual = 600, .in_long_run = 5000}.times(); }

  unsigned seed_ = std::random_device{}();
  std::mt19937 random_{seed_};
  std::string other_;        ///< another company, of the same size and shape
  std::string interrupted_;  ///< the file in the middle of a large change
  std::string journal_;      ///< what takes that back

 private:
  void makeOther() {
    std::filesystem::remove(path_);
    const File file = openOf(SqliteCompanyFile::create(path_, {.name = "Else"}, options()));
    file->unitOfWork()->begin();
    save(file, 20, 6);
    file->unitOfWork()->end();
    file->close();
    other_ = bytesOf(path_);
    restore();
  }

  void makeInterrupted() {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &handle), SQLITE_OK);
    const char* change =
        "PRAGMA cache_size = 1; BEGIN; UPDATE record SET fields = replace(fields, '0.0000', "
        "'1.0000'); UPDATE company SET name = 'Half'; UPDATE record SET digest = digest + 1";
    ASSERT_EQ(sqlite3_exec(handle, change, nullptr, nullptr, nullptr), SQLITE_OK);
    interrupted_ = bytesOf(path_);
    journal_ = bytesOf(path_ + "-journal");
    sqlite3_close(handle);
    ASSERT_NE(interrupted_, bytes_);
    ASSERT_GT(journal_.size(), page_size);
    restore();
  }
};

TEST_F(MutatedCompanyFile, IsRefusedOrReadTruly) {
  int refused = 0;
  for (int i = 0; i < mutations(); ++i) {
    std::string bytes = bytes_;
    for (std::size_t damages = 1 + below(3); damages > 0 && !bytes.empty(); --damages) {
      damage(bytes);
    }
    restore();
    writeBytes(path_, bytes);
    refused += isRefused() ? 1 : 0;
    ASSERT_FALSE(HasFailure()) << "seed " << seed_ << ", mutation " << i;
  }
  std::cout << refused << " of " << mutations() << " refused\n";
  EXPECT_GT(refused, mutations() / 2);
}

TEST_F(MutatedCompanyFile, IsRefusedOrReadTrulyBesideADamagedJournal) {
  restore();
  writeBytes(path_, interrupted_);
  writeBytes(path_ + "-journal", journal_);
  EXPECT_FALSE(isRefused()) << "an unfinished change is taken back";
  int refused = 0;
  for (int i = 0; i < mutations() / 4; ++i) {
    restore();
    std::string bytes = below(4) == 0 ? bytes_ : interrupted_;
    std::string journal = journal_;
    if (below(8) == 0) damage(bytes);
    damage(journal);
    writeBytes(path_, bytes);
    writeBytes(path_ + "-journal", journal);
    refused += isRefused() ? 1 : 0;
    ASSERT_FALSE(HasFailure()) << "seed " << seed_ << ", mutation " << i;
  }
  std::cout << refused << " of " << mutations() / 4 << " refused\n";
  EXPECT_GT(refused, mutations() / 40);
}

}  // namespace
}  // namespace depcalc
