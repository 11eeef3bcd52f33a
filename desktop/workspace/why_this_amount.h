// Why the amount in view is what it is, as rows. No toolkit is in it.
#pragma once

#include <string>
#include <vector>

#include "desktop/workspace/insight_subject.h"

namespace depcalc::desktop {

struct WhyRow {
  std::string words;
  std::string figures;  ///< "38,450.00 − 4,000.00 = 34,450.00"
  bool total = false;
};

/// What there is to read about an amount. Where no single amount is in view, `rows` are the amounts
/// of all fiscal years, or empty, and `note` says the way on.
struct WhyThisAmount {
  std::string heading;  ///< "Sum of the Years' Digits, FY2025: 10,335.00"
  std::string warning;  ///< that another amount was saved
  std::vector<WhyRow> rows;
  std::string note;
};

/// On the form and beside the methods the calculation is explained as it stands; in the register,
/// in the list of assets and in reports, the amounts that these show.
[[nodiscard]] WhyThisAmount whyThisAmount(const InsightSubject& subject);

/// For the clipboard: a line each, words and figures parted by a tab.
[[nodiscard]] std::string plainText(const WhyThisAmount& why);

}  // namespace depcalc::desktop
