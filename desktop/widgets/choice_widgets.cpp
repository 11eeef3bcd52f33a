#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <optional>

#include "desktop/widgets/arrow_keys.h"
#include "desktop/widgets/input_style.h"
#include "desktop/widgets/input_widgets.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {

DropDownListWidget::DropDownListWidget(DropDownList& list, Surface& surface, QWidget* parent)
    : QComboBox(parent),
      list_(list),
      binding_(*this, list, surface, [this](Aspect aspect) { apply(aspect); }) {
  view()->setAccessibleName(accessibleNameOf(list));
  connect(this, &QComboBox::activated, this, [this](int index) {
    binding_.surface().act([&](User& user) { user.chooseItem(list_, index); });
    showModel();
  });
  for (const Aspect aspect : {Aspect::items, Aspect::choice, Aspect::font, Aspect::colours}) {
    apply(aspect);
  }
}

void DropDownListWidget::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::items:
      clear();
      for (const std::string& item : list_.items()) addItem(qtText(item));
      setMaxVisibleItems(std::max(1, list_.count()));
      break;
    case Aspect::choice:
      showModel();
      break;
    case Aspect::font:
      setFont(qtFont(list_.font(), binding_.scale()));
      break;
    case Aspect::colours:
      setPalette(inputPalette(list_, binding_.colours()));
      setStyle(&InputStyle::of(binding_.surface()));
      break;
    default:
      break;
  }
}

void DropDownListWidget::showModel() { setCurrentIndex(list_.index()); }

void DropDownListWidget::keyPressEvent(QKeyEvent* event) {
  const bool opens = event->modifiers().testFlag(Qt::AltModifier) || event->key() == Qt::Key_F4;
  const std::optional<Direction> direction = directionOf(event->key());
  if (direction.has_value() && !opens) {
    binding_.surface().act([&](User& user) { user.arrow(*direction); });
    return;
  }
  QComboBox::keyPressEvent(event);
}

void DropDownListWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) binding_.pressed();
  if (list_.hasFocus()) QComboBox::mousePressEvent(event);
}

/// The page scrolls; a list that changed under the wheel would be a change nobody meant.
void DropDownListWidget::wheelEvent(QWheelEvent* event) { event->ignore(); }

OptionButtonWidget::OptionButtonWidget(OptionButton& option, Surface& surface, QWidget* parent)
    : QRadioButton(parent),
      option_(option),
      binding_(*this, option, surface, [this](Aspect aspect) { apply(aspect); }) {
  setAutoExclusive(false);
  setAttribute(Qt::WA_Hover);
  connect(this, &QAbstractButton::clicked, this,
          [this] { binding_.surface().act([this](User& user) { user.click(option_); }); });
  for (const Aspect aspect : {Aspect::text, Aspect::choice, Aspect::font, Aspect::colours}) {
    apply(aspect);
  }
}

void OptionButtonWidget::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::text:
      setText(qtText(option_.text()));
      break;
    case Aspect::choice:
      setChecked(option_.value());
      break;
    case Aspect::font:
      setFont(qtFont(option_.font(), binding_.scale()));
      break;
    case Aspect::colours:
      setPalette(inputPalette(option_, binding_.colours()));
      setStyle(&InputStyle::of(binding_.surface()));
      break;
    default:
      break;
  }
}

void OptionButtonWidget::keyPressEvent(QKeyEvent* event) {
  const std::optional<Direction> direction = directionOf(event->key());
  if (direction.has_value()) {
    binding_.surface().act([&](User& user) { user.arrow(*direction); });
  } else if (event->key() == Qt::Key_Space) {
    binding_.surface().act([this](User& user) { user.click(option_); });
  } else {
    event->ignore();
  }
}

void OptionButtonWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) binding_.pressed();
}

void OptionButtonWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) binding_.released(event->globalPosition().toPoint());
}

}  // namespace depcalc::desktop
