// The host application that the calculator sees.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "DepCalc/units_following.h"
#include "desktop/host/company_files.h"
#include "host/history/recorder.h"
#include "host/listeners.h"

namespace depcalc::desktop {

/// Since the beginning of 1970, in UTC.
[[nodiscard]] std::int64_t secondsByClock();

/// Has at most one company open.
class DesktopApplication final : public HostApplication {
 public:
  /// When a step is taken, in seconds since the beginning of 1970.
  using Now = std::function<std::int64_t()>;

  explicit DesktopApplication(std::string start_directory, Now now = secondsByClock)
      : start_directory_(std::move(start_directory)), now_(std::move(now)) {}
  ~DesktopApplication() override;

  [[nodiscard]] Company* company() const { return company_.get(); }
  /// Runs `deletes`, in which the calculator deletes asset `number` of the open company: its units
  /// go, and the others' stay with their assets.
  void deletion(std::int32_t number, const std::function<void()>& deletes);

  /// Where the steps of a company are kept, and what it was before its file was replaced.
  struct Past {
    std::string history;
    std::optional<Content> replaced;
  };
  /// Closes the company that is open and takes this one, which may be none.
  void setCompany(std::unique_ptr<Company> company, Past past = {});
  /// What has been done to the company that is open; null where none is. Everything that changes it
  /// through `CompanyFile` or here is a step.
  [[nodiscard]] Recorder* recorder() const { return recorder_.get(); }
  /// Another number with every change of what is saved; nothing where that cannot be told.
  [[nodiscard]] std::optional<std::uint64_t> revision() const;
  /// Fails with CompanyFileError.
  void setInfo(const CompanyInfo& info);
  /// Steps in `change` are of this kind.
  void called(StepKind kind, const std::function<void()>& change);

  [[nodiscard]] bool IsCompanyFileOpen() const override { return company_ != nullptr; }
  [[nodiscard]] std::shared_ptr<HostCompanyFile> CompanyFile() const override;
  [[nodiscard]] std::string StartDirectory() const override { return start_directory_; }
  void advise(HostApplicationEvents& listener) override { listeners_.add(listener); }
  void unadvise(HostApplicationEvents& listener) override { listeners_.remove(listener); }

 private:
  std::string start_directory_;
  Now now_;
  std::shared_ptr<Company> company_;
  std::shared_ptr<Recorder> recorder_;
  std::shared_ptr<UnitsFollowing> file_;  ///< the company's, for the calculator
  Listeners<HostApplicationEvents> listeners_;
};

}  // namespace depcalc::desktop
