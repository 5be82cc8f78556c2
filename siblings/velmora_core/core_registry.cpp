#include <velmora_core/core_registry.h>

#include <algorithm>
#include <array>

#include <QStringView>

namespace velmora {

namespace {

struct System {
    QStringView id;
    QStringView label;
    QStringView shortName;
    QStringView accent;
};

// By maker, each maker's systems by age.
constexpr std::array<System, 31> systems{{
    {u"nes", u"Nintendo Entertainment System", u"NES", u"#c4342d"},
    {u"fds", u"Famicom Disk System", u"FDS", u"#a8324a"},
    {u"snes", u"Super Nintendo", u"SNES", u"#7a5fc0"},
    {u"n64", u"Nintendo 64", u"N64", u"#2f8f4e"},
    {u"gc", u"GameCube", u"GC", u"#5a4fa3"},
    {u"gb", u"Game Boy", u"GB", u"#7d9a2b"},
    {u"gba", u"Game Boy Advance", u"GBA", u"#4650a8"},
    {u"nds", u"Nintendo DS", u"DS", u"#6e7c8a"},
    {u"vb", u"Virtual Boy", u"VB", u"#b01c1c"},
    {u"sg1000", u"SG-1000", u"SG", u"#3d7ea6"},
    {u"sms", u"Master System", u"SMS", u"#c23b3b"},
    {u"genesis", u"Genesis / Mega Drive", u"GEN", u"#1f5fbf"},
    {u"segacd", u"Sega CD / Mega-CD", u"SCD", u"#2f72b8"},
    {u"sega32x", u"Sega 32X", u"32X", u"#b8862f"},
    {u"gg", u"Game Gear", u"GG", u"#2a8c8c"},
    {u"saturn", u"Sega Saturn", u"SAT", u"#3f5a8c"},
    {u"psx", u"PlayStation", u"PS1", u"#7f8896"},
    {u"psp", u"PlayStation Portable", u"PSP", u"#3a4656"},
    {u"pce", u"PC Engine / TurboGrafx-16", u"PCE", u"#e07a2c"},
    {u"pcecd", u"PC Engine CD / TurboGrafx-CD", u"PCD", u"#d0632a"},
    {u"pcfx", u"PC-FX", u"FX", u"#a6572e"},
    {u"atari2600", u"Atari 2600", u"2600", u"#b5651d"},
    {u"atari5200", u"Atari 5200", u"5200", u"#9c5a2a"},
    {u"atari7800", u"Atari 7800", u"7800", u"#c98a3a"},
    {u"lynx", u"Atari Lynx", u"LYNX", u"#d9a520"},
    {u"ngp", u"Neo Geo Pocket", u"NGP", u"#4a7fb5"},
    {u"wswan", u"WonderSwan", u"WS", u"#3fa38f"},
    {u"coleco", u"ColecoVision", u"CV", u"#566b8a"},
    {u"intellivision", u"Intellivision", u"INTV", u"#8a6b3f"},
    {u"odyssey2", u"Odyssey 2", u"O2", u"#6b8a3f"},
    {u"vectrex", u"Vectrex", u"VEC", u"#4f8ab0"},
}};

} // namespace

QList<CoreDescriptor> CoreRegistry::uniqueBySystem() {
    QList<CoreDescriptor> cores;
    for (const System& system : systems) {
        const QString id = system.id.toString();
        cores.append({id,
                      system.shortName.toString(),
                      id,
                      system.label.toString(),
                      {},
                      {},
                      system.accent.toString()});
    }
    return cores;
}

QString CoreRegistry::shortName(const QString& systemId) {
    const auto system = std::ranges::find(systems, QStringView(systemId), &System::id);
    return system == systems.end() ? systemId : system->shortName.toString();
}

} // namespace velmora
