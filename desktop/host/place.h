// Where a company is kept, as its user names it: the path of a file, or the address of a company on
// a server.
#pragma once

#include <QString>

namespace depcalc::desktop {

[[nodiscard]] bool isOnServer(const QString& place);

/// A file's absolute path; an address as it is written.
[[nodiscard]] QString wholePlace(const QString& place);

/// What a company is known by there: a file's name without its extension, or the name in an
/// address.
[[nodiscard]] QString nameAt(const QString& place);

/// The same as far as a file or a folder can have it: on a server a company may be called anything.
[[nodiscard]] QString fileNameAt(const QString& place);

/// The server as people call it, "this computer" for one without a name; "" for a file, and for an
/// address that is refused: there may be a password in it.
[[nodiscard]] QString serverOf(const QString& place);

/// "NAME on SERVER", or the name of a company in a file.
[[nodiscard]] QString titleAt(const QString& name, const QString& place);

/// Whether it is worth offering: a file that is there, or any address. Only opening asks a server.
[[nodiscard]] bool mayBeThere(const QString& place);

/// The folder of a file; "" for a company on a server.
[[nodiscard]] QString folderOf(const QString& place);

}  // namespace depcalc::desktop
