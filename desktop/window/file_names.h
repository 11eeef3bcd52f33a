// The names of the files that the user chooses.
#pragma once

#include <QString>

namespace depcalc::desktop {

/// A dot elsewhere in the name makes no suffix: "Smith & Co. 2024" becomes "Smith & Co.
/// 2024.company".
inline QString withSuffix(const QString& path, const QString& suffix) {
  return path.endsWith(suffix, Qt::CaseInsensitive) ? path : path + suffix;
}

/// In `folder`, "NAME.company", or "NAME 2.company" where that is taken, and so on.
[[nodiscard]] QString freePath(const QString& folder, const QString& name, const QString& suffix);

/// Why no file of that path can be made, for the user to read; "" where nothing speaks against it.
[[nodiscard]] QString folderTrouble(const QString& path);

}  // namespace depcalc::desktop
