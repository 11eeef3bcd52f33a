// first_paint [FILE.company]: opens the host's window on a company (an empty window without one)
// and ends as soon as it has been painted. Its run time is what a start costs.
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>
#include <clocale>

#include "desktop/host/sqlite_companies.h"
#include "desktop/widgets/accessible_controls.h"
#include "desktop/window/main_window.h"

namespace {

/// Ends the program behind the first paint of the window it watches.
class FirstPaint : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, &QApplication::quit);
    return QObject::eventFilter(watched, event);
  }
};

int paintEmptyWindow() {
  QMainWindow window;
  FirstPaint painted;
  window.installEventFilter(&painted);
  window.resize(940, 640);
  window.show();
  return QApplication::exec();
}

int paintCalculator(const QString& company) {
  using namespace depcalc::desktop;
  installAccessibleControls();
  const QTemporaryDir scratch;
  SqliteCompanies files(todayByClock);
  Settings settings(scratch.filePath(QStringLiteral("settings.ini")));
  Backups backups(scratch.filePath(QStringLiteral("backups")));
  MainWindow window({files, settings, backups, todayByClock, QDir::currentPath().toStdString()});
  FirstPaint painted;
  window.installEventFilter(&painted);
  window.show();
  QTimer::singleShot(0, &window, [&] { window.openCompany(company); });
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return argc > 1 ? paintCalculator(QString::fromLocal8Bit(argv[1])) : paintEmptyWindow();
}
