// The guide in a window of its own: contents and search at the left, a page at the right.
#pragma once

#include <QWidget>
#include <vector>

#include "desktop/guide/guide_search.h"

class QHBoxLayout;
class QLineEdit;
class QListWidget;
class QToolButton;

namespace depcalc::desktop {

class GuideView;

/// Shows the files of a folder, as any browser would; it needs none, and no network.
class GuideWindow : public QWidget {
  Q_OBJECT

 public:
  GuideWindow(const QString& folder, QWidget* parent);

  /// A page by its file, with the place on it: "backups.html#restore".
  void openPage(const QString& page);
  /// Stands before `dialog` and can be used while that waits for an answer; null: beside all.
  void standBefore(const QWidget* dialog);
  /// The file and the place that is shown.
  [[nodiscard]] QString page() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QWidget* makeBar();
  QWidget* makeSide();
  QToolButton* addButton(QHBoxLayout& row, const QString& caption, const QString& tip,
                         const char* name);
  void readPages();
  void listContents();
  void search(const QString& words);
  void openRow(int row);
  void followPage();

  QString folder_;
  GuideSearch search_;
  std::vector<QString> files_;
  GuideView* view_;
  QLineEdit* words_ = nullptr;
  QListWidget* list_ = nullptr;
  QToolButton* back_ = nullptr;
  QToolButton* forward_ = nullptr;
};

}  // namespace depcalc::desktop
