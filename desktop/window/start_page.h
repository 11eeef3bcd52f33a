// What the window's page shows while no calculator does.
#pragma once

#include <QWidget>
#include <initializer_list>

class QAction;
class QVBoxLayout;

namespace depcalc::desktop {

/// A line of text with a button for each action that leads on.
class StartPage : public QWidget {
  Q_OBJECT

 public:
  StartPage(const QString& text, std::initializer_list<QAction*> actions);

  /// A button for each of these companies, too.
  void offer(const QStringList& paths);

 signals:
  void chosen(const QString& path);

 private:
  QVBoxLayout* offers_;
};

}  // namespace depcalc::desktop
