#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

#include "desktop/widgets/accessible_controls.h"

// The leak sanitizer asks for this name.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions();
/// Fonts that the font library keeps to the end of the process.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
// NOLINTEND(bugprone-reserved-identifier)

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  depcalc::desktop::installAccessibleControls();
  return RUN_ALL_TESTS();
}
