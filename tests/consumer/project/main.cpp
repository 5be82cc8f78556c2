// A program outside the tree: the installed headers and library, every exported class, no SDL.
#include <cstdio>
#include <filesystem>

#include <QCoreApplication>

#include <velmora/action_codes.h>
#include <velmora/input_bindings.h>
#include <velmora/libretro_host.h>
#include <velmora/sdl_audio.h>
#include <velmora/sdl_input.h>
#include <velmora/sdl_video.h>
#include <velmora/settings_keys.h>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 3) {
        return 2;
    }
    // Not argv: on Windows not every path fits into it.
    const std::filesystem::path core = application.arguments()[1].toStdU16String();
    const std::filesystem::path game = application.arguments()[2].toStdU16String();
    velmora::InputBindings bindings;
    velmora::SdlVideo video;
    velmora::SdlAudio audio;
    velmora::SdlInput input;
    velmora::LibretroHost host;
    host.video = &video;
    host.audio = &audio;
    host.input = &input;
    if (!host.loadCore(core) || !host.loadGame(game)) {
        std::fprintf(stderr, "%s\n", host.lastError.c_str());
        return 1;
    }
    for (int i = 0; i < 3; ++i) {
        host.runFrame();
    }
    host.unload();
    bindings.setProperty("systemId", "snes");
    std::printf("%s %s %d rows\n", qPrintable(velmora::settingskeys::org()),
                qPrintable(bindings.padStyle()), static_cast<int>(bindings.buttons().size()));
    return video.consumeAction() == velmora::action::none ? 0 : 1;
}
