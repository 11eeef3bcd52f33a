#include "tests/drive/driver.h"

#include <array>
#include <charconv>
#include <utility>

#include "tests/drive/control_text.h"
#include "tests/drive/drive_text.h"
#include "values/number_text.h"

namespace depcalc::drive {
namespace {

/// The first word, taken off `rest` with the one blank behind it.
std::string_view takeWord(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(' '), rest.size());
  const std::string_view word = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return word;
}

int takeNumber(std::string_view& rest) {
  const std::string_view word = takeWord(rest);
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) {
    throw ScriptError("'" + std::string(word) + "' is no number");
  }
  return number;
}

template <typename Value, std::size_t Count>
Value named(const std::array<std::pair<std::string_view, Value>, Count>& values,
            std::string_view name) {
  for (const auto& [known, value] : values) {
    if (known == name) return value;
  }
  throw ScriptError("'" + std::string(name) + "' is not known here");
}

template <typename Value>
using Named = std::pair<std::string_view, Value>;

constexpr std::array answers = {Named<BoxAnswer>{"Yes", BoxAnswer::yes},
                                Named<BoxAnswer>{"No", BoxAnswer::no},
                                Named<BoxAnswer>{"Cancel", BoxAnswer::cancel}};
constexpr std::array keys = {Named<char32_t>{"Backspace", 8}, Named<char32_t>{"Return", 13},
                             Named<char32_t>{"Escape", 27}};
constexpr std::array arrows = {
    Named<Direction>{"Left", Direction::left}, Named<Direction>{"Right", Direction::right},
    Named<Direction>{"Up", Direction::up}, Named<Direction>{"Down", Direction::down}};
constexpr std::array<std::string_view, 3> screen_names = {"DepCalcView1", "DepCalcCtl1",
                                                          "DepCalcDisplayCtl1"};
constexpr std::array<std::string_view, 2> popups = {"DepCalcPopup1", "DepCalcPopup2"};

}  // namespace

Driver::Driver(DriveHost& host, ScreenMaker& screens, std::ostream& out,
               const DriveOptions& options, const DriveParts& parts)
    : host_(host),
      out_(out),
      options_(options),
      site_(parts.site ? parts.site(out, options.today)
                       : std::make_unique<DriveSite>(out, options.today)),
      events_(screens, options.events ? &out : nullptr),
      calculator_(parts.calculator
                      ? parts.calculator(*site_, events_)
                      : std::make_unique<ModelCalculator>(*site_, *site_, events_,
                                                          [&host] { return host.application(); })),
      container_(calculator_->container()),
      hands_(parts.hands ? parts.hands(container_)
                         : std::make_unique<ModelHands>(calculator_->stage())) {}

void Driver::run(std::string_view line) {
  if (line.empty() || line.front() == '#') return;
  const std::string command(takeWord(line));
  try {
    act(command, line);
    options_.manual_paint ? hands_->settle() : hands_->idle();
  } catch (const RuntimeError& error) {
    out_ << "error #" << error.number() << ": " << error.description() << '\n';
  }
}

void Driver::act(const std::string& command, std::string_view rest) {
  const bool known = actOnHost(command, rest) || actByKeyboard(command, rest) ||
                     actByMouse(command, rest) || raiseEvent(command, rest) ||
                     look(command, rest) || lookAtLayout(command, rest);
  if (!known) throw ScriptError("'" + command + "' is no command");
}

bool Driver::actOnHost(const std::string& command, std::string_view rest) {
  if (command == "start") {
    calculator_->start();
  } else if (command == "answer") {
    site_->queueAnswer(named(answers, rest));
  } else if (command == "idle") {
    hands_->idle();
  } else if (command == "expose") {
    calculator_->stage().expose();
  } else if (command == "leave") {
    hands_->leave();
  } else if (command == "mode") {
    host_.setMultiUser(
        named(std::array{Named<bool>{"single", false}, Named<bool>{"multi", true}}, rest));
  } else if (command == "printer") {
    site_->setHasPrinter(
        named(std::array{Named<bool>{"on", true}, Named<bool>{"off", false}}, rest));
  } else if (command == "paper") {
    setPaper(rest);
  } else if (command == "failpage") {
    site_->recorder().failOnPage(takeNumber(rest));
  } else if (command == "company" && rest == "close") {
    host_.close();
  } else if (command == "company" && takeWord(rest) == "open") {
    host_.open(std::string(rest));
  } else {
    return false;
  }
  return true;
}

