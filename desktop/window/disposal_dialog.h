// Asset > Dispose.
#pragma once

#include <QDialog>
#include <optional>

#include "changes/disposing.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace depcalc::desktop {

/// When an asset left service and what was obtained for it; says below what that comes to, and
/// can be accepted where nothing is wrong with it.
class DisposalDialog : public QDialog {
  Q_OBJECT

 public:
  DisposalDialog(const SavedAsset& asset, Date today, QWidget* parent);

  /// None where what was entered is refused.
  [[nodiscard]] const std::optional<Disposal>& disposal() const { return disposal_; }

 private:
  void look();
  void show(const std::optional<DisposalEffect>& effect);

  SavedAsset asset_;
  Date today_;
  std::optional<Disposal> disposal_;
  QLineEdit* date_;
  QLineEdit* proceeds_;
  QLabel* names_;
  QLabel* amounts_;
  QLabel* note_;
  QPushButton* save_;
};

}  // namespace depcalc::desktop
