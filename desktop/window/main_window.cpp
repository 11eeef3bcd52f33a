#include "desktop/window/main_window.h"

#include <QEvent>
#include <QFile>
#include <QMessageBox>
#include <QScreen>
#include <filesystem>
#include <system_error>

#include "desktop/guide/guide_pages.h"
#include "desktop/host/place.h"
#include "desktop/host/restoring.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/asset_changes.h"
#include "desktop/window/company_dialogs.h"
#include "desktop/window/hints.h"
#include "desktop/window/importing.h"
#include "desktop/window/main_menus.h"
#include "desktop/window/recalculating.h"
#include "desktop/window/reports_keeping.h"
#include "desktop/window/start_page.h"
#include "desktop/window/status_line.h"
#include "desktop/window/wait_cursor.h"
#include "desktop/window/workspace.h"

namespace depcalc::desktop {
namespace {

constexpr QSize least_first_size(1600, 900);

constexpr QSize window_frame(16, 48);

/// Two thirds of the screen, where that is more.
QSize firstSize(const QSize& screen) {
  return least_first_size.expandedTo(screen * 2 / 3).boundedTo(screen - window_frame);
}

/// A server may let one wait for seconds.
std::unique_ptr<Company> openedUnderHourglass(CompanyFiles& files, const QString& place) {
  const WaitCursor wait;
  return files.open(place.toStdString());
}

}  // namespace

MainWindow::MainWindow(Surroundings surroundings)
    : around_(std::move(surroundings)),
      application_(std::make_shared<DesktopApplication>(around_.start_directory, around_.now)),
      failures_(*application_, *this,
                {.ask_copy = [this] { return companies_->askCopy(); },
                 .note = [this](const QString& text) { status_->note(text); },
                 .clear_note = [this] { status_->clearNote(); }}),
      page_(new Page(this)),
      printing_(around_.settings, *this,
                {.calculator = [this] { return makeCalculator(); },
                 .report_all = [this] { showReports(ReportKind::years); }}),
      site_(*this, logicalDpiX(), around_.today, [this] { return printing_.printer(); }),
      leaving_(site_),
      backup_(around_.backups),
      saved_(*application_, around_.today),
      guide_(around_.shared + QStringLiteral("/guide"), *this,
             [this](const QString& text) { tell(text); }) {
  setObjectName(QStringLiteral("MainWindow"));
  appearances_.use(around_.settings.appearance());
  makeHints();
  setAcceptDrops(true);
  status_ = new StatusLine(*this);
  around_.files.whenChangeFails(
      [this](const FailedChange& change) { return failures_.ask(change); });
  site_.whenBoxOpens(
      [](QMessageBox& box, std::string_view title) { addGuideKey(box, guidePageForBox(title)); });
  makeDialogs();
  makeChanges();
  makeMenus();
  makeReports();
  resize(firstSize(screen()->availableSize()));
  restoreGeometry(around_.settings.geometry());
  showStatus();
}

MainWindow::~MainWindow() {
  around_.files.whenChangeFails({});
  reports_->end();
  endCalculator();
}

QString MainWindow::companyPath() const {
  return company() == nullptr ? QString() : qtText(company()->path());
}

QString MainWindow::companyTitle() const {
  const QString name = qtText(company()->info().name);
  return titleAt(name.isEmpty() ? nameAt(companyPath()) : name, companyPath());
}

bool MainWindow::isMultiUser() const {
  return company() != nullptr && application_->CompanyFile()->IsMultiUser();
}

bool MainWindow::openCompany(const QString& path) {
  const QString absolute = wholePlace(path);
  if (isOpen(absolute) && (isLost() || !leaveCompany())) return false;
  bool copied = false;
  try {
    // What a crash left half done is put right first, so that the copy is whole.
    if (QFile::exists(absolute + QStringLiteral("-journal"))) {
      around_.files.open(absolute.toStdString())->close();
    }
    copied = around_.backups.setAside(absolute);
    auto company = openedUnderHourglass(around_.files, absolute);
    if (isOnServer(absolute)) copied = setAside(around_.backups, *company);
    around_.backups.opened(absolute);
    // It may be damaged or in use: only now is there a reason to leave the one that is open.
    if (!leaveCompany()) {
      company->close();
      around_.backups.drop(absolute);
      return false;
    }
    takeCompany(std::move(company), absolute);
  } catch (const CompanyFileError& error) {
    around_.backups.drop(absolute);
    showPlaceholder();
    showStatus();
    companies_->tellNotOpened(error, absolute);
    return isOpen(absolute);
  }
  if (!copied) status_->note(tr("No backup could be made"));
  return true;
}

/// Whether the open company has no file any more: what is held in memory is then all there is of
/// it, and must not be let go to open it again. The user is told.
bool MainWindow::isLost() {
  const auto lost = company()->lost();
  if (!lost) return false;
  tell(tr("%1\n\nTo keep what is open here, choose Save a Copy As… from the File menu.")
           .arg(qtText(*lost)));
  return true;
}

/// Whether it is the file of the company that is open, by whatever name.
bool MainWindow::isOpen(const QString& path) const {
  std::error_code no_such_file;
  return company() != nullptr &&
         (path == companyPath() ||
          std::filesystem::equivalent(path.toStdString(), company()->path(), no_such_file));
}

void MainWindow::openCompanyWhenPainted(const QString& path) {
  awaiting_paint_ = path;
  status_->showOpening(titleAt(nameAt(path), path));
}

bool MainWindow::createCompany(const QString& path, const CompanyInfo& info) {
  const QString absolute = wholePlace(path);
  if (!mayLeave()) return false;
  try {
    auto company = around_.files.create(absolute.toStdString(), info);
    endCompany();
    // Of another company that had this path.
    QFile::remove(around_.backups.historyOf(absolute));
    takeCompany(std::move(company), absolute);
  } catch (const CompanyFileError& error) {
    leaving_.forget();
    tell(qtText(error.what()));
    return false;
  }
  return true;
}

void MainWindow::takeCompany(std::unique_ptr<Company> company, const QString& path) {
  application_->setCompany(std::move(company),
                           {.history = around_.backups.historyOf(path).toStdString(),
                            .replaced = std::exchange(replaced_, std::nullopt)});
  backup_.begin(application_->revision());
  reports_->forget();
  saved_.forget();
  followed_path_ = path;
  failures_.forgetGivenUp();
  around_.settings.addRecent(path);
  around_.settings.setLastCompany(path);
  showPlaceholder();
  if (!isMultiUser()) startCalculator();
  showStatus();
}

std::unique_ptr<Calculator> MainWindow::makeCalculator() {
  return std::make_unique<Calculator>(site_, application_, menus_->viewMenu().scale(),
                                      Colours(palette()));
}

void MainWindow::endCalculator() {
  page_->clear();
  workspace_->setCalculator(nullptr);
  calculator_ = nullptr;
  leaving_.forget();
  print_help_ = nullptr;
}

void MainWindow::startCalculator() {
  if (!mayLeave()) return;
  endCalculator();
  calculator_ = makeCalculator();
  print_help_ = std::make_unique<PrintHelp>(*calculator_, site_, *this,
                                            [this] { showReports(ReportKind::years); });
  calculator_->showOn(*page_);
  calculator_->start();
  backup_.allow(application_->revision());
  workspace_->setCalculator(calculator_.get());
  connect(&calculator_->surface(), &Surface::opened, &menus_->assetMenu(), &AssetMenu::cellOpened);
  connect(&calculator_->surface(), &Surface::acted, this, [this] {
    leaving_.forget();
    followCompany();
    noteChanges();
    showStatus();
  });
  if (calculator_->container().visibleScreen() == nullptr) {
    endCalculator();
    showPlaceholder();
  }
  showStatus();
}

void MainWindow::showPlaceholder() {
  if (calculator_ != nullptr) return;
  const MainMenus::Offered& offered = menus_->offered();
  if (company() == nullptr) {
    auto* const start =
        new StartPage(tr("Open a company, or create a new one, to work with its assets."),
                      {offered.new_company, offered.open_company, offered.sample_company});
    start->offer(around_.settings.recent());
    // Queued: what opens replaces the page that was clicked.
    connect(start, &StartPage::chosen, this, &MainWindow::openCompany, Qt::QueuedConnection);
    page_->showPlaceholder(start);
    return;
  }
  if (isMultiUser()) {
    page_->showPlaceholder(
        new StartPage(tr("%1 is open in multi-user mode. The Depreciation Calculator "
                         "works only in single-user mode.")
                          .arg(companyTitle()),
                      {offered.to_single_user}));
  } else {
    page_->showPlaceholder(new StartPage(tr("%1 is open.").arg(companyTitle()), {}));
  }
}

void MainWindow::showStatus() {
  menus_->follow(
      application_->recorder(), [this](Need need) { return isThere(need); }, isMultiUser());
  workspace_->setOpen(company() != nullptr);
  workspace_->follow();
  reports_->follow();
  hints_->follow();
  if (company() == nullptr) {
    setWindowTitle(tr("Depreciation Calculator"));
    status_->showNoCompany();
    return;
  }
  setWindowTitle(tr("%1 – Depreciation Calculator").arg(companyTitle()));
  status_->showCompany(
      companyTitle(), isMultiUser(),
      {.first_month = company()->info().first_month,
       .assets = calculator_ == nullptr ? std::nullopt : calculator_->assetCount()},
      *application_->recorder());
}

bool MainWindow::event(QEvent* event) {
  if (event->type() == QEvent::Paint && !std::exchange(painted_, true)) {
    QMetaObject::invokeMethod(this, &MainWindow::fillPage, Qt::QueuedConnection);
  }
  return QMainWindow::event(event);
}

void MainWindow::fillPage() {
  const QString path = std::exchange(awaiting_paint_, {});
  if (path.isEmpty()) {
    showPlaceholder();
  } else {
    openCompany(path);
  }
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && calculator_ != nullptr) {
    calculator_->surface().setColours(Colours(palette()));
  }
  QMainWindow::changeEvent(event);
}

}  // namespace depcalc::desktop
