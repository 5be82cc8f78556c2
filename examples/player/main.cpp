#include <QCoreApplication>

#include <velmora/settings_keys.h>

#include "options.h"
#include "player.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCoreApplication::setOrganizationName(velmora::settingskeys::org());
    QCoreApplication::setApplicationName(QStringLiteral("Player"));
    const auto options = player::parseOptions(QCoreApplication::arguments());
    if (const int* code = std::get_if<int>(&options)) {
        return *code;
    }
    return player::play(std::get<player::Options>(options));
}
