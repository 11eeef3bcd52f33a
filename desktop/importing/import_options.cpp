#include "desktop/importing/import_options.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>
#include <array>

#include "desktop/widgets/text_block.h"
#include "engine/convention.h"
#include "engine/method.h"

namespace depcalc::desktop {
namespace {

constexpr int pairs_in_a_row = 4;

struct Separator {
  char character;
  const char* name;
};
constexpr std::array<Separator, 4> separators{{{',', QT_TRANSLATE_NOOP("Import", "Comma")},
                                               {';', QT_TRANSLATE_NOOP("Import", "Semicolon")},
                                               {'\t', QT_TRANSLATE_NOOP("Import", "Tab")},
                                               {'|', QT_TRANSLATE_NOOP("Import", "Bar |")}}};

/// Where `value` stands in the list; a separator of the file's own may be none of ours.
void choose(QComboBox& list, const QVariant& value) {
  const QSignalBlocker quiet(list);
  list.setCurrentIndex(list.findData(value));
}

}  // namespace

ImportOptions::ImportOptions(AssetImport& import, QWidget* parent)
    : QWidget(parent), import_(import) {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 3 / 2);
  encoding_ = addList(*grid, 0, tr("&Encoding"), "Encoding");
  separator_ = addList(*grid, 1, tr("&Separator"), "Separator");
  decimal_ = addList(*grid, 2, tr("&Decimal sign"), "Decimal");
  dates_ = addList(*grid, 3, tr("&Order of dates"), "Dates");
  header_row_ = new QSpinBox(this);
  auto* const header_label = new QLabel(tr("&Names in line"), this);
  header_label->setBuddy(header_row_);
  header_row_->setObjectName(QStringLiteral("HeaderRow"));
  header_row_->setAccessibleName(tr("Line of the column names"));
  header_row_->setSpecialValueText(tr("None"));
  header_row_->setRange(0, 1);
  header_row_->setKeyboardTracking(false);
  grid->addWidget(header_label, 2, 0);
  grid->addWidget(header_row_, 3, 0);
  method_ = addList(*grid, pairs_in_a_row + 1, tr("&Method, if none is given"), "Method");
  convention_ =
      addList(*grid, pairs_in_a_row + 2, tr("Con&vention, if none is given"), "Convention");
  for (int column = 0; column < pairs_in_a_row; ++column) grid->setColumnStretch(column, 1);
  fillLists();
  connect(encoding_, &QComboBox::activated, this, [this](int index) {
    import_.setEncoding(static_cast<Encoding>(encoding_->itemData(index).toInt()));
    emit changed();
  });
  connect(separator_, &QComboBox::activated, this, [this](int index) {
    import_.setSeparator(static_cast<char>(separator_->itemData(index).toInt()));
    emit changed();
  });
  connect(decimal_, &QComboBox::activated, this, [this](int index) {
    import_.setDecimal(static_cast<DecimalSign>(decimal_->itemData(index).toInt()));
    emit changed();
  });
  connect(dates_, &QComboBox::activated, this, [this](int index) {
    import_.setDates(static_cast<DateOrder>(dates_->itemData(index).toInt()));
    emit changed();
  });
  connect(header_row_, &QSpinBox::valueChanged, this, [this](int row) {
    import_.setHeaderRow(static_cast<std::size_t>(row));
    emit changed();
  });
  connect(method_, &QComboBox::activated, this, [this](int index) {
    import_.setMethod(method_->itemData(index).toString().toStdString());
    emit changed();
  });
  connect(convention_, &QComboBox::activated, this, [this](int index) {
    import_.setConvention(std::to_string(index));
    emit changed();
  });
}

QComboBox* ImportOptions::addList(QGridLayout& grid, int place, const QString& caption,
                                  const char* name) {
  auto* const list = new QComboBox(this);
  auto* const label = new QLabel(caption, this);
  label->setBuddy(list);
  list->setObjectName(QLatin1String(name));
  list->setAccessibleName(QString(caption).remove(u'&'));
  list->setPlaceholderText(tr("Please choose"));
  list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  const int row = place / pairs_in_a_row * 2;
  grid.addWidget(label, row, place % pairs_in_a_row);
  grid.addWidget(list, row + 1, place % pairs_in_a_row);
  return list;
}

void ImportOptions::fillLists() {
  for (std::size_t i = 0; i < encoding_names.size(); ++i) {
    encoding_->addItem(qtText(encoding_names[i].label), static_cast<int>(i));
  }
  for (const Separator& each : separators) {
    separator_->addItem(QCoreApplication::translate("Import", each.name), int{each.character});
  }
  decimal_->addItem(tr("Point: 1,250.50"), static_cast<int>(DecimalSign::point));
  decimal_->addItem(tr("Comma: 1.250,50"), static_cast<int>(DecimalSign::comma));
  dates_->addItem(tr("Month, day, year"), static_cast<int>(DateOrder::month_day_year));
  dates_->addItem(tr("Day, month, year"), static_cast<int>(DateOrder::day_month_year));
  dates_->addItem(tr("Year, month, day"), static_cast<int>(DateOrder::year_month_day));
  method_->addItem(tr("None: no amounts yet"), QString());
  for (const Method& method : methods) method_->addItem(qtText(method.name), qtText(method.code));
  for (const std::string_view name : convention_names) convention_->addItem(qtText(name));
}

void ImportOptions::refresh() {
  const ImportSettings& settings = import_.settings();
  const char separator = settings.separator;
  const bool text = import_.isText();
  const QSignalBlocker quiet(header_row_);
  encoding_->setEnabled(text);
  separator_->setEnabled(text);
  if (text && separator_->findData(int{separator}) < 0) {
    separator_->addItem(QString(QLatin1Char(separator)), int{separator});
  }
  choose(*encoding_, text ? static_cast<int>(settings.encoding) : -1);
  choose(*separator_, text ? int{separator} : -1);
  const OpenQuestions& open = import_.questions();
  choose(*decimal_, open.number.empty() ? static_cast<int>(settings.decimal) : -1);
  choose(*dates_, open.date.empty() ? static_cast<int>(settings.dates) : -1);
  header_row_->setRange(
      0, static_cast<int>(std::min<std::size_t>(100, import_.rowCount() + settings.header_row)));
  header_row_->setValue(static_cast<int>(settings.header_row));
  choose(*method_, qtText(settings.method));
  convention_->setCurrentIndex(settings.convention.front() - '0');
}

}  // namespace depcalc::desktop
