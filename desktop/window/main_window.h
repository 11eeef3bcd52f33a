// The host's window: a page that shows the calculator, and everything around it.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>
#include <string>

#include "desktop/host/backups.h"
#include "desktop/host/desktop_application.h"
#include "desktop/host/saving.h"
#include "desktop/reports/report_desk.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/window/appearance.h"
#include "desktop/window/calculator.h"
#include "desktop/window/failure_telling.h"
#include "desktop/window/guide_keeping.h"
#include "desktop/window/leaving.h"
#include "desktop/window/opening_backup.h"
#include "desktop/window/print_help.h"
#include "desktop/window/saved_register.h"
#include "desktop/window/schedule_printing.h"
#include "desktop/window/settings.h"

namespace depcalc::desktop {

class AssetChanges;
class CompanyDialogs;
class Hints;
class Importing;
class MainMenus;
enum class Need : std::uint8_t;
class Recalculating;
class ReportsKeeping;
class StatusLine;
class Workspace;

/// Opens companies and shows the calculator of the one that is open. What else there is to do it
/// leaves to its parts.
class MainWindow : public QMainWindow, public GuideReader {
  Q_OBJECT

 public:
  /// What the window works with; all of it outlives the window.
  struct Surroundings {
    CompanyFiles& files;
    Settings& settings;
    Backups& backups;
    DesktopSite::Today today;
    std::string start_directory;
    QString shared = {};     ///< the folder with the guide and the sample company
    QString documents = {};  ///< where the user keeps documents; "" for the home directory
    DesktopApplication::Now now = secondsByClock;
  };

  explicit MainWindow(Surroundings surroundings);
  ~MainWindow() override;

  /// Opens this company in place of the one that is open, and the calculator where it is in
  /// single-user mode. What goes wrong is told to the user, and another company that is open stays
  /// so. Returns whether this one is open.
  bool openCompany(const QString& path);
  /// The same as soon as the window has been painted for the first time: it is there at once, and
  /// says until then which company it opens.
  void openCompanyWhenPainted(const QString& path);
  bool createCompany(const QString& path, const CompanyInfo& info);
  /// Whether the calculator may now be taken away; the user is asked where there is something to
  /// ask.
  bool mayLeave();
  /// What the user sees of the program comes to the front.
  void showToUser();
  [[nodiscard]] bool hasUnsavedEntry();
  /// Closes the window because the system wants it; a question says so, and when its time is up.
  /// Returns whether it is closed.
  bool closeForSystem(int seconds);
  /// Closes the company's file and leaves everything else as it stands: the process is to end now,
  /// wherever it is.
  void giveUp();
  // Leaves the calculator: where the user cancels that, these change nothing.
  void closeCompany();
  void setMultiUser(bool on);
  void setCompanyInfo(const CompanyInfo& info);
  /// The same as the user's wish: where the fiscal year changes, the calculator is left and started
  /// anew, and the assets that have another one are offered for recalculation. Where the user
  /// cancels the leaving, nothing changes.
  void changeCompanyInfo(const CompanyInfo& info);
  /// In the place of the open company's file, or of another one's.
  bool restoreBackup(const Backup& backup);
  bool restoreBackup(const Backup& backup, const QString& path);
  /// The open company stays as it is; where its file is gone, the copy takes its place.
  bool saveCopy(const QString& path);
  // Leave the calculator: where the user cancels that, or saves something first, these change
  // nothing.
  void undo();
  void redo();
  void showHistory();
  /// As the register's Edit button would, from whatever screen: what is to be asked before that one
  /// is left is asked, and where the user cancels, nothing changes.
  void editAsset(std::int32_t number);
  /// A calculator of its own, anew.
  void startCalculator();
  /// Opens the Reports window with this kind of report, or brings it to the front.
  void showReports(ReportKind kind);
  /// Shows what the file holds and, where the user agrees, adds its assets to the register.
  void importFile(const QString& path);
  /// Makes a company to try things on, and opens it.
  void openSampleCompany();
  void openGuide(const QString& page) override;
  [[nodiscard]] bool hasGuide() const;
  void setZoom(int percent);

  [[nodiscard]] Calculator* calculator() const { return calculator_.get(); }
  [[nodiscard]] Company* company() const { return application_->company(); }
  [[nodiscard]] Page& page() const { return *page_; }
  [[nodiscard]] Workspace& workspace() const { return *workspace_; }

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // main_window_parts.cpp
  void makeHints();
  void makeMenus();
  void makeWorkspace();
  void fillToolbar();
  void makeReports();
  void makeDialogs();
  void makeChanges();
  [[nodiscard]] bool isThere(Need need);

  // main_window_wishes.cpp
  void askCompanyInfo();
  void askPreferences();
  void showHelpTopic(int link);
  void selectAsset(std::int32_t number);

  // main_window_changes.cpp
  void askRecalculation();
  QString saveStep(std::int32_t asset, StepKind kind, const Save& save);
  void moveInHistory(Side side);
  void goToStep(Side side);
  void noteChanges();
  void followCompany();

  // main_window_backups.cpp
  [[nodiscard]] bool keepFreshBackup();
  [[nodiscard]] std::optional<Content> contentOf(const QString& path);

  // main_window_leaving.cpp
  bool leaveCompany();
  void endCompany();
  void remember(const QString& open);

  void fillPage();
  [[nodiscard]] bool isOpen(const QString& path) const;
  bool isLost();
  void takeCompany(std::unique_ptr<Company> company, const QString& path);
  [[nodiscard]] std::unique_ptr<Calculator> makeCalculator();
  void endCalculator();
  void showPlaceholder();
  void showStatus();
  void tell(const QString& text) { failures_.tell(text); }
  [[nodiscard]] bool isMultiUser() const;
  [[nodiscard]] QString companyPath() const;
  [[nodiscard]] QString companyTitle() const;

  Surroundings around_;
  Appearances appearances_;
  std::shared_ptr<DesktopApplication> application_;
  FailureTelling failures_;
  Page* page_;
  SchedulePrinting printing_;
  DesktopSite site_;
  Leaving leaving_;
  std::unique_ptr<Calculator> calculator_;
  std::unique_ptr<PrintHelp> print_help_;
  OpeningBackup backup_;
  SavedRegister saved_;
  GuideKeeping guide_;
  std::unique_ptr<CompanyDialogs> companies_;
  std::unique_ptr<AssetChanges> changes_;
  std::unique_ptr<Recalculating> recalculating_;
  std::unique_ptr<Importing> importing_;
  StatusLine* status_ = nullptr;
  Hints* hints_ = nullptr;
  MainMenus* menus_ = nullptr;
  Workspace* workspace_ = nullptr;
  ReportsKeeping* reports_ = nullptr;
  bool painted_ = false;
  QString awaiting_paint_;           ///< the company to open then
  QString followed_path_;            ///< of the company, as the settings have it
  std::optional<Content> replaced_;  ///< what the company to open was before
};

}  // namespace depcalc::desktop
