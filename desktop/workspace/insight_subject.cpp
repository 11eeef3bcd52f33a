#include "desktop/workspace/insight_subject.h"

namespace depcalc::desktop {

std::string nameOf(const InsightSubject& subject) {
  if (subject.isNothing()) return {};
  const SavedAsset& asset = subject.asset;
  return asset.id + (asset.id.empty() || asset.name.empty() ? "" : " ") + asset.name;
}

}  // namespace depcalc::desktop
