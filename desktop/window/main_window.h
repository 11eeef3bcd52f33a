// The host's window: a page that shows the calculator, and everything around it.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "common/report_error.h"
#include "desktop/guide/next_step.h"
#include "desktop/host/backups.h"
#include "desktop/host/desktop_application.h"
#include "desktop/reports/report_desk.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/window/appearance.h"
#include "desktop/window/asset_menu.h"
#include "desktop/window/calculator.h"
#include "desktop/window/edit_menu.h"
#include "desktop/window/print_help.h"
#include "desktop/window/printing.h"
#include "desktop/window/settings.h"
#include "desktop/window/undo_menu.h"
#include "desktop/window/view_menu.h"

class QAction;
class QLabel;
class QMenu;

namespace depcalc {
class AssetImport;
class CompanyAssets;
struct WhatIfRow;
enum class FiscalYearEnds;
struct Recalculation;
}  // namespace depcalc

namespace depcalc::desktop {

struct ChartFile;
class GuideWindow;
class HintBar;
class InsightPanel;
struct InsightSubject;
class ReportsWindow;
class Workspace;

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
  /// Whether the calculator may now be taken away. The field that has the focus validates first;
  /// where it refuses its text, and where the user cancels the question about unsaved changes,
  /// everything stays as it is. Once the user has answered, the question is not repeated until
  /// something is done to the calculator.
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
  void setZoom(int percent) { view_menu_->setZoom(percent); }

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
  // main_window_menus.cpp
  void makeMenus();
  void makeFileMenu();
  void makeCompanyMenu();
  void makeAssetMenu();
  void makeHelpMenu();
  QAction* addAction(QMenu& menu, const QString& text, const QKeySequence& key,
                     void (MainWindow::*act)());
  void fillRecentMenu();
  void enableActions();

  // main_window_dialogs.cpp
  void askNewCompany();
  void askOpenCompany();
  void askOpenFromServer();
  [[nodiscard]] ScheduleJob jobOf(Calculator& calculator);
  void print();
  void previewPrint();
  void showAbout();
  void showHelpTopic(int link);
  void tell(const QString& text);
  [[nodiscard]] std::unique_ptr<Printer> systemPrinter();

  // main_window_first_day.cpp
  [[nodiscard]] UserState userState();
  void makeHints();
  void showNextStep();
  void askPreferences();
  void openGuideHere();
  void endGuide();

  // main_window_reports.cpp
  void makeReportsMenu();
  [[nodiscard]] std::shared_ptr<const RegisterOfAssets> registerForReports();
  [[nodiscard]] std::size_t assetsNotPrinted();
  void followReports();
  [[nodiscard]] bool reportsAreOfCompany() const;
  void endReports();

  // main_window_workspace.cpp
  void makeWorkspace(QMenu& edit, QMenu& view);
  void fillToolbar();
  void fillInsight(InsightPanel& panel);
  [[nodiscard]] std::optional<SavedAsset> savedAssetAt(std::int32_t number);
  [[nodiscard]] std::shared_ptr<RegisterOfAssets> registerAsSaved();
  void selectAsset(std::int32_t number);

  // main_window_insight.cpp
  void addChartPages(InsightPanel& panel);
  void saveChart(const ChartFile& file);
  [[nodiscard]] DepCalcCtl* formWith(const InsightSubject& subject);
  void useWhatIf(const InsightSubject& subject, const WhatIfRow& row);

  // main_window_recalculation.cpp
  void askCompanyInfo();
  void askRecalculation();
  void recalculate(FiscalYearEnds ends);
  void saveRecalculated(FiscalYearEnds ends, const Recalculation& seen);
  /// What went wrong in `save`, which answers what was reported; "" where nothing did.
  [[nodiscard]] QString problemOfSaving(const std::function<std::optional<std::string>()>& save);
  [[nodiscard]] bool keepFreshBackup();

  // main_window_changes.cpp
  /// Changes an asset; answers what was reported.
  using AssetChange = std::function<std::optional<std::string>(CompanyAssets& assets, int number)>;
  /// Asks the user about a change of asset `number`; null where there is to be none.
  using AskedChange = std::function<AssetChange(CompanyAssets& assets, int number)>;
  void changeAsset(const AskedChange& ask);
  void askDisposal();
  void undoDisposal();
  void askUnits();
  [[nodiscard]] bool isCurrentAssetDisposed();

