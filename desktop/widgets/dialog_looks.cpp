#include "desktop/widgets/dialog_looks.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace depcalc::desktop {

void tidyBox(QMessageBox& box) {
  constexpr int characters = 40;
  dropButtonIcons(box);
  auto* const label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr) return;
  // A least width would keep a longer text from being broken into lines.
  const int width = box.fontMetrics().averageCharWidth() * characters;
  if (box.fontMetrics().horizontalAdvance(box.text()) < width) label->setMinimumWidth(width);
  const int room = box.fontMetrics().height() / 2;
  label->setContentsMargins(0, room, 0, room);
}

void dropButtonIcons(QWidget& dialog) {
  for (QPushButton* button : dialog.findChildren<QPushButton*>()) button->setIcon({});
}

}  // namespace depcalc::desktop
