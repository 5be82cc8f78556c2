#include <QCoreApplication>
#include <QSettings>

#include <SDL3/SDL.h>

#include <cstdlib>
#include <vector>

#include "ratio_table.h"
#include "support/scratch_directory.h"

// Interleaved repetitions, so that a slow minute of the machine falls on both sides of a ratio.
// Arguments of the caller come last and win.
int main(int argc, char** argv) {
    const velmora::test::ScratchDirectory settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(settings.path().string()));
    const QCoreApplication application(argc, argv);
    // How fast somebody's terminal takes log lines is not measured.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    SDL_SetHint(SDL_HINT_VIDEO_DRIVER, "offscreen");
    SDL_SetHint(SDL_HINT_AUDIO_DRIVER, "dummy");
    if (!SDL_Init(SDL_INIT_VIDEO | SDL_INIT_AUDIO)) {
        SDL_Log("SDL: %s", SDL_GetError());
        return EXIT_FAILURE;
    }

    char repetitions[] = "--benchmark_repetitions=7";
    char interleaving[] = "--benchmark_enable_random_interleaving=true";
    char minimum[] = "--benchmark_min_time=0.05";
    std::vector<char*> arguments{argv[0], repetitions, interleaving, minimum};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    const int result =
        velmora::bench::runAndReport(static_cast<int>(arguments.size()), arguments.data());
    SDL_Quit();
    return result;
}
