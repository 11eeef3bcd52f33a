// A kind of report in the list of them: its title, and what it gives below that.
#pragma once

#include <QStyledItemDelegate>

namespace depcalc::desktop {

/// The title is the item's text, the line below it its Qt::UserRole.
class ReportKindPainter : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};

}  // namespace depcalc::desktop
