// The functions of the extension, as depcalc--1.0.sql declares them. The server calls none of them
// with a NULL.
#include "postgresql/asset_call.h"

using namespace depcalc;
using namespace depcalc::postgresql;

extern "C" {

PG_MODULE_MAGIC;

#define DEPCALC_FUNCTION(name)                     \
  extern PGDLLEXPORT Datum name(PG_FUNCTION_ARGS); \
  PG_FUNCTION_INFO_V1(name)

DEPCALC_FUNCTION(depcalc_schedule);
DEPCALC_FUNCTION(depcalc_amounts);
DEPCALC_FUNCTION(depcalc_depreciation);
DEPCALC_FUNCTION(depcalc_accumulated);
DEPCALC_FUNCTION(depcalc_book_value);
DEPCALC_FUNCTION(depcalc_production_rate);
DEPCALC_FUNCTION(depcalc_first_fiscal_year);

}  // extern "C"

namespace {

/// Calculates the rows of depreciation_schedule, which stay in `context` until the last is taken.
void beginRows(FunctionCallInfo call, FuncCallContext* context) {
  auto* const before = MemoryContextSwitchTo(context->multi_call_memory_ctx);
  TupleDesc row = nullptr;
  if (get_call_result_type(call, nullptr, &row) != TYPEFUNC_COMPOSITE) {
    ereport(ERROR,
            (errcode(ERRCODE_FEATURE_NOT_SUPPORTED), errmsg("depreciation_schedule returns rows"),
             errhint("Call it in the FROM clause.")));
  }
  context->tuple_desc = BlessTupleDesc(row);
  auto* const schedule = static_cast<AssetSchedule*>(palloc(sizeof(AssetSchedule)));
  scheduleOfCall(call, Labels::looked_up, *schedule);
  context->user_fctx = schedule;
  context->max_calls = static_cast<uint64>(schedule->fiscal_years);
  MemoryContextSwitchTo(before);
}

Datum rowOf(const FuncCallContext* context) {
  const auto& schedule = *static_cast<const AssetSchedule*>(context->user_fctx);
  const auto index = static_cast<std::int32_t>(context->call_cntr);
  const std::int32_t year = schedule.first_fiscal_year + index;
  Datum values[] = {Int32GetDatum(year), numericOf(amountOf(schedule, year))};
  bool nulls[] = {false, false};
  return HeapTupleGetDatum(heap_form_tuple(context->tuple_desc, values, nulls));
}

}  // namespace

Datum depcalc_schedule(PG_FUNCTION_ARGS) {
  if (SRF_IS_FIRSTCALL()) beginRows(fcinfo, SRF_FIRSTCALL_INIT());
  FuncCallContext* const context = SRF_PERCALL_SETUP();
  CHECK_FOR_INTERRUPTS();
  if (context->call_cntr >= context->max_calls) SRF_RETURN_DONE(context);
  const Datum row = rowOf(context);  // the macro counts the call before it looks at the row
  SRF_RETURN_NEXT(context, row);
}

Datum depcalc_amounts(PG_FUNCTION_ARGS) {
  AssetSchedule schedule;
  scheduleOfCall(fcinfo, Labels::remembered, schedule);
  Datum amounts[most_amounts];
  for (int i = 0; i < schedule.fiscal_years; ++i) {
    amounts[i] = numericOf(schedule.amounts[static_cast<std::size_t>(i)]);
  }
  PG_RETURN_ARRAYTYPE_P(
      construct_array(amounts, schedule.fiscal_years, NUMERICOID, -1, false, TYPALIGN_INT));
}

Datum depcalc_depreciation(PG_FUNCTION_ARGS) {
  AssetSchedule schedule;
  scheduleOfCall(fcinfo, Labels::remembered, schedule);
  return numericOf(amountOf(schedule, PG_GETARG_INT32(place_of_year)));
}

Datum depcalc_accumulated(PG_FUNCTION_ARGS) {
  AssetSchedule schedule;
  scheduleOfCall(fcinfo, Labels::remembered, schedule);
  return numericOf(accumulatedBy(schedule, PG_GETARG_INT32(place_of_year)));
}

Datum depcalc_book_value(PG_FUNCTION_ARGS) {
  AssetSchedule schedule;
  scheduleOfCall(fcinfo, Labels::remembered, schedule);
  const Currency accumulated = accumulatedBy(schedule, PG_GETARG_INT32(place_of_year));
  return numericOf(Currency::fromTicks(schedule.basis.ticks() - accumulated.ticks()));
}

Datum depcalc_production_rate(PG_FUNCTION_ARGS) {
  constexpr ArgumentPlaces places{.basis = 0, .salvage = 1, .capacity = 2};
  const NumberText basis = textOfNumber(PG_GETARG_DATUM(places.basis));
  const NumberText salvage = textOfNumber(PG_GETARG_DATUM(places.salvage));
  Currency rate;
  raise(calculateRate(basis, salvage, PG_GETARG_FLOAT8(places.capacity), rate), fcinfo, places);
  return numericOf(rate);
}

Datum depcalc_first_fiscal_year(PG_FUNCTION_ARGS) {
  constexpr ArgumentPlaces places{.placed_in_service = 0, .fiscal_year_end = 1};
  std::int32_t year = 0;
  raise(findFirstFiscalYear(PG_GETARG_DATEADT(0), PG_GETARG_DATEADT(1), year), fcinfo, places);
  PG_RETURN_INT32(year);
}
