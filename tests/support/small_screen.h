// A small screen of every kind of control.
#pragma once

#include <string>
#include <vector>

#include "controls/drop_down_list.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_box.h"
#include "controls/picture_button.h"
#include "controls/shape.h"
#include "controls/text_box.h"
#include "controls/user_control.h"

namespace depcalc::testing {

struct SmallScreen : UserControl {
  explicit SmallScreen(UserControl& parent) : UserControl(parent, "Screen") {
    setPlace({0, 0, 9000, 6000});
    Frame.setPlace({60, 60, 8800, 5800});
    NameLabel.setPlace({300, 300, 1500, 240});
    NameLabel.setTarget(NameText);
    NameLabel.onClick = [this] { said.emplace_back("help name"); };
    HelpLabel.setPlace({6000, 300, 2400, 240});
    HelpLabel.setRole(LabelRole::page_help);
    HelpLabel.onClick = [this] { said.emplace_back("help"); };
    NameText.setPlace({2000, 300, 3000, 315});
    AmountText.setPlace({2000, 700, 3000, 315});
    AmountText.setAlignment(TextAlignment::right);
    KindList.setPlace({2000, 1100, 3000, 315});
    FirstOption.setPlace({300, 1600, 1500, 300});
    SecondOption.setPlace({2000, 1600, 1500, 300});
    Table.setPlace({300, 2100, 6000, 1500});
    Box.setPlace({7000, 2100, 600, 600});
    GoButton.setPlace({300, 5000, 1500, 420});
    GoButton.actOnRelease([this] { said.emplace_back("go"); });
    FirstOption.onClick = [this] { SecondOption.setValue(false); };
    SecondOption.onClick = [this] { FirstOption.setValue(false); };
    Table.onClick = [this] { said.emplace_back("cell"); };
  }

  Shape Frame{*this, "Frame"};
  Label TitleLabel{*this, "TitleLabel", "A small screen:"};
  Label NameLabel{*this, "NameLabel", "Name"};
  Label HelpLabel{*this, "HelpLabel", "Using this screen"};
  TextBox NameText{*this, "NameText"};
  TextBox AmountText{*this, "AmountText"};
  DropDownList KindList{*this, "KindList", {"One", "Two", "Three"}};
  OptionButton FirstOption{*this, "FirstOption", "First"};
  OptionButton SecondOption{*this, "SecondOption", "Second"};
  Grid Table{*this, "Table", 4, 3};
  PictureBox Box{*this, "Box"};
  PicturePair GoButton{*this, "GoButton", "calc", "Go on", 'G'};

  std::vector<std::string> said;
};

struct SmallRoot : UserControl {
  explicit SmallRoot(Stage& stage) : UserControl(stage, "Root") { setPlace({0, 0, 9000, 6000}); }

  SmallScreen screen{*this};
};

}  // namespace depcalc::testing
