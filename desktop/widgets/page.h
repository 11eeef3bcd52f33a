// The page of the host's window that shows the calculator.
#pragma once

#include <QPointer>
#include <QScrollArea>

#include "desktop/widgets/surface.h"

namespace depcalc::desktop {

/// Scrolls around the outermost control of the surface's stage. That stands in the middle, and
/// further to the left where help beside it needs the room. Takes the keys while no control has the
/// focus.
class Page : public QScrollArea {
  Q_OBJECT

 public:
  explicit Page(QWidget* parent = nullptr);

  /// Shows `root`, which is on the stage of `surface`; both live until `clear` or the page's end.
  void showControl(UserControl& root, Surface& surface);
  /// Shows something else instead; takes the widget.
  void showPlaceholder(QWidget* placeholder);
  void clear();

  /// The keys go to the control that has the focus, else to the page itself.
  void takeKeys();

  /// What fits the page is not to change its size where something beside the page comes and goes:
  /// this much of its height, in pixels, is only lent.
  void lendHeight(int pixels) { lent_ = pixels; }
  /// The room for what is shown, without scroll bars and with what is lent.
  [[nodiscard]] QSize room() const { return maximumViewportSize() + QSize(0, lent_); }

  /// The surface that is shown; null while a placeholder is.
  [[nodiscard]] Surface* surface() const { return surface_; }
  /// The place of the outermost control, alone and with what reaches beyond it, in twips; of
  /// nothing where no control is shown.
  [[nodiscard]] Place shownPlace() const;
  [[nodiscard]] Place shownPlaceWithHelp() const;

 signals:
  /// The page or what it shows has another size now.
  void reshaped();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void scrollContentsBy(int right, int down) override;
  void resizeEvent(QResizeEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  [[nodiscard]] QSize roomInSight() const;
  void showTopLeft();
  void reveal(QWidget* child, const QRect& part);
  void revealAppeared();
  void arrange();

  Surface* surface_ = nullptr;
  const UserControl* root_ = nullptr;
  QWidget* shown_ = nullptr;  ///< the outermost control's
  int lent_ = 0;
  QPointer<QWidget> appeared_;  ///< to be seen once it is in its place
};

}  // namespace depcalc::desktop
