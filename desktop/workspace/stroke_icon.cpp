#include "desktop/workspace/stroke_icon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include "desktop/widgets/pictures.h"
#include "desktop/workspace/tool_pictures.h"

namespace depcalc::desktop {
namespace {

class StrokeIcon : public QIconEngine {
 public:
  explicit StrokeIcon(std::span<const Stroke> strokes) : strokes_(strokes) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    painter->setRenderHint(QPainter::Antialiasing);
    drawStrokes(*painter, area, strokes_,
                QGuiApplication::palette().color(group, QPalette::ButtonText));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return drawn;
  }

  [[nodiscard]] QIconEngine* clone() const override { return new StrokeIcon(strokes_); }

 private:
  std::span<const Stroke> strokes_;
};

}  // namespace

QIcon toolIcon(std::string_view picture) { return QIcon(new StrokeIcon(toolPicture(picture))); }

}  // namespace depcalc::desktop
