#include "DepCalc/saved_types.h"

#include <array>
#include <string_view>
#include <utility>

#include "values/text.h"

namespace depcalc {
namespace {

/// How the store saves an asset's values; its index is looked at above.
constexpr std::array<std::pair<std::string_view, StoredValue::Type>, 14> saved_types{
    {{"AID", StoredValue::Type::text},
     {"AName", StoredValue::Type::text},
     {"ASerial", StoredValue::Type::text},
     {"ADept", StoredValue::Type::text},
     {"AEnd", StoredValue::Type::date},
     {"ASale", StoredValue::Type::text},
     {"ABasis", StoredValue::Type::currency},
     {"AStart", StoredValue::Type::date},
     {"ASalvage", StoredValue::Type::currency},
     {"AProdCap", StoredValue::Type::text},
     {"DRecovery", StoredValue::Type::real},
     {"DConvention", StoredValue::Type::text},
     {"FYEnd", StoredValue::Type::date},
     {"DMethod", StoredValue::Type::text}}};

/// Whether `value` may stand under `name`. What was never set reads as nothing, and a blank in an
/// amount's place is the end of the amounts.
bool isSavedType(std::string_view name, const StoredValue& value) {
  using Type = StoredValue::Type;
  if (value.type() == Type::empty) return true;
  for (const auto& [saved_name, type] : saved_types) {
    if (equalIgnoringCase(name, saved_name)) return value.type() == type;
  }
  constexpr std::string_view amount = "Dep";
  const bool is_amount =
      name.size() > amount.size() && equalIgnoringCase(name.substr(0, amount.size()), amount) &&
      name.find_first_not_of("0123456789", amount.size()) == std::string_view::npos;
  return !is_amount || value.type() == Type::currency || value == StoredValue::text("");
}

}  // namespace

std::vector<std::string> wrongTypesOf(const HostFields& fields, std::int16_t index) {
  std::vector<std::string> found;
  for (const std::string& name : fields.names()) {
    const StoredValue value = fields.GetValue(name);
    if (isSavedType(name, value)) continue;
    found.push_back("In record " + std::to_string(index) + ", " + name + " has the type " +
                    std::string(value.typeName()) + ".");
  }
  return found;
}

std::vector<std::string> wrongTypesIn(HostTable& table, std::int16_t index) {
  return wrongTypesOf(table.Item(index)->Fields(), index);
}

}  // namespace depcalc
