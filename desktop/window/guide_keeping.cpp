#include "desktop/window/guide_keeping.h"

#include <QApplication>
#include <QFileInfo>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/guide_window.h"

namespace depcalc::desktop {

GuideKeeping::GuideKeeping(QString folder, QWidget& window,
                           std::function<void(const QString&)> tell)
    : folder_(std::move(folder)), window_(window), tell_(std::move(tell)) {}

GuideKeeping::~GuideKeeping() = default;

bool GuideKeeping::isInstalled() const {
  return QFileInfo::exists(folder_ + QStringLiteral("/index.html"));
}

void GuideKeeping::open(const QString& page) {
  if (!isInstalled()) {
    return tell_(
        QObject::tr("The guide is not installed. It belongs in the folder %1.").arg(folder_));
  }
  if (guide_ == nullptr || !guide_->isVisible()) guide_ = new GuideWindow(folder_, &window_);
  guide_->standBefore(QApplication::activeModalWidget());
  guide_->openPage(page.isEmpty() ? qtText(guide::contents) : page);
  guide_->show();
  guide_->raise();
  guide_->activateWindow();
}

/// It belongs to the program, whose last window the main one is.
void GuideKeeping::end() {
  if (guide_ != nullptr) guide_->close();
}

}  // namespace depcalc::desktop
