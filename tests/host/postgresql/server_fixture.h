// A company on the test's server, and what a test asks of it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "DepCalc/asset_store.h"
#include "host/unit_of_work.h"
#include "tests/DepCalc/store_pair.h"
#include "tests/host/postgresql/test_server.h"

namespace depcalc::testing_support {

using Reports = std::vector<std::string>;

/// What was reported while `work` was done, or what it threw.
inline Reports reportsOf(const std::function<void()>& work) {
  Reports reports;
  const ErrorReportHook hook([&](const ErrorReport& report) { reports.push_back(report.text()); });
  try {
    work();
  } catch (const std::exception& error) {
    reports.emplace_back(error.what());
  }
  return reports;
}

/// Saves new assets through the store; answers what it reported.
inline Reports save(const std::shared_ptr<HostCompanyFile>& file, int assets = 1,
                    const std::string& id = "A") {
  return reportsOf([&] {
    StoreState state;
    state.m_orvcf = file;
    AssetStore store(state, [] { return Date::carrying(2024, 6, 1); });
    (void)store.open();
    for (int i = 0; i < assets; ++i) {
      state.CurrentRecord = newAsset({.id = id + std::to_string(i)});
      std::int16_t index = 0;
      store.WriteData(index);
    }
  });
}

/// All of them in one unit of work; the answer is what that reported, or threw.
inline Reports saveAtOnce(const std::shared_ptr<HostCompanyFile>& file, int assets,
                          const std::string& id) {
  file->unitOfWork()->begin();
  Reports reports = save(file, assets, id);
  for (std::string& report : reportsOf([&file] { file->unitOfWork()->end(); })) {
    reports.push_back(std::move(report));
  }
  return reports;
}

/// A company of two assets, which no other test has.
class OnServer : public testing::Test {
 protected:
  OnServer() {
    const ServerFile made =
        openOf(PostgresCompanyFile::create(address_, {.name = "Acme"}, serverOptions()));
    EXPECT_TRUE(saveAtOnce(made, 2, "A").empty());
    before_ = contentOf(*made);
    made->close();
  }

  ServerFile open(const PostgresCompanyFile::Options& options = serverOptions()) {
    return openOf(PostgresCompanyFile::open(address_, options));
  }
  TableContent reread() { return contentOf(*open()); }
  /// The number of the company's own rows in a table of the schema, or what else SQL says.
  std::string sql(const std::string& commands) { return testServer().sql(commands); }
  /// The name that the company is filed under, for SQL.
  [[nodiscard]] std::string filed() const {
    return "'Company " + address_.substr(address_.find("%20") + 3) + "'";
  }

  std::string address_ = newAddress();
  TableContent before_;
};

}  // namespace depcalc::testing_support
