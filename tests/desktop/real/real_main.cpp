// The window's thread runs the application; the tests run on another one, as a user would: they
// go on while a dialog is open.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <clocale>
#include <optional>
#include <thread>

#include "desktop/widgets/accessible_controls.h"
#include "tests/desktop/real/display.h"

namespace {

/// What the programs under test keep goes where nothing of this machine's user is.
void useHome(const QString& home) {
  for (const auto& [name, folder] : {std::pair{"HOME", ""},
                                     {"XDG_CONFIG_HOME", "/config"},
                                     {"XDG_DATA_HOME", "/data"},
                                     {"XDG_CACHE_HOME", "/cache"},
                                     {"XDG_RUNTIME_DIR", "/run"}}) {
    const QString path = home + QLatin1String(folder);
    QDir().mkpath(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv(name, path.toUtf8());
  }
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  const QTemporaryDir home;
  useHome(home.path());
  qputenv("QT_QPA_PLATFORM", "xcb");
  qputenv("LC_ALL", "C.UTF-8");
  const depcalc::testing::Display display;
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setQuitOnLastWindowClosed(false);
  depcalc::desktop::installAccessibleControls();
  int status = 1;
  std::thread user([&] {
    status = RUN_ALL_TESTS();
    QMetaObject::invokeMethod(&application, &QApplication::quit, Qt::QueuedConnection);
  });
  QApplication::exec();
  user.join();
  return status;
}
