#include <QInputMethodEvent>
#include <QKeyEvent>

#include "desktop/widgets/input_style.h"
#include "desktop/widgets/input_widgets.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

constexpr char32_t delete_key = 127;

/// The character that a key stands for; 0: none, as for arrows, Delete and shortcuts.
char32_t characterOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  // Control with Alt is how some keyboards write a third character on a key.
  const bool shortcut = held == Qt::ControlModifier || held == Qt::AltModifier;
  const auto characters = event.text().toUcs4();
  if (characters.isEmpty() || (shortcut && event.key() != Qt::Key_Backspace)) return 0;
  const auto character = static_cast<char32_t>(characters.first());
  return character == delete_key ? 0 : character;
}

}  // namespace

TextBoxWidget::TextBoxWidget(TextBox& box, Surface& surface, QWidget* parent)
    : QLineEdit(parent),
      box_(box),
      binding_(*this, box, surface, [this](Aspect aspect) { apply(aspect); }) {
  setAcceptDrops(false);
  setFrame(true);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    binding_.surface().act([&](User& user) { user.edit(box_, text.toStdString()); });
    showModel();
  });
  for (const Aspect aspect : {Aspect::text, Aspect::font, Aspect::colours}) apply(aspect);
}

void TextBoxWidget::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::text:
      showModel();
      break;
    case Aspect::font: {
      setFont(qtFont(box_.font(), binding_.scale()));
      setAlignment(Qt::AlignVCenter | qtAlignment(box_.alignment()));
      const int margin = binding_.scale().pixels(looks::field_margin);
      setTextMargins(margin, 0, margin, 0);
      break;
    }
    case Aspect::colours:
      setPalette(inputPalette(box_, binding_.colours()));
      setStyle(&InputStyle::of(binding_.surface()));
      break;
    default:
      break;
  }
}

void TextBoxWidget::showModel() {
  const QString text = qtText(box_.text());
  if (text != this->text()) setText(text);
}

bool TextBoxWidget::offer(char32_t key) {
  bool accepted = false;
  binding_.surface().act([&](User& user) { accepted = user.keyPress(box_, key); });
  return accepted;
}

void TextBoxWidget::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() == Qt::AltModifier) {  // nobody's mnemonic, and nothing to write
    event->ignore();
    return;
  }
  const char32_t key = characterOf(*event);
  if (key != 0 && !offer(key)) return;
  QLineEdit::keyPressEvent(event);
}

/// Composed characters arrive here, several at once where a whole word was composed.
void TextBoxWidget::inputMethodEvent(QInputMethodEvent* event) {
  std::u32string accepted;
  for (const auto code : event->commitString().toUcs4()) {
    if (offer(static_cast<char32_t>(code))) accepted.push_back(static_cast<char32_t>(code));
  }
  QInputMethodEvent offered(event->preeditString(), event->attributes());
  offered.setCommitString(QString::fromStdU32String(accepted), event->replacementStart(),
                          event->replacementLength());
  QLineEdit::inputMethodEvent(&offered);
}

void TextBoxWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) binding_.pressed();
  if (box_.hasFocus()) QLineEdit::mousePressEvent(event);
}

}  // namespace depcalc::desktop
