#include "host/places/company_places.h"

#include <unistd.h>

#include <filesystem>
#include <utility>
#include <variant>

#include "host/postgresql/company_file.h"
#include "host/postgresql/server_address.h"
#include "host/sqlite/company_file.h"
#include "host/sqlite/company_path.h"
#include "host/stored/copied_tables.h"

namespace depcalc {
namespace {

namespace fs = std::filesystem;
using FilePtr = std::shared_ptr<StoredCompanyFile>;

template <typename Opened>
OpenedCompanyFile anywhere(const Opened& opened) {
  if (const auto* trouble = std::get_if<FileTrouble>(&opened)) return *trouble;
  return FilePtr(std::get<0>(opened));
}

FilePtr openOf(const OpenedCompanyFile& opened) {
  if (const auto* trouble = std::get_if<FileTrouble>(&opened)) throw FileTrouble(*trouble);
  return std::get<FilePtr>(opened);
}

SqliteCompanyFile::Options fileOptions(const PlaceOptions& options) {
  return {.today = options.opening.today,
          .writable = options.opening.writable,
          .vfs = {},
          .change_failed = options.opening.change_failed};
}

PostgresCompanyFile::Options serverOptions(const PlaceOptions& options) {
  PostgresCompanyFile::Options server;
  server.opening = options.opening;
  server.program = options.program;
  server.make_copy = [options](const std::string& place, StoredCompanyFile& from) {
    return openOf(createCopy(place, from, options));
  };
  return server;
}

/// A file that is filled before it gets its name.
class FileUnderWay {
 public:
  explicit FileUnderWay(const std::string& place) {
    const fs::path path(place);
    path_ = (path.parent_path() /
             ("." + path.filename().string() + ".filling-" + std::to_string(::getpid())))
                .string();
    remove();
  }
  ~FileUnderWay() { remove(); }
  FileUnderWay(const FileUnderWay&) = delete;
  FileUnderWay& operator=(const FileUnderWay&) = delete;
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  void remove() const {
    std::error_code ignored;
    fs::remove(path_, ignored);
    fs::remove(path_ + "-journal", ignored);
  }

  std::string path_;
};

/// The trouble that a file under way had, as that of the file that it was to become.
FileTrouble named(const FileTrouble& trouble, const std::string& under_way,
                  const std::string& place) {
  std::string text = trouble.description();
  if (const std::size_t at = text.find(under_way); at != std::string::npos) {
    text.replace(at, under_way.size(), place);
  }
  return {trouble.kind(), text, trouble.details()};
}

void fillFile(const std::string& path, const std::string& place, StoredCompanyFile& from,
              SqliteCompanyFile::Options options) {
  options.change_failed = {};  // until it is in its place, giving up loses nothing
  const FilePtr file = openOf(anywhere(SqliteCompanyFile::create(path, from.info(), options)));
  copyCompany(from, *file);
  const auto trouble = file->saveCopy(place);
  file->close();
  if (trouble) throw FileTrouble(*trouble);
}

OpenedCompanyFile createFileCopy(const std::string& path, StoredCompanyFile& from,
                                 const PlaceOptions& options) {
  try {
    const std::string place = resolvedNewPath(path);
    const FileUnderWay file(place);
    try {
      fillFile(file.path(), place, from, fileOptions(options));
    } catch (const FileTrouble& trouble) {
      return named(trouble, file.path(), place);
    }
    return anywhere(SqliteCompanyFile::open(place, fileOptions(options)));
  } catch (const FileTrouble& trouble) {
    return FileTrouble(trouble);
  }
}

}  // namespace

PlaceOptions placesOn(Date today, bool writable) {
  PlaceOptions options;
  options.opening.today = [today] { return today; };
  options.opening.writable = writable;
  return options;
}

std::string nameOfPlace(const std::string& place) {
  return isServerAddress(place) ? ServerAddress::of(place).company
                                : fs::path(place).stem().string();
}

OpenedCompanyFile openCompany(const std::string& place, const PlaceOptions& options) {
  return isServerAddress(place) ? anywhere(PostgresCompanyFile::open(place, serverOptions(options)))
                                : anywhere(SqliteCompanyFile::open(place, fileOptions(options)));
}

OpenedCompanyFile createCompany(const std::string& place, const CompanyInfo& info,
                                const PlaceOptions& options) {
  return isServerAddress(place)
             ? anywhere(PostgresCompanyFile::create(place, info, serverOptions(options)))
             : anywhere(SqliteCompanyFile::create(place, info, fileOptions(options)));
}

OpenedCompanyFile createCopy(const std::string& place, StoredCompanyFile& from,
                             const PlaceOptions& options) {
  if (!isServerAddress(place)) return createFileCopy(place, from, options);
  return anywhere(
      PostgresCompanyFile::create(place, from.info(), serverOptions(options),
                                  [&from](StoredCompanyFile& made) { copyCompany(from, made); }));
}

}  // namespace depcalc
