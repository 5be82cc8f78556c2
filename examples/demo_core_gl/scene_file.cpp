#include "scene_file.h"

#include <array>
#include <charconv>
#include <string_view>

#include "text_settings.h"

namespace demo {
namespace {

// Reads "1", "1.2", "1x2@3" and so on into as many numbers; false if the text has another shape.
template <std::size_t Count>
bool readNumbers(std::string_view text, std::string_view separators,
                 std::array<unsigned, Count>& numbers) {
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t i = 0; i < Count; ++i) {
        if (i > 0 && (at == end || *at++ != separators[i - 1]))
            return false;
        const auto [next, error] = std::from_chars(at, end, numbers[i]);
        if (error != std::errc{} || numbers[i] > 0xffff)
            return false;
        at = next;
    }
    return at == end;
}

void readFlag(std::string_view value, bool& flag) {
    if (value == "0" || value == "1")
        flag = value == "1";
}

void readVersion(std::string_view value, SceneSettings& scene) {
    if (std::array<unsigned, 2> numbers; readNumbers(value, ".", numbers)) {
        scene.versionMajor = numbers[0];
        scene.versionMinor = numbers[1];
    }
}

void readSize(std::string_view value, SceneSettings& scene) {
    std::array<unsigned, 2> numbers;
    if (readNumbers(value, "x", numbers) && numbers[0] != 0 && numbers[1] != 0) {
        scene.width = numbers[0];
        scene.height = numbers[1];
    }
}

void readResize(std::string_view value, SceneSettings& scene) {
    std::array<unsigned, 3> numbers;
    if (readNumbers(value, "x@", numbers) && numbers[0] != 0 && numbers[1] != 0) {
        scene.resizedWidth = numbers[0];
        scene.resizedHeight = numbers[1];
        scene.resizeAt = numbers[2];
    }
}

void readContext(std::string_view value, SceneSettings& scene) {
    if (value == "core")
        scene.context = RETRO_HW_CONTEXT_OPENGL_CORE;
    if (value == "compat")
        scene.context = RETRO_HW_CONTEXT_OPENGL;
}

void readOrigin(std::string_view value, SceneSettings& scene) {
    if (value == "bottom" || value == "top")
        scene.bottomLeftOrigin = value == "bottom";
}

struct Reader {
    std::string_view key;
    void (*read)(std::string_view value, SceneSettings& scene);
};

constexpr Reader readers[] = {
    {"context", readContext},
    {"version", readVersion},
    {"origin", readOrigin},
    {"size", readSize},
    {"resize", readResize},
    {"depth", [](std::string_view value, SceneSettings& scene) { readFlag(value, scene.depth); }},
    {"stencil",
     [](std::string_view value, SceneSettings& scene) { readFlag(value, scene.stencil); }},
    {"still", [](std::string_view value, SceneSettings& scene) { readFlag(value, scene.still); }},
    {"debug",
     [](std::string_view value, SceneSettings& scene) { readFlag(value, scene.debugContext); }},
};

} // namespace

SceneSettings readScene(std::span<const std::byte> file) {
    SceneSettings scene;
    forEachSetting(file, [&](std::string_view key, std::string_view value) {
        for (const Reader& each : readers)
            if (each.key == key)
                each.read(value, scene);
    });
    return scene;
}

} // namespace demo
