#include "engine/disposal.h"

namespace depcalc {

double shareHeld(std::int32_t convention, Date year_start, Date year_end, Date disposed) {
  Silent nobody;
  return shareHeld(convention, year_start, year_end, disposed, nobody);
}

double shareCovered(std::int32_t convention, double first_year_fraction, bool last_year) {
  Silent nobody;
  return shareCovered(convention, first_year_fraction, last_year, nobody);
}

Currency amountOfDisposalYear(Currency amount, double held, double covered) {
  Silent nobody;
  return amountOfDisposalYear(amount, held, covered, nobody);
}

Currency amountUntilDisposal(const DisposedAsset& asset, Currency amount) {
  Silent nobody;
  return amountUntilDisposal(asset, amount, nobody);
}

Currency gainOnDisposal(Currency proceeds, Currency basis, Currency accumulated) {
  return proceeds - (basis - accumulated);
}

}  // namespace depcalc
