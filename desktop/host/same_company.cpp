#include "desktop/host/same_company.h"

#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <variant>
#include <vector>

#include "DepCalc/asset_store.h"
#include "common/trapped.h"
#include "desktop/site/desktop_site.h"
#include "host/sqlite/company_file.h"

namespace depcalc::desktop {
namespace {

using File = std::shared_ptr<SqliteCompanyFile>;

File opened(const QString& path) {
  auto result = SqliteCompanyFile::open(path.toStdString(), {todayByClock, true, {}});
  return std::holds_alternative<File>(result) ? std::get<File>(result) : nullptr;
}

bool sameFields(HostFields& one, HostFields& other) {
  const auto names = one.names();
  if (names.size() != other.names().size()) return false;
  return std::ranges::all_of(
      names, [&](const std::string& name) { return one.GetValue(name) == other.GetValue(name); });
}

/// A table that the calculator has not seen yet has no summary either.
std::int32_t assetsIn(const HostTable& table) { return std::max(0, table.Count() - 1); }

bool sameAssets(HostTable& one, HostTable& other) {
  if (assetsIn(one) != assetsIn(other)) return false;
  for (std::int32_t i = 1; i <= assetsIn(one); ++i) {
    const auto index = static_cast<std::int16_t>(i);
    const auto record = one.Item(index);
    const auto twin = other.Item(index);
    if (!sameFields(record->Fields(), twin->Fields())) return false;
  }
  return true;
}

bool sameContents(SqliteCompanyFile& one, SqliteCompanyFile& other) {
  if (!(one.info() == other.info())) return false;
  bool same = false;
  trapped("DepCalcDesktop::sameCompany", [&] {
    same = sameAssets(*one.OpenTable(asset_table_name), *other.OpenTable(asset_table_name));
  });
  return same;
}

}  // namespace

/// Copies of the copies are opened, so that these stay as they are, to the byte.
bool sameCompany(const QString& one, const QString& other) {
  const QTemporaryDir scratch;
  std::vector<File> files;
  for (const QString& path : {one, other}) {
    const QString copy = scratch.filePath(QString::number(files.size()));
    if (!QFile::copy(path, copy)) return false;
    files.push_back(opened(copy));
  }
  const bool read = files[0] != nullptr && files[1] != nullptr;
  const bool same = read && sameContents(*files[0], *files[1]);
  for (const File& file : files) {
    if (file != nullptr) file->close();
  }
  return same;
}

}  // namespace depcalc::desktop
