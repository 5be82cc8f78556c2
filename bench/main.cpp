#include <QCoreApplication>

#include <SDL3/SDL.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "ratio_table.h"

using namespace velmora::bench;

// A word as the argument picks the rows that hold it.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    // How fast somebody's terminal takes log lines is not measured.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    SDL_SetHint(SDL_HINT_VIDEO_DRIVER, "offscreen");
    SDL_SetHint(SDL_HINT_AUDIO_DRIVER, "dummy");
    if (!SDL_Init(SDL_INIT_VIDEO | SDL_INIT_AUDIO)) {
        std::fprintf(stderr, "SDL: %s\n", SDL_GetError());
        return EXIT_FAILURE;
    }

    int result = EXIT_SUCCESS;
    const RatioTable table(argc > 1 ? argv[1] : "");
    for (const auto measure : {measureConversion, measureFrames, measureSession, measureBindings,
                               measurePresent, measureStates}) {
        try {
            measure(table);
        } catch (const std::exception& missing) {
            std::fprintf(stderr, "rows left out: %s\n", missing.what());
            result = EXIT_FAILURE;
        }
    }
    SDL_Quit();
    return result;
}
