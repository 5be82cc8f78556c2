#include <QCoreApplication>

#include <SDL3/SDL.h>
#include <gtest/gtest.h>

#include "own_settings.h"

// Every case runs in a process of its own. Which drivers serve it is the environment's choice;
// where it makes none, no screen and no sound card are needed.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    SDL_SetEnvironmentVariable(SDL_GetEnvironment(), "SDL_VIDEO_DRIVER", VELMORA_TEST_VIDEO_DRIVER,
                               false);
    SDL_SetEnvironmentVariable(SDL_GetEnvironment(), "SDL_AUDIO_DRIVER", "dummy", false);
    const velmora::test::OwnSettings settings;
    const QCoreApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    SDL_Quit();
    return result;
}
