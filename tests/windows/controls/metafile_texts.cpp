#include "tests/windows/controls/metafile_texts.h"

#include "windows/com/com_text.h"

namespace depcalc::testing {
namespace {

int CALLBACK collect(HDC /*dc*/, HANDLETABLE* /*handles*/, const ENHMETARECORD* record,
                     int /*count*/, LPARAM texts) {
  if (record->iType != EMR_EXTTEXTOUTW) return 1;
  const auto& written = *reinterpret_cast<const EMREXTTEXTOUTW*>(record);
  const auto* const start = reinterpret_cast<const wchar_t*>(reinterpret_cast<const char*>(record) +
                                                             written.emrtext.offString);
  reinterpret_cast<std::vector<std::string>*>(texts)->push_back(
      textFromUtf16({start, written.emrtext.nChars}));
  return 1;
}

}  // namespace

std::vector<std::string> textsIn(HENHMETAFILE file) {
  std::vector<std::string> texts;
  EnumEnhMetaFile(nullptr, file, collect, &texts, nullptr);
  return texts;
}

}  // namespace depcalc::testing
