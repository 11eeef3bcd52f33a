#include "desktop/window/main_window.h"

#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>
#include <filesystem>
#include <system_error>

#include "desktop/guide/guide_pages.h"
#include "desktop/host/place.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/hint_bar.h"
#include "desktop/window/start_page.h"
#include "desktop/window/wait_cursor.h"
#include "desktop/window/workspace.h"
#include "host/unit_of_work.h"
#include "values/en_us.h"

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
      report_hook_([this](const ErrorReport& report) { noteFailure(report); }),
      page_(new Page(this)),
      hints_(new HintBar(this)),
      site_(*this, logicalDpiX(), around_.today, [this] { return systemPrinter(); }),
      company_label_(new QLabel(this)),
      note_label_(new QLabel(this)),
      figures_label_(new QLabel(this)),
      saved_label_(new QLabel(this)) {
  setObjectName(QStringLiteral("MainWindow"));
  appearances_.use(around_.settings.appearance());
  makeHints();
  setAcceptDrops(true);
  // A company may be called anything.
  for (QLabel* label : {company_label_, note_label_, figures_label_, saved_label_}) {
    label->setTextFormat(Qt::PlainText);
  }
  company_label_->setIndent(fontMetrics().averageCharWidth() / 2);
  statusBar()->addWidget(company_label_);
  statusBar()->addPermanentWidget(note_label_);
  statusBar()->addPermanentWidget(figures_label_);
  constexpr int before_figures = 2;
  statusBar()->insertPermanentWidget(before_figures, saved_label_);
  note_label_->setContentsMargins(0, 0, fontMetrics().averageCharWidth() * 2, 0);
  around_.files.whenChangeFails(
      [this](const FailedChange& change) { return askAboutChange(change); });
  site_.whenBoxOpens(
      [](QMessageBox& box, std::string_view title) { addGuideKey(box, guidePageForBox(title)); });
  makeMenus();
  resize(firstSize(screen()->availableSize()));
  restoreGeometry(around_.settings.geometry());
  showStatus();
}

MainWindow::~MainWindow() {
  around_.files.whenChangeFails({});
  endReports();
  endCalculator();
}

QString MainWindow::companyPath() const {
  return company() == nullptr ? QString() : qtText(company()->path());
}

QString MainWindow::companyTitle() const {
  const QString name = qtText(company()->info().name);
  return titleAt(name.isEmpty() ? nameAt(companyPath()) : name, companyPath());
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
    if (isOnServer(absolute)) copied = setAside(*company);
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
    tellNotOpened(error, absolute);
    return isOpen(absolute);
  }
  if (!copied) note_label_->setText(tr("No backup could be made"));
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
  company_label_->setText(tr("Opening %1…").arg(titleAt(nameAt(path), path)));
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
    may_leave_ = false;
    tell(qtText(error.what()));
    return false;
  }
  return true;
}

void MainWindow::takeCompany(std::unique_ptr<Company> company, const QString& path) {
  application_->setCompany(std::move(company),
                           {.history = around_.backups.historyOf(path).toStdString(),
                            .replaced = std::exchange(replaced_, std::nullopt)});
  kept_revision_ = revision().value_or(0);
  reports_revision_.reset();
  read_.reset();
  backup_kept_ = false;
  followed_path_ = path;
  given_up_revision_.reset();
  around_.settings.addRecent(path);
  around_.settings.setLastCompany(path);
  showPlaceholder();
  if (!application_->CompanyFile()->IsMultiUser()) startCalculator();
  showStatus();
}

void MainWindow::endCalculator() {
  page_->clear();
  workspace_->setCalculator(nullptr);
  calculator_ = nullptr;
  may_leave_ = false;
  print_help_ = nullptr;
}

