// SPDX-License-Identifier: MIT
#include "platform/wayland/Json.h"

namespace calmora {
namespace {

constexpr std::size_t longestText = 1024;

} // namespace

Json parseJson(std::string_view text) {
    return Json::parse(text, nullptr, /*allow_exceptions=*/false);
}

const Json& jsonMember(const Json& object, const char* name) {
    static const Json none;
    const auto found = object.is_object() ? object.find(name) : object.end();
    return found == object.end() ? none : *found;
}

std::string jsonText(const Json& object, const char* name) {
    const Json& value = jsonMember(object, name);
    return value.is_string() ? value.get_ref<const std::string&>().substr(0, longestText) : "";
}

bool isJsonTrue(const Json& object, const char* name) {
    const Json& value = jsonMember(object, name);
    return value.is_boolean() && value.get<bool>();
}

} // namespace calmora
