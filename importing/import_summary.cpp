#include "importing/import_summary.h"

#include <string_view>

#include "importing/asset_saving.h"
#include "values/display_format.h"

namespace depcalc {
namespace {

std::string shown(std::size_t count) { return formatWhole(static_cast<double>(count)); }

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return shown(count).append(" ").append(count == 1 ? one : many);
}

std::optional<std::string> openQuestion(const OpenQuestions& questions) {
  if (!questions.date.empty()) {
    return "\"" + questions.date +
           "\" can be read as two days. Please choose the order of day and month.";
  }
  if (!questions.number.empty()) {
    return "\"" + questions.number +
           "\" can be read as two numbers. Please choose the decimal sign.";
  }
  return std::nullopt;
}

std::string pleaseChoose(AssetColumn required) {
  return "Please choose the column of the file that holds the " +
         std::string(required == AssetColumn::life    ? "useful life"
                     : required == AssetColumn::basis ? "basis"
                                                      : "placed-in-service date") +
         ".";
}

}  // namespace

std::string summaryOf(const ImportCounts& counts) {
  std::string text = counted(counts.ready, "asset ready", "assets ready");
  if (counts.problems > 0) text += " · " + shown(counts.problems) + " with problems";
  if (counts.duplicates > 0) {
    text += " · " + counted(counts.duplicates, "duplicate left out", "duplicates left out");
  }
  if (counts.repeated > 0) {
    text += " · " + counted(counts.repeated, "duplicate", "duplicates") + " among them";
  }
  if (counts.left_out > 0) text += " · " + shown(counts.left_out) + " left out by you";
  if (counts.differing > 0) text += " · " + shown(counts.differing) + " with amounts that differ";
  return text;
}

std::optional<std::string> obstacleTo(const JudgedFile& file) {
  const std::size_t problems = file.counts.problems;
  const std::size_t ready = file.counts.ready;
  if (file.rows == 0) return "The file has no rows with assets.";
  if (auto question = openQuestion(file.questions)) return question;
  if (problems > 0 && file.missing) return pleaseChoose(*file.missing);
  if (problems > 0) return "Please correct the rows with problems, or leave them out.";
  if (ready == 0) return "No asset is left to import.";
  if (file.beyond > 0 || file.in_register + ready > most_assets) {
    return "The register holds at most " + formatWhole(most_assets) + " assets; it has " +
           shown(file.in_register) + ", and the file has " + shown(ready + file.beyond) + " more.";
  }
  return std::nullopt;
}

}  // namespace depcalc
