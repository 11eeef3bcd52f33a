#include "desktop/window/failed_change_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/system_end.h"

namespace depcalc::desktop {
namespace {

using InFile = FailedChange::InFile;

/// What becomes of a change that the disk did not take is on the disk; a server's trouble says it.
QString whatFileHas(const FailedChange& change) {
  if (change.on_server) {
    return QObject::tr(
        "The change is kept here until you have decided. Try again once the server "
        "can be reached, or save all of the company to a file on this computer.");
  }
  if (change.in_file == InFile::all) {
    return QObject::tr("The change is in the company file, but the disk did not confirm it.");
  }
  if (change.in_file == InFile::unknown) {
    return QObject::tr("It is not certain whether the change reached the company file.");
  }
  // Where the disk is full the reason says so already.
  return change.trouble.kind() == FileTrouble::Kind::disk_full
             ? QString()
             : QObject::tr("Nothing was changed in the company file.");
}

QString textOf(const FailedChange& change) {
  QString text = QObject::tr("The last change could not be saved.");
  const QString reason = qtText(change.trouble.description());
  for (const QString& part : {reason, whatFileHas(change)}) {
    if (!part.isEmpty()) text += QStringLiteral("\n\n") + part;
  }
  return text;
}

/// A question over an hourglass could not be answered.
class ArrowPointer {
 public:
  ArrowPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~ArrowPointer() { QApplication::restoreOverrideCursor(); }
  ArrowPointer(const ArrowPointer&) = delete;
  ArrowPointer& operator=(const ArrowPointer&) = delete;
};

enum class Choice { try_again, copy, close, none };

Choice choose(const FailedChange& change, QWidget* window) {
  QMessageBox box(QMessageBox::Warning, QObject::tr("Change Not Saved"), textOf(change),
                  QMessageBox::NoButton, window);
  box.setObjectName(QStringLiteral("FailedChange"));
  box.setTextFormat(Qt::PlainText);
  QPushButton* const again = box.addButton(QObject::tr("&Try Again"), QMessageBox::AcceptRole);
  QPushButton* const copy = box.addButton(QObject::tr("&Save a Copy As…"), QMessageBox::ActionRole);
  QPushButton* const close = box.addButton(QMessageBox::Close);
  box.setDefaultButton(again);
  box.setEscapeButton(close);
  addGuideKey(box, guide::not_saved);
  keepAtSystemEnd(box);
  tidyBox(box);
  box.exec();
  // No button at all: the program is ending, and no box would stand any more.
  if (box.clickedButton() == nullptr) return Choice::none;
  return box.clickedButton() == again  ? Choice::try_again
         : box.clickedButton() == copy ? Choice::copy
                                       : Choice::close;
}

bool givesUp(QWidget* window) {
  QMessageBox box(QMessageBox::Question, QObject::tr("Discard Change"),
                  QObject::tr("Give up this change?"), QMessageBox::Yes | QMessageBox::No, window);
  box.setDefaultButton(QMessageBox::No);
  addGuideKey(box, guide::not_saved);
  keepAtSystemEnd(box);
  tidyBox(box);
  return box.exec() == QMessageBox::Yes || box.clickedButton() == nullptr;
}

}  // namespace

FailedChangeAnswer askAboutFailedChange(const FailedChange& change,
                                        const std::function<QString()>& ask_copy, QWidget* window) {
  const ArrowPointer arrow;
  while (true) {
    const Choice choice = choose(change, window);
    if (choice == Choice::try_again) return TryAgain();
    if (choice == Choice::none) return GiveUp();
    if (choice == Choice::copy) {
      const QString path = ask_copy();
      if (!path.isEmpty()) return GoOnWithCopy{path.toStdString()};
    } else if (change.in_file == InFile::all || givesUp(window)) {
      return GiveUp();
    }
  }
}

}  // namespace depcalc::desktop
