// Where the platform says that the running program's file is.
#include <filesystem>
#include <system_error>

#include "DepCalc/util_module.h"

#ifdef _WIN32
extern "C" __declspec(dllimport) unsigned long __stdcall GetModuleFileNameA(void* module,
                                                                            char* name,
                                                                            unsigned long size);
#endif

namespace depcalc {
namespace {

constexpr std::size_t longest_path = 256;

}  // namespace

std::optional<std::string> runningExecutablePath() {
#ifdef _WIN32
  std::string path(longest_path, '\0');
  const auto length = GetModuleFileNameA(nullptr, path.data(), longest_path);
  if (length == 0) return std::nullopt;
  path.resize(length);
#else
  std::error_code error;
  std::string path = std::filesystem::read_symlink("/proc/self/exe", error).string();
  if (error) return std::nullopt;
  if (path.size() > longest_path) path.resize(longest_path);
#endif
  return path;
}

}  // namespace depcalc
