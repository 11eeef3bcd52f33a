// The register of the open company, as it is saved.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "desktop/host/desktop_application.h"
#include "desktop/site/desktop_site.h"
#include "reports/register.h"

namespace depcalc::desktop {

/// One reading of it serves all who show it.
class SavedRegister {
 public:
  /// `application` lives longer than this.
  SavedRegister(const DesktopApplication& application, DesktopSite::Today today)
      : application_(application), today_(std::move(today)) {}

  /// All of it, of a company that is open. An error of reading reaches the caller.
  [[nodiscard]] std::shared_ptr<RegisterOfAssets> read();
  /// One asset of it; nothing where there is no such one, or it cannot be read.
  [[nodiscard]] std::optional<SavedAsset> assetAt(std::int32_t number) const;
  /// Whatever revision the company has now: what is to be read may be another.
  void forget() { read_.reset(); }

 private:
  const DesktopApplication& application_;
  DesktopSite::Today today_;
  std::weak_ptr<RegisterOfAssets> read_;  ///< by who still shows it, as of
  std::optional<std::uint64_t> read_revision_;
};

}  // namespace depcalc::desktop
