#include "desktop/window/report_choices.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "desktop/widgets/text_block.h"
#include "reports/company_years.h"

namespace depcalc::desktop {
namespace {

constexpr std::array<PdfPaper, 4> papers{{{PaperSize::a4, true},
                                          {PaperSize::a4, false},
                                          {PaperSize::letter, true},
                                          {PaperSize::letter, false}}};

constexpr std::array groupings{Grouping::none, Grouping::department, Grouping::method,
                               Grouping::convention};

QStringList paperNames() {
  return {QObject::tr("A4 landscape"), QObject::tr("A4 portrait"), QObject::tr("Letter landscape"),
          QObject::tr("Letter portrait")};
}

QStringList groupingNames() {
  return {QObject::tr("Nothing"), QObject::tr("Department"), QObject::tr("Method"),
          QObject::tr("Convention")};
}

/// The paper that the user prefers, by its place in the list.
int paperRow(const Settings& settings) {
  const PaperSize size = settings.paperSize().value_or(PaperSize::a4);
  const bool landscape = settings.reportsLandscape();
  const auto* const found = std::find_if(papers.begin(), papers.end(), [&](const PdfPaper& paper) {
    return paper.size == size && paper.landscape == landscape;
  });
  return static_cast<int>(found - papers.begin());
}

/// Without telling anybody.
void fill(QComboBox& box, const QStringList& items, int current) {
  const QSignalBlocker silent(box);
  box.clear();
  box.addItems(items);
  box.setCurrentIndex(current);
}

}  // namespace

void ReportChoices::Choice::setVisible(bool visible) const {
  label->setVisible(visible);
  box->setVisible(visible);
}

ReportChoices::ReportChoices(Settings& settings, QWidget& bar)
    : QObject(&bar), settings_(settings), bar_(bar) {
  auto* const row = new QHBoxLayout(&bar);
  year_ = addChoice(*row, tr("Fiscal &year"), "Year", &ReportChoices::chooseYear);
  asset_ = addChoice(*row, tr("&Asset"), "Asset", &ReportChoices::chooseAsset);
  asset_.box->setMinimumContentsLength(28);
  grouping_ = addChoice(*row, tr("&Group by"), "Grouping", &ReportChoices::chooseGrouping);
  paper_ = addChoice(*row, tr("Pape&r"), "Paper", &ReportChoices::choosePaper);
  row->addStretch();
  back_ = addTurn(*row, Qt::LeftArrow, tr("Previous page"), -1);
  page_ = new QLabel(&bar);
  page_->setObjectName(QStringLiteral("PageNumber"));
  row->addWidget(page_);
  forward_ = addTurn(*row, Qt::RightArrow, tr("Next page"), 1);
  fill(*paper_.box, paperNames(), paperRow(settings_));
  fill(*grouping_.box, groupingNames(), 0);
}

ReportChoices::Choice ReportChoices::addChoice(QHBoxLayout& row, const QString& caption,
                                               const char* name,
                                               void (ReportChoices::*chosen)(int)) {
  auto* const label = new QLabel(caption, &bar_);
  auto* const box = new QComboBox(&bar_);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(QString(caption).remove(u'&'));
  box->view()->setAccessibleName(box->accessibleName());
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(12);
  label->setBuddy(box);
  row.addWidget(label);
  row.addWidget(box);
  row.addSpacing(bar_.fontMetrics().averageCharWidth());
  connect(box, &QComboBox::currentIndexChanged, this, chosen);
  return {label, box};
}

QToolButton* ReportChoices::addTurn(QHBoxLayout& row, Qt::ArrowType arrow, const QString& name,
                                    int pages) {
  auto* const button = new QToolButton(&bar_);
  button->setArrowType(arrow);
  button->setAccessibleName(name);
  button->setToolTip(name);
  button->setFocusPolicy(Qt::TabFocus);
  row.addWidget(button);
  connect(button, &QToolButton::clicked, this, [this, pages] { emit pageTurned(pages); });
  return button;
}

void ReportChoices::offer(const ReportDesk& desk) {
  years_ = desk.years();
  QStringList years;
  for (const int year : years_) years << qtText(fiscalYearName(year));
  const auto chosen = std::find(years_.begin(), years_.end(), desk.year());
  fill(*year_.box, years, static_cast<int>(chosen - years_.begin()));
  QStringList names;
  for (const std::string& name : desk.assetNames()) names << qtText(name);
  fill(*asset_.box, names, desk.asset() - 1);
}

void ReportChoices::showAsked(const ReportDesk& desk) {
  year_.setVisible(desk.asksForYear());
  grouping_.setVisible(desk.asksForGrouping());
  asset_.setVisible(desk.asksForAsset());
}

void ReportChoices::showPage(int page, int count) {
  page_->setText(count == 0 ? QString() : tr("Page %1 of %2").arg(page + 1).arg(count));
  back_->setEnabled(page > 0);
  forward_->setEnabled(page + 1 < count);
}

bool ReportChoices::followPaper() {
  const int row = paperRow(settings_);
  if (row == paper_.box->currentIndex()) return false;
  const QSignalBlocker silent(paper_.box);
  paper_.box->setCurrentIndex(row);
  return true;
}

PdfPaper ReportChoices::paper() const {
  return papers.at(static_cast<std::size_t>(paper_.box->currentIndex()));
}

void ReportChoices::chooseYear(int index) {
  if (index < 0 || index >= std::ssize(years_)) return;
  emit yearChosen(years_[static_cast<std::size_t>(index)]);
}

void ReportChoices::chooseAsset(int index) {
  if (index >= 0) emit assetChosen(index + 1);
}

void ReportChoices::chooseGrouping(int index) {
  emit groupingChosen(groupings.at(static_cast<std::size_t>(index)));
}

void ReportChoices::choosePaper(int) {
  settings_.setPaperSize(paper().size);
  settings_.setReportsLandscape(paper().landscape);
  emit paperChosen();
}

}  // namespace depcalc::desktop
