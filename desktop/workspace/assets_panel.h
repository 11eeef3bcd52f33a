// The assets in a list beside the calculator's page.
#pragma once

#include <QWidget>
#include <memory>

#include "desktop/workspace/asset_list_model.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QMenu;
class QTableView;

namespace depcalc::desktop {

/// A field to search in, the assets found, and what they come to. The arrows choose an asset also
/// while the search has the keys.
class AssetsPanel : public QWidget {
  Q_OBJECT

 public:
  /// Which columns are shown, how wide they are, and the order; null where nobody chose yet.
  struct Looks {
    QByteArray columns;
    bool hides_disposed = false;
  };

  AssetsPanel(const Looks& looks, QWidget* parent);

  /// The register as it is saved now. The asset that is chosen stays so.
  void showAssets(std::shared_ptr<const RegisterOfAssets> assets);
  /// Asset `number` is the one in view; 0 for none. Nobody is told.
  void mark(std::int32_t number);
  /// The search gets the keys.
  void startSearch();
  [[nodiscard]] Looks looks() const;
  [[nodiscard]] const AssetList& list() const { return model_->list(); }

 signals:
  /// The user chose this asset.
  void chosen(std::int32_t number);
  /// The user wants to edit it.
  void opened(std::int32_t number);
  /// The user wants to go back to the page.
  void left();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void makeSearch();
  QWidget* makeChoices();
  void makeTable();
  void fillColumnsMenu();
  void colourChoice();
  void showColumns(const QByteArray& columns);
  void change(const std::function<void(AssetList&)>& change);
  void showTotals();
  void rowChosen();
  void openCurrent();
  void clearOrLeave();

  AssetListModel* model_;
  QLineEdit* search_;
  QCheckBox* hide_disposed_;
  QMenu* columns_menu_ = nullptr;
  QTableView* table_;
  QLabel* totals_;
  std::int32_t marked_ = 0;  ///< the asset in view, shown or not
  bool silent_ = false;      ///< what is chosen is not the user's choice
};

}  // namespace depcalc::desktop
