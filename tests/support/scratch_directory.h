#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace velmora::test {

// A directory of the test's own, gone with the object.
class ScratchDirectory {
public:
    ScratchDirectory()
        : directory(std::filesystem::temp_directory_path() /
                    ("velmora-" + std::to_string(std::random_device{}()))) {
        std::filesystem::create_directories(directory);
    }
    ~ScratchDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(directory, ignored);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::filesystem::path& path() const { return directory; }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return directory / name;
    }

private:
    std::filesystem::path directory;
};

inline std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace velmora::test
