// The Edit menu: what may be copied of the screen that shows.
#pragma once

#include <QObject>
#include <functional>

class QAction;
class QMenu;

namespace depcalc {
class Grid;
}  // namespace depcalc

namespace depcalc::desktop {

class Calculator;

/// Copy takes the selected text of the field that has the keys, else the marked column of the
/// screen's table; Copy Whole Table all of it.
class EditMenu : public QObject {
  Q_OBJECT

 public:
  /// `calculator` answers the one that runs; null while none does.
  EditMenu(QMenu& menu, std::function<Calculator*()> calculator);

  /// To be called whenever another screen may show.
  void enable();

 private:
  [[nodiscard]] const Grid* table() const;
  void copy();
  void copyWhole();

  std::function<Calculator*()> calculator_;
  QAction* copy_;
  QAction* whole_;
};

}  // namespace depcalc::desktop
