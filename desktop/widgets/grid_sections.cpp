#include "desktop/widgets/grid_sections.h"

#include <QSignalBlocker>
#include <algorithm>

namespace depcalc::desktop {

void prepareSections(QHeaderView& header) {
  header.hide();
  header.setMinimumSectionSize(0);
  header.setSectionResizeMode(QHeaderView::Fixed);
}

/// Rounded at the edges so that errors do not add up.
void sizeSections(QHeaderView& header, const Scale& scale, int count,
                  const std::function<int(int)>& twips) {
  const QSignalBlocker silent(header);
  const int usual = count > 1 ? scale.pixels(twips(1)) : 1;
  header.setDefaultSectionSize(std::max(1, usual));
  double reached = 0;
  int edge = 0;
  for (int i = 0; i < count; ++i) {
    reached += twips(i);
    const int size = scale.pixels(reached) - edge;
    edge += size;
    if (header.sectionSize(i) != size) header.resizeSection(i, size);
  }
}

}  // namespace depcalc::desktop
