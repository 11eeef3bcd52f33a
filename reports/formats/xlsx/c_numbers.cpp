#include "reports/formats/xlsx/c_numbers.h"

#include "values/runtime_error.h"

namespace depcalc {

CNumbers::CNumbers() : c_(::newlocale(LC_ALL_MASK, "C", nullptr)), before_(nullptr) {
  if (c_ == nullptr) throw RuntimeError::outOfMemory();
  before_ = ::uselocale(c_);
}

CNumbers::~CNumbers() {
  ::uselocale(before_);
  ::freelocale(c_);
}

}  // namespace depcalc
