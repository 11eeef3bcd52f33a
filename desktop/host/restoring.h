// A backup that takes the place of its company. A path is a company file's, or the address of a
// company on a server.
#pragma once

#include <QString>
#include <optional>

#include "desktop/host/backups.h"
#include "desktop/host/company_files.h"
#include "host/history/recorder.h"

namespace depcalc::desktop {

/// Sets a copy of a company aside for who has it open on a server: there is nothing else to copy.
/// Returns whether it could.
bool setAside(Backups& backups, Company& company);

/// What can be read of a company that is not open here.
[[nodiscard]] std::optional<Content> contentOfClosed(CompanyFiles& files, const QString& path);

/// Puts `backup` in the place of the company, which is not open here. Answers where that is then:
/// where the server fails, the user may go on with a copy. Fails with CompanyFileError.
QString restore(const Backup& backup, const QString& path, CompanyFiles& files, Backups& backups);

}  // namespace depcalc::desktop
