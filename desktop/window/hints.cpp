#include "desktop/window/hints.h"

#include <QVBoxLayout>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/page.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/hint_bar.h"

namespace depcalc::desktop {

Hints::Hints(Page& page, QWidget& both, Settings& settings, Where where)
    : QObject(&both), settings_(settings), where_(std::move(where)) {
  auto* const column = new QVBoxLayout(&both);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(&page, 1);
  // Made behind the page, since who steps through the window hears of its parts in this order.
  bar_ = new HintBar(&both);
  column->addWidget(bar_);
  connect(bar_, &HintBar::moreWanted, this, &Hints::guideWanted);
  connect(bar_, &HintBar::dismissed, this, [this](const QString& key) {
    settings_.dismiss(key);
    follow();
  });
  connect(bar_, &HintBar::reshaped, this,
          [this, &page] { page.lendHeight(bar_->isHidden() ? 0 : bar_->height()); });
}

bool Hints::isDismissed(Hint hint) const {
  const NextStep& step = nextSteps()[static_cast<std::size_t>(hint)];
  return settings_.isDismissed(qtText(step.key));
}

void Hints::follow() {
  const std::optional<UserState> where = settings_.gives(Notice::hints) ? where_() : std::nullopt;
  bar_->show(where ? nextStep(*where, [this](Hint hint) { return isDismissed(hint); }) : nullptr);
}

void Hints::openGuide() { emit guideWanted(qtText(guidePageFor(where_().value_or(UserState())))); }

}  // namespace depcalc::desktop
