// A dark desktop's palette, for looking at how things look there.
#pragma once

#include <QPalette>

namespace depcalc::desktop {

inline QPalette darkPalette() {
  const QColor window(45, 45, 48);
  const QColor base(30, 30, 32);
  const QColor text(228, 228, 228);
  QPalette palette(window);
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::Button, window);
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
  }
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::Highlight, QColor(150, 70, 60));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

}  // namespace depcalc::desktop
