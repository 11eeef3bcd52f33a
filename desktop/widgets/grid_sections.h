// The rows and columns of a grid's widget, as wide as the grid has them.
#pragma once

#include <QHeaderView>
#include <functional>

#include "desktop/widgets/scale.h"

namespace depcalc::desktop {

/// A header that nobody sees, and that only `sizeSections` sizes.
void prepareSections(QHeaderView& header);

/// Sizes the `count` sections of `header` by `twips`, which answers what each takes. Nobody hears
/// of it.
void sizeSections(QHeaderView& header, const Scale& scale, int count,
                  const std::function<int(int)>& twips);

}  // namespace depcalc::desktop
