// The dialogs that ask for a file.
#pragma once

#include <QString>
#include <string_view>

#include "desktop/guide/guide_pages.h"

class QWidget;

namespace depcalc::desktop {

/// What a file dialog asks.
struct FileQuestion {
  QString title;
  QString filter;
  QString proposed;  ///< a path or a name to begin with, or a folder; "" the current one
  std::string_view page = guide::open_company;  ///< of the guide
};

/// Every dialog of the program that lists files is one of these, and none opens a file that it
/// lists: a company file that is open would lose locks of this process when it is closed again. So
/// the pictures and the types of files are told by their names.
///
/// Each answers "" where the user thought better of it.
QString askFileToOpen(QWidget* window, const FileQuestion& question);
/// The name may be taken: that is for the caller to ask about, or to refuse.
QString askFileToSave(QWidget* window, const FileQuestion& question);

}  // namespace depcalc::desktop
