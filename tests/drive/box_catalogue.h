// Every message box that the calculator can show, word for word.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace depcalc::drive {

/// "TITLE | TEXT | BUTTONS". The question before a deletion has the asset's ID where * stands.
inline constexpr std::array<std::string_view, 36> box_catalogue = {
    "Placed-in-service Date | Please enter a valid date. | OK",
    "Placed-in-service Date | Please enter a date less than 50 years from today. | OK",
    "Placed-in-service Date | Please enter a date less than 50 years ago. | OK",
    "Useful Life | Please enter a valid number. | OK",
    "Useful Life | The useful life must be a positive number. | OK",
    "Useful Life | Please enter a number less than or equal to 50. | OK",
    "Basis | Please enter a valid number. | OK",
    "Basis | The basis must be a positive number. | OK",
    "Basis | The basis must be greater than 0. | OK",
    "Basis | The basis must be less than 10,000,000. | OK",
    "Basis | The basis of the asset must be greater than the salvage value. | OK",
    "Salvage Value | Please enter a valid number. | OK",
    "Salvage Value | The salvage value must be a positive number. | OK",
    "Salvage Value | The salvage value must be less than 10,000,000. | OK",
    "Salvage Value | The salvage value of the asset must be less than the basis. | OK",
    "Production Capacity | Please enter a valid number. | OK",
    "Production Capacity | The production capacity must be a positive number. | OK",
    "Placed-in-service Date | Please enter the Placed-in-service Date. | OK",
    "End of Fiscal Year | Please enter the end of your fiscal year. | OK",
    "Useful Life | Please enter the useful life. | OK",
    "Basis | Please enter the basis. | OK",
    "Salvage Value | Please enter the salvage value. | OK",
    "Placed-in-service Date | Please enter the Placed-in-service date. | OK",
    "Save Changes | You have not saved your changes to this asset. Would you like to save them "
    "now? | Yes/No/Cancel",
    "Edit Assets | Please select an asset to edit by clicking any cell in the column. | OK",
    "Delete an Asset | Please select an asset to delete by clicking any cell in the column. | OK",
    "Delete an Asset | Are you sure you want to delete asset *? | Yes/No",
    "DepCalc10 | There may be a problem with your printer, or another error. Please correct the "
    "problem and try again. | OK",
    "Recalculate | You have changed the placed-in-service date of this asset without "
    "recalculating, and now your depreciation amounts may be wrong. You may want to recalculate. "
    "| OK",
    "Recalculate | You have changed the end of your fiscal year for this asset without "
    "recalculating, and now your depreciation amounts may be wrong. You may want to recalculate. "
    "| OK",
    "Recalculate | You have changed the useful life of this asset without recalculating, and now "
    "your depreciation amounts may be wrong. You may want to recalculate. | OK",
    "Recalculate | You have changed the convention of this asset without recalculating, and now "
    "your depreciation amounts may be wrong. You may want to recalculate. | OK",
    "Recalculate | You have changed the basis of this asset without recalculating, and now your "
    "depreciation amounts may be wrong. You may want to recalculate. | OK",
    "Recalculate | You have changed the salvage value of this asset without recalculating, and "
    "now your depreciation amounts may be wrong. You may want to recalculate. | OK",
    "Recalculate | You have changed the production capacity of this asset without recalculating, "
    "and now your depreciation amounts may be wrong. You may want to recalculate. | OK",
    "Save Changes | You have not saved your changes to this asset. Would you like to save your "
    "changes now? | Yes/No",
};

/// Those of start-up.
inline constexpr std::array<std::string_view, 2> refusal_catalogue = {
    "Depreciate Your Assets | You must have a company file open to use this feature. Open a "
    "company file, then select the Depreciation Calculator again. | OK",
    "Depreciate Your Assets | You must be in single-user mode to use this feature. To change "
    "modes, choose Switch to Single-user Mode from the File menu. | OK",
};

/// What a printed line "box … -> …" says of the box, its asset's ID replaced by *. "" when the
/// line is about no box.
inline std::string boxOfLine(std::string_view line) {
  constexpr std::string_view start = "box ";
  constexpr std::string_view deletion = "Delete an Asset | Are you sure you want to delete asset ";
  const std::size_t arrow = line.rfind(" -> ");
  if (!line.starts_with(start) || arrow == std::string_view::npos) return {};
  std::string box(line.substr(start.size(), arrow - start.size()));
  const std::size_t question_mark = box.rfind('?');
  if (box.starts_with(deletion) && question_mark != std::string::npos) {
    box.replace(deletion.size(), question_mark - deletion.size(), "*");
  }
  return box;
}

}  // namespace depcalc::drive
