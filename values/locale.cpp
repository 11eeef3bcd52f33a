#include "values/locale.h"

namespace depcalc {

const Locale& Locale::enUs() {
  static constexpr Locale en_us{'.',
                                ',',
                                {"January", "February", "March", "April", "May", "June", "July",
                                 "August", "September", "October", "November", "December"}};
  return en_us;
}

}  // namespace depcalc
