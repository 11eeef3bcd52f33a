// window_bench FILE.company: a large company in the window: until it can be used, then scrolling
// and selecting in the register at sixty frames a second, and what it takes of memory. The list of
// assets is opened beside it at last. QT_QPA_PLATFORM says where.
#include <sys/resource.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <thread>

#include "desktop/host/same_company.h"
#include "desktop/host/stored_companies.h"
#include "desktop/window/main_window.h"

namespace {

using namespace depcalc;
using Clock = std::chrono::steady_clock;
using std::chrono::duration;

constexpr int frames = 300;
constexpr duration<double> frame(1.0 / 60);

Date today() { return Date::strict(2024, 6, 30); }

/// Until nothing is left to be done, all that had to be painted included.
double milliseconds(const std::function<void()>& work) {
  const auto began = Clock::now();
  work();
  for (int round = 0; round < 5; ++round) QApplication::processEvents();
  return duration<double, std::milli>(Clock::now() - began).count();
}

struct Frames {
  int dropped = 0;
  double slowest = 0;  ///< of all steps, in milliseconds
};

/// A step for each frame, begun when the frame before is on the screen. A frame is dropped where
/// the step of an earlier one was not done in time.
Frames atSixtyFrames(const std::function<void(int)>& step) {
  Frames seen;
  auto due = Clock::now();
  for (int number = 0; number < frames; ++number) {
    std::this_thread::sleep_until(due);
    const auto began = Clock::now();
    step(number);
    QApplication::processEvents();
    const duration<double> took = Clock::now() - began;
    seen.slowest = std::max(seen.slowest, took.count() * 1e3);
    const int late = static_cast<int>(took / frame);
    seen.dropped += late;
    due = began + std::chrono::duration_cast<Clock::duration>(frame * (late + 1));
  }
  return seen;
}

void report(const char* what, const Frames& seen) {
  std::printf("  %s: %d frames of %d dropped, the slowest step %.1f ms\n", what, seen.dropped,
              frames, seen.slowest);
}

void report(const desktop::MainWindow& window) {
  Grid& table = window.calculator()->assetRegister()->AssetViewTable;
  auto& view = dynamic_cast<QTableView&>(*window.calculator()->surface().widget(table));
  QScrollBar& across = *window.page().horizontalScrollBar();
  report("scrolling a page at a time", atSixtyFrames([&](int number) {
           across.setValue(across.pageStep() * number % (across.maximum() + 1));
         }));
  report(
      "scrolling from end to end", atSixtyFrames([&](int number) {
        across.setValue(static_cast<int>(static_cast<double>(across.maximum()) * number / frames));
      }));
  across.setValue(0);
  window.calculator()->selectAsset(1);
  view.setFocus();
  report("selecting asset after asset", atSixtyFrames([&](int) {
           QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
           QApplication::sendEvent(&view, &right);
         }));
  std::printf("  the asset selected at the end: %d\n",
              window.calculator()->currentAsset().value_or(0));
}

long memory() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2) return 2;
  const QTemporaryDir folder;
  desktop::StoredCompanies files(today);
  desktop::Settings settings(folder.filePath(QStringLiteral("depcalc.ini")));
  for (const char* const part : {"toolbar", "assets", "insight"}) {
    settings.setShown(QLatin1String(part), false);
  }
  desktop::Backups backups(folder.filePath(QStringLiteral("backups")), desktop::sameCompany);
  desktop::MainWindow window({files, settings, backups, today, folder.path().toStdString()});
  window.resize(1280, 800);
  const double empty = milliseconds([&] { window.show(); });
  bool open = false;
  const double opening =
      milliseconds([&] { open = window.openCompany(QString::fromLocal8Bit(argv[1])); });
  if (!open || window.calculator()->assetRegister() == nullptr) return 1;
  std::printf("  the empty window %.0f ms, %d assets open and painted in %.0f ms\n", empty,
              window.calculator()->assetCount().value_or(0), opening);
  report(window);
  const long before = memory();
  auto& assets = *window.findChild<QAction*>(QStringLiteral("assets"));
  const double listing = milliseconds([&] { assets.trigger(); });
  std::printf("  the list of assets beside it in %.0f ms\n", listing);
  std::printf("  memory at most: %ld MiB, with the list %ld MiB\n", before, memory());
}
