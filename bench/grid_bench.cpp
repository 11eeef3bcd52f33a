// How long the window takes to lay out, scroll and select in a register at its capacity.
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "controls/grid.h"
#include "desktop/site/desktop_site.h"
#include "desktop/widgets/page.h"
#include "desktop/widgets/surface.h"

namespace {

using namespace depcalc;
using Clock = std::chrono::steady_clock;

constexpr int columns = 32'767;
constexpr int rows = 73;
constexpr int column_width = 1'200;
constexpr int row_height = 450;

struct Register : UserControl {
  explicit Register(Stage& stage) : UserControl(stage, "Register") { setPlace({0, 0, 9000, 6000}); }

  void fill() {
    table.setRedraw(false);
    table.setRows(rows);
    table.setColumns(columns);
    table.setMinimumRowHeight(row_height);
    for (int column = 0; column < columns; ++column) table.setColumnWidth(column, column_width);
    setPlace({0, 0, columns * column_width + 60, rows * row_height + 45});
    table.setPlace(place());
    table.setRedraw(true);
  }

  Grid table{*this, "Table", 4, 3};
};

template <typename Work>
double milliseconds(Work work) {
  const auto start = Clock::now();
  work();
  QApplication::processEvents();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(800, 600);
  desktop::DesktopSite site(window, 96, [] { return Date::strict(2024, 6, 15); }, {});
  Stage stage(site);
  Register screen(stage);
  desktop::Surface surface(stage, desktop::Scale(96), desktop::Colours(QPalette()));
  desktop::Page page(&window);
  page.resize(window.size());
  screen.show();
  page.showControl(screen, surface);
  window.show();
  QApplication::processEvents();

  const double layout = milliseconds([&] { screen.fill(); });
  QScrollBar& bar = *page.horizontalScrollBar();
  double slowest = 0;
  for (int step = 1; step <= 100; ++step) {
    slowest = std::max(slowest, milliseconds([&] { bar.setValue(bar.maximum() / 100 * step); }));
  }
  const double selection = milliseconds([&] {
    screen.table.SetFocus();
    QKeyEvent end(QEvent::KeyPress, Qt::Key_End, Qt::NoModifier);
    QApplication::sendEvent(surface.widget(screen.table), &end);
  });
  std::printf(
      "  laid out in %.0f ms, the slowest of 100 steps of scrolling %.1f ms, "
      "the last asset selected in %.1f ms\n",
      layout, slowest, selection);
  return screen.table.column() == columns - 1 ? 0 : 1;
}