void Driver::setPaper(std::string_view rest) {
  const int width = takeNumber(rest);
  const int height = takeNumber(rest);
  site_->recorder().setPrintableSize(width, height);
}

bool Driver::actByKeyboard(const std::string& command, std::string_view rest) {
  if (command == "focus") {
    hands_->moveFocus(controlOf<InputControl>(rest));
  } else if (command == "type") {
    hands_->type(rest);
  } else if (command == "paste") {
    hands_->paste(std::string(rest));
  } else if (command == "clear") {
    hands_->paste({});
  } else if (command == "key") {
    pressKey(rest);
  } else {
    return false;
  }
  return true;
}

void Driver::pressKey(std::string_view name) {
  if (name == "Tab" || name == "Shift+Tab") return hands_->tab(name != "Tab");
  for (const auto& [key, direction] : arrows) {
    if (key == name) return hands_->arrow(direction);
  }
  hands_->typeKey(named(keys, name));
}

bool Driver::actByMouse(const std::string& command, std::string_view rest) {
  if (command == "choose") {
    choose(rest);
  } else if (command == "click") {
    hands_->click(control(rest));
  } else if (command == "press") {
    hands_->mouseDown(control(rest));
  } else if (command == "release") {
    hands_->mouseUp(rest.empty() ? nullptr : &control(rest));
  } else if (command == "cell") {
    clickCell(rest);
  } else {
    return false;
  }
  return true;
}

void Driver::choose(std::string_view rest) {
  auto& list = controlOf<DropDownList>(takeWord(rest));
  for (int index = 0; index < list.count(); ++index) {
    if (list.items()[static_cast<std::size_t>(index)] == rest)
      return hands_->chooseItem(list, index);
  }
  throw ScriptError(list.name() + " has no item '" + std::string(rest) + "'");
}

void Driver::clickCell(std::string_view rest) {
  auto& grid = controlOf<Grid>(takeWord(rest));
  const int row = takeNumber(rest);
  const int column = takeNumber(rest);
  hands_->clickCell(grid, row, column);
}

bool Driver::raiseEvent(const std::string& command, std::string_view rest) {
  if (command == "raise") {
    raiseButton(rest);
  } else if (command == "help") {
    events_.view().HelpClick(std::string(rest));
  } else if (command == "helpcompare") {
    events_.compare().HelpClick(std::string(rest));
  } else if (command == "saverecord") {
    events_.view().SaveRecord(container_.CurrentRecord());
  } else if (command == "set") {
    setProperty(rest);
  } else {
    return false;
  }
  return true;
}

void Driver::raiseButton(std::string_view rest) {
  enum class From { view, entry, compare };
  constexpr std::array senders = {Named<From>{"view", From::view},
                                  Named<From>{"entry", From::entry},
                                  Named<From>{"compare", From::compare}};
  const From from = named(senders, takeWord(rest));
  const std::string button(rest);
  if (from == From::view) events_.view().ButtonClick(button);
  if (from == From::entry) events_.entry().ButtonClick(button);
  if (from == From::compare) events_.compare().ButtonClick(button);
}

void Driver::setProperty(std::string_view rest) {
  using Set = void (*)(CalculateDep&, std::string_view);
  constexpr std::array<Named<Set>, 5> properties = {{
      {"DepMethod",
       [](CalculateDep& to, std::string_view text) { to.DepMethod(std::string(text)); }},
      {"DepConvention", [](CalculateDep& to, std::string_view text) { to.DepConvention(text); }},
      {"DepRecovery",
       [](CalculateDep& to, std::string_view text) { to.DepRecovery(numberFromText(text)); }},
      {"RecIndex", [](CalculateDep& to, std::string_view text) { to.RecIndex(text); }},
      {"AssetProdCap", [](CalculateDep& to, std::string_view text) { to.AssetProdCap(text); }},
  }};
  const Set set = named(properties, takeWord(rest));
  if (container_.CurrentRecord() == nullptr) throw RuntimeError::objectNotSet();
  set(*container_.CurrentRecord(), rest);
}

