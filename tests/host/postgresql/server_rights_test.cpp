// Who may read and who may change which company.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/postgresql/server_fixture.h"

namespace depcalc {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace testing_support;
using Kind = FileTrouble::Kind;

class ServerRights : public OnServer {
 protected:
  ServerRights() { sql("CREATE ROLE " + role_ + " LOGIN NOSUPERUSER NOCREATEDB NOCREATEROLE"); }

  /// The company's address for the role.
  [[nodiscard]] std::string addressOf(const std::string& address) const {
    return testServer().address("postgres", role_) + address.substr(address.find('#'));
  }
  void give(ServerRight right) { giveRight(address_, role_, right); }
  void giveAll(ServerRight right) { giveRight(testServer().address(), role_, right); }
  PostgresCompanyFile::Opened tried(bool writable = true) {
    PostgresCompanyFile::Options options = serverOptions();
    options.opening.writable = writable;
    return PostgresCompanyFile::open(addressOf(address_), options);
  }

  const std::string role_ = "role_" + address_.substr(address_.find("%20") + 3);
};

TEST_F(ServerRights, AreNoneUnlessTheyAreGiven) {
  EXPECT_THAT(troubleOf(tried()), HasSubstr("permission denied"));
  EXPECT_THROW(giveRight(address_, "nobody_knows", ServerRight::read), FileTrouble);
}

TEST_F(ServerRights, OfAReaderAreToReadAndToShareThatWithReaders) {
  give(ServerRight::read);
  EXPECT_EQ(std::get<FileTrouble>(tried()).kind(), Kind::read_only);
  EXPECT_THAT(troubleOf(tried()), HasSubstr("depcalc server grant"));
  const ServerFile one = openOf(tried(false));
  const ServerFile two = openOf(tried(false));
  EXPECT_TRUE(contentOf(*one) == before_);
  EXPECT_TRUE(contentOf(*two) == before_);
  EXPECT_THAT(save(one), testing::Each(HasSubstr("opened for reading")));
  EXPECT_THAT(troubleOf(PostgresCompanyFile::open(address_, serverOptions())),
              HasSubstr("is in use by " + role_ + " (test"));
}

TEST_F(ServerRights, OfAnEditorAreToOneCompany) {
  give(ServerRight::edit);
  const std::string other = newAddress();
  openOf(PostgresCompanyFile::create(other, {.name = "Other"}, serverOptions()))->close();
  {
    const ServerFile file = openOf(tried());
    EXPECT_THAT(save(file), IsEmpty());
  }
  EXPECT_EQ(reread().size(), before_.size() + 1);
  EXPECT_THAT(troubleOf(PostgresCompanyFile::open(addressOf(other), serverOptions())),
              HasSubstr("you have no right to read it"));
  EXPECT_THAT(troubleOf(PostgresCompanyFile::create(addressOf(newAddress()), {.name = "New"},
                                                    serverOptions())),
              HasSubstr("row-level security"));
  EXPECT_THAT(companiesOf(testServer().address("postgres", role_)), testing::SizeIs(1));
  // Nor by SQL, past the program.
  EXPECT_EQ(sql("SET ROLE " + role_ + "; SELECT DISTINCT company FROM depcalc.asset"),
            "Company " + address_.substr(address_.find("%20") + 3) + "\n");
  EXPECT_EQ(sql("SET ROLE " + role_ +
                "; WITH u AS (UPDATE depcalc.company SET revision = revision WHERE filed_as <> " +
                filed() + " RETURNING 1) SELECT count(*) FROM u"),
            "0\n");
  EXPECT_THROW(sql("SET ROLE " + role_ + "; INSERT INTO depcalc.permission VALUES (NULL, '" +
                   role_ + "', true)"),
               std::runtime_error);
}

TEST_F(ServerRights, ToAllCompaniesAllowNewOnes) {
  giveAll(ServerRight::edit);
  const std::string address = addressOf(newAddress());
  const ServerFile file =
      openOf(PostgresCompanyFile::create(address, {.name = "New"}, serverOptions()));
  EXPECT_THAT(save(file), IsEmpty());
  file->close();
  EXPECT_EQ(troubleOf(tried()), "");
  giveAll(ServerRight::none);
  EXPECT_THAT(troubleOf(tried()), HasSubstr("you have no right to read it"));
}

TEST_F(ServerRights, TakenAwayWhileACompanyIsOpenAreSaidAndLoseNothing) {
  struct Revoked {
    std::string sql;
    const char* complaint;
  };
  const Revoked cases[] = {
      {"UPDATE depcalc.permission SET may_edit = false WHERE role_name = '" + role_ + "'",
       "your right to change it was taken away"},
      {"DELETE FROM depcalc.permission WHERE role_name = '" + role_ + "'",
       "you have no right to read it any more"},
      {"REVOKE INSERT, UPDATE ON depcalc.record FROM " + role_,
       "permission denied for table record"},
  };
  for (const Revoked& revoked : cases) {
    give(ServerRight::edit);
    PostgresCompanyFile::Options options = serverOptions();
    int asked = 0;
    options.opening.change_failed = [&](const FailedChange& change) -> FailedChangeAnswer {
      EXPECT_EQ(change.in_file, FailedChange::InFile::nothing);
      EXPECT_THAT(change.trouble.description(), HasSubstr(revoked.complaint));
      if (++asked > 1) return GiveUp();
      give(ServerRight::edit);
      return TryAgain();
    };
    const ServerFile file = openOf(PostgresCompanyFile::open(addressOf(address_), options));
    const std::size_t assets = contentOf(*file).size();
    sql(revoked.sql);
    EXPECT_THAT(save(file), IsEmpty()) << "given back, it goes on";
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(contentOf(*file).size(), assets + 1);
    file->close();
    EXPECT_EQ(reread().size(), assets + 1);
  }
}

}  // namespace
}  // namespace depcalc
