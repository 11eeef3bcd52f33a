// The desktop program killed at random moments, and two programs on one company file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <iostream>
#include <random>
#include <vector>

#include "DepCalc/asset_store.h"
#include "desktop/host/backups.h"
#include "desktop/host/stored_companies.h"
#include "tests/support/company_lock.h"
#include "tests/support/effort.h"

namespace depcalc::testing {
namespace {

using ::testing::HasSubstr;
using Ids = std::vector<std::string>;

/// What the driver said: how far it came for certain, and what it had begun beyond that.
struct Said {
  explicit Said(const QByteArray& output, Ids before) : certain(std::move(before)) {
    for (const QByteArray& line : output.left(output.lastIndexOf('\n') + 1).split('\n')) {
      const std::string id = line.mid(line.indexOf(' ') + 1).toStdString();
      if (line.startsWith("saving") || line.startsWith("deleting")) {
        possible = certain;
        std::erase(possible, id);
        if (line.startsWith("saving")) possible.push_back(id);
        cut_short = true;
      } else if (line.startsWith("saved") || line.startsWith("deleted")) {
        certain = possible;
        ++acknowledged;
        cut_short = false;
      }
    }
    if (!cut_short) possible = certain;
  }

  Ids certain;
  Ids possible;
  int acknowledged = 0;
  bool cut_short = false;
};

class DesktopCrash : public ::testing::Test {
 protected:
  DesktopCrash() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    // What is killed cannot free anything.
    environment.insert("ASAN_OPTIONS", "detect_leaks=0");
    environment.insert("XDG_CONFIG_HOME", directory_.filePath("config"));
    environment.insert("XDG_DATA_HOME", directory_.filePath("data"));
    for (QProcess* process : {&first_, &second_}) process->setProcessEnvironment(environment);
    files_.create(company_.toStdString(), {"Sample Joinery", 4})->close();
  }
  ~DesktopCrash() override {
    for (QProcess* process : {&first_, &second_}) {
      process->kill();
      process->waitForFinished();
    }
  }

