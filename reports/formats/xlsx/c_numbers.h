// Numbers as C writes them.
#pragma once

#include <clocale>

namespace depcalc {

/// While it lives, this thread's numbers have a decimal point whatever the process's locale says:
/// for a library that writes them with printf.
class CNumbers {
 public:
  CNumbers();
  ~CNumbers();
  CNumbers(const CNumbers&) = delete;
  CNumbers& operator=(const CNumbers&) = delete;

 private:
  locale_t c_;
  locale_t before_;
};

}  // namespace depcalc
