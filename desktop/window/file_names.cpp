#include "desktop/window/file_names.h"

#include <QFileInfo>
#include <QObject>

namespace depcalc::desktop {

QString freePath(const QString& folder, const QString& name, const QString& suffix) {
  const QString begin = folder + u'/' + name;
  QString path = begin + suffix;
  for (int number = 2; QFileInfo::exists(path); ++number) {
    path = begin + u' ' + QString::number(number) + suffix;
  }
  return path;
}

QString folderTrouble(const QString& path) {
  const QFileInfo folder(QFileInfo(path).absolutePath());
  if (!folder.isDir()) {
    return QObject::tr(
               "The folder %1 does not exist. Choose another folder, or create this one first.")
        .arg(folder.filePath());
  }
  if (!folder.isWritable()) {
    return QObject::tr(
               "You do not have permission to add files to the folder %1. Choose another folder.")
        .arg(folder.filePath());
  }
  return {};
}

}  // namespace depcalc::desktop