  void startDriver(QProcess& process, unsigned seed) {
    process.start(DEPCALC_CRASH_DRIVER, {company_, directory_.path(), QString::number(seed)});
    ASSERT_TRUE(process.waitForStarted());
  }
  /// The desktop program as it is, until it holds the file.
  void startDesktop(QProcess& process) {
    process.start(DEPCALC_DESKTOP, {company_});
    ASSERT_TRUE(process.waitForStarted());
    awaitHolder("depcalc-desktop");
  }
  void awaitHolder(const char* name) {
    const auto process = static_cast<pid_t>(first_.processId());
    ASSERT_TRUE(testing_support::comesToHold(process, company_.toStdString()));
    ASSERT_THAT(problem(), HasSubstr(name));
  }
  /// The window opens no file that the first program holds, and its box says who does.
  void expectRefused(const char* holder) {
    startDriver(second_, 1);
    ASSERT_TRUE(second_.waitForFinished(20'000));
    const QByteArray said = second_.readAllStandardOutput();
    EXPECT_THAT(said.toStdString(), HasSubstr(std::string("in use by ") + holder + " (process " +
                                              std::to_string(first_.processId()) + ")"));
    EXPECT_THAT(said.toStdString(), HasSubstr("refused"));
  }
  static void killNow(QProcess& process) {
    ::kill(static_cast<pid_t>(process.processId()), SIGKILL);
    process.waitForFinished();
  }

  /// Why the file cannot be opened; "" where it can.
  std::string problem() {
    try {
      files_.open(company_.toStdString())->close();
    } catch (const desktop::CompanyFileError& error) {
      return error.what();
    }
    return {};
  }

  /// The assets in the file; each is looked at for being what the driver entered, all of it.
  Ids assets() {
    const auto company = files_.open(company_.toStdString());
    StoreState state;
    state.m_orvcf = company->file();
    AssetStore store(state, [] { return Date::strict(2024, 6, 15); });
    store.open();
    Ids found;
    const auto count = state.m_orvcf->OpenTable(asset_table_name)->Count();
    for (std::int16_t i = 1; i < count; ++i) {
      const CalculateDepPtr asset = store.ReadData(i);
      const std::string id = asset->AssetID();
      const long number = std::atol(id.substr(2).c_str());
      EXPECT_EQ(asset->AssetBasis(), Currency::fromTicks((number + 1) * 10'000)) << id;
      EXPECT_EQ(asset->DepRecovery(), 1 + number % 50) << id;
      found.push_back(id);
    }
    store.ReadTableInfo(state.StartYr, state.NumYrs, state.NumAssets, state.FYEnd);
    EXPECT_EQ(state.NumAssets, static_cast<std::int16_t>(found.size()));
    company->close();
    return found;
  }

  QTemporaryDir directory_;
  QString company_ = directory_.filePath("joinery.company");
  desktop::StoredCompanies files_{[] { return Date::strict(2024, 6, 15); }};
  QProcess first_;
  QProcess second_;
};

TEST_F(DesktopCrash, LosesNothingAcknowledgedAndOpensAgainAtOnce) {
  const int kills = testing_support::Effort{.usual = 20, .in_long_run = 250}.times();
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  Ids before;
  int acknowledged = 0;
  int cut_short = 0;
  for (int i = 0; i < kills; ++i) {
    startDriver(first_, static_cast<unsigned>(random()));
    // Every fourth is killed somewhere on its way to the first step.
    QByteArray output;
    if (i % 4 != 0) {
      while (!output.contains("ready") && first_.waitForReadyRead(20'000))
        output += first_.readAll();
      ASSERT_TRUE(output.contains("ready")) << "seed " << seed << ", kill " << i;
    }
    QThread::usleep(random() % 250'000);
    killNow(first_);
    output += first_.readAll();
    ASSERT_EQ(problem(), "") << "seed " << seed << ", kill " << i;
    const Said said(output, before);
    before = assets();
    EXPECT_TRUE(before == said.certain || before == said.possible)
        << "seed " << seed << ", kill " << i << '\n'
        << output.right(300).toStdString() << ::testing::PrintToString(before);
    ASSERT_FALSE(HasFailure());
    acknowledged += said.acknowledged;
    cut_short += said.cut_short ? 1 : 0;
  }
  std::cout << acknowledged << " changes acknowledged, " << cut_short << " cut short\n";
  EXPECT_GT(acknowledged, 0);
  EXPECT_GT(cut_short, 0) << "the kills came in time";
}

TEST_F(DesktopCrash, TheStateBeforeTheFirstChangeIsABackupWhateverHappens) {
  for (unsigned seed = 1; seed <= 2; ++seed) {
    startDriver(first_, seed);
    QByteArray output;
    while (!output.contains("saved") && first_.waitForReadyRead(20'000)) output += first_.readAll();
    killNow(first_);
  }
  const desktop::Backups backups(directory_.path() + "/backups");
  EXPECT_EQ(backups.of(company_).size(), 2);
}

TEST_F(DesktopCrash, ACommandIsRefusedWhileTheDesktopHoldsTheFile) {
  startDesktop(first_);
  second_.start(DEPCALC_COMMAND, {"list", company_});
  ASSERT_TRUE(second_.waitForFinished());
  EXPECT_EQ(second_.exitCode(), 4);
  const std::string said = second_.readAllStandardError().toStdString();
  EXPECT_THAT(said, HasSubstr(company_.toStdString()));
  EXPECT_THAT(said, HasSubstr("in use by depcalc-desktop (process " +
                              std::to_string(first_.processId()) + ")"));
  killNow(first_);
  second_.start(DEPCALC_COMMAND, {"list", company_});
  ASSERT_TRUE(second_.waitForFinished());
  EXPECT_EQ(second_.exitCode(), 0) << second_.readAllStandardError().toStdString();
}

TEST_F(DesktopCrash, TheDesktopIsRefusedWhileACommandHoldsTheFile) {
  first_.start(DEPCALC_COMMAND, {"import", company_, "-"});  // waits for its input
  ASSERT_TRUE(first_.waitForStarted());
  awaitHolder("depcalc");
  expectRefused("depcalc");
  killNow(first_);
  EXPECT_EQ(problem(), "");
}

TEST_F(DesktopCrash, TwoDesktopsDoNotShareAFile) {
  startDesktop(first_);
  expectRefused("depcalc-desktop");
  killNow(first_);
  startDriver(second_, 1);
  ASSERT_TRUE(second_.waitForReadyRead(20'000));
  EXPECT_THAT(second_.readAllStandardOutput().toStdString(), HasSubstr("ready"));
}

}  // namespace
}  // namespace depcalc::testing
