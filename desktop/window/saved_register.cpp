#include "desktop/window/saved_register.h"

#include "DepCalc/asset_store.h"
#include "common/trapped.h"
#include "reports/reading/register_reading.h"

namespace depcalc::desktop {

/// Another company's has another revision, or is shown by nobody.
std::shared_ptr<RegisterOfAssets> SavedRegister::read() {
  auto assets = read_.lock();
  if (assets != nullptr && read_revision_ == application_.revision()) return assets;
  assets = std::make_shared<RegisterOfAssets>(readRegisterOfAssets(
      application_.CompanyFile(), application_.company()->info().name, today_()));
  read_ = assets;
  read_revision_ = application_.revision();
  return assets;
}

std::optional<SavedAsset> SavedRegister::assetAt(std::int32_t number) const {
  if (application_.company() == nullptr || number < 1) return std::nullopt;
  std::optional<SavedAsset> asset;
  const auto file = application_.CompanyFile();
  trapped("DepCalcDesktop::savedAssetAt", [&] {
    const auto table = file->OpenTable(asset_table_name);
    if (number < table->Count()) asset = readSavedAsset(file, number, today_());
  });
  return asset;
}

}  // namespace depcalc::desktop
