#include "desktop/widgets/cell_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {

void copyCells(const CopiedCells& cells) {
  auto* const data = new QMimeData;
  data->setText(qtText(cells.text));
  data->setHtml(qtText(cells.html));
  QGuiApplication::clipboard()->setMimeData(data);
}

}  // namespace depcalc::desktop
