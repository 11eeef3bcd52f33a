#include "desktop/window/reports_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWindow>

#include "desktop/guide/guide_pages.h"
#include "desktop/reports/pointed_amount.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/report_choices.h"
#include "desktop/window/report_kind_painter.h"
#include "desktop/window/report_output.h"
#include "desktop/window/report_preview.h"
#include "desktop/window/warning_box.h"

namespace depcalc::desktop {
namespace {

constexpr QSize first_size(1240, 800);
constexpr int list_width = 222;  // pixels

}  // namespace

ReportsWindow::ReportsWindow(Surroundings surroundings, QWidget* parent)
    : QWidget(parent, Qt::Window), around_(std::move(surroundings)), desk_(around_.read()) {
  setObjectName(QStringLiteral("ReportsWindow"));
  setWindowTitle(tr("Reports"));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(makeChoices());
  layout->addWidget(makeMiddle(), 1);
  layout->addWidget(makeButtons());
  dropButtonIcons(*this);
  resize(first_size.boundedTo(parent->size().expandedTo(QSize(900, 600))));
  fillKinds();
  choices_->offer(desk_);
  showReport();
  colourPrintButton();
  kinds_->setFocus();
  addGuideKey(*this, guide::reports);
  standBesideTheMainWindow();
}

/// A window that belongs to another stays above it, and would cover the assets that it is about.
void ReportsWindow::standBesideTheMainWindow() {
  create();
  windowHandle()->setTransientParent(nullptr);
}

QWidget* ReportsWindow::makeChoices() {
  auto* const bar = new QWidget(this);
  choices_ = new ReportChoices(around_.settings, *bar);
  connect(choices_, &ReportChoices::yearChosen, this, [this](int year) {
    desk_.chooseYear(year);
    showReport();
  });
  connect(choices_, &ReportChoices::groupingChosen, this, [this](Grouping grouping) {
    desk_.chooseGrouping(grouping);
    showReport();
  });
  connect(choices_, &ReportChoices::assetChosen, this, &ReportsWindow::chooseAsset);
  connect(choices_, &ReportChoices::paperChosen, this, &ReportsWindow::showReport);
  connect(choices_, &ReportChoices::pageTurned, this,
          [this](int pages) { preview_->showPage(preview_->page() + pages); });
  return bar;
}

QWidget* ReportsWindow::makeMiddle() {
  auto* const middle = new QWidget(this);
  auto* const row = new QHBoxLayout(middle);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  kinds_ = new QListWidget(middle);
  kinds_->setObjectName(QStringLiteral("Kinds"));
  kinds_->setAccessibleName(tr("Reports"));
  kinds_->setItemDelegate(new ReportKindPainter(kinds_));
  kinds_->setFixedWidth(list_width);
  kinds_->setFrameShape(QFrame::NoFrame);
  kinds_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  preview_ = new ReportPreview(middle);
  row->addWidget(kinds_);
  row->addWidget(preview_, 1);
  connect(kinds_, &QListWidget::currentRowChanged, this, &ReportsWindow::chooseRow);
  connect(preview_, &ReportPreview::pageShown, choices_,
          [this] { choices_->showPage(preview_->page(), preview_->count()); });
  connect(preview_, &ReportPreview::cellPointed, this, &ReportsWindow::pointAt);
  return middle;
}

QWidget* ReportsWindow::makeButtons() {
  auto* const bar = new QWidget(this);
  auto* const row = new QHBoxLayout(bar);
  const auto add = [&](const QString& caption, const char* name) {
    auto* const button = new QPushButton(caption, bar);
    button->setObjectName(QLatin1String(name));
    row->addWidget(button);
    return button;
  };
  export_ = add(tr("&Export"), "Export");
  formats_ = new QMenu(export_);
  formats_->setAccessibleName(tr("Export"));
  export_->setMenu(formats_);
  copy_ = add(tr("&Copy"), "Copy");
  copy_->setToolTip(tr("Ctrl+C"));
  unsaved_ = new QLabel(bar);
  unsaved_->setObjectName(QStringLiteral("Unsaved"));
  unsaved_->setText(tr("An asset has changes that are not saved. Reports show what is saved."));
  unsaved_->hide();
  row->addSpacing(fontMetrics().averageCharWidth());
  row->addWidget(unsaved_);
  row->addStretch();
  connect(add(tr("C&lose"), "Close"), &QPushButton::clicked, this, &QWidget::close);
  print_ = add(tr("&Print…"), "Print");
  connect(copy_, &QPushButton::clicked, this, &ReportsWindow::copy);
  connect(print_, &QPushButton::clicked, this, &ReportsWindow::print);
  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this,
          &ReportsWindow::copy);
  connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, this,
          &ReportsWindow::print);
  return bar;
}

