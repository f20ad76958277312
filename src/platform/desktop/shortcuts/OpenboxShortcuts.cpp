#include "platform/desktop/shortcuts/ShortcutSources.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace calmora {

DesktopShortcuts::Source openboxShortcuts(WindowManagerName windowManager,
                                          std::vector<std::filesystem::path> files) {
    return [windowManager = std::move(windowManager),
            files = std::move(files)]() -> std::vector<Accelerator> {
        if (windowManager() != "Openbox") {
            return {};
        }
        for (const std::filesystem::path& path : files) {
            std::ifstream file(path);
            if (file) {
                return openboxAccelerators(std::string(std::istreambuf_iterator<char>(file), {}));
            }
        }
        return {};
    };
}

} // namespace calmora
