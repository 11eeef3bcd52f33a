#include "desktop/window/edit_menu.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTextEdit>

#include "desktop/widgets/cell_clipboard.h"
#include "desktop/window/calculator.h"

namespace depcalc::desktop {
namespace {

/// Of the field that has the keys.
QLineEdit* fieldWithSelection() {
  auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  return field != nullptr && field->hasSelectedText() ? field : nullptr;
}

/// Of what stands beside the page to be read.
QTextEdit* textWithSelection() {
  auto* const text = qobject_cast<QTextEdit*>(QApplication::focusWidget());
  return text != nullptr && text->textCursor().hasSelection() ? text : nullptr;
}

}  // namespace

EditMenu::EditMenu(QMenu& menu, std::function<Calculator*()> calculator)
    : QObject(&menu),
      calculator_(std::move(calculator)),
      copy_(menu.addAction(tr("&Copy"))),
      whole_(menu.addAction(tr("Copy &Whole Table"))) {
  copy_->setShortcut(QKeySequence::Copy);
  whole_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
  connect(copy_, &QAction::triggered, this, &EditMenu::copy);
  connect(whole_, &QAction::triggered, this, &EditMenu::copyWhole);
  connect(&menu, &QMenu::aboutToShow, this, &EditMenu::enable);
  enable();
}

void EditMenu::enable() {
  const bool any_table = table() != nullptr;
  copy_->setEnabled(any_table || fieldWithSelection() != nullptr || textWithSelection() != nullptr);
  whole_->setEnabled(any_table);
}

/// The one that has the focus, else the first that the screen shows.
const Grid* EditMenu::table() const {
  Calculator* const calculator = calculator_();
  const UserControl* const screen =
      calculator == nullptr ? nullptr : calculator->container().visibleScreen();
  if (screen == nullptr) return nullptr;
  const Grid* first = nullptr;
  for (const Control* child : screen->children()) {
    const auto* const grid = dynamic_cast<const Grid*>(child);
    if (grid == nullptr || !grid->isShown()) continue;
    if (grid->hasFocus()) return grid;
    if (first == nullptr) first = grid;
  }
  return first;
}

void EditMenu::copy() {
  if (QLineEdit* const field = fieldWithSelection()) return field->copy();
  if (QTextEdit* const text = textWithSelection()) return text->copy();
  if (const Grid* const grid = table()) copyCells(markedColumn(*grid));
}

void EditMenu::copyWhole() {
  if (const Grid* const grid = table()) copyCells(wholeGrid(*grid));
}

}  // namespace depcalc::desktop
