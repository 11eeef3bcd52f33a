// The keys in what stands beside the calculator's page.
#pragma once

class QWidget;

namespace depcalc::desktop {

/// Tab goes round within `panel`: the next field of the calculator's page would have to be asked
/// for, and the one that has the focus there would validate. Returns whether something has the keys
/// now.
bool moveKeysWithin(QWidget& panel, bool next);

}  // namespace depcalc::desktop
