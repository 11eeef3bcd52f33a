#include "desktop/window/leaving.h"

#include <QScopedValueRollback>

#include "desktop/window/calculator.h"

namespace depcalc::desktop {

/// The host asks in the calculator's own words, with a way back; the calculator's question, which
/// has none, is then answered for the user.
bool Leaving::ask(Calculator* calculator) {
  if (calculator == nullptr || agreed_) return true;
  if (asking_) return false;
  const QScopedValueRollback asking(asking_, true);
  if (!calculator->validateField()) return false;
  const MessageBox question = DepCalcCont::leavingQuestion();
  BoxAnswer answer = BoxAnswer::no;
  if (calculator->asksWhenLeft()) {
    answer = site_.ask({question.text, BoxButtons::yesNoCancel, question.title}, note_);
    if (answer != BoxAnswer::yes && answer != BoxAnswer::no) return false;
  }
  site_.answerWhile(question, answer, [calculator] { calculator->loseFocus(); });
  agreed_ = true;
  return true;
}

bool Leaving::withNote(const QString& note, const std::function<bool()>& leave) {
  const QScopedValueRollback below(note_, note);
  return leave();
}

}  // namespace depcalc::desktop
