// What File > Import takes a file for.
#pragma once

#include <QString>
#include <memory>
#include <variant>

#include "DepCalc/company_assets.h"
#include "desktop/window/settings.h"
#include "importing/asset_import.h"

namespace depcalc::desktop {

/// What the file of this path holds, to be imported into the company of `assets`, with its columns
/// as they were in the last file with such a header; or why there is nothing to import, for the
/// user. It is not the file of the company that is open: closing that would give back the locks on
/// it.
[[nodiscard]] std::variant<std::unique_ptr<AssetImport>, QString> readFileToImport(
    const QString& path, CompanyAssets& assets, const Settings& settings);

/// Its columns are proposed so for the next file like it.
void rememberColumns(const AssetImport& import, Settings& settings);

}  // namespace depcalc::desktop
