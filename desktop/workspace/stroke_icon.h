// Icons drawn of strokes, in the desktop's colours at every size.
#pragma once

#include <QIcon>
#include <string_view>

namespace depcalc::desktop {

/// The toolbar's picture of that name. Light desktop or dark, it is drawn in the colour of the
/// texts beside it, and greyed as they are.
[[nodiscard]] QIcon toolIcon(std::string_view picture);

}  // namespace depcalc::desktop
