#include "tests/desktop/real/told_rows.h"

#include <QDate>
#include <QStringList>

namespace depcalc::testing {
namespace {

/// The fields of one line; a quoted one may hold commas and doubled quotes. No text here has a
/// line break.
QStringList fieldsOf(const QString& line) {
  QStringList fields(QString{});
  bool quoted = false;
  for (const QChar character : line) {
    if (character == u'"') {
      quoted = !quoted;
      if (quoted && !fields.back().isEmpty()) fields.back() += character;
    } else if (character == u',' && !quoted) {
      fields << QString();
    } else {
      fields.back() += character;
    }
  }
  return fields;
}

/// Dates and numbers as they compare, whatever they are written like.
std::string comparable(const std::string& column, const std::string& text) {
  const QString written = QString::fromStdString(text);
  if (column == "placed_in_service") {
    const QDate iso = QDate::fromString(written, QStringLiteral("yyyy-MM-dd"));
    const QDate shown = QDate::fromString(written, QStringLiteral("MM/dd/yyyy"));
    return (iso.isValid() ? iso : shown).toString(Qt::ISODate).toStdString();
  }
  bool number = false;
  const double value = QString(written).remove(u',').toDouble(&number);
  const bool counted =
      column == "life" || column == "basis" || column == "salvage" || column == "capacity";
  return counted && number ? QString::number(value, 'f', 2).toStdString() : text;
}

std::string describe(const Row& row) {
  std::string text;
  for (const auto& [column, value] : row) text += ' ' + column + "=" + value;
  return text;
}

}  // namespace

Rows rowsOf(const QString& csv) {
  const QStringList lines = csv.split(u'\n', Qt::SkipEmptyParts);
  const QStringList columns = fieldsOf(lines.value(0));
  Rows rows;
  for (const QString& line : lines.mid(1)) {
    const QStringList fields = fieldsOf(line);
    Row& row = rows.emplace_back();
    for (int i = 0; i < columns.size(); ++i) {
      row[columns[i].toStdString()] = fields.value(i).toStdString();
    }
  }
  return rows;
}

std::string wrongIn(const Row& row, const FormTexts& shown) {
  for (const auto& [column, text] : shown) {
    const auto held = row.find(column);
    if (held == row.end()) return "no column " + column;
    if (text.empty() || comparable(column, text) == comparable(column, held->second)) continue;
    return column + " reads '" + held->second + "', shown was '" + text + "'";
  }
  return {};
}

std::string wrongIn(const Rows& before, const Told& told, const Rows& after) {
  Rows expected = before;
  if (told.what == Told::What::deleted) {
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(told.at.value()));
  }
  const bool more =
      told.what == Told::What::imported || (told.what == Told::What::saved && !told.at.has_value());
  if (more) expected.emplace_back();
  if (after.size() != expected.size()) {
    return std::to_string(after.size()) + " assets are there, not " +
           std::to_string(expected.size());
  }
  const std::size_t changed = told.at.value_or(before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (told.what != Told::What::nothing && told.what != Told::What::deleted && i == changed) {
      const std::string wrong = wrongIn(after[i], told.shown);
      if (!wrong.empty()) return "asset " + std::to_string(i + 1) + ": " + wrong;
    } else if (after[i] != expected[i]) {
      return "asset " + std::to_string(i + 1) + " reads" + describe(after[i]) + ", not" +
             describe(expected[i]);
    }
  }
  return {};
}

}  // namespace depcalc::testing
