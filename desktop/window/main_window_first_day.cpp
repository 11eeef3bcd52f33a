// What helps a user along: the sample company, hints, preferences, the guide.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "desktop/guide/guide_pages.h"
#include "desktop/guide/next_step.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/file_names.h"
#include "desktop/window/guide_window.h"
#include "desktop/window/hint_bar.h"
#include "desktop/window/main_window.h"
#include "desktop/window/preferences_dialog.h"
#include "desktop/window/reports_window.h"
#include "values/number_text.h"

namespace depcalc::desktop {
namespace {

ShownScreen shownScreen(Calculator& calculator) {
  const UserControl* const screen = calculator.container().visibleScreen();
  if (screen == nullptr) return ShownScreen::none;
  if (screen == calculator.assetRegister()) return ShownScreen::assets;
  return screen->name() == "DepCalcDisplayCtl1" ? ShownScreen::comparison : ShownScreen::form;
}

}  // namespace

/// A copy that is the user's own, beside what is there already.
void MainWindow::openSampleCompany() {
  if (!mayLeave()) return;
  const QString folder = around_.documents.isEmpty() ? QDir::homePath() : around_.documents;
  QDir().mkpath(folder);
  const QString path = freePath(folder, tr("Sample Joinery"), QStringLiteral(".company"));
  if (!QFile::copy(around_.shared + QStringLiteral("/sample.company"), path)) {
    return tell(tr("The sample company could not be copied to %1.").arg(folder));
  }
  QFile::setPermissions(path, QFile::permissions(path) | QFile::WriteOwner);
  around_.settings.addSample(path);
  openCompany(path);
}

UserState MainWindow::userState() {
  UserState state;
  if (calculator_ == nullptr) return state;
  state.screen = shownScreen(*calculator_);
  state.assets = calculator_->assetCount().value_or(0);
  state.sample = around_.settings.isSample(companyPath());
  const std::optional<int> number = calculator_->currentAsset();
  state.on_saved_asset = number.has_value();
  const auto note = [&state](const std::string& method, const std::string& capacity) {
    state.method = method;
    state.has_capacity = tryNumberFromText(capacity).value_or(0) > 0;
  };
  if (state.screen != ShownScreen::assets) {
    const CalculateDepPtr record = calculator_->container().CurrentRecord();
    if (record != nullptr) note(record->DepMethod(), record->AssetProdCap());
  } else if (number) {
    // The calculator's own record may be a blank one, whatever asset is selected.
    if (const auto asset = savedAssetAt(*number)) note(asset->method, asset->capacity);
  }
  return state;
}

void MainWindow::makeHints() {
  connect(hints_, &HintBar::moreWanted, this, &MainWindow::openGuide);
  connect(hints_, &HintBar::dismissed, this, [this](const QString& key) {
    around_.settings.dismiss(key);
    showNextStep();
  });
  connect(hints_, &HintBar::reshaped, this,
          [this] { page_->lendHeight(hints_->isHidden() ? 0 : hints_->height()); });
  auto* const middle = new QWidget(this);
  middle->setAccessibleName(tr("Calculator and hint"));
  auto* const column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(page_, 1);
  column->addWidget(hints_);
  setCentralWidget(middle);
}

void MainWindow::showNextStep() {
  const auto dismissed = [this](Hint hint) {
    const NextStep& step = nextSteps()[static_cast<std::size_t>(hint)];
    return around_.settings.isDismissed(qtText(step.key));
  };
  const bool wanted = calculator_ != nullptr && around_.settings.gives(Notice::hints);
  hints_->show(wanted ? nextStep(userState(), dismissed) : nullptr);
}

void MainWindow::askPreferences() {
  PreferencesDialog dialog(around_.settings, this);
  connect(&dialog, &PreferencesDialog::appearanceChosen, this,
          [this](Appearance chosen) { appearances_.use(chosen); });
  connect(&dialog, &PreferencesDialog::zoomChosen, this, [this](int percent) {
    percent == 0 ? view_menu_->setFitWidth(true) : view_menu_->setZoom(percent);
  });
  connect(&dialog, &PreferencesDialog::paperChosen, this, [this] {
    if (reports_ != nullptr) reports_->followPaper();
  });
  connect(&dialog, &PreferencesDialog::noticesChosen, this, &MainWindow::showNextStep);
  dialog.exec();
}

bool MainWindow::hasGuide() const {
  return QFileInfo::exists(around_.shared + QStringLiteral("/guide/index.html"));
}

void MainWindow::openGuide(const QString& page) {
  const QString folder = around_.shared + QStringLiteral("/guide");
  if (!hasGuide()) {
    return tell(tr("The guide is not installed. It belongs in the folder %1.").arg(folder));
  }
  if (guide_ == nullptr || !guide_->isVisible()) guide_ = new GuideWindow(folder, this);
  guide_->standBefore(QApplication::activeModalWidget());
  guide_->openPage(page.isEmpty() ? qtText(guide::contents) : page);
  guide_->show();
  guide_->raise();
  guide_->activateWindow();
}

/// It belongs to the program, whose last window the main one is.
void MainWindow::endGuide() {
  if (guide_ != nullptr) guide_->close();
}

void MainWindow::openGuideHere() { openGuide(qtText(guidePageFor(userState()))); }

/// Where the calculator explains nothing.
void MainWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) return openGuideHere();
  QMainWindow::keyPressEvent(event);
}

}  // namespace depcalc::desktop
