// The menus of the main window.
#pragma once

#include <QObject>
#include <functional>

#include "desktop/reports/report_desk.h"
#include "desktop/window/action_needs.h"
#include "desktop/window/asset_menu.h"
#include "desktop/window/edit_menu.h"
#include "desktop/window/settings.h"
#include "desktop/window/undo_menu.h"
#include "desktop/window/view_menu.h"

class QKeySequence;
class QMenuBar;

namespace depcalc::desktop {

/// The letters of the menus are none that the calculator's own buttons and tabs use.
class MainMenus : public QObject {
  Q_OBJECT

 public:
  using Act = std::function<void()>;

  /// What the user chooses, menu by menu.
  struct Doors {
    Act new_company, open_company, open_from_server;
    std::function<void(const QString&)> open;
    Act close_company, save_copy, restore_backup;
    Act import;
    std::function<void(bool)> set_multi_user;
    Act print, preview;
    Act quit;

    UndoMenu::Doors undo;
    Act preferences;

    Act company_info, recalculate, start_calculator;

    Act dispose, undo_disposal, units;

    std::function<void(ReportKind)> report;

    Act guide, sample_company;
    std::function<void(int)> topic;  ///< a link of the calculator's main help; -1 for that itself
    Act about;

    std::function<Calculator*()> calculator;  ///< that runs; null while none does
  };
  /// Actions that are offered elsewhere, too.
  struct Offered {
    QAction* new_company;
    QAction* open_company;
    QAction* sample_company;
    QAction* to_single_user;
    QAction* import;
    QAction* dispose;
    QAction* report;
    QAction* print;
  };

  /// All of them live longer than this.
  MainMenus(QMenuBar& bar, Doors doors, Settings& settings, Page& page);

  /// To be called once others have added their items to Edit and View.
  void finish();
  [[nodiscard]] QMenu& edit() const { return *edit_; }
  [[nodiscard]] QMenu& view() const { return *view_; }

  /// Something may have been done, or another screen may show. `is_there` says what actions need,
  /// `multi_user` whether that is the mode of the open company.
  void follow(const Recorder* recorder, const std::function<bool(Need)>& is_there, bool multi_user);

  [[nodiscard]] const Offered& offered() const { return offered_; }
  [[nodiscard]] UndoMenu& undoMenu() const { return *undo_menu_; }
  [[nodiscard]] AssetMenu& assetMenu() const { return *asset_menu_; }
  [[nodiscard]] ViewMenu& viewMenu() const { return *view_menu_; }

 private:
  void fillFileMenu(QMenu& menu, const Settings& settings);
  void addModes(QMenu& menu);
  void fillCompanyMenu(QMenu& menu);
  void fillAssetMenu(QMenu& menu);
  void fillReportsMenu(QMenu& menu);
  void fillHelpMenu(QMenu& menu);
  QAction* add(QMenu& menu, const QString& text, const QKeySequence& key, const Act& act);

  Doors doors_;
  QMenu* edit_ = nullptr;
  QMenu* view_ = nullptr;
  UndoMenu* undo_menu_ = nullptr;
  EditMenu* edit_menu_ = nullptr;
  AssetMenu* asset_menu_ = nullptr;
  ViewMenu* view_menu_ = nullptr;
  ActionNeeds needs_;
  Offered offered_ = {};
  QAction* to_multi_user_ = nullptr;
};

}  // namespace depcalc::desktop
