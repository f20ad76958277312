#include "platform/linux/xdg/InstalledBundle.h"

#include <system_error>
#include <utility>

namespace calmora {

InstalledBundle::InstalledBundle(std::string identifier, std::string version,
                                 std::filesystem::path executableFolder)
    : identifier_(std::move(identifier)), version_(std::move(version)) {
    std::error_code error;
    if (executableFolder.empty()) {
        executableFolder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    }
    resources_ = (executableFolder / "../share/calmora").lexically_normal();
}

std::optional<std::filesystem::path> InstalledBundle::resource(const std::string& name,
                                                               const std::string& extension) const {
    std::filesystem::path file = resources_ / (extension.empty() ? name : name + "." + extension);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        return std::nullopt;
    }
    return file;
}

} // namespace calmora
