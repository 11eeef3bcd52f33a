#include "desktop/window/undo_menu.h"

#include <QMenu>

#include "desktop/window/step_names.h"
#include "host/history/recorder.h"

namespace depcalc::desktop {
namespace {

/// For a menu, where an ampersand would underline the letter behind it.
QString menuText(const StepTitle& title) {
  return stepName(title).replace(u'&', QStringLiteral("&&"));
}

/// Why nothing can be undone of a company that has been worked on before; "" where that needs no
/// words.
QString whyNothing(const Recorder& recorder) {
  switch (recorder.found()) {
    case StepLog::Found::other:
      return QObject::tr("the company was changed elsewhere");
    case StepLog::Found::damaged:
      return QObject::tr("the history file cannot be read");
    default:
      return {};
  }
}

}  // namespace

UndoMenu::UndoMenu(QMenu& menu, Doors doors)
    : QObject(&menu),
      undo_(menu.addAction(tr("&Undo"))),
      redo_(menu.addAction(tr("&Redo"))),
      history_(menu.addAction(tr("&History…"))) {
  undo_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
  redo_->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  connect(undo_, &QAction::triggered, this, doors.undo);
  connect(redo_, &QAction::triggered, this, doors.redo);
  connect(history_, &QAction::triggered, this, doors.history);
  menu.addSeparator();
  follow(nullptr);
}

void UndoMenu::follow(const Recorder* recorder) {
  const bool can_undo = recorder != nullptr && recorder->canUndo();
  const bool can_redo = recorder != nullptr && recorder->canRedo();
  undo_->setEnabled(can_undo);
  redo_->setEnabled(can_redo);
  history_->setEnabled(recorder != nullptr);
  undo_->setText(tr("&Undo"));
  undo_->setIconText(tr("Undo"));
  redo_->setText(tr("&Redo"));
  redo_->setIconText(tr("Redo"));
  if (can_undo) {
    const StepTitle& last = recorder->history().steps()[recorder->history().position() - 1].title;
    undo_->setText(tr("&Undo %1").arg(menuText(last)));
    undo_->setIconText(tr("Undo %1").arg(shortStepName(last)));
  } else if (const QString why = recorder == nullptr ? QString() : whyNothing(*recorder);
             !why.isEmpty()) {
    undo_->setText(tr("&Undo (%1)").arg(why));
  }
  if (can_redo) {
    const StepTitle& next = recorder->history().steps()[recorder->history().position()].title;
    redo_->setText(tr("&Redo %1").arg(menuText(next)));
    redo_->setIconText(tr("Redo %1").arg(shortStepName(next)));
  }
}

}  // namespace depcalc::desktop
