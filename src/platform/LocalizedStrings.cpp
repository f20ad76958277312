#include "platform/LocalizedStrings.h"

#include <algorithm>

namespace calmora {

std::string fillPlaceholders(std::string_view text, std::initializer_list<std::string> arguments) {
    constexpr std::string_view integer = "%lld";
    constexpr std::string_view object = "%@";
    std::string result;
    for (const std::string& argument : arguments) {
        const std::size_t at = std::min(text.find(integer), text.find(object));
        if (at == std::string_view::npos) {
            break;
        }
        result.append(text.substr(0, at)).append(argument);
        text.remove_prefix(at + (text.substr(at).starts_with(integer) ? integer : object).size());
    }
    return result.append(text);
}

} // namespace calmora
