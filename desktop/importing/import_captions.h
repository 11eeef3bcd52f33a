// What the parts of a file of assets are called on the screen.
#pragma once

#include <QString>

#include "importing/asset_import.h"

namespace depcalc::desktop {

QString captionOf(AssetColumn column);
/// "Not used", the property's name, "Amount of FY2024".
QString captionOf(const ColumnUse& use);

/// What there is to say of a row, its problems first: "Useful life: Please enter …".
QString remarkOn(const AssetImport& import, std::size_t row);

}  // namespace depcalc::desktop
