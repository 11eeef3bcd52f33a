#include "host/sqlite/company_file.h"

#include <new>
#include <utility>

#include "host/fiscal_year.h"
#include "host/sqlite/company_contents.h"
#include "host/sqlite/company_path.h"
#include "host/sqlite/company_row.h"
#include "host/sqlite/open_database.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;

/// Trouble met while a file is opened or made is the answer, not an error.
template <typename Opening>
SqliteCompanyFile::Opened asAnswer(const std::string& path, Opening opening) {
  try {
    return opening();
  } catch (FileTrouble& trouble) {
    return std::move(trouble);
  } catch (const std::bad_alloc&) {
    return FileTrouble(Kind::failed, path + " cannot be opened: out of memory.");
  }
}

}  // namespace

SqliteCompanyFile::SqliteCompanyFile(std::shared_ptr<CompanyContents> contents,
                                     std::function<Date()> today)
    : contents_(std::move(contents)),
      today_(std::move(today)),
      picture_(std::make_shared<const HostPicture>()) {}

SqliteCompanyFile::~SqliteCompanyFile() { contents_->close(); }

SqliteCompanyFile::Opened SqliteCompanyFile::create(const std::string& path,
                                                    const CompanyInfo& info,
                                                    const Options& options) {
  return asAnswer(path, [&]() -> Opened {
    if (info.first_month < 1 || info.first_month > 12) throw RuntimeError::invalidCall();
    const std::string place = resolvedNewPath(path);
    return over(place, options, makeDatabase(place, options.vfs, [&info](Database& database) {
                  writeNewCompany(database, info);
                }));
  });
}

SqliteCompanyFile::Opened SqliteCompanyFile::open(const std::string& path, const Options& options) {
  return asAnswer(path, [&] { return over(resolvedCompanyPath(path), options, std::nullopt); });
}

SqliteCompanyFile::Opened SqliteCompanyFile::over(const std::string& path, const Options& options,
                                                  std::optional<CompanyLock> held) {
  const OpeningMode mode{options.writable, options.vfs};
  auto contents = std::make_shared<CompanyContents>(openDatabase(path, mode, std::move(held)),
                                                    options.vfs, options.change_failed);
  return std::shared_ptr<SqliteCompanyFile>(
      new SqliteCompanyFile(std::move(contents), options.today));
}

std::shared_ptr<HostTable> SqliteCompanyFile::OpenTable(std::string_view name) {
  contents_->requireOpen();
  if (name.empty()) throw RuntimeError::invalidCall();
  // The records' gate is the contents: whoever has the table keeps both.
  return tableOver({contents_, contents_->table(name).get()});
}

Date SqliteCompanyFile::FiscalYearStart() const {
  return currentFiscalYearStart(contents_->info().first_month, today_());
}

bool SqliteCompanyFile::IsMultiUser() const { return contents_->info().multi_user; }

std::shared_ptr<const HostPicture> SqliteCompanyFile::PalettePicture() const {
  contents_->requireOpen();
  return picture_;
}

HostUnitOfWork* SqliteCompanyFile::unitOfWork() { return contents_.get(); }

const CompanyInfo& SqliteCompanyFile::info() const { return contents_->info(); }

void SqliteCompanyFile::info(const CompanyInfo& info) { contents_->info(info); }

std::vector<std::string> SqliteCompanyFile::tableNames() const { return contents_->tableNames(); }

void SqliteCompanyFile::refuseChanges() noexcept { contents_->refuseChanges(); }

const std::string& SqliteCompanyFile::path() const { return contents_->path(); }

std::optional<FileTrouble> SqliteCompanyFile::saveCopy(const std::string& path) {
  const auto saved = asAnswer(path, [&]() -> Opened {
    contents_->saveCopy(path);
    return std::shared_ptr<SqliteCompanyFile>();
  });
  const auto* trouble = std::get_if<FileTrouble>(&saved);
  return trouble == nullptr ? std::nullopt : std::optional(*trouble);
}

std::optional<FileTrouble> SqliteCompanyFile::lost() const { return contents_->lost(); }

std::optional<FileTrouble> SqliteCompanyFile::takeTrouble() { return contents_->takeTrouble(); }

void SqliteCompanyFile::close() {
  if (!contents_->isOpen()) return;
  listeners_.raise(&HostCompanyFileEvents::CompanyFileClosing);
  contents_->close();
}

}  // namespace depcalc
