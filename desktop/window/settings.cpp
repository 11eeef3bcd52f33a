#include "desktop/window/settings.h"

#include <QCryptographicHash>
#include <algorithm>
#include <array>

#include "desktop/host/place.h"
#include "desktop/widgets/scale.h"

namespace depcalc::desktop {
namespace {

const QString recent_key = QStringLiteral("companies/recent");
const QString last_key = QStringLiteral("companies/last");
const QString servers_key = QStringLiteral("companies/servers");
const QString zoom_key = QStringLiteral("view/zoom");
const QString fit_width_key = QStringLiteral("view/fit_width");
const QString geometry_key = QStringLiteral("window/geometry");
const QString shown_key = QStringLiteral("workspace/%1");
const QString width_key = QStringLiteral("workspace/%1_width");
const QString asset_columns_key = QStringLiteral("workspace/asset_columns");
const QString hides_disposed_key = QStringLiteral("workspace/hides_disposed");
const QString printer_key = QStringLiteral("print/printer");
const QString paper_key = QStringLiteral("print/paper");
const QString reports_landscape_key = QStringLiteral("print/reports_landscape");
const QString appearance_key = QStringLiteral("view/appearance");
const QString dismissed_key = QStringLiteral("hints/dismissed");
const QString samples_key = QStringLiteral("companies/samples");

constexpr std::array appearance_names{"desktop", "light", "dark"};
constexpr std::array paper_names{"A4", "Letter"};
constexpr std::array notice_keys{"notices/hints", "notices/recalculation", "notices/undo_disposal"};

/// The place of a name in a table; nothing where it has none.
template <typename Names>
std::optional<int> placeOf(const QString& name, const Names& names) {
  const auto* const found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return std::nullopt;
  return static_cast<int>(found - names.begin());
}

template <typename Kind, typename Names>
QString nameOf(Kind kind, const Names& names) {
  return QLatin1String(names.at(static_cast<std::size_t>(kind)));
}

/// With `text` once more, as the last one; no more of them than `most`.
QStringList with(QStringList texts, const QString& text, int most) {
  texts.removeAll(text);
  texts.append(text);
  return texts.mid(std::max(0, static_cast<int>(texts.size()) - most));
}

QStringList latestFirst(QStringList texts, const QString& text) {
  texts.removeAll(text);
  texts.prepend(text);
  return texts.mid(0, Settings::most_recent);
}

const QString import_headers_key = QStringLiteral("import/headers");
const QString import_columns_key = QStringLiteral("import/columns_%1");

/// Headers are long and hold any characters.
QString shortNameOf(const QStringList& header) {
  const QByteArray text = header.join(QChar(u'\x1F')).toUtf8();
  return QString::fromLatin1(
      QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex().left(16));
}

}  // namespace

/// What stays as it is leaves the file alone, and the disk with it. Kept values are texts.
void Settings::put(const QString& key, const QVariant& value) {
  QVariant kept = store_.value(key);
  if (!kept.convert(value.metaType()) || kept != value) store_.setValue(key, value);
}

QStringList Settings::recent() const {
  QStringList paths = store_.value(recent_key).toStringList();
  erase_if(paths, [](const QString& path) { return !mayBeThere(path); });
  return paths;
}

void Settings::addRecent(const QString& path) {
  put(recent_key, latestFirst(store_.value(recent_key).toStringList(), path));
}

QStringList Settings::servers() const { return store_.value(servers_key).toStringList(); }

void Settings::addServer(const QString& address) {
  put(servers_key, latestFirst(servers(), address));
}

QString Settings::lastCompany() const { return store_.value(last_key).toString(); }
void Settings::setLastCompany(const QString& path) { put(last_key, path); }

int Settings::zoom() const {
  return std::clamp(store_.value(zoom_key, 100).toInt(), minimum_zoom, maximum_zoom);
}
void Settings::setZoom(int percent) { put(zoom_key, percent); }

bool Settings::fitWidth() const {
  return store_.value(fit_width_key, !store_.contains(zoom_key)).toBool();
}
void Settings::setFitWidth(bool on) { put(fit_width_key, on); }

QByteArray Settings::geometry() const { return store_.value(geometry_key).toByteArray(); }
void Settings::setGeometry(const QByteArray& geometry) { put(geometry_key, geometry); }

std::optional<bool> Settings::shown(const QString& part) const {
  const QVariant on = store_.value(shown_key.arg(part));
  return on.isValid() ? std::optional(on.toBool()) : std::nullopt;
}
void Settings::setShown(const QString& part, bool on) { put(shown_key.arg(part), on); }

int Settings::width(const QString& part) const { return store_.value(width_key.arg(part)).toInt(); }
void Settings::setWidth(const QString& part, int width) {
  put(width_key.arg(part), width);
}

QByteArray Settings::assetColumns() const { return store_.value(asset_columns_key).toByteArray(); }
void Settings::setAssetColumns(const QByteArray& columns) {
  put(asset_columns_key, columns);
}

bool Settings::hidesDisposed() const { return store_.value(hides_disposed_key).toBool(); }
void Settings::setHidesDisposed(bool on) { put(hides_disposed_key, on); }

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
  put(import_headers_key, QStringList(names.mid(0, most_headers)));
  put(import_columns_key.arg(name), uses);
}

QString Settings::printer() const { return store_.value(printer_key).toString(); }
void Settings::setPrinter(const QString& name) { put(printer_key, name); }

std::optional<PaperSize> Settings::paperSize() const {
  const auto place = placeOf(store_.value(paper_key).toString(), paper_names);
  return place ? std::optional(static_cast<PaperSize>(*place)) : std::nullopt;
}
void Settings::setPaperSize(PaperSize size) {
  put(paper_key, nameOf(size, paper_names));
}

bool Settings::reportsLandscape() const {
  return store_.value(reports_landscape_key, true).toBool();
}
void Settings::setReportsLandscape(bool landscape) {
  put(reports_landscape_key, landscape);
}

Appearance Settings::appearance() const {
  const auto place = placeOf(store_.value(appearance_key).toString(), appearance_names);
  return static_cast<Appearance>(place.value_or(0));
}
void Settings::setAppearance(Appearance appearance) {
  put(appearance_key, nameOf(appearance, appearance_names));
}

bool Settings::gives(Notice notice) const {
  return store_.value(nameOf(notice, notice_keys), true).toBool();
}
void Settings::setGives(Notice notice, bool on) {
  put(nameOf(notice, notice_keys), on);
}

bool Settings::isDismissed(const QString& hint) const {
  return store_.value(dismissed_key).toStringList().contains(hint);
}
void Settings::dismiss(const QString& hint) {
  constexpr int most_hints = 100;
  put(dismissed_key,
                  with(store_.value(dismissed_key).toStringList(), hint, most_hints));
}
void Settings::forgetDismissed() { store_.remove(dismissed_key); }
bool Settings::hasDismissed() const { return store_.contains(dismissed_key); }

bool Settings::isSample(const QString& path) const {
  return store_.value(samples_key).toStringList().contains(path);
}
void Settings::addSample(const QString& path) {
  constexpr int most_samples = 20;
  put(samples_key, with(store_.value(samples_key).toStringList(), path, most_samples));
}

}  // namespace depcalc::desktop