void ReportsWindow::choose(ReportKind kind) { kinds_->setCurrentRow(static_cast<int>(kind)); }

void ReportsWindow::refresh() {
  desk_.setRegister(around_.read());
  fillKinds();
  choices_->offer(desk_);
  showReport();
}

void ReportsWindow::noteUnsaved(bool unsaved) { unsaved_->setVisible(unsaved); }

void ReportsWindow::fillKinds() {
  const QSignalBlocker silent(kinds_);
  if (kinds_->count() == 0) {
    for (int i = 0; i < report_kind_count; ++i) kinds_->addItem(QString());
  }
  for (int i = 0; i < report_kind_count; ++i) {
    const auto kind = static_cast<ReportKind>(i);
    QListWidgetItem& item = *kinds_->item(i);
    const QString line = qtText(desk_.lineOf(kind));
    item.setText(qtText(ReportDesk::titleOf(kind)));
    item.setData(Qt::UserRole, line);
    item.setData(Qt::AccessibleTextRole, item.text() + QStringLiteral(", ") + line);
  }
  kinds_->setCurrentRow(static_cast<int>(desk_.kind()));
}

void ReportsWindow::chooseRow(int row) {
  if (row < 0) return;
  desk_.choose(static_cast<ReportKind>(row));
  showReport();
}

void ReportsWindow::followPaper() {
  if (choices_->followPaper()) showReport();
}

void ReportsWindow::chooseAsset(std::int32_t asset) {
  desk_.chooseAsset(asset);
  showReport();
  emit amountPointed(desk_.asset(), std::nullopt);
}

void ReportsWindow::pointAt(std::size_t table, std::size_t row, std::size_t column) {
  const Report* const report = desk_.report();
  if (report == nullptr) return;
  const auto pointed = pointedAmount(desk_, *report, table, row, column);
  if (pointed) emit amountPointed(pointed->asset, pointed->fiscal_year);
}

void ReportsWindow::showReport() {
  choices_->showAsked(desk_);
  const Report* const report = desk_.report();
  preview_->showReport(report, choices_->paper(), desk_.assets().today, qtText(desk_.trouble()));
  for (QPushButton* button : {export_, copy_, print_}) button->setEnabled(report != nullptr);
  fillFormats();
}

void ReportsWindow::fillFormats() {
  formats_->clear();
  for (const OfferedFormat& format : desk_.formats()) {
    connect(formats_->addAction(qtText(format.caption)), &QAction::triggered, this,
            [this, format] { exportAs(format); });
  }
}

void ReportsWindow::exportAs(const OfferedFormat& format) {
  const Report* const report = desk_.report();
  if (report == nullptr) return;
  std::string trouble;
  QByteArray content;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  if (format.format == ExportFormat::pdf) {
    content = pdfOfReport(*report, choices_->paper(), desk_.assets().today);
    if (content.isEmpty()) trouble = "no font is installed";
  } else {
    content = QByteArray::fromStdString(desk_.written(format.format, trouble));
  }
  QApplication::restoreOverrideCursor();
  if (!trouble.empty())
    return warn(tr("The report could not be made: %1.").arg(qtText(trouble)), this);
  const QString suffix = qtText(format.suffix);
  exportReport(
      {.proposed = around_.folder + u'/' + qtText(desk_.fileName()) + suffix,
       .filter = qtText(format.caption).remove(u'&') + QStringLiteral(" (*%1)").arg(suffix),
       .suffix = suffix,
       .taken = around_.company_path},
      content, this);
}

void ReportsWindow::copy() {
  if (desk_.report() == nullptr) return;
  const CopiedReport copied = desk_.copied();
  auto* const both = new QMimeData;
  both->setText(qtText(copied.text));
  both->setHtml(qtText(copied.html));
  QApplication::clipboard()->setMimeData(both);
}

void ReportsWindow::print() {
  const Report* const report = desk_.report();
  if (report == nullptr) return;
  const QString printer = printReport(*report, choices_->paper(), desk_.assets().today,
                                      around_.settings.printer(), this);
  if (!printer.isEmpty()) around_.settings.setPrinter(printer);
}

/// The step that most reports are made for stands out, as it does on no desktop by itself.
void ReportsWindow::colourPrintButton() {
  const Colours colours(palette());
  QPalette look = palette();
  look.setColor(QPalette::Button, colours.accent());
  look.setColor(QPalette::ButtonText, colours.dark() ? QColor(20, 20, 20) : QColor(Qt::white));
  print_->setPalette(look);
}

void ReportsWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && print_ != nullptr) colourPrintButton();
  QWidget::changeEvent(event);
}

void ReportsWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  emit closed();
}

void ReportsWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace depcalc::desktop
