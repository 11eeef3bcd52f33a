#include "desktop/preview/modal_picture.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace depcalc::desktop {
namespace {

constexpr int look_ms = 20;
constexpr int settling_rounds = 5;
constexpr int layout_ms = 30;  // a long text is laid out behind its first page

}  // namespace

void settle() {
  const QDeadlineTimer laid_out(layout_ms);
  for (int i = 0; i < settling_rounds || !laid_out.hasExpired(); ++i) QApplication::processEvents();
}

QStringList drawModal(const QString& path, const std::function<void()>& open,
                      const std::function<void(QDialog&)>& answer) {
  QStringList drawn;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    timer.stop();
    settle();
    if (dialog->grab().save(path)) drawn << path;
    answer(*dialog);
  });
  timer.start(look_ms);
  open();
  return drawn;
}

}  // namespace depcalc::desktop
