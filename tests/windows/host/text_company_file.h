// A company file kept as lines of text.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "host/host.h"
#include "host/listeners.h"

namespace depcalc::testing_support {

/// Every record a line: which one it is, a tab, its values (host/stored/record_text.h). The file is
/// written anew at each change and takes the old one's place at once.
class TextCompanyFile final : public HostCompanyFile {
 public:
  /// Reads what is there; a file that is not there has no records. Not to be read: error 75.
  TextCompanyFile(std::string path, Date fiscal_year_start);
  ~TextCompanyFile() override;

  std::shared_ptr<HostTable> OpenTable(std::string_view name) override;
  [[nodiscard]] Date FiscalYearStart() const override;
  [[nodiscard]] bool IsMultiUser() const override;
  [[nodiscard]] std::shared_ptr<const HostPicture> PalettePicture() const override;
  [[nodiscard]] HostUnitOfWork* unitOfWork() override { return nullptr; }
  void advise(HostCompanyFileEvents& listener) override { listeners_.add(listener); }
  void unadvise(HostCompanyFileEvents& listener) override { listeners_.remove(listener); }

  void fiscalYearStart(Date day) { fiscal_year_start_ = day; }
  /// Raises CompanyFileClosing, then closes.
  void close();

 private:
  class Contents;
  class Storage;

  std::shared_ptr<Contents> contents_;
  Date fiscal_year_start_;
  Listeners<HostCompanyFileEvents> listeners_;
};

}  // namespace depcalc::testing_support
