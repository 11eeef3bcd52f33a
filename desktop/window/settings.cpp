#include "desktop/window/settings.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <algorithm>

#include "desktop/widgets/scale.h"

namespace depcalc::desktop {
namespace {

const QString recent_key = QStringLiteral("companies/recent");
const QString last_key = QStringLiteral("companies/last");
const QString zoom_key = QStringLiteral("view/zoom");
const QString fit_width_key = QStringLiteral("view/fit_width");
const QString geometry_key = QStringLiteral("window/geometry");
const QString shown_key = QStringLiteral("workspace/%1");
const QString width_key = QStringLiteral("workspace/%1_width");
const QString asset_columns_key = QStringLiteral("workspace/asset_columns");
const QString hides_disposed_key = QStringLiteral("workspace/hides_disposed");
const QString printer_key = QStringLiteral("print/printer");

const QString import_headers_key = QStringLiteral("import/headers");
const QString import_columns_key = QStringLiteral("import/columns_%1");

/// Headers are long and hold any characters.
QString shortNameOf(const QStringList& header) {
  const QByteArray text = header.join(QChar(u'\x1F')).toUtf8();
  return QString::fromLatin1(
      QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex().left(16));
}

}  // namespace

QStringList Settings::recent() const {
  QStringList paths = store_.value(recent_key).toStringList();
  erase_if(paths, [](const QString& path) { return !QFileInfo::exists(path); });
  return paths;
}

void Settings::addRecent(const QString& path) {
  QStringList paths = store_.value(recent_key).toStringList();
  paths.removeAll(path);
  paths.prepend(path);
  store_.setValue(recent_key, QStringList(paths.mid(0, most_recent)));
}

QString Settings::lastCompany() const { return store_.value(last_key).toString(); }
void Settings::setLastCompany(const QString& path) { store_.setValue(last_key, path); }

int Settings::zoom() const {
  return std::clamp(store_.value(zoom_key, 100).toInt(), minimum_zoom, maximum_zoom);
}
void Settings::setZoom(int percent) { store_.setValue(zoom_key, percent); }

bool Settings::fitWidth() const {
  return store_.value(fit_width_key, !store_.contains(zoom_key)).toBool();
}
void Settings::setFitWidth(bool on) { store_.setValue(fit_width_key, on); }

QByteArray Settings::geometry() const { return store_.value(geometry_key).toByteArray(); }
void Settings::setGeometry(const QByteArray& geometry) { store_.setValue(geometry_key, geometry); }

std::optional<bool> Settings::shown(const QString& part) const {
  const QVariant on = store_.value(shown_key.arg(part));
  return on.isValid() ? std::optional(on.toBool()) : std::nullopt;
}
void Settings::setShown(const QString& part, bool on) { store_.setValue(shown_key.arg(part), on); }

int Settings::width(const QString& part) const { return store_.value(width_key.arg(part)).toInt(); }
void Settings::setWidth(const QString& part, int width) {
  store_.setValue(width_key.arg(part), width);
}

QByteArray Settings::assetColumns() const { return store_.value(asset_columns_key).toByteArray(); }
void Settings::setAssetColumns(const QByteArray& columns) {
  store_.setValue(asset_columns_key, columns);
}

bool Settings::hidesDisposed() const { return store_.value(hides_disposed_key).toBool(); }
void Settings::setHidesDisposed(bool on) { store_.setValue(hides_disposed_key, on); }

QStringList Settings::importColumns(const QStringList& header) const {
  return store_.value(import_columns_key.arg(shortNameOf(header))).toStringList();
}
void Settings::setImportColumns(const QStringList& header, const QStringList& uses) {
  constexpr int most_headers = 40;
  const QString name = shortNameOf(header);
  QStringList names = store_.value(import_headers_key).toStringList();
  names.removeAll(name);
  names.prepend(name);
  for (const QString& old : names.mid(most_headers)) store_.remove(import_columns_key.arg(old));
  store_.setValue(import_headers_key, QStringList(names.mid(0, most_headers)));
  store_.setValue(import_columns_key.arg(name), uses);
}

QString Settings::printer() const { return store_.value(printer_key).toString(); }
void Settings::setPrinter(const QString& name) { store_.setValue(printer_key, name); }

}  // namespace depcalc::desktop
