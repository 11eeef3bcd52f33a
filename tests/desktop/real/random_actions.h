// A user in the real window who does anything at all.
#pragma once

#include <iterator>
#include <random>
#include <utility>

#include "tests/desktop/real/real_window.h"
#include "tests/desktop/real/told_rows.h"

namespace depcalc::testing {

/// Two companies, one of them open at a time. After each action both files hold what the user was
/// told: what was shown as saved is there, what was not is not, and nothing else has changed.
struct RandomActions : RealWindow {
  RandomActions();

  /// Stops at the first action after which something does not hold.
  void walk(unsigned seed, int actions);

 private:
  struct Choice {
    int weight;
    void (RandomActions::*act)();
  };

  int below(int count) {
    // Not std::uniform_int_distribution, whose numbers differ between libraries.
    return static_cast<int>(random_() % static_cast<unsigned>(count));
  }
  bool chance(int percent) { return below(100) < percent; }
  template <typename Values>
  const auto& oneOf(const Values& values) {
    return *std::next(std::begin(values), below(static_cast<int>(std::size(values))));
  }

  // random_actions.cpp
  void step();
  void act();
  void oneOfActions(std::initializer_list<Choice> choices);
  void note(const std::string& what) { script_ += what + '\n'; }
  void answerDialogs();
  void answerBox(const SeenDialog& box);
  bool answered(const QString& title, const QString& answer) const;
  void checkFiles();
  void checkRegister();
  Rows rowsIn(const QString& company);

  // random_gestures.cpp: what the user sees
  bool isOpen() { return !openPath().isEmpty(); }
  QString openPath();
  FormTexts formTexts();
  /// All of it that an action which concerns none of it must leave alone.
  std::vector<std::string> seen();
  bool formIsBlank();
  int selectedAsset();
  std::string chosenMethod();
  void bringIntoSight(QWidget* widget);
  void press(const Control& control, const char* key);

  // … the form
  void typeIntoField();
  void chooseConvention();
  void typeWithoutLeaving();
  void fillForm();
  void saveForm();
  void calculate();
  void newFromForm();
  void viewAllFromForm();

  // … the comparison
  void chooseMethod();
  void saveComparison();
  void closeComparison();
  void viewAllFromComparison();

  // … the register
  void selectAsset();
  void newAsset();
  void editAsset();
  void deleteAsset();
  void printAsset();

  // random_leaving.cpp: the window, and beside it
  void cancelDialog();
  void minimise();
  void resizeWindow();
  void zoom();
  void help();
  void secondProgramTries();

  // … leaving
  void closeCompany();
  void openOtherCompany();
  void quitAndStartAgain();
  void startCalculatorAnew();
  void switchMode();
  void savedOnLeaving(const QString& path, const FormTexts& shown, bool left);
  void told(Told what) { told_[openPath()] = std::move(what); }

  std::mt19937 random_;
  std::string script_;
  std::vector<std::pair<QString, QString>> answers_;  // of the action under way: title and answer
  bool stays_ = false;                                // the action changes nothing to be seen
  int changes_ = 0;
  std::map<QString, Rows> rows_;       // by the file's path
  std::map<QString, Told> told_;       // of the action under way
  std::optional<std::size_t> edited_;  // the saved asset in the form; nothing: new
};

}  // namespace depcalc::testing
