#include "desktop/window/view_menu.h"

#include <QActionGroup>
#include <QStyle>
#include <algorithm>

#include "desktop/window/fit_width.h"

namespace depcalc::desktop {
namespace {

constexpr int zoom_steps[] = {75, 100, 125, 150, 175, 200, 250, 300};

int nextZoom(int zoom, bool larger) {
  int found = larger ? maximum_zoom : minimum_zoom;
  for (const int step : zoom_steps) {
    if (larger && step > zoom) return step;
    if (!larger && step < zoom) found = step;
  }
  return found;
}

}  // namespace

ViewMenu::ViewMenu(QMenu& menu, Settings& settings, Page& page)
    : QObject(&menu), settings_(settings), page_(page), steps_(new QActionGroup(this)) {
  fit_width_ = menu.addAction(tr("&Fit Width"));
  fit_width_->setCheckable(true);
  connect(fit_width_, &QAction::triggered, this, &ViewMenu::setFitWidth);
  makeSteps(*menu.addMenu(tr("&Zoom")));
  const auto add = [this, &menu](const QString& text, const QKeySequence& key, auto percent) {
    QAction* const action = menu.addAction(text);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [this, percent] { setZoom(percent()); });
  };
  add(tr("Zoom &In"), QKeySequence::ZoomIn, [this] { return nextZoom(zoom(), true); });
  add(tr("Zoom &Out"), QKeySequence::ZoomOut, [this] { return nextZoom(zoom(), false); });
  add(tr("&Actual Size"), QKeySequence(Qt::CTRL | Qt::Key_0), [] { return 100; });
  connect(&page, &Page::reshaped, this, &ViewMenu::apply);
  apply();
}

void ViewMenu::makeSteps(QMenu& menu) {
  // None of them while the width is fitted.
  steps_->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
  for (const int percent : zoom_steps) {
    QAction* const action = menu.addAction(tr("%1 %").arg(percent));
    action->setCheckable(true);
    action->setData(percent);
    steps_->addAction(action);
    connect(action, &QAction::triggered, this, [this, percent] { setZoom(percent); });
  }
}

std::span<const int> ViewMenu::steps() { return zoom_steps; }

Scale ViewMenu::scale() const { return Scale(page_.logicalDpiX(), zoom()); }

void ViewMenu::setZoom(int percent) {
  settings_.setZoom(std::clamp(percent, minimum_zoom, maximum_zoom));
  settings_.setFitWidth(false);
  apply();
}

void ViewMenu::setFitWidth(bool on) {
  settings_.setFitWidth(on);
  apply();
}

int ViewMenu::zoom() const {
  if (!settings_.fitWidth()) return settings_.zoom();
  const double pixels_per_twip = page_.logicalDpiX() / static_cast<double>(twips_per_inch);
  return fittingZoom({page_.room(), page_.style()->pixelMetric(QStyle::PM_ScrollBarExtent),
                      pixels_per_twip, page_.shownPlace(), page_.shownPlaceWithHelp()});
}

void ViewMenu::apply() {
  if (page_.surface() != nullptr && page_.surface()->scale().zoom() != zoom()) {
    page_.surface()->setScale(scale());
  }
  fit_width_->setChecked(settings_.fitWidth());
  for (QAction* step : steps_->actions()) {
    step->setChecked(!settings_.fitWidth() && step->data().toInt() == settings_.zoom());
  }
}

}  // namespace depcalc::desktop
