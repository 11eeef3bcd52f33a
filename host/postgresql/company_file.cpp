#include "host/postgresql/company_file.h"

#include <new>
#include <utility>

#include "host/fiscal_year.h"
#include "host/postgresql/server_contents.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;
using File = std::shared_ptr<PostgresCompanyFile>;

/// Trouble met while a company is opened or made is the answer, not an error.
template <typename Opening>
PostgresCompanyFile::Opened asAnswer(Opening opening) {
  try {
    return opening();
  } catch (const FileTrouble& trouble) {
    return FileTrouble(trouble);
  } catch (const std::bad_alloc&) {
    return FileTrouble(Kind::failed, "The company cannot be opened: out of memory.");
  }
}

CompanySession sessionFor(const std::string& address, const PostgresCompanyFile::Options& options,
                          CompanySession::Purpose purpose) {
  // What is wrong with an address is said without the library.
  ServerAddress company = ServerAddress::ofCompany(address);
  return {options.libpq != nullptr ? *options.libpq : loadedLibpq(), std::move(company),
          SessionOptions{options.program, options.opening.writable, options.patience}, purpose};
}

}  // namespace

PostgresCompanyFile::PostgresCompanyFile(std::shared_ptr<ServerContents> contents,
                                         const Options& options)
    : contents_(std::move(contents)),
      today_(options.opening.today),
      picture_(std::make_shared<const HostPicture>()) {
  contents_->copiesBy([this, make_copy = options.make_copy](const std::string& path) {
    if (!make_copy) throw FileTrouble(Kind::failed, path + " cannot be made here.");
    return make_copy(path, *this);
  });
}

PostgresCompanyFile::~PostgresCompanyFile() { contents_->close(); }

PostgresCompanyFile::Opened PostgresCompanyFile::create(
    const std::string& address, const CompanyInfo& info, const Options& options,
    const std::function<void(StoredCompanyFile&)>& fill) {
  return asAnswer([&]() -> Opened {
    if (info.first_month < 1 || info.first_month > 12) throw RuntimeError::invalidCall();
    auto contents = std::make_shared<ServerContents>(
        sessionFor(address, options, CompanySession::Purpose::create),
        options.opening.change_failed, info);
    const File file(new PostgresCompanyFile(contents, options));
    contents->begin();
    if (fill) fill(*file);
    contents->end();
    return file;
  });
}

PostgresCompanyFile::Opened PostgresCompanyFile::open(const std::string& address,
                                                      const Options& options) {
  return asAnswer([&]() -> Opened {
    return File(
        new PostgresCompanyFile(std::make_shared<ServerContents>(
                                    sessionFor(address, options, CompanySession::Purpose::open),
                                    options.opening.change_failed),
                                options));
  });
}

std::shared_ptr<HostTable> PostgresCompanyFile::OpenTable(std::string_view name) {
  contents_->requireOpen();
  if (name.empty()) throw RuntimeError::invalidCall();
  // The records' gate is the contents: whoever has the table keeps both.
  return tableOver({contents_, contents_->table(name).get()});
}

Date PostgresCompanyFile::FiscalYearStart() const {
  return currentFiscalYearStart(contents_->info().first_month, today_());
}

bool PostgresCompanyFile::IsMultiUser() const { return contents_->info().multi_user; }

std::shared_ptr<const HostPicture> PostgresCompanyFile::PalettePicture() const {
  contents_->requireOpen();
  return picture_;
}

HostUnitOfWork* PostgresCompanyFile::unitOfWork() { return contents_.get(); }

const std::string& PostgresCompanyFile::path() const { return contents_->path(); }

const CompanyInfo& PostgresCompanyFile::info() const { return contents_->info(); }

void PostgresCompanyFile::info(const CompanyInfo& info) { contents_->info(info); }

std::vector<std::string> PostgresCompanyFile::tableNames() const { return contents_->tableNames(); }

void PostgresCompanyFile::refuseChanges() noexcept { contents_->refuseChanges(); }

std::optional<FileTrouble> PostgresCompanyFile::takeTrouble() { return contents_->takeTrouble(); }

std::optional<FileTrouble> PostgresCompanyFile::saveCopy(const std::string& path) {
  const auto saved = asAnswer([&]() -> Opened {
    contents_->saveCopy(path);
    return File();
  });
  const auto* trouble = std::get_if<FileTrouble>(&saved);
  return trouble == nullptr ? std::nullopt : std::optional(*trouble);
}

std::optional<FileTrouble> PostgresCompanyFile::lost() const { return contents_->lost(); }

void PostgresCompanyFile::close() {
  if (!contents_->isOpen()) return;
  listeners_.raise(&HostCompanyFileEvents::CompanyFileClosing);
  contents_->close();
}

}  // namespace depcalc
