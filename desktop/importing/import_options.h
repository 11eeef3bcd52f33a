// How a file of assets is written, as it was found out and can be corrected.
#pragma once

#include <QWidget>

#include "importing/asset_import.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QSpinBox;

namespace depcalc::desktop {

class ImportOptions : public QWidget {
  Q_OBJECT

 public:
  ImportOptions(AssetImport& import, QWidget* parent);

  /// What is so now. A question that the file leaves open shows as a list without a choice.
  void refresh();

 signals:
  /// The rows are to be judged anew.
  void changed();

 private:
  QComboBox* addList(QGridLayout& grid, int place, const QString& caption, const char* name);
  void fillLists();

  AssetImport& import_;
  QComboBox* encoding_;
  QComboBox* separator_;
  QComboBox* decimal_;
  QComboBox* dates_;
  QSpinBox* header_row_ = nullptr;
  QComboBox* method_;
  QComboBox* convention_;
};

}  // namespace depcalc::desktop
