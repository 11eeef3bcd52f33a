#include "desktop/host/place.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>
#include <optional>

#include "host/file_trouble.h"
#include "host/postgresql/server_address.h"

namespace depcalc::desktop {
namespace {

std::optional<ServerAddress> addressOf(const QString& place) {
  try {
    return ServerAddress::of(place.toStdString());
  } catch (const FileTrouble&) {
    return std::nullopt;
  }
}

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

/// The service of an address that names no host, which is then in a service file.
QString serviceIn(const ServerAddress& address) {
  const QString options = text(address.server).section(u'?', 1);
  for (const QString& option : options.split(u'&')) {
    if (option.section(u'=', 0, 0) != QStringLiteral("service")) continue;
    return QUrl::fromPercentEncoding(option.section(u'=', 1).toUtf8());
  }
  return {};
}

}  // namespace

bool isOnServer(const QString& place) { return isServerAddress(place.toStdString()); }

QString wholePlace(const QString& place) {
  if (!isOnServer(place)) return QFileInfo(place).absoluteFilePath();
  const auto address = addressOf(place);
  return address ? text(address->text) : place;
}

QString nameAt(const QString& place) {
  if (!isOnServer(place)) return QFileInfo(place).completeBaseName();
  const auto address = addressOf(place);
  return address ? text(address->company) : QString();
}

QString fileNameAt(const QString& place) {
  if (!isOnServer(place)) return nameAt(place);
  constexpr int characters = 60;
  QString name = nameAt(place).left(characters);
  for (QChar& character : name) {
    const bool plain =
        character.isLetterOrNumber() || QStringLiteral(" -_,&'()").contains(character);
    if (!plain) character = u'_';
  }
  return name;
}

QString serverOf(const QString& place) {
  const auto address = isOnServer(place) ? addressOf(place) : std::nullopt;
  if (!address) return {};
  const QString host = text(address->parts().host);
  const QString name = host.isEmpty() ? serviceIn(*address) : host;
  return name.isEmpty() || name.startsWith(u'/')
             ? QCoreApplication::translate("Place", "this computer")
             : name;
}

QString titleAt(const QString& name, const QString& place) {
  const QString server = serverOf(place);
  return server.isEmpty() ? name
                          : QCoreApplication::translate("Place", "%1 on %2").arg(name, server);
}

bool mayBeThere(const QString& place) { return isOnServer(place) || QFileInfo::exists(place); }

QString folderOf(const QString& place) {
  return isOnServer(place) ? QString() : QFileInfo(place).absolutePath();
}

}  // namespace depcalc::desktop
