// The Edit menu: what was done to the company last, and what was undone.
#pragma once

#include <QObject>
#include <functional>

class QAction;
class QMenu;

namespace depcalc {
class Recorder;
}  // namespace depcalc

namespace depcalc::desktop {

/// Undo and Redo name what they undo, and are disabled where there is nothing; why there is nothing
/// of a company that had a history says Undo. In a field, its keys are the field's own.
class UndoMenu : public QObject {
  Q_OBJECT

 public:
  struct Doors {
    std::function<void()> undo;
    std::function<void()> redo;
    std::function<void()> history;
  };

  UndoMenu(QMenu& menu, Doors doors);

  /// To be called whenever something may have been done. Null: no company is open.
  void follow(const Recorder* recorder);

  [[nodiscard]] QAction& undoAction() const { return *undo_; }
  [[nodiscard]] QAction& redoAction() const { return *redo_; }

 private:
  QAction* undo_;
  QAction* redo_;
  QAction* history_;
};

}  // namespace depcalc::desktop
