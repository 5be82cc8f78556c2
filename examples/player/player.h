#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "controls.h"
#include "game_files.h"
#include "notices.h"
#include "options.h"
#include "pacer.h"
#include "session.h"

namespace player {

// Plays the game and returns the program's exit code.
int play(const Options& options);

// The frontend's loop, and what it does for each thing the user asks for.
class Player {
public:
    Player(const Options& playOptions, Session& running);

    // Returns when the user, the core or the frame limit ends the game.
    void run();

    // The report and the picture of a run that has ended. False: no picture could be written.
    bool finish();

private:
    // The loop, in player.cpp.
    void readControls();
    void readVolumeKeys();
    void changeVolume(int steps);
    void readMenuKeys();
    void followPointer();
    void takeActions();
    void awaitRelease();
    bool paused() const;
    bool fast() const;
    void runFrame();
    void show();
    void pace();
    void saveBattery();

    // The duties, in actions.cpp. Those behind an action code take the code's place in its range.
    void act(int code);
    void resume(int = 0);
    void togglePause(int = 0);
    void openSavePicker(int = 0);
    void openLoadPicker(int = 0);
    void useSlot(int index);
    void leavePicker(int = 0);
    void saveSlot(int index);
    void loadSlot(int index);
    void newSlot(int = 0);
    void quickSave(int = 0);
    void quickLoad(int = 0);
    void reset(int = 0);
    void takeScreenshot(int = 0);
    void toggleFullscreen(int = 0);
    void toggleAlwaysOnTop(int = 0);
    void stop(int = 0);

    void save(const std::filesystem::path& file, const std::string& done);
    void load(const std::filesystem::path& file, const std::string& done);
    void refreshSlots();

    const Options& options;
    Session& session;
    velmora::PlayHud& hud;
    Controls controls;
    Notices notices;
    GameFiles files;
    Pacer pacer;

    bool leaving = false;
    bool awaitingRelease = false;
    int volumeSteps = 10; // tenths of the unchanged loudness
    int pointerX = 0;
    int pointerY = 0;
    int frames = 0;
    int picturesSkipped = 0;
    std::uint64_t shownAt = 0; // nanoseconds of SDL's clock, as are the next two
    std::uint64_t startedAt = 0;
    std::uint64_t endedAt = 0;
    std::uint64_t savedAt = 0; // milliseconds, as is the next
    std::uint64_t gamepadSeenAt = 0;
};

} // namespace player
