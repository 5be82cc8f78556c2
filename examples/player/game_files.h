#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace player {

// Where a game's states and screenshots lie, all in the save directory beside the battery save:
// GAME.slot1.state and so on, GAME.quick.state, and GAME with the time for a screenshot.
class GameFiles {
public:
    GameFiles(std::filesystem::path saveDirectory, const std::filesystem::path& game);

    std::filesystem::path slot(int index) const;
    std::filesystem::path quickSlot() const;
    // A name that no file has yet.
    std::filesystem::path newScreenshot() const;

    // When each slot was saved, for the user, up to the last one in use; "Empty" in between.
    std::vector<std::string> slotNames() const;

private:
    std::filesystem::path named(const std::string& ending) const;

    std::filesystem::path directory;
    std::filesystem::path stem;
};

} // namespace player
