// What the random user does on the calculator's screens, and what it was told by that.
#include <QScrollArea>
#include <QTableView>
#include <algorithm>
#include <array>

#include "tests/desktop/real/random_actions.h"

namespace depcalc::testing {
namespace {

struct Field {
  const char* column;
  TextBox DepCalcCtl::*box;
  std::array<const char*, 5> texts;  ///< the last two are refused or odd
};
const Field fields[] = {
    {"id", &DepCalcCtl::IDText, {"TRK-014", "A 1", "LAT-002", "0", ","}},
    {"name", &DepCalcCtl::NameText, {"Delivery truck", "Lathe", "Saw", "O'Neill & Co", "-"}},
    {"serial", &DepCalcCtl::SerialText, {"C-4471", "5CD9", "", "x", "1e3"}},
    {"department", &DepCalcCtl::DeptText, {"Shop", "Office", "", "Shop, 2nd floor", "="}},
    {"placed_in_service",
     &DepCalcCtl::StartDateText,
     {"9/15/2023", "1/1/2022", "3/31/2024", "99/99/2020", "1/1/1950"}},
    {"life", &DepCalcCtl::DRecoveryText, {"5", "7", "12", "51", "abc"}},
    {"basis", &DepCalcCtl::BasisText, {"38450", "1000", "9999.99", "-5", "10000000"}},
    {"salvage", &DepCalcCtl::SalvageText, {"0", "100", "250.50", "1000000", "x"}},
    {"capacity", &DepCalcCtl::ProdCapText, {"150000", "", "40000", "-1", "x"}},
};
constexpr std::size_t free_texts = 4;

}  // namespace

// --- What the user sees -----------------------------------------------------------------------

QString RandomActions::openPath() {
  return gui([this] {
    return window->company() == nullptr ? QString()
                                        : QString::fromStdString(window->company()->path());
  });
}

FormTexts RandomActions::formTexts() {
  return gui([this] {
    FormTexts texts;
    if (window->calculator() == nullptr) return texts;
    for (const Field& field : fields) texts[field.column] = (form().*field.box).text();
    texts["convention"] = form().DConvList.text();
    return texts;
  });
}

bool RandomActions::formIsBlank() {
  if (shown() != "DepCalcCtl1") return false;
  FormTexts texts = formTexts();
  texts.erase("convention");
  texts.erase("salvage");
  return std::all_of(texts.begin(), texts.end(),
                     [](const auto& field) { return field.second.empty(); });
}

std::vector<std::string> RandomActions::seen() {
  std::vector<std::string> all{openPath().toStdString(), shown()};
  for (const auto& [column, text] : formTexts()) all.push_back(text);
  if (all[1] == "DepCalcView1") all.push_back(std::to_string(selectedAsset()));
  return all;
}

int RandomActions::selectedAsset() {
  return gui([this] { return assets().AssetViewTable.column(); });
}

std::string RandomActions::chosenMethod() {
  return gui([this]() -> std::string {
    if (comparison().DDBOption.value()) return "DDB";
    if (comparison().SYDOption.value()) return "SYD";
    return comparison().UoPOption.value() ? "UOP" : "SL";
  });
}

void RandomActions::bringIntoSight(QWidget* widget) {
  gui([widget] {
    for (QWidget* around = widget->parentWidget(); around != nullptr;
         around = around->parentWidget()) {
      auto* const area = qobject_cast<QScrollArea*>(around);
      if (area != nullptr) area->ensureWidgetVisible(widget);
    }
  });
}

/// By the mouse or by its key.
void RandomActions::press(const Control& control, const char* key) {
  if (chance(50)) return user.key(key);
  QWidget* const widget = gui([&] { return window->calculator()->surface().widget(control); });
  bringIntoSight(widget);
  user.clicks(widget);
}

// --- In the form ------------------------------------------------------------------------------

void RandomActions::typeIntoField() {
  const Field& field = oneOf(fields);
  const char* const text =
      chance(80) ? field.texts[static_cast<std::size_t>(below(3))] : oneOf(field.texts);
  note(std::string("types '") + text + "' into " + field.column);
  const Control& box = form().*field.box;
  QWidget* const widget = gui([&] { return window->calculator()->surface().widget(box); });
  bringIntoSight(widget);
  user.clicks(widget);
  user.fills(QString::fromUtf8(text));
}

void RandomActions::chooseConvention() {
  note("chooses a convention");
  gui([this] { form().DConvList.SetFocus(); });
  user.key(chance(60) ? "Down" : "Up");
}

/// The text is in the field, and the field has not been left.
void RandomActions::typeWithoutLeaving() {
  const Field& field = fields[static_cast<std::size_t>(below(free_texts))];
  note(std::string("types on in ") + field.column);
  QWidget* const widget =
      gui([&] { return window->calculator()->surface().widget(form().*field.box); });
  bringIntoSight(widget);
  user.clicks(widget);
  user.key("End");
  user.types(QString::fromUtf8(oneOf(field.texts)));
}

void RandomActions::fillForm() {
  note("fills the form");
  QWidget* const first =
      gui([this] { return window->calculator()->surface().widget(form().IDText); });
  bringIntoSight(first);
  user.clicks(first);
  QStringList texts;
  for (const Field& field : fields) {
    // The fiscal year's month before the life and the convention behind it stay.
    const bool life = field.box == &DepCalcCtl::DRecoveryText;
    if (life) texts << QString();
    texts << QString::fromUtf8(field.texts[static_cast<std::size_t>(below(3))]);
    if (life) texts << QString();
  }
  user.fillsAll(texts);
}

void RandomActions::saveForm() {
  note("saves in the form");
  const FormTexts texts = formTexts();
  press(form().SaveButton.normal, "alt+s");
  answerDialogs();
  if (shown() == "DepCalcView1") {
    told({Told::What::saved, edited_, texts});
  } else if (answered("Placed-in-service Date", "OK") && texts.at("placed_in_service").empty()) {
    edited_.reset();  // the calculator takes it for a new asset from here on
  }
}

void RandomActions::calculate() {
  note("calculates");
  press(form().CalcButton.normal, "alt+c");
}

void RandomActions::newFromForm() {
  note("wants a new asset");
  const FormTexts texts = formTexts();
  press(form().ClearButton.normal, "alt+n");
  answerDialogs();
  if (!formIsBlank() || answered("Save Changes", "Cancel")) return;
  if (answered("Save Changes", "Yes")) told({Told::What::saved, edited_, texts});
  edited_.reset();
}

void RandomActions::viewAllFromForm() {
  note("wants to see all assets");
  const FormTexts texts = formTexts();
  press(form().ViewAllLabel, "alt+v");
  answerDialogs();
  const bool saved = answered("Save Changes", "Yes") && shown() == "DepCalcView1";
  if (saved) told({Told::What::saved, edited_, texts});
}

// --- In the comparison ------------------------------------------------------------------------

void RandomActions::chooseMethod() {
  note("chooses a method");
  DepCalcDisplayCtl& screen = comparison();
  const OptionButton* const options[] = {&screen.SLOption, &screen.SYDOption, &screen.DDBOption,
                                         &screen.UoPOption};
  const OptionButton* const option = oneOf(options);
  QWidget* const widget = gui([&] { return window->calculator()->surface().widget(*option); });
  bringIntoSight(widget);
  user.clicks(widget);
}

void RandomActions::saveComparison() {
  note("saves in the comparison");
  FormTexts texts = formTexts();
  texts["method"] = chosenMethod();
  press(comparison().SaveButton.normal, "alt+s");
  if (shown() == "DepCalcView1") told({Told::What::saved, edited_, texts});
}

void RandomActions::closeComparison() {
  note("goes back to the form");
  press(comparison().CloseButton.normal, "alt+e");
}

void RandomActions::viewAllFromComparison() {
  note("wants to see all assets");
  FormTexts texts = formTexts();
  texts["method"] = chosenMethod();
  press(comparison().ViewAllLabel, "alt+v");
  answerDialogs();
  const bool saved = answered("Save Changes", "Yes") && shown() == "DepCalcView1";
  if (saved) told({Told::What::saved, edited_, texts});
}

// --- In the register --------------------------------------------------------------------------

void RandomActions::selectAsset() {
  QWidget* viewport = nullptr;
  const QPoint place = gui([&] {
    auto* const view =
        dynamic_cast<QTableView*>(window->calculator()->surface().widget(assets().AssetViewTable));
    viewport = view->isVisible() ? view->viewport() : nullptr;
    if (viewport == nullptr) return QPoint();
    const int columns = view->model()->columnCount();
    const int column = chance(10) || columns < 2 ? 0 : 1 + below(columns - 1);
    const QModelIndex cell = view->model()->index(0, column);
    view->scrollTo(cell);
    for (QWidget* around = view->parentWidget(); around != nullptr;
         around = around->parentWidget()) {
      auto* const area = qobject_cast<QScrollArea*>(around);
      const QPoint middle = view->mapTo(window.get(), view->visualRect(cell).center());
      if (area == nullptr) continue;
      const QPoint in_page = area->widget()->mapFrom(window.get(), middle);
      area->ensureVisible(in_page.x(), in_page.y());
    }
    return view->visualRect(cell).center();
  });
  if (viewport != nullptr) user.clicks(viewport, place);
  note("selects asset " + std::to_string(selectedAsset()));
}

void RandomActions::newAsset() {
  note("begins a new asset");
  press(assets().NewButton.normal, "alt+n");
  if (shown() == "DepCalcCtl1") edited_.reset();
}

void RandomActions::editAsset() {
  if (selectedAsset() == 0 && chance(70)) selectAsset();
  const int asset = selectedAsset();
  note("edits asset " + std::to_string(asset));
  press(assets().EditButton.normal, "alt+e");
  if (shown() != "DepCalcCtl1") return;
  edited_ = static_cast<std::size_t>(asset - 1);
  FormTexts texts = formTexts();
  EXPECT_EQ(wrongIn(rows_[openPath()].at(*edited_), texts), "") << "the form shows the asset";
}

void RandomActions::deleteAsset() {
  if (selectedAsset() == 0 && chance(70)) selectAsset();
  const int asset = selectedAsset();
  note("deletes asset " + std::to_string(asset));
  press(assets().DeleteButton.normal, "alt+d");
  answerDialogs();
  if (!answered("Delete an Asset", "Yes")) return;
  told({Told::What::deleted, static_cast<std::size_t>(asset - 1), {}});
}

/// There is no printer here, and the user names no file.
void RandomActions::printAsset() {
  note("prints");
  press(assets().PrintButton.normal, "alt+p");
}

}  // namespace depcalc::testing
