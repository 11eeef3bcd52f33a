// What the native windows of one calculator share.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>

#include "controls/user.h"
#include "windows/controls/ambient.h"
#include "windows/controls/canvas.h"

namespace depcalc::native {

class ControlWindow;

// Messages that the frame posts to itself.
inline constexpr UINT paint_due_message = WM_APP + 1;
inline constexpr UINT ask_focus_message = WM_APP + 2;
inline constexpr UINT list_closed_message = WM_APP + 3;

/// The calculator's stage as its windows see it. Whatever a user does to a window goes through
/// `act`: an error that no handler traps ends that one action, and paints that became due are
/// delivered when the message loop comes to them. An action may end the surface; who acted then
/// finds `alive` false, and the model still there until the action is over.
class Surface : public std::enable_shared_from_this<Surface> {
 public:
  /// What whoever shows the windows wants to hear; each may be empty.
  struct Events {
    std::function<void()> resized;       ///< the outermost control, or help beside it
    std::function<void(bool in)> focus;  ///< came into one of the windows, or left them all
    std::function<void()> acted;         ///< the user did something, and what followed is over
  };

  Surface(UserControl& root, std::shared_ptr<void> model, Events events, Ambient ambient);

  [[nodiscard]] bool alive() const { return frame_ != nullptr; }
  /// No window hears or asks anything from now on.
  void end();

  [[nodiscard]] UserControl& root() const { return root_; }
  [[nodiscard]] Stage& stage() const { return root_.stage(); }
  /// Tells the owner, who may end the surface over it.
  void tellResized() const { tell(events_.resized); }
  [[nodiscard]] HWND frame() const { return frame_; }
  void setFrame(HWND frame) { frame_ = frame; }

  [[nodiscard]] int dpi() const { return dpi_; }
  [[nodiscard]] Zoom zoom() const { return Zoom::ofDpi(dpi_); }
  [[nodiscard]] const Tones& tones() const { return tones_; }
  [[nodiscard]] TextMeasure& measure() { return *measure_; }
  [[nodiscard]] HFONT font(const Font& font) { return fonts_->of(font); }
  /// A canvas of these windows on `dc`.
  [[nodiscard]] Canvas canvas(HDC dc) { return {dc, zoom(), *measure_, *fonts_, tones_}; }
  void setDpi(int dpi);
  void setAmbient(const Ambient& ambient);
  /// The system's colours are others now.
  void refreshTones() { tones_ = Tones(ambient_.colours); }

  void act(const std::function<void(User&)>& action);
  void paintAtIdle();
  void pumpPaint();

  /// The keys that mean the same wherever the focus is: Tab, F1, Escape, Alt with a letter.
  /// Returns whether this was one of them.
  bool handleKey(WPARAM key, bool alt);
  /// The character that follows a key which was handled is no text.
  [[nodiscard]] bool swallowsCharacter() const { return swallows_character_; }
  void setSwallowsCharacter(bool swallows) { swallows_character_ = swallows; }

  void add(const Control& control, ControlWindow& window) { windows_[&control] = &window; }
  void remove(const Control& control) { windows_.erase(&control); }
  [[nodiscard]] ControlWindow* window(const Control& control) const;

  /// The button or link that has the keys; nothing where a field has them.
  [[nodiscard]] const Control* keysAt() const { return keys_at_; }
  void giveKeysTo(const Control& control);
  void forgetKeys();
  /// One of the windows got the focus from `other`, or lost it to that; the owner is told where
  /// that is none of ours.
  void focusMoved(HWND other, bool in) const;
  /// The keys go where the model's focus is; nowhere, where the focus is not in our windows.
  void followFocus();
  [[nodiscard]] bool hasFocus() const;

 private:
  template <typename Event, typename... Values>
  static void tell(Event event, Values... values) {  // a copy: the listener may be gone meanwhile
    if (event) event(values...);
  }
  void tab(bool backwards);
  bool press(Control* control);
  void restoreKeys();
  void makeFonts();

  UserControl& root_;
  std::shared_ptr<void> model_;
  Events events_;
  Ambient ambient_;
  HWND frame_ = nullptr;
  int dpi_ = 96;
  Tones tones_;
  std::optional<TextMeasure> measure_;
  std::optional<Fonts> fonts_;
  bool paint_due_ = false;
  bool swallows_character_ = false;
  const Control* keys_at_ = nullptr;
  std::unordered_map<const Control*, ControlWindow*> windows_;
};

}  // namespace depcalc::native
