#include "host/sqlite/company_path.h"

#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <new>
#include <system_error>

namespace depcalc {
namespace {

namespace fs = std::filesystem;
using Kind = FileTrouble::Kind;

std::string inWords(const std::error_code& error) { return error.message(); }

std::string absolutePath(const std::string& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  return error ? path : absolute.lexically_normal().string();
}

using Header = std::array<unsigned char, 100>;

std::string_view textOf(const Header& header) {
  return {reinterpret_cast<const char*>(header.data()), header.size()};
}

std::uint32_t bigEndian(std::string_view header, std::size_t at) {
  std::uint32_t number = 0;
  for (const char byte : header.substr(at, 4)) {
    number = number << 8U | static_cast<unsigned char>(byte);
  }
  return number;
}

struct CloseFile {
  void operator()(sqlite3_file* file) const {
    if (file->pMethods != nullptr) file->pMethods->xClose(file);
  }
};

/// The first bytes of the file; zeros where it is shorter.
Header readHeader(const std::string& path, const std::string& vfs_name) {
  sqlite3_initialize();
  sqlite3_vfs* vfs = sqlite3_vfs_find(vfs_name.empty() ? nullptr : vfs_name.c_str());
  const std::unique_ptr<const char, void (*)(const char*)> name(
      sqlite3_create_filename(path.c_str(), "", "", 0, nullptr), sqlite3_free_filename);
  if (vfs == nullptr || name == nullptr) throw std::bad_alloc();
  const auto size = static_cast<std::size_t>(vfs->szOsFile);
  const auto memory = std::make_unique<std::max_align_t[]>(size / sizeof(std::max_align_t) + 1);
  const std::unique_ptr<sqlite3_file, CloseFile> file(
      reinterpret_cast<sqlite3_file*>(memory.get()));
  Header header{};
  int code =
      vfs->xOpen(vfs, name.get(), file.get(), SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB, nullptr);
  if (code == SQLITE_OK) code = file->pMethods->xRead(file.get(), header.data(), header.size(), 0);
  if (code == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM) throw std::bad_alloc();
  if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ) {
    throw FileTrouble(Kind::failed, path + " cannot be read. Check its permissions.");
  }
  return header;
}

}  // namespace

std::string resolvedCompanyPath(const std::string& path) {
  std::error_code error;
  const std::string shown = absolutePath(path);
  const fs::path resolved = fs::canonical(path, error);
  if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
    throw FileTrouble(Kind::not_found, shown + " does not exist. Specify a company file.");
  }
  if (error) throw FileTrouble(Kind::failed, shown + " cannot be read: " + inWords(error) + ".");
  if (!fs::is_regular_file(resolved, error)) {
    throw FileTrouble(Kind::not_a_company_file,
                      shown + " is not a file. A company file is a regular file.");
  }
  return resolved.string();
}

std::string resolvedNewPath(const std::string& path) {
  std::error_code error;
  const fs::path shown = absolutePath(path);
  const fs::path directory = fs::canonical(shown.parent_path(), error);
  if (error) {
    throw FileTrouble(Kind::not_found, shown.parent_path().string() + ": " + inWords(error) +
                                           ". Create the directory first.");
  }
  const fs::path resolved = directory / shown.filename();
  if (shown.filename().empty() || fs::exists(fs::symlink_status(resolved, error))) {
    throw FileTrouble(Kind::exists, shown.string() + " already exists. Choose another name.");
  }
  return resolved.string();
}

bool beginsLikeCompanyFile(std::string_view beginning) {
  constexpr std::string_view magic("SQLite format 3\0", 16);
  constexpr std::size_t application_id = 68;
  return beginning.starts_with(magic) && beginning.size() >= application_id + 4 &&
         bigEndian(beginning, application_id) == company_application_id;
}

void requireCompanyHeader(const std::string& path, const std::string& vfs, std::int64_t newest) {
  const Header header = readHeader(path, vfs);
  if (!beginsLikeCompanyFile(textOf(header))) {
    throw FileTrouble(Kind::not_a_company_file,
                      path + " is not a company file. Create company files with depcalc.");
  }
  const std::uint32_t format = bigEndian(textOf(header), 60);
  if (format > newest) {
    throw FileTrouble(Kind::newer, path +
                                       " was written by a newer version of the program (format " +
                                       std::to_string(format) + "; this one reads up to format " +
                                       std::to_string(newest) + "). Use that version.");
  }
}

void requirePlainNeighbours(const std::string& path) {
  for (const char* ending : {"-journal", "-wal"}) {
    const std::string neighbour = path + ending;
    std::error_code error;
    const fs::file_status status = fs::symlink_status(neighbour, error);
    if (!fs::exists(status) || fs::is_regular_file(status)) continue;
    std::string message = path;
    message.append(" cannot be opened: ").append(neighbour);
    throw FileTrouble(Kind::failed, message + " beside it is not a regular file. Remove it.");
  }
}

void requireWritableDirectory(const std::string& path) {
  const std::string directory = fs::path(path).parent_path().string();
  if (::access(directory.c_str(), W_OK) == 0) return;
  throw FileTrouble(Kind::read_only, path + " cannot be written: no file can be created in " +
                                         directory + " (" + std::generic_category().message(errno) +
                                         "). The file and its directory must be writable.");
}

}  // namespace depcalc
