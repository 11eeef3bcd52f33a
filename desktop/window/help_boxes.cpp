#include "desktop/window/help_boxes.h"

#include <QApplication>
#include <QMessageBox>
#include <algorithm>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "help/help_topics.h"

namespace depcalc::desktop {

void showAbout(QWidget* window) {
  QMessageBox box(
      QMessageBox::NoIcon, QObject::tr("About"),
      QObject::tr("<h3>Depreciation Calculator %1</h3><p>Keeps a register of a business's "
                  "assets, compares four methods of depreciation side by side and prints the "
                  "schedule.</p>")
          .arg(QApplication::applicationVersion()),
      QMessageBox::Ok, window);
  addGuideKey(box, guide::contents);
  tidyBox(box);
  box.exec();
}

void showTopicInBox(int link, QWidget* window) {
  const auto at = static_cast<std::size_t>(std::max(link, 0));
  const HelpTopic* const topic = findHelpTopic(helpLinks()[at].topic);
  if (topic == nullptr) return;
  QMessageBox box(QMessageBox::NoIcon, qtText(topic->title), qtText(topic->body), QMessageBox::Ok,
                  window);
  box.setTextFormat(Qt::PlainText);
  addGuideKey(box, guide::contents);
  tidyBox(box);
  box.exec();
}

}  // namespace depcalc::desktop
