#include "cli/asset_header.h"

#include <optional>
#include <string>
#include <string_view>

#include "values/text.h"

namespace depcalc {
namespace {

std::optional<AssetColumn> columnNamed(std::string_view name, HeaderRules rules) {
  for (std::size_t i = 0; i < asset_column_names.size(); ++i) {
    const auto column = static_cast<AssetColumn>(i);
    if (column >= AssetColumn::method && !rules.with_method) continue;
    if (equalIgnoringCase(name, asset_column_names[i])) return column;
  }
  return std::nullopt;
}

std::string unknownColumnMessage(HeaderRules rules) {
  std::string message = "Unknown column; the columns are";
  for (const std::string_view name : asset_column_names) {
    if (columnNamed(name, rules)) message.append(" ").append(name).append(",");
  }
  message.back() = ';';
  return message + " --ignore-unknown skips all others.";
}

RowProblem headerProblem(const CsvField& field, std::string message) {
  return {field.place.line, "column " + std::to_string(field.place.column), std::move(message),
          std::string(field.text)};
}

}  // namespace

AssetColumns columnsOfHeader(std::span<const CsvField> header, HeaderRules rules,
                             std::vector<RowProblem>& problems) {
  AssetColumns columns(header.size());
  for (std::size_t i = 0; i < header.size(); ++i) {
    const auto column = columnNamed(trimmed(header[i].text), rules);
    if (!column) {
      if (!rules.ignore_unknown) {
        problems.push_back(headerProblem(header[i], unknownColumnMessage(rules)));
      }
      continue;
    }
    if (columns.placeOf(*column))
      problems.push_back(headerProblem(header[i], "The column appears twice; please remove one."));
    columns.place(*column, i);
  }
  for (const AssetColumn column : required_columns) {
    if (columns.placeOf(column)) continue;
    problems.push_back({header.front().place.line, std::string(nameOf(column)),
                        "This required column is missing; please add it to the first row.",
                        std::nullopt});
  }
  return columns;
}

}  // namespace depcalc
