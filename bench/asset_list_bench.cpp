// asset_list_bench FILE.company: the list of assets beside the page: filling it, each key of a
// search, and another order, all of them up to the paint. QT_QPA_PLATFORM says where.
#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

#include "desktop/workspace/assets_panel.h"
#include "host/sqlite/company_file.h"
#include "reports/reading/register_reading.h"

namespace {

using namespace depcalc;

Date today() { return Date::strict(2024, 6, 30); }

double milliseconds(const std::function<void()>& work) {
  const auto began = std::chrono::steady_clock::now();
  work();
  QApplication::processEvents();
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - began;
  return took.count();
}

std::shared_ptr<SqliteCompanyFile> opened(const std::string& path) {
  const auto file = SqliteCompanyFile::open(path, {.today = today, .writable = false, .vfs = {}});
  if (const auto* trouble = std::get_if<FileTrouble>(&file)) {
    std::fprintf(stderr, "%s\n", trouble->description().c_str());
    std::exit(3);
  }
  return std::get<std::shared_ptr<SqliteCompanyFile>>(file);
}

/// The slowest key of each search, typed and taken back.
double slowestKey(QLineEdit& search) {
  double slowest = 0;
  for (const char* const text : {"delivery truck a3", "a0", "warehouse 31", "zzz", "SN-000 031"}) {
    const QString whole = QString::fromLatin1(text);
    for (qsizetype length = 1; length <= whole.size(); ++length) {
      slowest = std::max(slowest, milliseconds([&] { search.setText(whole.left(length)); }));
    }
    slowest = std::max(slowest, milliseconds([&] { search.clear(); }));
  }
  return slowest;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2) return 2;
  const auto file = opened(argv[1]);
  desktop::AssetsPanel panel({}, nullptr);
  panel.resize(300, 800);
  panel.show();
  QApplication::processEvents();
  std::shared_ptr<const RegisterOfAssets> assets;
  const double reading = milliseconds([&] {
    assets = std::make_shared<const RegisterOfAssets>(readRegisterOfAssets(file, "", today()));
  });
  const double filling = milliseconds([&] { panel.showAssets(assets); });
  std::printf("  %zu assets: read in %.1f ms, listed in %.1f ms\n", assets->assets.size(), reading,
              filling);
  std::printf("  a key of a search, the slowest: %.1f ms\n",
              slowestKey(*panel.findChild<QLineEdit*>()));
  auto& table = *panel.findChild<QTableView*>(QStringLiteral("AssetList"));
  double slowest = 0;
  for (int column = 0; column < desktop::asset_column_count; ++column) {
    slowest =
        std::max(slowest, milliseconds([&] { table.sortByColumn(column, Qt::DescendingOrder); }));
  }
  std::printf("  another order, the slowest: %.1f ms\n", slowest);
}
