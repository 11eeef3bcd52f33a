// Companies on a server: opened, locked, changed by one at a time.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/host/postgresql/server_fixture.h"

namespace depcalc {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using namespace testing_support;
using Kind = FileTrouble::Kind;

using ServerCompanies = OnServer;

TEST_F(ServerCompanies, KeepNameMonthAndMode) {
  {
    const ServerFile file = open();
    EXPECT_EQ(file->info(), (CompanyInfo{.name = "Acme"}));
    CompanyInfo info{.name = "Acme & S\xC3\xB6hne; DROP TABLE"};
    info.first_month = 4;
    info.multi_user = true;
    file->info(info);
  }
  const ServerFile file = open();
  EXPECT_EQ(file->info().name, "Acme & S\xC3\xB6hne; DROP TABLE");
  EXPECT_EQ(file->FiscalYearStart(), Date::carrying(2024, 4, 1));
  EXPECT_TRUE(file->IsMultiUser());
  EXPECT_EQ(file->path(), address_);
  EXPECT_TRUE(contentOf(*file) == before_);
}

TEST_F(ServerCompanies, AreFoundByTheirNameOnly) {
  const auto opened = PostgresCompanyFile::open(newAddress(), serverOptions());
  EXPECT_EQ(std::get<FileTrouble>(opened).kind(), Kind::not_found);
  const auto made = PostgresCompanyFile::create(address_, {.name = "Other"}, serverOptions());
  EXPECT_EQ(std::get<FileTrouble>(made).kind(), Kind::exists);
  EXPECT_TRUE(reread() == before_);
}

TEST_F(ServerCompanies, AreOneUsersAtATimeAndSayWhose) {
  const ServerFile mine = open();
  const auto opened = PostgresCompanyFile::open(address_, serverOptions());
  const auto& trouble = std::get<FileTrouble>(opened);
  EXPECT_EQ(trouble.kind(), Kind::locked);
  EXPECT_THAT(
      trouble.description(),
      MatchesRegex(".* is in use by .+ on .+ \\(test, since 20..-..-.. ..:..\\)\\. Close .*"));
  EXPECT_THAT(save(mine), IsEmpty());
  mine->close();
  EXPECT_EQ(troubleOf(PostgresCompanyFile::open(address_, serverOptions())), "");
}

TEST_F(ServerCompanies, HoldUpNoOtherCompanyAndNoReader) {
  const ServerFile mine = open();
  mine->unitOfWork()->begin();
  EXPECT_THAT(save(mine, 5), IsEmpty());
  const std::string other = newAddress();
  EXPECT_EQ(troubleOf(PostgresCompanyFile::create(other, {.name = "O"}, serverOptions())), "");
  EXPECT_EQ(sql("SELECT count(*) FROM depcalc.asset WHERE company = " + filed()), "2\n");
  mine->unitOfWork()->end();
  EXPECT_EQ(sql("SELECT count(*) FROM depcalc.asset WHERE company = " + filed()), "7\n");
}

TEST_F(ServerCompanies, AreFreeWhenTheirHolderDies) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const pid_t holder = ::fork();
  if (holder == 0) {
    const ServerFile file = openOf(PostgresCompanyFile::open(address_, serverOptions()));
    (void)!::write(ends[1], "o", 1);
    ::pause();
    ::_exit(0);
  }
  char open_there = 0;
  ASSERT_EQ(::read(ends[0], &open_there, 1), 1);
  EXPECT_THAT(troubleOf(PostgresCompanyFile::open(address_, serverOptions())),
              HasSubstr("is in use by"));
  ::kill(holder, SIGKILL);
  ::waitpid(holder, nullptr, 0);
  std::string trouble = "not tried";
  for (int i = 0; i < 100 && !trouble.empty(); ++i) {
    ::usleep(20'000);
    trouble = troubleOf(PostgresCompanyFile::open(address_, serverOptions()));
  }
  EXPECT_EQ(trouble, "");
}

TEST_F(ServerCompanies, ArePartsOfTheListWithTheirUsers) {
  const ServerFile mine = open();
  bool found = false;
  for (const ServerCompany& company : companiesOf(testServer().address())) {
    if (company.address != address_) continue;
    found = true;
    EXPECT_THAT(company.in_use, HasSubstr("(test, since"));
  }
  EXPECT_TRUE(found);
}

TEST_F(ServerCompanies, WriteAUnitOfWorkAtOnce) {
  const ServerFile file = open();
  const std::string revision = "SELECT revision FROM depcalc.company WHERE filed_as = " + filed();
  const int before = std::stoi(sql(revision));
  EXPECT_THAT(saveAtOnce(file, 40, "B"), IsEmpty());
  EXPECT_EQ(std::stoi(sql(revision)), before + 1);
  EXPECT_EQ(contentOf(*file).size(), before_.size() + 40);
}

TEST_F(ServerCompanies, AnswerAnAbandonedUnitFromMemory) {
  const ServerFile file = open();
  file->unitOfWork()->begin();
  EXPECT_THAT(save(file, 3), IsEmpty());
  file->OpenTable("ZEM:DepCalc")->Item(1)->Delete();
  file->unitOfWork()->abandon();
  EXPECT_TRUE(contentOf(*file) == before_);
  EXPECT_THAT(save(file), IsEmpty());
  EXPECT_EQ(contentOf(*file).size(), before_.size() + 1);
  const TableContent saved = contentOf(*file);
  file->close();
  EXPECT_TRUE(reread() == saved);
}

/// What tools do behind the program's back is noticed, as in a file.
TEST_F(ServerCompanies, ThatSqlHasAlteredAreDamaged) {
  struct Harm {
    const char* sql;
    const char* complaint;
  };
  const std::string mine =
      " WHERE company_id = (SELECT id FROM depcalc.company WHERE filed_as = " + filed() + ")";
  const Harm cases[] = {
      {"UPDATE depcalc.record SET fields = replace(fields, 'Truck', 'Trunk')",
       "record 1 of table ZEM:DepCalc has been altered since it was saved"},
      {"UPDATE depcalc.record SET index = index + 10 ",
       "record 10 of table ZEM:DepCalc has been altered since it was saved"},
      {"DELETE FROM depcalc.record", "table ZEM:DepCalc has 0 records instead of 3"},
      {"UPDATE depcalc.data_table SET tally = tally + 1",
       "table ZEM:DepCalc has records from another point in time"},
  };
  for (const Harm& harm : cases) {
    sql("CREATE TABLE kept AS TABLE depcalc.record; CREATE TABLE tallies AS TABLE"
        " depcalc.data_table; " +
        std::string(harm.sql) + mine);
    const auto opened = PostgresCompanyFile::open(address_, serverOptions());
    const auto* const trouble = std::get_if<FileTrouble>(&opened);
    ASSERT_NE(trouble, nullptr) << harm.sql;
    EXPECT_EQ(trouble->kind(), Kind::damaged);
    EXPECT_THAT(trouble->description(), HasSubstr(harm.complaint));
    sql("BEGIN; DELETE FROM depcalc.record; INSERT INTO depcalc.record TABLE kept;"
        " UPDATE depcalc.data_table AS t SET tally = k.tally FROM tallies AS k"
        " WHERE (t.company_id, t.id) = (k.company_id, k.id); COMMIT; DROP TABLE kept, tallies");
  }
  EXPECT_TRUE(reread() == before_);
}

TEST_F(ServerCompanies, KeepTheirTextsOutOfTheStatements) {
  const ServerFile file = open();
  const std::string text = "'); DROP SCHEMA depcalc CASCADE; -- \\ $1 \xFF \x01";
  const auto record = file->OpenTable("ZEM:DepCalc")->Item(1);
  record->Fields().SetValue("AName", StoredValue::text(text));
  record->Fields().SetValue(text, StoredValue::text(text));
  record->Modified(true);
  record->Commit();
  const TableContent saved = contentOf(*file);
  file->close();
  EXPECT_TRUE(reread() == saved);
  EXPECT_EQ(sql("SELECT count(*) FROM depcalc.asset WHERE company = " + filed()), "2\n");
}

/// A database without the schema, one with a newer one, and one with other texts.
TEST(Servers, SayWhatTheyLack) {
  PostgresServer& server = testServer();
  const auto troubleIn = [&](const std::string& database) {
    return troubleOf(PostgresCompanyFile::open(server.address(database) + "#A", serverOptions()));
  };
  EXPECT_THAT(troubleIn("nowhere"), HasSubstr("database \"nowhere\" does not exist"));
  server.sql("CREATE DATABASE empty");
  EXPECT_THAT(troubleIn("empty"), HasSubstr("`depcalc server init`"));
  EXPECT_TRUE(initServer(server.address("empty")));
  EXPECT_FALSE(initServer(server.address("empty")));
  EXPECT_THAT(troubleIn("empty"), HasSubstr("does not exist, or you have no right"));
  server.sql("INSERT INTO depcalc.schema_version (version) VALUES (1000)", "empty");
  EXPECT_THAT(troubleIn("empty"), HasSubstr("a newer version of the program made"));
  EXPECT_THROW(initServer(server.address("empty")), FileTrouble);
  server.sql("CREATE DATABASE latin ENCODING 'LATIN1' LOCALE 'C' TEMPLATE template0");
  EXPECT_THAT(troubleIn("latin"), HasSubstr("encoding UTF8"));
}

}  // namespace
}  // namespace depcalc
