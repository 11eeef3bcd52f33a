// What stands around the calculator's page: the toolbar and, beside it, Insight.
#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "desktop/widgets/surface.h"
#include "desktop/window/settings.h"
#include "desktop/workspace/insight_following.h"
#include "desktop/workspace/insight_panel.h"

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace depcalc::desktop {

class Calculator;
class SideDock;

/// Uses the calculator only as a user would, and can be closed away, part by part. What stands
/// beside the page is made when it is first to be seen, and does nothing while it is not.
class Workspace : public QObject {
  Q_OBJECT

 public:
  struct Doors {
    InsightFollowing::ReadAsset read;         ///< an asset as it is saved
    std::function<void(InsightPanel&)> fill;  ///< adds Insight's pages
    std::function<void()> leave;              ///< the keys go back to the page
  };

  /// `window` and `settings` live longer than this.
  Workspace(QMainWindow& window, QMenu& view, Settings& settings, Doors doors);

  /// A button of the toolbar for an action of the menus, which keeps its own text there. `picture`
  /// is a name of `toolPicture`.
  void addTool(QAction& action, const QString& caption, const char* picture);
  void addToolSeparator();

  /// Only an open company has something beside its page.
  void setOpen(bool company);
  /// The calculator that runs now; null while none does.
  void setCalculator(Calculator* calculator);
  /// Something may be another now, in the calculator or in the company.
  void follow();
  /// What Insight is about, from elsewhere than the calculator.
  void chooseInReport(std::int32_t number, std::optional<int> fiscal_year);
  /// Before the window closes.
  void remember();

  /// Null as long as it was never to be seen.
  [[nodiscard]] InsightPanel* insight() const { return insight_; }

 private:
  QAction* addPart(QMenu& view, const QString& text, const QString& part);
  void decideFirst();
  void arrange();
  void makeInsight();
  void followNow();

  QMainWindow& window_;
  Settings& settings_;
  Doors doors_;
  InsightFollowing following_;
  QToolBar* toolbar_;
  QAction* show_insight_;
  SideDock* insight_dock_ = nullptr;
  InsightPanel* insight_ = nullptr;
  bool open_ = false;
  bool decided_ = false;  ///< what stands beside the page of who has never chosen
  bool to_follow_ = false;
};

}  // namespace depcalc::desktop
