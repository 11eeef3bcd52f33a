// The Asset menu: the buttons of the calculator's screens, wherever the page is scrolled.
#pragma once

#include <QList>
#include <QObject>
#include <functional>

class QAction;
class QMenu;

namespace depcalc {
class Grid;
class PictureButton;
}  // namespace depcalc

namespace depcalc::desktop {

class Calculator;

/// Each item presses the button of the screen that shows, as a click on it would, and is enabled
/// where that screen has such a button.
class AssetMenu : public QObject {
  Q_OBJECT

 public:
  /// `calculator` answers the one that runs; null while none does.
  AssetMenu(QMenu& menu, std::function<Calculator*()> calculator);

  /// To be called whenever another screen may show.
  void enable();
  /// The item that presses the button of this picture: "new", "edit", "save".
  [[nodiscard]] QAction* item(const char* picture) const;
  /// The user opened a cell of `grid`: one of the register is its asset, to be edited.
  void cellOpened(const Grid& grid);

 private:
  void add(QMenu& menu, const QString& text, const QKeySequence& key, const char* picture);
  [[nodiscard]] PictureButton* button(const QString& picture) const;
  void press(const QString& picture);

  std::function<Calculator*()> calculator_;
  QList<QAction*> actions_;
};

}  // namespace depcalc::desktop
