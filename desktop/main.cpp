// depcalc-desktop: the host program with the calculator in it.
#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QDir>
#include <QIcon>
#include <QLocale>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "desktop/host/place.h"
#include "desktop/host/same_company.h"
#include "desktop/host/stored_companies.h"
#include "desktop/preview/preview.h"
#include "desktop/widgets/accessible_controls.h"
#include "desktop/window/dark_palette.h"
#include "desktop/window/end_signals.h"
#include "desktop/window/main_window.h"
#include "desktop/window/system_end.h"

namespace depcalc::desktop {
namespace {

enum Status { success = 0, failed = 1, wrong_usage = 2 };

struct Options {
  QString file;
  QString preview;
  bool dark = false;
};

Options parse(const QApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QObject::tr("Keep a register of a business's assets and compare their depreciation."));
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption preview(
      QStringLiteral("preview"),
      QObject::tr("Draw FILE's screens and its printed schedule into DIRECTORY, without a display, "
                  "and print their paths."),
      QStringLiteral("DIRECTORY"));
  const QCommandLineOption dark(QStringLiteral("dark"),
                                QObject::tr("Use the colors of a dark desktop."));
  parser.addOptions({preview, dark});
  parser.addPositionalArgument(
      QStringLiteral("FILE"),
      QObject::tr("The company file to open, or the address of a company on a "
                  "server (postgresql://host/database#Company)."),
      QStringLiteral("[FILE]"));
  parser.process(application);
  const QStringList files = parser.positionalArguments();
  if (files.size() > 1 || (parser.isSet(preview) && files.isEmpty())) parser.showHelp(wrong_usage);
  return {files.value(0), parser.value(preview), parser.isSet(dark)};
}

QString writable(QStandardPaths::StandardLocation location) {
  QString path = QStandardPaths::writableLocation(location);
  QDir().mkpath(path);
  return path;
}

/// Beside the program, in the build tree as where it is installed.
QString sharedFolder() {
  return QDir::cleanPath(QApplication::applicationDirPath() + QStringLiteral("/../share/depcalc"));
}

/// On a copy, so that the company stays as it is; a file may be open elsewhere. What is wrong with
/// it is told on standard error: nobody could answer a box here.
int preview(CompanyFiles& files, MainWindow& window, const Options& options,
            const QString& scratch) {
  const bool on_server = isOnServer(options.file);
  const QString copy = scratch + u'/' +
                       (on_server ? fileNameAt(options.file) + QStringLiteral(".company")
                                  : QFileInfo(options.file).fileName());
  if (!QDir().mkpath(options.preview) || (!on_server && !QFile::copy(options.file, copy))) {
    std::fprintf(stderr, "depcalc-desktop: cannot read %s or write to %s\n",
                 qPrintable(options.file), qPrintable(options.preview));
    return failed;
  }
  try {
    if (on_server) files.open(options.file.toStdString())->saveCopy(copy.toStdString());
    files.open(copy.toStdString())->close();
  } catch (const CompanyFileError& error) {
    std::fprintf(stderr, "depcalc-desktop: %s\n", error.what());
    return failed;
  }
  const QString directory = QDir(options.preview).absolutePath();
  QStringList paths = renderStartPage(window, directory);
  if (!window.openCompany(copy)) return failed;
  paths += renderPreview(window, directory);
  for (const QString& path : paths) std::puts(qPrintable(path));
  return paths.isEmpty() ? failed : success;
}

/// Pictures are the same on any day where the environment gives one (SOURCE_DATE_EPOCH, seconds
/// since 1970, as reproducible builds have it).
std::int64_t nowForPictures() {
  const QByteArray given = qgetenv("SOURCE_DATE_EPOCH");
  return given.isEmpty() ? secondsByClock() : given.toLongLong();
}

Date todayForPictures() {
  if (qEnvironmentVariableIsEmpty("SOURCE_DATE_EPOCH")) return todayByClock();
  const QDate day = QDateTime::fromSecsSinceEpoch(nowForPictures(), Qt::UTC).date();
  return Date::strict(day.year(), day.month(), day.day());
}

int run(const Options& options) {
  if (options.dark) QApplication::setPalette(darkPalette());
  const QTemporaryDir scratch;
  const bool previews = !options.preview.isEmpty();
  const QString config = previews ? scratch.path() : writable(QStandardPaths::AppConfigLocation);
  const QString data = previews ? scratch.path() : writable(QStandardPaths::AppDataLocation);
  const DesktopSite::Today today = previews ? todayForPictures : todayByClock;
  StoredCompanies files(today);
  Settings settings(config + QStringLiteral("/depcalc.ini"));
  if (previews) settings.setShown(QStringLiteral("toolbar"), false);
  Backups backups(data + QStringLiteral("/backups"), sameCompany);
  MainWindow window({files, settings, backups, today, QDir::currentPath().toStdString(),
                     sharedFolder(),
                     QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                     previews ? nowForPictures : secondsByClock});
  if (previews) return preview(files, window, options, scratch.path());
  SystemEnd end(window, SystemEnd::usual_patience, [] { std::_Exit(success); });
  // A system may send SIGHUP behind SIGTERM at once.
  const EndSignals end_signals([&end](int signal) { end.hear(signal != SIGHUP); });
  const QString file = options.file.isEmpty() ? settings.lastCompany() : options.file;
  if (!file.isEmpty() && (!options.file.isEmpty() || mayBeThere(file))) {
    window.openCompanyWhenPainted(file);
  }
  window.show();
  return QApplication::exec();
}

bool asksForPreview(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], "--preview", 9) == 0) return true;
  }
  return false;
}

}  // namespace
}  // namespace depcalc::desktop

int main(int argc, char** argv) {
  if (depcalc::desktop::asksForPreview(argc, argv)) qputenv("QT_QPA_PLATFORM", "offscreen");
  // A limit to the size of files is an error of the file, to be told; it ends nothing.
  std::signal(SIGXFSZ, SIG_IGN);
  QApplication application(argc, argv);
  // Qt takes the number format from the environment; ours is the same everywhere.
  std::setlocale(LC_NUMERIC, "C");
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  QApplication::setApplicationName(QStringLiteral("depcalc"));
  // No display name: the toolkit would add it to the titles of boxes, which are whole as they are.
  QApplication::setApplicationVersion(QStringLiteral(DEPCALC_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("depcalc-desktop"));
  QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("depcalc-desktop")));
  depcalc::desktop::installAccessibleControls();
  return depcalc::desktop::run(depcalc::desktop::parse(application));
}