bool Driver::look(const std::string& command, std::string_view rest) {
  if (command == "show") {
    if (container_.visibleScreen() != nullptr) printScreen(out_, *container_.visibleScreen());
  } else if (command == "grid") {
    printGrid(out_, controlOf<Grid>(rest));
  } else if (command == "record") {
    if (container_.CurrentRecord() != nullptr) printRecord(out_, *container_.CurrentRecord());
  } else if (command == "table") {
    const auto file = host_.application()->CompanyFile();
    if (file == nullptr) throw ScriptError("no company file is open");
    printTable(out_, *file->OpenTable("ZEM:DepCalc"));
  } else if (command == "popups") {
    printPopups();
  } else if (command == "pages") {
    printPages(out_, site_->recorder().pages());
  } else {
    return false;
  }
  return true;
}

bool Driver::lookAtLayout(const std::string& command, std::string_view rest) {
  if (command == "place") {
    printPlace(out_, rest, anyControl(rest));
  } else if (command == "sizes") {
    printSizes(out_, anyGrid(rest));
  } else if (command == "looks") {
    printLooks(out_, anyGrid(rest));
  } else if (command == "controls") {
    printControls(out_, screenOf(rest));
  } else if (command == "jobs") {
    out_ << "jobs " << site_->recorder().jobs() << '\n';
  } else {
    return false;
  }
  return true;
}

void Driver::printPopups() {
  for (const std::string_view name : popups) {
    const auto& popup = static_cast<const UserControl&>(*container_.child(name));
    if (popup.isShown()) printScreen(out_, popup);
  }
}

const UserControl& Driver::visibleScreen() const {
  if (container_.visibleScreen() == nullptr) throw ScriptError("no screen is shown");
  return *container_.visibleScreen();
}

/// Takes "DepCalcPopup1." off a name and answers the popup, or the visible screen.
const UserControl& Driver::screenFor(std::string_view& name) const {
  for (const std::string_view popup : popups) {
    if (!name.starts_with(popup) || name.substr(popup.size(), 1) != ".") continue;
    name.remove_prefix(popup.size() + 1);
    return static_cast<const UserControl&>(*container_.child(popup));
  }
  return visibleScreen();
}

Control& Driver::control(std::string_view name) const {
  std::string_view own_name = name;
  Control* const found = screenFor(own_name).child(own_name);
  if (found == nullptr || !found->isShown()) {
    throw ScriptError("'" + std::string(name) + "' is not shown");
  }
  return *found;
}

/// Shown or not: the container, what stands in it, SCREEN.NAME, and NAME on a screen.
const Control& Driver::anyControl(std::string_view name) const {
  if (name == container_.name()) return container_;
  const std::size_t dot = name.find('.');
  const Control* found = container_.child(name.substr(0, dot));
  if (found == nullptr) {
    found = onAnyScreen(name);
  } else if (dot != std::string_view::npos) {
    const auto* const screen = dynamic_cast<const UserControl*>(found);
    found = screen == nullptr ? nullptr : screen->child(name.substr(dot + 1));
  }
  if (found == nullptr) throw ScriptError("'" + std::string(name) + "' is not there");
  return *found;
}

/// The visible screen's, where it has one of that name.
const Control* Driver::onAnyScreen(std::string_view name) const {
  const UserControl* const visible = container_.visibleScreen();
  const Control* found = visible == nullptr ? nullptr : visible->child(name);
  for (const std::string_view screen : screen_names) {
    if (found != nullptr) break;
    found = static_cast<const UserControl&>(*container_.child(screen)).child(name);
  }
  return found;
}

const UserControl& Driver::screenOf(std::string_view name) const {
  const auto* const found = dynamic_cast<const UserControl*>(&anyControl(name));
  if (found == nullptr) throw ScriptError("'" + std::string(name) + "' is no screen");
  return *found;
}

const Grid& Driver::anyGrid(std::string_view name) const {
  const auto* const found = dynamic_cast<const Grid*>(&anyControl(name));
  if (found == nullptr) throw ScriptError("'" + std::string(name) + "' is no grid");
  return *found;
}

template <typename Kind>
Kind& Driver::controlOf(std::string_view name) const {
  auto* const found = dynamic_cast<Kind*>(&control(name));
  if (found == nullptr) throw ScriptError("'" + std::string(name) + "' cannot do that");
  return *found;
}

}  // namespace depcalc::drive
