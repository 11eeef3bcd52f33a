// The Reports window: what to report on, its pages, and where they go.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/reports/report_desk.h"
#include "desktop/window/settings.h"

class QLabel;
class QListWidget;
class QMenu;
class QPushButton;

namespace depcalc::desktop {

class ReportChoices;
class ReportPreview;

/// Stands beside the main window and follows it: what is saved there is in the report at once. All
/// choices are the desk's.
class ReportsWindow : public QWidget {
  Q_OBJECT

 public:
  struct Surroundings {
    /// The register as it is saved now.
    std::function<std::shared_ptr<const RegisterOfAssets>()> read;
    Settings& settings;
    QString company_path;
    QString folder;  ///< for the files that reports become
  };

  ReportsWindow(Surroundings surroundings, QWidget* parent);

  void choose(ReportKind kind);
  /// The register may have changed.
  void refresh();
  /// Whether the main window has changes of an asset that are not saved.
  void noteUnsaved(bool unsaved);
  /// Another paper may be preferred now.
  void followPaper();

 signals:
  void closed();
  /// The user looks at an asset, and at its amount of a fiscal year where that is given.
  void amountPointed(std::int32_t asset, std::optional<int> fiscal_year);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void standBesideTheMainWindow();
  QWidget* makeChoices();
  QWidget* makeMiddle();
  QWidget* makeButtons();

  void chooseRow(int row);
  void chooseAsset(std::int32_t asset);
  void pointAt(std::size_t table, std::size_t row, std::size_t column);

  void fillKinds();
  void colourPrintButton();
  void showReport();
  void fillFormats();
  void exportAs(const OfferedFormat& format);
  void copy();
  void print();

  Surroundings around_;
  ReportDesk desk_;
  ReportChoices* choices_ = nullptr;
  QListWidget* kinds_ = nullptr;
  QLabel* unsaved_ = nullptr;
  ReportPreview* preview_ = nullptr;
  QPushButton* export_ = nullptr;
  QMenu* formats_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* print_ = nullptr;
};

}  // namespace depcalc::desktop
