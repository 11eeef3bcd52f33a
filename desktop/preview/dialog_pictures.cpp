#include "desktop/preview/dialog_pictures.h"

#include <QAction>
#include <utility>

#include "changes/disposing.h"
#include "desktop/preview/modal_picture.h"
#include "desktop/window/guide_window.h"
#include "engine/method.h"

namespace depcalc::desktop {
namespace {

constexpr QSize guide_size(1000, 700);

class Pictures {
 public:
  Pictures(MainWindow& window, QString directory)
      : window_(window), directory_(std::move(directory)) {}

  QStringList draw() {
    drawDialog("Preferences…", "preferences");
    drawDialog("Open from Server…", "open-from-server");
    drawDialog("Company Info…", "company-info");
    drawDialog("Recalculate All Assets…", "recalculate");
    drawForAsset("Dispose…", "dispose", false);
    drawForAsset("Units Produced…", "units", true);
    drawGuide();
    return paths_;
  }

 private:
  QString path(const char* name) const {
    return directory_ + u'/' + QLatin1String(name) + QStringLiteral(".png");
  }

  QAction* item(const char* text) {
    for (QAction* found : window_.findChildren<QAction*>()) {
      if (QString(found->text()).remove(u'&') == QString::fromUtf8(text)) return found;
    }
    return nullptr;
  }

  void drawDialog(const char* text, const char* name) {
    QAction* const action = item(text);
    if (action == nullptr || !action->isEnabled()) return;
    paths_ << drawModal(path(name), [action] { action->trigger(); });
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
    settle();
    if (guide->grab().save(path("guide"))) paths_ << path("guide");
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