  // main_window_undo.cpp
  [[nodiscard]] std::optional<std::string> asStep(
      StepKind kind, const std::function<std::optional<std::string>()>& save);
  void moveInHistory(Side side);
  void goToStep(Side side);
  [[nodiscard]] std::optional<int> assetOfNextStep(Side side);
  void showSaved();
  [[nodiscard]] std::optional<Content> contentOf(const QString& path);

  // main_window_importing.cpp
  void askImport();
  [[nodiscard]] std::unique_ptr<AssetImport> readFileToImport(const QString& path);
  void saveImported(const AssetImport& import);

  // main_window_backups.cpp
  bool setAside(Company& company);
  void askBackup();
  void offerBackups(const QString& path);
  void tellNotOpened(const CompanyFileError& error, const QString& path);

  // main_window_failures.cpp
  void noteFailure(const ErrorReport& report);
  void tellChangesAreRefused(bool of_reading);
  void tellLater(const QString& text);
  FailedChangeAnswer askAboutChange(const FailedChange& change);
  void endTelling(bool given_up);
  [[nodiscard]] QString askCopyPath();
  void askCopy();
  void followCompany();
  void clearNote();

  void fillPage();
  // main_window_leaving.cpp
  bool leaveCompany();
  void endCompany();
  void remember(const QString& open);

  [[nodiscard]] bool isOpen(const QString& path) const;
  bool isLost();
  void endCalculator();
  void takeCompany(std::unique_ptr<Company> company, const QString& path);
  void showPlaceholder();
  void noteChanges();
  void showStatus();
  [[nodiscard]] QString companyPath() const;
  [[nodiscard]] QString companyFolder() const;
  [[nodiscard]] QString companyTitle() const;
  [[nodiscard]] std::optional<std::uint64_t> revision() const;

  Surroundings around_;
  Appearances appearances_;
  std::shared_ptr<DesktopApplication> application_;
  ErrorReportHook report_hook_;
  Page* page_;
  HintBar* hints_;
  DesktopSite site_;
  std::unique_ptr<Calculator> calculator_;
  std::unique_ptr<PrintHelp> print_help_;
  std::uint64_t kept_revision_ = 0;
  bool backup_kept_ = false;
  std::optional<Content> replaced_;  ///< what the company to open was before
  QString leaving_note_;             ///< below the question
  bool leaving_ = false;             ///< the user is being asked
  bool may_leave_ = false;           ///< and has agreed
  bool painted_ = false;
  bool asking_ = false;  ///< about a change that could not be saved: it is held meanwhile
  int questions_ = 0;    ///< about changes that could not be saved
  bool told_ = false;    ///< the user is or was just asked about a change
  QString to_tell_;      ///< a failure, when the calculator has ended what it does
  std::optional<std::uint64_t> given_up_revision_;
  QString followed_path_;   ///< of the company, as the settings have it
  QString awaiting_paint_;  ///< the company to open then

  QLabel* company_label_;
  QLabel* note_label_;
  QLabel* figures_label_;
  QLabel* saved_label_;
  QMenu* recent_menu_ = nullptr;
  UndoMenu* undo_menu_ = nullptr;
  EditMenu* edit_menu_ = nullptr;
  AssetMenu* asset_menu_ = nullptr;
  ViewMenu* view_menu_ = nullptr;
  Workspace* workspace_ = nullptr;
  std::weak_ptr<RegisterOfAssets> read_;  ///< by who still shows it, as of
  std::optional<std::uint64_t> read_revision_;
  QPointer<GuideWindow> guide_;
  QPointer<ReportsWindow> reports_;
  QString reports_path_;
  std::optional<std::uint64_t> reports_revision_;  ///< that they show
  QList<QAction*> report_actions_;                 ///< need an open company
  QAction* sample_company_ = nullptr;
  QAction* new_company_ = nullptr;
  QAction* open_company_ = nullptr;
  QAction* import_ = nullptr;
  QAction* recalculate_ = nullptr;
  QAction* dispose_ = nullptr;
  QAction* undo_disposal_ = nullptr;
  QAction* units_ = nullptr;
  QAction* to_multi_user_ = nullptr;
  QAction* to_single_user_ = nullptr;
  QList<QAction*> company_actions_;  ///< need an open company
  QList<QAction*> print_actions_;    ///< need a calculator that started, and assets to print
};

}  // namespace depcalc::desktop