void MainWindow::startCalculator() {
  if (!mayLeave()) return;
  endCalculator();
  calculator_ =
      std::make_unique<Calculator>(site_, application_, view_menu_->scale(), Colours(palette()));
  print_help_ = std::make_unique<PrintHelp>(*calculator_, site_, *this,
                                            [this] { showReports(ReportKind::years); });
  calculator_->showOn(*page_);
  calculator_->start();
  // What start-up refreshes is no change of the user's.
  if (!backup_kept_) kept_revision_ = revision().value_or(0);
  workspace_->setCalculator(calculator_.get());
  connect(&calculator_->surface(), &Surface::opened, asset_menu_, &AssetMenu::cellOpened);
  connect(&calculator_->surface(), &Surface::acted, this, [this] {
    may_leave_ = false;
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

void MainWindow::setMultiUser(bool on) {
  if (company() == nullptr || !mayLeave()) return;
  endCalculator();
  CompanyInfo info = company()->info();
  info.multi_user = on;
  setCompanyInfo(info);
  showPlaceholder();
  if (!application_->CompanyFile()->IsMultiUser()) startCalculator();
  showStatus();
}

void MainWindow::setCompanyInfo(const CompanyInfo& info) {
  try {
    application_->setInfo(info);
  } catch (const CompanyFileError& error) {
    if (!told_) tell(qtText(error.what()));
  }
  // A register knows its company's name and fiscal years.
  read_.reset();
  workspace_->listAnew();
  followCompany();
  noteChanges();
  showStatus();
}

std::optional<std::uint64_t> MainWindow::revision() const {
  const auto file = application_->CompanyFile();
  if (file == nullptr || file->unitOfWork() == nullptr) return std::nullopt;
  return file->unitOfWork()->revision();
}

/// The copy taken at the opening counts from the first change.
void MainWindow::noteChanges() {
  clearNote();
  if (backup_kept_ || company() == nullptr || revision() == kept_revision_) return;
  backup_kept_ = true;
  if (around_.backups.keep(companyPath(), QDateTime::currentDateTime())) return;
  note_label_->setText(tr("No backup could be made"));
}

void MainWindow::showPlaceholder() {
  if (calculator_ != nullptr) return;
  const bool multi_user = company() != nullptr && application_->CompanyFile()->IsMultiUser();
  if (company() == nullptr) {
    auto* const start =
        new StartPage(tr("Open a company, or create a new one, to work with its assets."),
                      {new_company_, open_company_, sample_company_});
    start->offer(around_.settings.recent());
    // Queued: what opens replaces the page that was clicked.
    connect(start, &StartPage::chosen, this, &MainWindow::openCompany, Qt::QueuedConnection);
    page_->showPlaceholder(start);
    return;
  }
  const QString text = multi_user ? tr("%1 is open in multi-user mode. The Depreciation Calculator "
                                       "works only in single-user mode.")
                                        .arg(companyTitle())
                                  : tr("%1 is open.").arg(companyTitle());
  page_->showPlaceholder(multi_user ? new StartPage(text, {to_single_user_})
                                    : new StartPage(text, {}));
}

void MainWindow::showStatus() {
  enableActions();
  workspace_->setOpen(company() != nullptr);
  workspace_->follow();
  followReports();
  showNextStep();
  if (company() == nullptr) {
    setWindowTitle(tr("Depreciation Calculator"));
    company_label_->setText(tr("No company open"));
    figures_label_->clear();
    saved_label_->clear();
    return;
  }
  const QString mode =
      application_->CompanyFile()->IsMultiUser() ? tr("multi-user mode") : tr("single-user mode");
  setWindowTitle(tr("%1 – Depreciation Calculator").arg(companyTitle()));
  company_label_->setText(tr("%1 — %2").arg(companyTitle(), mode));
  const auto month = static_cast<std::size_t>(company()->info().first_month - 1);
  QString figures = tr("Fiscal year starts in %1").arg(qtText(en_us::month_names.at(month)));
  const std::optional<int> assets =
      calculator_ == nullptr ? std::nullopt : calculator_->assetCount();
  if (assets.has_value()) {
    figures += tr("   ·   ") + (*assets == 1 ? tr("1 asset") : tr("%1 assets").arg(*assets));
  }
  figures_label_->setText(figures);
  showSaved();
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
