#include "cli/asset_reader.h"

#include <string>

#include "cli/foreign_file.h"

namespace depcalc {

AssetReader::AssetReader(ByteSource& source, HeaderRules header_rules, const AssetRules& rules,
                         const CsvForm& form)
    : csv_(source, form), separator_(form.separator), header_rules_(header_rules), rules_(rules) {}

AssetReader::AssetReader(ByteSource& source, const AssetColumns& columns, const AssetRules& rules,
                         const CsvForm& form, std::size_t line)
    : csv_(source, form, line),
      separator_(form.separator),
      rules_(rules),
      columns_(columns),
      line_(line) {}

AssetReader::Outcome AssetReader::next(CalculateDep& asset) {
  problems_.clear();
  switch (csv_.next()) {
    case CsvReader::Outcome::end:
      return Outcome::end;
    case CsvReader::Outcome::unreadable:
      return Outcome::unreadable;
    case CsvReader::Outcome::problem:
      addCsvProblem();
      break;
    case CsvReader::Outcome::record:
      line_ = csv_.record().front().place.line;
      if (csv_.record().size() == columns_.width()) {
        readAssetRow(columns_, csv_.record(), rules_, asset, problems_);
      } else {
        addWidthProblem();
      }
  }
  return problems_.empty() ? Outcome::asset : Outcome::problems;
}

bool AssetReader::begin() {
  addForeignProblem();
  if (!problems_.empty()) return false;
  switch (csv_.next()) {
    case CsvReader::Outcome::unreadable:
      return false;
    case CsvReader::Outcome::problem:
      addCsvProblem();
      break;
    case CsvReader::Outcome::end:
      problems_.push_back(
          {1, "column 1", "The file is empty; its first row must name the columns.", std::nullopt});
      break;
    case CsvReader::Outcome::record:
      columns_ = columnsOfHeader(csv_.record(), header_rules_, problems_);
  }
  return problems_.empty();
}

/// What can be no asset file at all is told in one line instead of in many.
void AssetReader::addForeignProblem() {
  const std::string message = foreignFileMessage(csv_.beginning(), separator_);
  if (!message.empty()) problems_.push_back({1, "column 1", message, std::nullopt});
}

void AssetReader::addCsvProblem() {
  line_ = csv_.problem().place.line;
  const CsvProblem& problem = csv_.problem();
  problems_.push_back({problem.place.line, "column " + std::to_string(problem.place.column),
                       problem.message, std::nullopt});
}

/// At the first field too many, or at the last where some are missing.
void AssetReader::addWidthProblem() {
  const auto& record = csv_.record();
  const bool too_many = record.size() > columns_.width();
  const CsvPlace place = record[too_many ? columns_.width() : record.size() - 1].place;
  problems_.push_back({place.line, "column " + std::to_string(place.column),
                       "The row has " + std::to_string(record.size()) +
                           " fields, but the header has " + std::to_string(columns_.width()) +
                           (too_many ? "; please enclose a field that contains commas in quotes."
                                     : "; an empty field needs its comma as well."),
                       std::nullopt});
}

}  // namespace depcalc
