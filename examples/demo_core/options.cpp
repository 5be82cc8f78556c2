#include "options.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

// The newest form this build may use: 0 plain variables, 1 option definitions, 2 with categories.
#ifndef VELMORA_DEMO_OPTIONS
#define VELMORA_DEMO_OPTIONS 2
#endif

// The choice that stands first, and so is the default.
#ifndef VELMORA_DEMO_PIXEL_FORMAT
#define VELMORA_DEMO_PIXEL_FORMAT RETRO_PIXEL_FORMAT_XRGB8888
#endif

namespace demo {
namespace {

struct Choice {
    const char* value;
    const char* label;
    std::int32_t meaning;
};

struct Option {
    const char* key;
    const char* title;
    const char* help;
    const char* category;
    std::array<Choice, 3> choices; // the default first
};

constexpr std::array<Choice, 3> pixelFormatChoices = [] {
    std::array<Choice, 3> choices{{{"XRGB8888", "32 bits", RETRO_PIXEL_FORMAT_XRGB8888},
                                   {"RGB565", "16 bits", RETRO_PIXEL_FORMAT_RGB565},
                                   {"0RGB1555", "15 bits", RETRO_PIXEL_FORMAT_0RGB1555}}};
    for (Choice& each : choices)
        if (each.meaning == VELMORA_DEMO_PIXEL_FORMAT)
            std::swap(each, choices[0]);
    return choices;
}();

constexpr Option seasonOption{
    "demo_palette",
    "Season",
    "The colours of sky, hills and leaves.",
    "look",
    {{{"spring", "Spring morning", static_cast<std::int32_t>(Season::spring)},
      {"autumn", "Autumn evening", static_cast<std::int32_t>(Season::autumn)},
      {"night", "Summer night", static_cast<std::int32_t>(Season::night)}}}};
constexpr Option speedOption{
    "demo_speed",
    "Speed",
    "How fast the fruit of the first level falls.",
    "rules",
    {{{"normal", "Normal", 256}, {"relaxed", "Relaxed", 176}, {"frantic", "Frantic", 400}}}};
constexpr Option pixelFormatOption{
    "demo_pixel_format", "Pixel format",
    "The format of the frames handed to the frontend. Takes effect with the next game.", "look",
    pixelFormatChoices};

constexpr std::array options{seasonOption, speedOption, pixelFormatOption};

// The frontend may keep these for as long as the core is loaded. The last of each stays null and
// ends its list.
std::array<std::array<char, 96>, options.size()> variableTexts;
std::array<retro_variable, options.size() + 1> variables;
std::array<retro_core_option_definition, options.size() + 1> definitions;
std::array<retro_core_option_v2_definition, options.size() + 1> definitionsV2;
std::array<retro_core_option_v2_category, 3> categories{
    {{"look", "Look", "What the orchard looks like."}, {"rules", "Rules", "How hard it is."}, {}}};
retro_core_options_v2 optionsV2{categories.data(), definitionsV2.data()};

void declareVariables(retro_environment_t environment) {
    for (std::size_t i = 0; i < options.size(); ++i) {
        const auto& [first, second, third] = options[i].choices;
        std::snprintf(variableTexts[i].data(), variableTexts[i].size(), "%s; %s|%s|%s",
                      options[i].title, first.value, second.value, third.value);
        variables[i] = {options[i].key, variableTexts[i].data()};
    }
    environment(RETRO_ENVIRONMENT_SET_VARIABLES, variables.data());
}

// The members that both generations of definitions have.
template <typename Definition>
void fill(Definition& definition, const Option& option) {
    definition.key = option.key;
    definition.desc = option.title;
    definition.info = option.help;
    std::transform(option.choices.begin(), option.choices.end(), definition.values,
                   [](const Choice& each) {
                       return retro_core_option_value{each.value, each.label};
                   });
    definition.default_value = option.choices[0].value;
}

void declareDefinitions(retro_environment_t environment) {
    for (std::size_t i = 0; i < options.size(); ++i)
        fill(definitions[i], options[i]);
    environment(RETRO_ENVIRONMENT_SET_CORE_OPTIONS, definitions.data());
}

void declareDefinitionsV2(retro_environment_t environment) {
    for (std::size_t i = 0; i < options.size(); ++i) {
        fill(definitionsV2[i], options[i]);
        definitionsV2[i].category_key = options[i].category;
    }
    // False here means only that the frontend shows no categories.
    environment(RETRO_ENVIRONMENT_SET_CORE_OPTIONS_V2, &optionsV2);
}

std::int32_t chosen(retro_environment_t environment, const Option& option) {
    retro_variable variable{option.key, nullptr};
    if (environment(RETRO_ENVIRONMENT_GET_VARIABLE, &variable) && variable.value != nullptr)
        for (const Choice& each : option.choices)
            if (std::strcmp(each.value, variable.value) == 0)
                return each.meaning;
    return option.choices[0].meaning;
}

} // namespace

void declareOptions(retro_environment_t environment) {
    unsigned known = 0;
    if (!environment(RETRO_ENVIRONMENT_GET_CORE_OPTIONS_VERSION, &known))
        known = 0;
    constexpr std::array declare{declareVariables, declareDefinitions, declareDefinitionsV2};
    declare[std::min(known, unsigned{VELMORA_DEMO_OPTIONS})](environment);
}

Options readOptions(retro_environment_t environment) {
    return {static_cast<Season>(chosen(environment, seasonOption)),
            chosen(environment, speedOption),
            static_cast<retro_pixel_format>(chosen(environment, pixelFormatOption))};
}

} // namespace demo
