// How a control tells whoever shows it that something changed.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace depcalc {

/// What changed about a control. The observer reads the new state from the control.
enum class Aspect {
  visible,
  place,      ///< left, top, width or height
  stacking,   ///< brought to the front
  colours,    ///< text or background colour; a shape's border and fill
  text,       ///< the text that it shows
  font,       ///< font, alignment or wrapping
  items,      ///< the entries of a list
  choice,     ///< the chosen entry; an option's value
  picture,    ///< the picture's name
  focus,      ///< gained or lost
  palette,    ///< the host palette of a user control
  cells,      ///< texts, alignments or bold of a grid's cells
  structure,  ///< a grid's counts and sizes of rows and columns
  current,    ///< a grid's current cell
  scroll,     ///< a grid's first visible row or column
};

/// While it lives, the listener hears. May outlive the control.
class Observation {
 public:
  using Listener = std::function<void(Aspect)>;
  using Listeners = std::vector<std::shared_ptr<Listener>>;

  Observation() = default;
  Observation(const std::shared_ptr<Listeners>& listeners, Listener listener);
  Observation(Observation&&) noexcept = default;
  Observation& operator=(Observation&& other) noexcept;
  ~Observation() { end(); }

  void end();

 private:
  std::weak_ptr<Listeners> listeners_;
  std::shared_ptr<Listener> listener_;
};

}  // namespace depcalc
