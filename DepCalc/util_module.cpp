#include "DepCalc/util_module.h"

#include <algorithm>
#include <string_view>

#include "values/runtime_error.h"
#include "values/text.h"

namespace depcalc {
namespace {

constexpr std::string_view host_executable = "orvw32";
constexpr std::string_view development_executable = "depcalc-desktop";
constexpr int custom_palette = 2;

Palette paletteOf(const HostPicture& picture) {
  Palette palette;
  for (const std::uint32_t colour : picture.colours) palette.colours.emplace_back(colour);
  return palette;
}

}  // namespace

bool UtilModule::IsHostProcess() const {
  const std::optional<std::string> path = executable_path_();
  if (!path) return false;
  const std::string lower = toLower(*path);
  return lower.find(host_executable) != std::string::npos ||
         lower.find(development_executable) != std::string::npos;
}

void UtilModule::ApplyHostPalette(UserControl& target, const AmbientProperties* ambient) const {
  if (!IsHostProcess()) return;
  const bool apply = ambient == nullptr || ambient->UserMode;
  if (!apply) return;
  const std::shared_ptr<HostApplication> application = create_host_();
  if (application == nullptr) throw RuntimeError::objectNotSet();
  const std::shared_ptr<HostCompanyFile> file = application->CompanyFile();
  if (file == nullptr) throw RuntimeError::objectNotSet();
  target.setPalette(paletteOf(*file->PalettePicture()));
  target.setPaletteMode(custom_palette);
}

}  // namespace depcalc
