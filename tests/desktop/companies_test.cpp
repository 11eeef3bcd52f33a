// Company files as the window opens them: what is refused is refused with a clear sentence.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "desktop/host/same_company.h"
#include "desktop/host/stored_companies.h"

namespace depcalc::testing {
namespace {

using ::testing::HasSubstr;

struct Companies : ::testing::Test {
  std::string path(const char* name) const { return directory.filePath(name).toStdString(); }
  void write(const char* name, const QByteArray& bytes) const {
    QFile file(directory.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  std::string problemOf(const char* name) {
    try {
      files.open(path(name))->close();
    } catch (const desktop::CompanyFileError& error) {
      return error.what();
    }
    return {};
  }

  QTemporaryDir directory;
  desktop::StoredCompanies files{[] { return Date::strict(2024, 6, 15); }};
};

TEST_F(Companies, KeepWhatCompanyInfoSays) {
  const CompanyInfo changed{"Renamed", 10, true};
  {
    const auto company = files.create(path("a.company"), {"Sample Joinery", 4});
    EXPECT_EQ(company->file()->FiscalYearStart(), Date::strict(2024, 4, 1));
    company->setInfo(changed);
    EXPECT_EQ(company->file()->FiscalYearStart(), Date::strict(2023, 10, 1));
    company->close();
  }
  const auto company = files.open(path("a.company"));
  EXPECT_EQ(company->info(), changed);
  EXPECT_TRUE(company->file()->IsMultiUser());
  EXPECT_EQ(company->takeTrouble(), std::nullopt);
  company->close();
}

TEST_F(Companies, AreTheSameWhereOnlyTheSummaryDiffers) {
  const auto set = [this](const char* name, std::int16_t record, const char* field, bool adds) {
    const auto company = files.open(path(name));
    const auto table = company->file()->OpenTable("ZEM:DepCalc");
    const auto changed = adds ? table->Add(record) : table->Item(record);
    changed->BeginEdit();
    changed->Fields().SetValue(field, StoredValue::text(adds ? "before" : "after"));
    changed->Modified(true);
    changed->Commit();
    company->close();
  };
  const auto same = [this](const char* name) {
    return desktop::sameCompany(directory.filePath("a.company"), directory.filePath(name));
  };
  files.create(path("a.company"), {"Sample Joinery", 4})->close();
  ASSERT_TRUE(QFile::copy(directory.filePath("a.company"), directory.filePath("empty.company")));
  set("a.company", 0, "Start", true);
  EXPECT_TRUE(same("empty.company")) << "as the first start of the calculator leaves it";
  set("a.company", 1, "AID", true);
  EXPECT_FALSE(same("empty.company"));
  for (const char* name : {"summary.company", "asset.company", "info.company"}) {
    ASSERT_TRUE(QFile::copy(directory.filePath("a.company"), directory.filePath(name)));
    EXPECT_TRUE(same(name));
  }
  set("summary.company", 0, "Start", false);
  EXPECT_TRUE(same("summary.company"));
  set("asset.company", 1, "AID", false);
  EXPECT_FALSE(same("asset.company"));
  const auto company = files.open(path("info.company"));
  company->setInfo({"Sample Joinery", 5});
  company->close();
  EXPECT_FALSE(same("info.company"));
  write("text.company", "no company file at all");
  EXPECT_FALSE(same("text.company"));
  EXPECT_FALSE(same("nowhere.company"));
}

TEST_F(Companies, NothingIsOverwritten) {
  write("taken.company", "something else");
  EXPECT_THROW(files.create(path("taken.company"), {"New", 1}), desktop::CompanyFileError);
  QFile file(directory.filePath("taken.company"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll() == "something else");
}

TEST_F(Companies, WhatCannotBeOpenedIsSaidWithTheFilesName) {
  write("text.company", "no company file at all");
  files.create(path("held.company"), {"Held", 1})->close();
  const auto holder = files.open(path("held.company"));
  files.create(path("damaged.company"), {"Damaged", 1})->close();
  QFile damaged(directory.filePath("damaged.company"));
  ASSERT_TRUE(damaged.open(QIODevice::ReadWrite));
  damaged.resize(damaged.size() / 2);
  damaged.close();
  for (const char* name : {"missing.company", "text.company", "held.company", "damaged.company"}) {
    EXPECT_THAT(problemOf(name), HasSubstr(name));
  }
  holder->close();
  EXPECT_EQ(problemOf("held.company"), "");
}

/// Overwrites the four bytes of the file's head at `offset` with a number.
void setHead(const QString& path, qint64 offset, char number) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.seek(offset));
  ASSERT_EQ(file.write(QByteArray("\0\0\0", 3) + number), 4);
}

TEST_F(Companies, NewerAndForeignFilesAreToldApart) {
  constexpr qint64 version = 60;
  constexpr qint64 application = 68;
  for (const char* name : {"newer.company", "foreign.company"}) {
    files.create(path(name), {"Sample", 1})->close();
  }
  setHead(directory.filePath("newer.company"), version, 99);
  setHead(directory.filePath("foreign.company"), application, 1);
  EXPECT_THAT(problemOf("newer.company"), HasSubstr("newer"));
  EXPECT_THAT(problemOf("foreign.company"), HasSubstr("not a company file"));
  write("text.company", "something else");
  EXPECT_THAT(problemOf("text.company"), HasSubstr("not a company file"));
  EXPECT_THAT(problemOf("."), HasSubstr(directory.path().toStdString()));
}

}  // namespace
}  // namespace depcalc::testing
