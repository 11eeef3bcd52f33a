// empty_window [TEXT]: what a Qt program with a main window needs for its start, with nothing in
// it or with one menu and a status line of that text.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  window.resize(940, 640);
  if (argc > 1) {
    const QString text = QString::fromLocal8Bit(argv[1]);
    window.menuBar()->addMenu(text);
    window.statusBar()->addWidget(new QLabel(text));
  }
  window.show();
  return QApplication::exec();
}
