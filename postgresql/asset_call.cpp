#include "postgresql/asset_call.h"

#include <cstring>
#include <string_view>

#include "engine/convention.h"
#include "engine/method.h"

namespace depcalc::postgresql {
namespace {

/// The longest value that a detail shows in full.
constexpr std::size_t shown_size = 60;

char* shortened(char* text) {
  constexpr std::string_view rest = "...";
  if (std::strlen(text) <= shown_size) return text;
  std::memcpy(text + shown_size - rest.size(), rest.data(), rest.size());
  text[shown_size] = '\0';
  return text;
}

const char* shown(PGFunction output, FunctionCallInfo call, int place) {
  return shortened(DatumGetCString(DirectFunctionCall1(output, call->args[place].value)));
}

/// The argument that a detail shows, as the server writes it.
const char* shownArgument(Argument argument, FunctionCallInfo call, const ArgumentPlaces& places) {
  switch (argument) {
    case Argument::none:
      return "";
    case Argument::placed_in_service:
      return shown(date_out, call, places.placed_in_service);
    case Argument::fiscal_year_end:
      return shown(date_out, call, places.fiscal_year_end);
    case Argument::life:
      return shown(float8out, call, places.life);
    case Argument::convention:
      return shown(enum_out, call, places.convention);
    case Argument::basis:
      return shown(numeric_out, call, places.basis);
    case Argument::salvage:
      return shown(numeric_out, call, places.salvage);
    case Argument::capacity:
      return shown(float8out, call, places.capacity);
    case Argument::method:
      return shown(enum_out, call, places.method);
  }
  return "";
}

int codeOf(ErrorClass error_class) {
  switch (error_class) {
    case ErrorClass::numeric_value_out_of_range:
      return ERRCODE_NUMERIC_VALUE_OUT_OF_RANGE;
    case ErrorClass::datetime_field_overflow:
      return ERRCODE_DATETIME_FIELD_OVERFLOW;
    case ErrorClass::invalid_parameter_value:
      return ERRCODE_INVALID_PARAMETER_VALUE;
    case ErrorClass::out_of_memory:
      return ERRCODE_OUT_OF_MEMORY;
    case ErrorClass::internal_error:
      break;
  }
  return ERRCODE_INTERNAL_ERROR;
}

/// What a label of a type is, once the catalogue was asked; for as long as a query lasts.
struct KnownLabels {
  struct Label {
    Oid oid;
    int number;
  };
  int count;
  Label labels[convention_names.size() + methods.size()];
};

KnownLabels* knownLabels(FunctionCallInfo call) {
  FmgrInfo* const function = call->flinfo;
  if (function->fn_extra == nullptr) {
    function->fn_extra = MemoryContextAllocZero(function->fn_mcxt, sizeof(KnownLabels));
  }
  return static_cast<KnownLabels*>(function->fn_extra);
}

/// The label of a value of an enumeration; empty where it has gone.
NameData labelOf(Oid oid) {
  NameData label{};
  auto* const row = SearchSysCache1(ENUMOID, ObjectIdGetDatum(oid));
  if (!HeapTupleIsValid(row)) return label;
  label = reinterpret_cast<Form_pg_enum>(GETSTRUCT(row))->enumlabel;
  ReleaseSysCache(row);
  return label;
}

/// Where the label of `oid` stands among `names`, or -1.
template <typename Names, typename NameOf>
int numberOfLabel(Oid oid, const Names& names, NameOf nameOf) {
  const NameData label = labelOf(oid);
  for (int number = 0; number < static_cast<int>(names.size()); ++number) {
    if (nameOf(names[static_cast<std::size_t>(number)]) == NameStr(label)) return number;
  }
  return -1;
}

int numberOfArgument(FunctionCallInfo call, Argument argument, Oid oid) {
  const bool method = argument == Argument::method;
  const int number =
      method ? numberOfLabel(oid, methods, [](const Method& known) { return known.code; })
             : numberOfLabel(oid, convention_names, [](std::string_view name) { return name; });
  if (number < 0) {
    raise(method ? Refusal::unknown_method : Refusal::unknown_convention, call, asset_places);
  }
  return number;
}

/// The number of a method or convention: from memory where that may be, else from the catalogue.
int numberOf(FunctionCallInfo call, Labels labels, Argument argument, int place) {
  const Oid oid = DatumGetObjectId(call->args[place].value);
  KnownLabels* const known = labels == Labels::remembered ? knownLabels(call) : nullptr;
  const int count = known != nullptr ? known->count : 0;
  for (int i = 0; i < count; ++i) {
    if (known->labels[i].oid == oid) return known->labels[i].number;
  }
  const int number = numberOfArgument(call, argument, oid);
  if (known != nullptr && known->count < static_cast<int>(lengthof(known->labels))) {
    known->labels[known->count++] = {oid, number};
  }
  return number;
}

static_assert(methods[0].code == method_straight_line &&
                  methods[1].code == method_sum_of_years_digits &&
                  methods[2].code == method_double_declining_balance &&
                  methods[3].code == method_units_of_production,
              "ScheduledBy has the methods in this order");

}  // namespace

void scheduleOfCall(FunctionCallInfo call, Labels labels, AssetSchedule& schedule) {
  const NullableDatum* const at = call->args;
  const AssetArguments asset{
      .placed_in_service = DatumGetDateADT(at[asset_places.placed_in_service].value),
      .fiscal_year_end = DatumGetDateADT(at[asset_places.fiscal_year_end].value),
      .life = DatumGetFloat8(at[asset_places.life].value),
      .convention = numberOf(call, labels, Argument::convention, asset_places.convention),
      .basis = textOfNumber(at[asset_places.basis].value),
      .salvage = textOfNumber(at[asset_places.salvage].value),
      .method =
          static_cast<ScheduledBy>(numberOf(call, labels, Argument::method, asset_places.method))};
  raise(calculateSchedule(asset, schedule), call, asset_places);
}

NumberText textOfNumber(Datum number) {
  const char* const text = DatumGetCString(DirectFunctionCall1(numeric_out, number));
  return {text, std::strlen(text)};
}

Datum numericOf(Currency amount) {
  constexpr int decimals = 4;
  static_assert(Currency::ticks_per_unit == 10'000);
  return NumericGetDatum(int64_div_fast_to_numeric(amount.ticks(), decimals));
}

void raise(Refusal refusal, FunctionCallInfo call, const ArgumentPlaces& places) {
  if (refusal == Refusal::none) return;
  const RefusalText& text = textOf(refusal);
  const char* const value = shownArgument(text.argument, call, places);
  ereport(ERROR, (errcode(codeOf(text.error_class)), errmsg("%s", text.message),
                  errdetail(text.detail, value), errhint("%s", text.hint)));
}

}  // namespace depcalc::postgresql
