#include "game_files.h"

#include <utility>

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QString>

#include <velmora/action_codes.h>

namespace player {
namespace {

QString asQString(const std::filesystem::path& path) {
    return QString::fromStdU16String(path.u16string());
}

// Short enough for a picker's row of 18 characters, slot number included.
std::string timeOf(const QFileInfo& file) {
    return QLocale::c().toString(file.lastModified(), "dd MMM hh:mm").toStdString();
}

} // namespace

GameFiles::GameFiles(std::filesystem::path saveDirectory, const std::filesystem::path& game)
    : directory(std::move(saveDirectory)), stem(game.stem()) {}

std::filesystem::path GameFiles::slot(int index) const {
    return named(".slot" + std::to_string(index + 1) + ".state");
}

std::filesystem::path GameFiles::quickSlot() const { return named(".quick.state"); }

std::filesystem::path GameFiles::newScreenshot() const {
    const std::string time =
        QDateTime::currentDateTime().toString(" yyyy-MM-dd hh-mm-ss").toStdString();
    std::filesystem::path file = named(time + ".bmp");
    std::error_code ignored;
    for (int i = 2; std::filesystem::exists(file, ignored); ++i) {
        file = named(time + ' ' + std::to_string(i) + ".bmp");
    }
    return file;
}

std::vector<std::string> GameFiles::slotNames() const {
    std::vector<std::string> names;
    for (int i = 0; i < velmora::action::menuSlotLimit; ++i) {
        const QFileInfo file(asQString(slot(i)));
        if (file.exists()) {
            names.resize(static_cast<std::size_t>(i), "Empty");
            names.push_back(timeOf(file));
        }
    }
    return names;
}

std::filesystem::path GameFiles::named(const std::string& ending) const {
    std::filesystem::path name = stem;
    name += ending;
    return directory / name;
}

} // namespace player
