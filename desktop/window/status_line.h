// The line at the foot of the main window.
#pragma once

#include <QObject>
#include <optional>

class QLabel;
class QMainWindow;

namespace depcalc {
class Recorder;
}  // namespace depcalc

namespace depcalc::desktop {

/// Says which company is open, what the user should know of it, what it is made of, and what was
/// done to it since it was opened.
class StatusLine : public QObject {
  Q_OBJECT

 public:
  /// What is said of an open company.
  struct Figures {
    int first_month = 1;
    std::optional<int> assets;  ///< where the calculator runs
  };

  explicit StatusLine(QMainWindow& window);

  void showOpening(const QString& title);
  void showNoCompany();
  void showCompany(const QString& title, bool multi_user, const Figures& figures,
                   const Recorder& recorder);

  /// Stays until another note comes, or it is cleared.
  void note(const QString& text);
  void clearNote();

 private:
  void showSaved(const Recorder& recorder);

  QLabel* company_;
  QLabel* note_;
  QLabel* figures_;
  QLabel* saved_;
};

}  // namespace depcalc::desktop
