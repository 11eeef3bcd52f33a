// The Reports window: what to report on, its pages, and where they go.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/printing/pdf_printer.h"
#include "desktop/reports/report_desk.h"
#include "desktop/window/settings.h"

class QComboBox;
class QHBoxLayout;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;
class QToolButton;

namespace depcalc::desktop {

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
  QComboBox* addChoice(QHBoxLayout& row, QLabel*& label, const QString& caption, const char* name,
                       void (ReportsWindow::*chosen)(int));
  QToolButton* addTurn(QHBoxLayout& row, Qt::ArrowType arrow, const QString& name, int step);

  void chooseRow(int row);
  void chooseYear(int index);
  void chooseGrouping(int index);
  void choosePaper(int index);
  void chooseAsset(int index);
  void pointAt(std::size_t table, std::size_t row, std::size_t column);

  void fillChoices();
  void fillKinds();
  void colourPrintButton();
  void showReport();
  void showPageNumber();
  void fillFormats();
  void exportAs(const OfferedFormat& format);
  void copy();
  void print();
  [[nodiscard]] PdfPaper paper() const;

  Surroundings around_;
  ReportDesk desk_;
  QListWidget* kinds_ = nullptr;
  QLabel* year_label_ = nullptr;
  QComboBox* year_ = nullptr;
  QLabel* asset_label_ = nullptr;
  QComboBox* asset_ = nullptr;
  QLabel* grouping_label_ = nullptr;
  QComboBox* grouping_ = nullptr;
  QLabel* paper_label_ = nullptr;
  QComboBox* paper_ = nullptr;
  QToolButton* back_ = nullptr;
  QToolButton* forward_ = nullptr;
  QLabel* page_ = nullptr;
  QLabel* unsaved_ = nullptr;
  ReportPreview* preview_ = nullptr;
  QPushButton* export_ = nullptr;
  QMenu* formats_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* print_ = nullptr;
};

}  // namespace depcalc::desktop
