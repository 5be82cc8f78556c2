#include <algorithm>
#include <string_view>

#include <velmora/libretro_host.h>

// There is no option screen and no option file: every option runs at the core's own default.
namespace velmora {

namespace {

// "Description; first|second" gives "first".
std::string_view legacyDefault(std::string_view text) {
    if (const auto semicolon = text.find(';'); semicolon != text.npos)
        text.remove_prefix(semicolon + 1);
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text.substr(0, text.find('|'));
}

// Null when the definition names no value at all. The list of values has a null behind its last.
template <class Definition>
const char* defaultOf(const Definition& definition) {
    return definition.default_value ? definition.default_value : definition.values[0].value;
}

} // namespace

void LibretroHost::registerVariable(const char* key, const char* value) {
    if (key && value && *key && *value)
        variables.insert_or_assign(key, value);
}

void LibretroHost::registerLegacyVariables(const retro_variable* list) {
    for (; list && list->key; ++list) {
        const auto value = legacyDefault(list->value ? list->value : "");
        if (!value.empty())
            variables.insert_or_assign(list->key, std::string(value));
    }
}

void LibretroHost::registerOptionDefinitions(const retro_core_option_definition* list) {
    for (; list && list->key; ++list)
        registerVariable(list->key, defaultOf(*list));
}

void LibretroHost::registerOptionDefinitionsV2(const retro_core_option_v2_definition* list) {
    for (; list && list->key; ++list)
        registerVariable(list->key, defaultOf(*list));
}

bool LibretroHost::readVariable(retro_variable& variable) const {
    variable.value = nullptr;
    if (!variable.key)
        return false;
    const auto found = variables.find(variable.key);
    if (found == variables.end())
        return false;
    variable.value = found->second.c_str();
    return true;
}

} // namespace velmora
