// A host that keeps its company file in memory.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "host/host.h"
#include "host/listeners.h"

namespace depcalc {

/// A company file in memory, open until it is closed. Tables live as long as the object and are
/// there again after `reopen`.
class MemoryCompanyFile final : public HostCompanyFile {
 public:
  enum class Units { none, offered };

  /// With `Units::none` the file is a host with the plain operations only.
  explicit MemoryCompanyFile(Date fiscal_year_start, Units units = Units::none);
  ~MemoryCompanyFile() override;

  std::shared_ptr<HostTable> OpenTable(std::string_view name) override;
  [[nodiscard]] Date FiscalYearStart() const override;
  [[nodiscard]] bool IsMultiUser() const override;
  [[nodiscard]] std::shared_ptr<const HostPicture> PalettePicture() const override;
  [[nodiscard]] HostUnitOfWork* unitOfWork() override;
  void advise(HostCompanyFileEvents& listener) override { listeners_.add(listener); }
  void unadvise(HostCompanyFileEvents& listener) override { listeners_.remove(listener); }

  void fiscalYearStart(Date day) { fiscal_year_start_ = day; }
  void multiUser(bool on) { multi_user_ = on; }
  void palettePicture(HostPicture picture);

  /// Raises CompanyFileClosing, then closes.
  void close();
  void reopen();

 private:
  struct Session;
  class Storage;
  class UnitOfWork;

  std::shared_ptr<Session> session_;
  Date fiscal_year_start_;
  bool multi_user_ = false;
  std::shared_ptr<const HostPicture> picture_;
  std::unique_ptr<UnitOfWork> units_;
  std::map<std::string, std::shared_ptr<Storage>, std::less<>> tables_;
  Listeners<HostCompanyFileEvents> listeners_;
};

/// The application around it. Starts without a company file.
class MemoryApplication final : public HostApplication {
 public:
  explicit MemoryApplication(std::string start_directory = "")
      : start_directory_(std::move(start_directory)) {}

  [[nodiscard]] bool IsCompanyFileOpen() const override { return file_ != nullptr; }
  [[nodiscard]] std::shared_ptr<HostCompanyFile> CompanyFile() const override { return file_; }
  [[nodiscard]] std::string StartDirectory() const override { return start_directory_; }
  void advise(HostApplicationEvents& listener) override { listeners_.add(listener); }
  void unadvise(HostApplicationEvents& listener) override { listeners_.remove(listener); }

  /// Makes `file` the open company file and raises CompanyFileOpened.
  void open(std::shared_ptr<MemoryCompanyFile> file);
  /// Closes the open company file, if there is one.
  void close();

 private:
  std::string start_directory_;
  std::shared_ptr<MemoryCompanyFile> file_;
  Listeners<HostApplicationEvents> listeners_;
};

}  // namespace depcalc
