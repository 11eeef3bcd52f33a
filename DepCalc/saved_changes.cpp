#include "DepCalc/saved_changes.h"

#include <array>

#include "values/number_text.h"

namespace depcalc {
namespace {

template <auto Property>
constexpr auto differs =
    [](const CalculateDep& a, const CalculateDep& b) { return (a.*Property)() != (b.*Property)(); };

// A property is a getter and a setter of one name: the type picks the getter.
using Text = const std::string& (CalculateDep::*)() const;
using ShownText = std::string (CalculateDep::*)() const;
using Money = Currency (CalculateDep::*)() const;
using Day = Date (CalculateDep::*)() const;
using Number = double (CalculateDep::*)() const;
using Differs = bool (*)(const CalculateDep&, const CalculateDep&);

constexpr std::array<Differs, 12> compared_properties = {
    differs<static_cast<Money>(&CalculateDep::AssetBasis)>,
    differs<static_cast<Text>(&CalculateDep::ASerial)>,
    differs<static_cast<Text>(&CalculateDep::ADept)>,
    differs<static_cast<Text>(&CalculateDep::AssetID)>,
    differs<static_cast<Text>(&CalculateDep::AssetName)>,
    differs<static_cast<ShownText>(&CalculateDep::AssetProdCap)>,
    differs<static_cast<Money>(&CalculateDep::AssetSalvage)>,
    differs<static_cast<Day>(&CalculateDep::AssetStartDate)>,
    differs<static_cast<ShownText>(&CalculateDep::DepConvention)>,
    differs<static_cast<Number>(&CalculateDep::DepRecovery)>,
    differs<static_cast<Day>(&CalculateDep::FYEnd)>,
    differs<static_cast<Text>(&CalculateDep::DepMethod)>,
};

struct CalculationInput {
  Differs differs;
  std::string_view warning;
};

constexpr std::array calculation_inputs = {
    CalculationInput{
        differs<static_cast<Day>(&CalculateDep::AssetStartDate)>,
        "You have changed the placed-in-service date of this asset without recalculating, and now "
        "your depreciation amounts may be wrong. You may want to recalculate."},
    CalculationInput{
        differs<static_cast<Day>(&CalculateDep::FYEnd)>,
        "You have changed the end of your fiscal year for this asset without recalculating, and "
        "now your depreciation amounts may be wrong. You may want to recalculate."},
    CalculationInput{
        differs<static_cast<Number>(&CalculateDep::DepRecovery)>,
        "You have changed the useful life of this asset without recalculating, and now your "
        "depreciation amounts may be wrong. You may want to recalculate."},
    CalculationInput{
        differs<static_cast<ShownText>(&CalculateDep::DepConvention)>,
        "You have changed the convention of this asset without recalculating, and now your "
        "depreciation amounts may be wrong. You may want to recalculate."},
    CalculationInput{differs<static_cast<Money>(&CalculateDep::AssetBasis)>,
                     "You have changed the basis of this asset without recalculating, and now your "
                     "depreciation amounts may be wrong. You may want to recalculate."},
    CalculationInput{
        differs<static_cast<Money>(&CalculateDep::AssetSalvage)>,
        "You have changed the salvage value of this asset without recalculating, and now your "
        "depreciation amounts may be wrong. You may want to recalculate."},
    CalculationInput{
        differs<static_cast<ShownText>(&CalculateDep::AssetProdCap)>,
        "You have changed the production capacity of this asset without recalculating, and now "
        "your depreciation amounts may be wrong. You may want to recalculate."},
};

}  // namespace

bool differsFromSaved(const CalculateDep& current, const CalculateDep& saved) {
  for (const Differs differ : compared_properties) {
    if (differ(current, saved)) return true;
  }
  return false;
}

bool isBlank(const CalculateDep& record) {
  const double capacity = numberFromText(record.AssetProdCap());
  return record.ADept().empty() && record.ASerial().empty() && record.AssetID().empty() &&
         record.AssetName().empty() && record.AssetBasis() == Currency() &&
         record.AssetSalvage() == Currency() && capacity == 0 && record.AssetStartDate().isNone() &&
         record.DepRecovery() == 0;
}

std::string_view recalculationWarning(const CalculateDep& current, const CalculateDep& saved) {
  for (const CalculationInput& input : calculation_inputs) {
    if (input.differs(current, saved)) return input.warning;
  }
  return {};
}

}  // namespace depcalc
