// What the user is told where the company's file or the calculator fails.
#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>

#include "common/report_error.h"
#include "host/failed_change.h"

class QWidget;

namespace depcalc::desktop {

class DesktopApplication;

/// Hears every failure that is reported while it lives, and tells it once the calculator has ended
/// what it does. Where the calculator may be left with half of something, the company takes no more
/// changes until it is opened again.
class FailureTelling : public QObject {
  Q_OBJECT

 public:
  struct Doors {
    std::function<QString()> ask_copy;         ///< for the path of a copy; "" for none
    std::function<void(const QString&)> note;  ///< says it in passing, until `clear_note`
    std::function<void()> clear_note;
  };

  /// All of them live longer than this. Boxes stand before `window`.
  FailureTelling(DesktopApplication& application, QWidget& window, Doors doors);

  void tell(const QString& text);
  /// The same of a change that failed, unless the user was asked about just that.
  void tellUnlessAsked(const QString& text);

  /// Asks what becomes of a change that could not be saved.
  FailedChangeAnswer ask(const FailedChange& change);
  /// Whether the user is being asked: the change is held meanwhile.
  [[nodiscard]] bool isAsking() const { return asking_; }

  /// Something may have been saved: once that is so, the change that was given up is no news.
  void followChanges();
  /// Another company is open.
  void forgetGivenUp() { given_up_revision_.reset(); }

 private:
  void hear(const ErrorReport& report);
  void tellChangesAreRefused(bool of_reading);
  void tellLater(const QString& text);
  void endAsking(bool given_up);

  DesktopApplication& application_;
  QWidget& window_;
  Doors doors_;
  bool asking_ = false;
  int questions_ = 0;
  bool asked_ = false;  ///< the user is or was just asked about a change
  QString to_tell_;     ///< when the calculator has ended what it does
  std::optional<std::uint64_t> given_up_revision_;
  ErrorReportHook hook_;
};

}  // namespace depcalc::desktop
