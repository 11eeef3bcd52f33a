// A page of the guide.
#pragma once

#include <QImage>
#include <QTextBrowser>

namespace depcalc::desktop {

/// Lines are no longer than is good to read, and the colours are the program's: in the place of the
/// pages' style sheet stands one of its own, and on a dark desktop the dark pictures.
class GuideView : public QTextBrowser {
  Q_OBJECT

 public:
  explicit GuideView(QWidget* parent);

  QVariant loadResource(int type, const QUrl& name) override;
  /// Shows the page anew, in the colours of now.
  void recolour();
  /// Marks the first place where one of the words stands.
  void mark(const QString& words);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QImage picture(const QUrl& name);
  [[nodiscard]] QString styleSheetOfPages() const;
};

}  // namespace depcalc::desktop
