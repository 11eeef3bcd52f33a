#include "desktop/window/file_names.h"

#include <QFileInfo>
#include <QObject>

namespace depcalc::desktop {

QString folderTrouble(const QString& path) {
  const QFileInfo folder(QFileInfo(path).absolutePath());
  if (!folder.isDir()) {
    return QObject::tr("There is no folder %1. Choose another folder, or make this one first.")
        .arg(folder.filePath());
  }
  if (!folder.isWritable()) {
    return QObject::tr("You may not add files to the folder %1. Choose another folder.")
        .arg(folder.filePath());
  }
  return {};
}

}  // namespace depcalc::desktop
