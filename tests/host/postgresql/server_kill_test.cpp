// The server ends at any moment: what was acknowledged is there, once, and nothing by halves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <random>
#include <thread>

#include "tests/host/postgresql/server_fixture.h"

namespace depcalc {
namespace {

using testing::IsEmpty;
using namespace testing_support;

class ServerKills : public OnServer {
 protected:
  /// One user's next step; what it reported.
  Reports step(const ServerFile& file) {
    const std::string id = "K" + std::to_string(++steps_) + "-";
    const std::int32_t assets = file->OpenTable("ZEM:DepCalc")->Count() - 1;
    switch (random_() % 3) {
      case 0:
        return saveAtOnce(file, 1, id);
      case 1:
        return saveAtOnce(file, 20, id);
      default:
        return assets > 15 ? removeLast(file, static_cast<int>(random_() % 10) + 1)
                           : saveAtOnce(file, 5, id);
    }
  }
  static Reports removeLast(const ServerFile& file, int count) {
    return reportsOf([&] {
      const auto table = file->OpenTable("ZEM:DepCalc");
      file->unitOfWork()->begin();
      for (; count > 0; --count) {
        table->Item(static_cast<std::int16_t>(table->Count() - 1))->Delete();
      }
      file->unitOfWork()->end();
    });
  }
  const unsigned seed_ = std::random_device{}();
  std::mt19937 random_{seed_};
  int steps_ = 0;
};

TEST_F(ServerKills, LoseNothingAcknowledgedAndSaveNothingTwice) {
  constexpr int kills = 200;
  std::cout << "seed " << seed_ << '\n';
  int acknowledged = 0;
  int given_up = 0;
  int hit = 0;
  for (int kill = 0; kill < kills; ++kill) {
    // Half of the users wait for the server to come back, the others give up at once.
    const bool patient = kill % 2 == 0;
    PostgresCompanyFile::Options options = serverOptions();
    options.patience = std::chrono::milliseconds(patient ? 20'000 : 0);
    const ServerFile file = openOf(PostgresCompanyFile::open(address_, options));
    std::atomic<bool> over = false;
    std::atomic<bool> doubtful = false;
    // Two of three who give up meet no server, however slow they are; the others may find it back.
    const bool stays_away = !patient && kill % 3 != 0;
    std::thread killer([&, wait = random_() % 20'000] {
      ::usleep(static_cast<useconds_t>(wait));
      ::kill(testServer().process(), SIGQUIT);
      testServer().stop("immediate");
      for (int i = 0; stays_away && !doubtful && i < 2'000; ++i) ::usleep(1'000);
      testServer().start();
      over = true;
    });
    TableContent before = contentOf(*file);
    TableContent after = before;
    while (!over && !doubtful) {
      before = contentOf(*file);
      file->unitOfWork()->begin();  // what the step makes of it is seen before it is written
      const Reports reports = step(file);
      after = contentOf(*file);
      EXPECT_THAT(reports, IsEmpty());
      try {
        file->unitOfWork()->end();
        ++acknowledged;
        EXPECT_TRUE(contentOf(*file) == after);
      } catch (const FileTrouble&) {
        doubtful = true;
        ++given_up;
      }
      hit += over ? 1 : 0;
    }
    killer.join();
    file->close();
    const TableContent now = reread();
    EXPECT_TRUE(now == after || (doubtful && now == before))
        << "seed " << seed_ << ", kill " << kill;
    EXPECT_TRUE(!patient || !doubtful) << "seed " << seed_ << ", kill " << kill;
    ASSERT_FALSE(HasFailure());
  }
  std::cout << acknowledged << " steps acknowledged, " << given_up << " given up\n";
  EXPECT_GT(given_up, kills / 4) << "the kills came in time";
  EXPECT_GT(hit, kills / 4) << "the kills came in time";
}

}  // namespace
}  // namespace depcalc
