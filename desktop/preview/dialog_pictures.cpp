#include "desktop/preview/dialog_pictures.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <utility>

#include "changes/disposing.h"
#include "desktop/window/guide_window.h"
#include "engine/method.h"

namespace depcalc::desktop {
namespace {

constexpr QSize guide_size(1000, 700);
constexpr int look_ms = 20;
constexpr int settling_rounds = 5;

class Pictures {
 public:
  Pictures(MainWindow& window, QString directory)
      : window_(window), directory_(std::move(directory)) {}

  QStringList draw() {
    drawDialog("Preferences…", "preferences");
    drawDialog("Company Info…", "company-info");
    drawDialog("Recalculate All Assets…", "recalculate");
    drawForAsset("Dispose…", "dispose", false);
    drawForAsset("Units Produced…", "units", true);
    drawGuide();
    return paths_;
  }

 private:
  static void settle() {
    for (int i = 0; i < settling_rounds; ++i) QApplication::processEvents();
  }

  void take(QWidget& widget, const char* name) {
    settle();
    const QString path = directory_ + u'/' + QLatin1String(name) + QStringLiteral(".png");
    if (widget.grab().save(path)) paths_ << path;
  }

  QAction* item(const char* text) {
    for (QAction* found : window_.findChildren<QAction*>()) {
      if (QString(found->text()).remove(u'&') == QString::fromUtf8(text)) return found;
    }
    return nullptr;
  }

  /// A dialog waits for its user; who looks at it closes it as well.
  void drawDialog(const char* text, const char* name) {
    QAction* const action = item(text);
    if (action == nullptr || !action->isEnabled()) return;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || !dialog->isVisible()) return;
      timer.stop();
      take(*dialog, name);
      dialog->reject();
    });
    timer.start(look_ms);
    action->trigger();
    settle();
  }

  /// Of the first asset that is depreciated by units, or is not.
  void drawForAsset(const char* text, const char* name, bool by_units) {
    const int count = window_.calculator()->assetCount().value_or(0);
    for (int number = 1; number <= count; ++number) {
      window_.calculator()->selectAsset(number);
      settle();
      CompanyAssets assets(window_.company()->file(), todayByClock());
      if (countsAsUnitsOfProduction(savedAsset(assets, number).method) != by_units) continue;
      drawDialog(text, name);
      return;
    }
  }

  void drawGuide() {
    if (!window_.hasGuide()) return;
    window_.openGuide(QStringLiteral("methods.html"));
    auto* const guide = window_.findChild<GuideWindow*>();
    if (guide == nullptr || !guide->isVisible()) return;
    guide->resize(guide_size);
    take(*guide, "guide");
    guide->close();
  }

  MainWindow& window_;
  QString directory_;
  QStringList paths_;
};

}  // namespace

QStringList drawDialogs(MainWindow& window, const QString& directory) {
  return Pictures(window, directory).draw();
}

}  // namespace depcalc::desktop
