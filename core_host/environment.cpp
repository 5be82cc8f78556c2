#include <algorithm>
#include <climits>
#include <functional>

#include <SDL3/SDL_error.h>

#include <velmora/libretro_host.h>
#include <velmora/sdl_video.h>

#include "core_host/last_error.h"

namespace velmora {

// The commands that the host answers, each with its handler. All others are refused.
struct LibretroHost::EnvironmentCommands {
    // The answer to a command whose data is missing. `Handled` leaves it to the handler.
    enum class MissingData { Accepted, Refused, Handled };

    struct Command {
        std::uint32_t number;
        MissingData missingData;
        bool (*handle)(LibretroHost& host, void* data);
    };

    static const Command table[];

    static const Command* find(std::uint32_t number);

    // A handler with typed data, as an entry of the table.
    template <auto handler>
    static bool on(LibretroHost& host, void* data) {
        return handler(host, *typed(handler, data));
    }
    template <class Data>
    static Data* typed(bool (*)(LibretroHost&, Data&), void* data) {
        return static_cast<Data*>(data);
    }

    // Commands that carry nothing the host has a use for: the core may go on.
    static bool accept(LibretroHost&, void*) { return true; }

    template <class Value, Value value>
    static bool answer(LibretroHost&, Value& data) {
        data = value;
        return true;
    }

    static bool shutdown(LibretroHost& host, void*) {
        host.shutdownRequested = true;
        return true;
    }

    // The core keeps the pointer, so it goes to the host's own text.
    template <std::string LibretroHost::*directory>
    static bool getDirectory(LibretroHost& host, void* data) {
        if (data)
            *static_cast<const char**>(data) = (host.*directory).c_str();
        return !(host.*directory).empty();
    }

    static bool setPixelFormat(LibretroHost& host, const unsigned int& format) {
        if (format > RETRO_PIXEL_FORMAT_RGB565)
            return false;
        host.pixelFormat = format;
        return true;
    }

    static bool setHwRender(LibretroHost& host, retro_hw_render_callback& callback) {
        if (!host.video || (callback.context_type != RETRO_HW_CONTEXT_OPENGL &&
                            callback.context_type != RETRO_HW_CONTEXT_OPENGL_CORE))
            return false;
        callback.get_proc_address = SdlVideo::procAddressThunk;
        callback.get_current_framebuffer = SdlVideo::framebufferThunk;
        const auto toInt = [](std::uint32_t size) {
            return static_cast<int>(std::min<std::uint32_t>(size, INT_MAX));
        };
        host.video->hwOwner = &host;
        if (host.video->setupHardware(callback, toInt(host.width), toInt(host.height)))
            return true;
        return fail(host.lastError, {"OpenGL context failed: ", SDL_GetError()});
    }

    static bool getVariable(LibretroHost& host, retro_variable& variable) {
        return host.readVariable(variable);
    }

    static bool setVariables(LibretroHost& host, const retro_variable& first) {
        host.registerLegacyVariables(&first);
        return true;
    }

    static bool setCoreOptions(LibretroHost& host, const retro_core_option_definition& first) {
        host.registerOptionDefinitions(&first);
        return true;
    }

    static bool setCoreOptionsIntl(LibretroHost& host, const retro_core_options_intl& lists) {
        host.registerOptionDefinitions(lists.us);
        return true;
    }

    // False tells the core that categories are not shown; the options themselves are taken.
    static bool setCoreOptionsV2(LibretroHost& host, const retro_core_options_v2& options) {
        host.registerOptionDefinitionsV2(options.definitions);
        return false;
    }

    static bool setCoreOptionsV2Intl(LibretroHost& host, const retro_core_options_v2_intl& lists) {
        return lists.us && setCoreOptionsV2(host, *lists.us);
    }

    static bool getLogInterface(LibretroHost&, retro_log_callback& callback) {
        callback.log = logThunk;
        return true;
    }

    static bool setSystemAvInfo(LibretroHost& host, const retro_system_av_info& info) {
        host.adoptTiming(info.timing);
        return setGeometry(host, info.geometry);
    }

    static bool setGeometry(LibretroHost& host, const retro_game_geometry& geometry) {
        host.adoptGeometry(geometry);
        if (host.video)
            host.video->resizeHardwareBuffers(host.width, host.height);
        return true;
    }

