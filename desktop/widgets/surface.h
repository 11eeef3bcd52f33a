// What the widgets of one calculator share.
#pragma once

#include <QObject>
#include <functional>
#include <unordered_map>

#include "controls/user.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/scale.h"

class QWidget;

namespace depcalc::desktop {

/// The calculator's stage as the widgets see it. Whatever a user does to a widget goes through
/// `act`, so that an error which no handler traps ends that one action, and paints that became
/// due are delivered at the next idle moment.
class Surface : public QObject {
  Q_OBJECT

 public:
  Surface(Stage& stage, const Scale& scale, const Colours& colours);

  [[nodiscard]] Stage& stage() const { return stage_; }
  [[nodiscard]] const Scale& scale() const { return scale_; }
  [[nodiscard]] const Colours& colours() const { return colours_; }
  void setScale(const Scale& scale);
  void setColours(const Colours& colours);

  void act(const std::function<void(User&)>& action);
  void paintAtIdle();

  /// Moves the focus along the controls, and the keys to the buttons and links beyond them, as
  /// `tabStep` says; the widget that gets them is told that it was by Tab.
  void tab(bool backwards);
  [[nodiscard]] Qt::FocusReason focusReason() const { return focus_reason_; }

  /// The keys that mean the same wherever the focus is: Tab, F1, Escape, Alt with a letter.
  /// Returns whether this was one of them.
  bool handleKey(int key, Qt::KeyboardModifiers modifiers);

  void add(const Control& control, QWidget& widget) { widgets_[&control] = &widget; }
  void remove(const Control& control) { widgets_.erase(&control); }
  [[nodiscard]] QWidget* widget(const Control& control) const;
  /// The widget that takes the keys while no control has the focus.
  void setRestingWidget(QWidget* widget) { resting_ = widget; }
  [[nodiscard]] QWidget* restingWidget() const { return resting_; }

 signals:
  /// Scale or colours are others now.
  void restyled();
  /// The user did something, and what followed is over.
  void acted();
  /// The user asks for more of the current cell of a grid, which was clicked before: by Enter or a
  /// double click.
  void opened(const Grid& grid);
  /// The user pointed at a cell, whatever its grid made of that.
  void cellPointed(const Grid& grid, int row, int column);
  /// The paints that were due are delivered.
  void painted();
  /// Something that floats over a screen, or beside it, is shown there now.
  void appeared(QWidget* widget);
  /// Another screen comes up.
  void turned();
  /// Other parts of the controls are to be seen now.
  void scrolled();
  /// This part of a control should be where the user can see it.
  void attention(QWidget* widget, const QRect& part);

 private:
  bool press(Control* control);
  void giveKeysTo(const Control& control, bool backwards);
  void restoreKeys();

  Stage& stage_;
  User user_;
  Scale scale_;
  Colours colours_;
  bool paint_scheduled_ = false;
  Qt::FocusReason focus_reason_ = Qt::OtherFocusReason;
  std::unordered_map<const Control*, QWidget*> widgets_;
  QWidget* resting_ = nullptr;
};

}  // namespace depcalc::desktop
