// File > Import: what a file holds, before any of it is in the register.
#pragma once

#include <QDialog>
#include <QTimer>

#include "importing/asset_import.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;
class QVBoxLayout;

namespace depcalc::desktop {

class AmountsPart;
class ColumnsModel;
class ImportOptions;
class PreviewModel;

/// Reads the file while it shows, some rows at a time. How the file is written, what its columns
/// mean and every text can be corrected; what that comes to is the import's to say. Can be accepted
/// once nothing is in the way.
class ImportDialog : public QDialog {
  Q_OBJECT

 public:
  /// `import` outlives the dialog; `file` is the file's name.
  ImportDialog(AssetImport& import, const QString& file, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QWidget* makeColumns();
  QWidget* makePreview();
  void addNotes(QVBoxLayout& layout);
  void goOn();
  /// The rows are being judged anew.
  void begin();
  /// They are judged.
  void end();
  void showRows();
  void showState();
  /// What there is to say of the row that the user is at.
  void showRow();
  void goToFirstProblem();
  void colour();

  AssetImport& import_;
  QTimer work_;
  ImportOptions* options_;
  ColumnsModel* columns_;
  PreviewModel* preview_;
  QTableView* columns_view_ = nullptr;
  QTableView* preview_view_ = nullptr;
  QLabel* remark_ = nullptr;
  AmountsPart* amounts_ = nullptr;
  QComboBox* filter_ = nullptr;
  QCheckBox* duplicates_ = nullptr;
  QLabel* summary_ = nullptr;
  QLabel* note_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QPushButton* accept_ = nullptr;
};

}  // namespace depcalc::desktop
