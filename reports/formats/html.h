// Reports as web pages.
#pragma once

#include <string>

#include "reports/table.h"

namespace depcalc {

/// All of `report` as one file that asks for nothing else: no script, no font, no picture, and a
/// policy that lets it load none. It follows the reader's light or dark colours and prints with its
/// captions on every page. Each amount and date also stands there as data files write it, in the
/// value of a `data` or `time` element.
std::string htmlReport(const Report& report);

}  // namespace depcalc
