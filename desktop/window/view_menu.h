// The View menu: how large the calculator is shown.
#pragma once

#include <QMenu>
#include <span>

#include "desktop/widgets/page.h"
#include "desktop/window/settings.h"

class QActionGroup;

namespace depcalc::desktop {

/// Either a step of the zoom or the one that fits the width, which follows the window.
class ViewMenu : public QObject {
  Q_OBJECT

 public:
  /// All of them live longer than this.
  ViewMenu(QMenu& menu, Settings& settings, Page& page);

  /// The steps of the zoom, in percent.
  [[nodiscard]] static std::span<const int> steps();

  [[nodiscard]] Scale scale() const;
  /// Brought within its bounds; ends fitting the width.
  void setZoom(int percent);
  void setFitWidth(bool on);

 private:
  void makeSteps(QMenu& menu);
  [[nodiscard]] int zoom() const;
  void apply();

  Settings& settings_;
  Page& page_;
  QActionGroup* steps_;
  QAction* fit_width_;
};

}  // namespace depcalc::desktop
