// Whether two copies of a company file hold the same company.
#pragma once

#include <QString>

namespace depcalc::desktop {

/// Whether name, month, mode and all assets are the same. The register's summary does not count:
/// the calculator refreshes it whenever it starts. A copy that cannot be read is like no other.
bool sameCompany(const QString& one, const QString& other);

}  // namespace depcalc::desktop
