// What the operating system says of a failure.
#pragma once

#include <string>
#include <system_error>

namespace depcalc {

/// For example "No such file or directory".
inline std::string systemErrorText(int error_number) {
  return std::generic_category().message(error_number);
}

}  // namespace depcalc