    static bool keepLowFlags(LibretroHost&, std::uint64_t& flags) {
        flags &= 0xF;
        return true;
    }
};

// Sorted by number; a number is compared whole, the experimental flag included.
constexpr LibretroHost::EnvironmentCommands::Command LibretroHost::EnvironmentCommands::table[] = {
    {RETRO_ENVIRONMENT_SET_MESSAGE, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_SHUTDOWN, MissingData::Handled, shutdown},
    {RETRO_ENVIRONMENT_SET_PERFORMANCE_LEVEL, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_GET_SYSTEM_DIRECTORY, MissingData::Handled,
     getDirectory<&LibretroHost::systemDir>},
    {RETRO_ENVIRONMENT_SET_PIXEL_FORMAT, MissingData::Refused, on<setPixelFormat>},
    {RETRO_ENVIRONMENT_SET_INPUT_DESCRIPTORS, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_SET_HW_RENDER, MissingData::Refused, on<setHwRender>},
    {RETRO_ENVIRONMENT_GET_VARIABLE, MissingData::Refused, on<getVariable>},
    {RETRO_ENVIRONMENT_SET_VARIABLES, MissingData::Accepted, on<setVariables>},
    {RETRO_ENVIRONMENT_GET_VARIABLE_UPDATE, MissingData::Accepted, on<answer<bool, false>>},
    {RETRO_ENVIRONMENT_SET_SUPPORT_NO_GAME, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_GET_LOG_INTERFACE, MissingData::Accepted, on<getLogInterface>},
    {RETRO_ENVIRONMENT_GET_CORE_ASSETS_DIRECTORY, MissingData::Handled,
     getDirectory<&LibretroHost::systemDir>},
    {RETRO_ENVIRONMENT_GET_SAVE_DIRECTORY, MissingData::Handled,
     getDirectory<&LibretroHost::saveDir>},
    {RETRO_ENVIRONMENT_SET_SYSTEM_AV_INFO, MissingData::Accepted, on<setSystemAvInfo>},
    {RETRO_ENVIRONMENT_SET_SUBSYSTEM_INFO, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_SET_CONTROLLER_INFO, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_SET_GEOMETRY, MissingData::Accepted, on<setGeometry>},
    {RETRO_ENVIRONMENT_GET_LANGUAGE, MissingData::Accepted,
     on<answer<unsigned int, RETRO_LANGUAGE_ENGLISH>>},
    {RETRO_ENVIRONMENT_GET_CORE_OPTIONS_VERSION, MissingData::Accepted,
     on<answer<unsigned int, 2>>},
    {RETRO_ENVIRONMENT_SET_CORE_OPTIONS, MissingData::Accepted, on<setCoreOptions>},
    {RETRO_ENVIRONMENT_SET_CORE_OPTIONS_INTL, MissingData::Accepted, on<setCoreOptionsIntl>},
    {RETRO_ENVIRONMENT_SET_CORE_OPTIONS_DISPLAY, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_GET_PREFERRED_HW_RENDER, MissingData::Accepted,
     on<answer<unsigned int, RETRO_HW_CONTEXT_OPENGL_CORE>>},
    {RETRO_ENVIRONMENT_SET_MESSAGE_EXT, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_SET_CORE_OPTIONS_V2, MissingData::Refused, on<setCoreOptionsV2>},
    {RETRO_ENVIRONMENT_SET_CORE_OPTIONS_V2_INTL, MissingData::Refused, on<setCoreOptionsV2Intl>},
    // Has no name here: a word of flags, of which the low four are granted.
    {87, MissingData::Accepted, on<keepLowFlags>},
    {RETRO_ENVIRONMENT_SET_MEMORY_MAPS, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_SET_SUPPORT_ACHIEVEMENTS, MissingData::Handled, accept},
    {RETRO_ENVIRONMENT_GET_INPUT_BITMASKS, MissingData::Accepted, on<answer<bool, true>>},
    {RETRO_ENVIRONMENT_GET_SAVESTATE_CONTEXT, MissingData::Accepted,
     on<answer<int, RETRO_SAVESTATE_CONTEXT_NORMAL>>},
};

const LibretroHost::EnvironmentCommands::Command*
LibretroHost::EnvironmentCommands::find(std::uint32_t number) {
    static_assert(std::ranges::is_sorted(table, std::less{}, &Command::number));
    const auto* command = std::ranges::lower_bound(table, number, std::less{}, &Command::number);
    return command != std::end(table) && command->number == number ? command : nullptr;
}

bool LibretroHost::environment(std::uint32_t number, void* data) {
    using MissingData = EnvironmentCommands::MissingData;
    const auto* command = EnvironmentCommands::find(number);
    if (!command)
        return false;
    if (!data && command->missingData != MissingData::Handled)
        return command->missingData == MissingData::Accepted;
    return command->handle(*this, data);
}

} // namespace velmora
