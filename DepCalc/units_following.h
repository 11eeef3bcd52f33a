// A company whose units produced follow the assets that the calculator saves and deletes.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "DepCalc/units_store.h"
#include "host/host.h"
#include "host/unit_of_work.h"

namespace depcalc {

/// The company file as a host gives it to the calculator. The calculator knows its own table only;
/// what it does there is seen here, and the units of work in which it does it end with the units
/// brought along. Where that fails, nothing of the unit is kept.
class UnitsFollowing final : public HostCompanyFile, private HostUnitOfWork {
 public:
  /// `file` has units of work.
  explicit UnitsFollowing(std::shared_ptr<HostCompanyFile> file);

  /// Runs `deletes`, in which the calculator deletes asset `number`. Where the host fails
  /// meanwhile, assets and units stay what they were.
  void deletion(std::int32_t number, const std::function<void()>& deletes);

  std::shared_ptr<HostTable> OpenTable(std::string_view name) override;
  [[nodiscard]] Date FiscalYearStart() const override { return file_->FiscalYearStart(); }
  [[nodiscard]] bool IsMultiUser() const override { return file_->IsMultiUser(); }
  [[nodiscard]] std::shared_ptr<const HostPicture> PalettePicture() const override {
    return file_->PalettePicture();
  }
  [[nodiscard]] HostUnitOfWork* unitOfWork() override { return this; }
  void advise(HostCompanyFileEvents& listener) override { file_->advise(listener); }
  void unadvise(HostCompanyFileEvents& listener) override { file_->unadvise(listener); }

 private:
  class Table;
  class Record;
  struct Followed;

  // HostUnitOfWork
  void begin() noexcept override;
  void end() override;
  void abandon() override;
  [[nodiscard]] std::uint64_t revision() const noexcept override { return inner().revision(); }

  [[nodiscard]] HostUnitOfWork& inner() const { return *file_->unitOfWork(); }
  void undo();

  std::shared_ptr<HostCompanyFile> file_;
  std::shared_ptr<Followed> followed_;
  int depth_ = 0;
};

}  // namespace depcalc
