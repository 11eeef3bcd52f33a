#include "register/register_array.h"

#include "values/rounding.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

CalculateDepPtr& slot(CalculateDepArray& assets, int index) {
  const auto position = static_cast<std::size_t>(index);
  if (index < 0 || position >= assets.size()) throw RuntimeError::subscriptOutOfRange();
  return assets[position];
}

}  // namespace

std::int16_t takeOut(CalculateDepArray& assets, int column, int count) {
  if (count < 2) {
    assets.assign(2, nullptr);
    return 1;
  }
  for (int j = column - 1; j < count; ++j) slot(assets, j) = slot(assets, j + 1);
  assets.resize(static_cast<std::size_t>(count));
  return toInteger16HalfEven(column - 1);
}

}  // namespace depcalc
