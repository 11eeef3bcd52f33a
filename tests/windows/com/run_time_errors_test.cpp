#include "windows/com/run_time_errors.h"

#include <gtest/gtest.h>

namespace depcalc {
namespace {

TEST(RunTimeErrors, GoesThereAndBack) {
  for (const int number : {5, 6, 7, 9, 11, 13, 91, 438, 32767, 65535, -2147220992}) {
    EXPECT_TRUE(FAILED(hresultOfError(number))) << number;
    EXPECT_EQ(errorOfHresult(hresultOfError(number)), number);
  }
  EXPECT_EQ(hresultOfError(13), static_cast<HRESULT>(0x800A000D));
}

TEST(RunTimeErrors, KnowsTheSystemsOwnCodes) {
  EXPECT_EQ(errorOfHresult(E_OUTOFMEMORY), 7);
  EXPECT_EQ(errorOfHresult(DISP_E_TYPEMISMATCH), 13);
  EXPECT_EQ(errorOfHresult(DISP_E_BADINDEX), 9);
  EXPECT_EQ(errorOfHresult(REGDB_E_CLASSNOTREG), 429);
  EXPECT_EQ(errorOfHresult(E_FAIL), static_cast<int>(E_FAIL));
}

}  // namespace
}  // namespace depcalc
