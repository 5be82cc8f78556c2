#pragma once

#include <filesystem>
#include <string>
#include <variant>

#include <QString>
#include <QStringList>

namespace player {

inline constexpr int exitSuccess = 0;
inline constexpr int exitFailure = 1;
inline constexpr int exitUsage = 2;

struct Options {
    std::filesystem::path core;
    std::filesystem::path game;
    std::filesystem::path systemDirectory;
    std::filesystem::path saveDirectory;
    std::filesystem::path screenshot;
    std::string systemId;
    int frames = 0; // 0: no limit
    bool uncapped = false;
    bool muted = false;
    bool fullscreen = false;
};

// The options, or the exit code of a program that has said all it had to say.
std::variant<Options, int> parseOptions(const QStringList& arguments);

std::filesystem::path toPath(const QString& text);
std::string toUtf8(const std::filesystem::path& path);

} // namespace player
