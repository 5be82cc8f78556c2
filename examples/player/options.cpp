#include "options.h"

#include <cstdio>

#include <QCommandLineParser>
#include <QStandardPaths>

namespace player {
namespace {

const QCommandLineOption system{"system",
                                "Use the controls of system <id>, such as nes, snes, gba.", "id"};
const QCommandLineOption systemDir{"system-dir", "Where cores find their system files.",
                                   "directory"};
const QCommandLineOption saveDir{"save-dir", "Where saves, states and screenshots go.",
                                 "directory"};
const QCommandLineOption frames{"frames", "Stop after <n> frames and print the speed.", "n"};
const QCommandLineOption uncapped{"uncapped", "Run as fast as the machine can, without sound."};
const QCommandLineOption screenshot{"screenshot", "Write the last picture to <file>, a bitmap.",
                                    "file"};
const QCommandLineOption mute{"mute", "Start muted."};
const QCommandLineOption fullscreen{"fullscreen", "Start in fullscreen."};
const QCommandLineOption help{{"h", "help"}, "Show this help."};

void describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        "Plays a game with a libretro core. Esc opens the menu; F1 resets, F5 and F8 save and "
        "load\n"
        "quickly, F11 is fullscreen, F12 takes a screenshot, Tab runs fast, M mutes, - and = set\n"
        "the volume.");
    parser.addPositionalArgument("CORE", "The core, a shared library.");
    parser.addPositionalArgument("GAME", "The game file.");
    parser.addOptions(
        {system, systemDir, saveDir, frames, uncapped, screenshot, mute, fullscreen, help});
}

int usageError(const QString& reason) {
    std::fprintf(stderr, "velmora-player: %s\nTry velmora-player --help.\n", qPrintable(reason));
    return exitUsage;
}

// Battery saves are named by the game's file alone, so each system gets a directory of its own.
std::filesystem::path directory(const QCommandLineParser& parser, const QCommandLineOption& option,
                                const char* kind) {
    if (parser.isSet(option)) {
        return toPath(parser.value(option));
    }
    const auto home =
        toPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)) / kind;
    return parser.isSet(system) ? home / toPath(parser.value(system)) : home;
}

Options readOptions(const QCommandLineParser& parser, int frameLimit) {
    const QStringList files = parser.positionalArguments();
    return {
        .core = toPath(files[0]),
        .game = toPath(files[1]),
        .systemDirectory = directory(parser, systemDir, "system"),
        .saveDirectory = directory(parser, saveDir, "saves"),
        .screenshot = toPath(parser.value(screenshot)),
        .systemId = parser.value(system).toStdString(),
        .frames = frameLimit,
        .uncapped = parser.isSet(uncapped),
        .muted = parser.isSet(mute),
        .fullscreen = parser.isSet(fullscreen),
    };
}

} // namespace

std::variant<Options, int> parseOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    describe(parser);
    const bool understood = parser.parse(arguments);
    if (parser.isSet(help)) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return exitSuccess;
    }
    if (!understood) {
        return usageError(parser.errorText());
    }
    if (parser.positionalArguments().size() != 2) {
        return usageError("a core and a game are needed.");
    }
    bool isNumber = true;
    const int limit = parser.isSet(frames) ? parser.value(frames).toInt(&isNumber) : 0;
    if (!isNumber || (parser.isSet(frames) && limit < 1)) {
        return usageError("--frames needs a number above 0.");
    }
    return readOptions(parser, limit);
}

std::filesystem::path toPath(const QString& text) { return {text.toStdU16String()}; }

std::string toUtf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace player
