#pragma once

#include <cstdint>
#include <string>

namespace velmora {
struct PlayHud;
}

namespace player {

// What comes up by itself and goes after a moment: the message strip and the volume panel. The
// overlay has no clock of its own.
class Notices {
public:
    explicit Notices(velmora::PlayHud& hudToWrite) : hud(hudToWrite) {}

    void say(std::string text);
    void showVolume(float volume, bool muted);
    // Takes away what has been up long enough.
    void update();

private:
    velmora::PlayHud& hud;
    std::uint64_t messageEnd = 0; // milliseconds of SDL's clock
    std::uint64_t volumeEnd = 0;
};

} // namespace player
