// What a company file says of its company.
#pragma once

#include <string>

namespace depcalc {

struct CompanyInfo {
  std::string name;
  int first_month = 1;  ///< of the fiscal year, 1 to 12
  bool multi_user = false;

  friend bool operator==(const CompanyInfo&, const CompanyInfo&) = default;
};

}  // namespace depcalc
