#include <memory>
#include <string>
#include <vector>

#include <QMap>
#include <QMetaMethod>
#include <QMetaProperty>

#include <gtest/gtest.h>

#include "bindings/stored_bindings.h"

namespace velmora::test {
namespace {

TEST(ObjectSurfaceTest, DeclaresWhatPagesAreWrittenAgainst) {
    const QMetaObject& meta = InputBindings::staticMetaObject;
    std::vector<std::string> declared;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        declared.push_back(method.typeName() + (' ' + method.methodSignature()).toStdString());
    }
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        const QByteArray told = property.isConstant() ? "constant" : property.notifySignal().name();
        declared.push_back(std::string(property.isWritable() ? "settable " : "") +
                           property.typeName() + ' ' + property.name() + ", " + told.toStdString());
    }
    const std::vector<std::string> expected{
        // clang-format off
        "void mappingChanged()", "void listeningChanged()", "void gamepadNameChanged()",
        "void listen(int)", "void cancelListen()", "void clearButton(int)", "void resetSystem()",
        "void beginEdit()", "void commitEdit()", "void revertEdit()",
        "QString bindingLabel(int)", "QString bindingCaption(int)", "void prepare()",
        "settable QString systemId, mappingChanged", "settable QString device, mappingChanged",
        "bool listening, listeningChanged", "int listeningId, listeningChanged",
        "QString listeningName, listeningChanged", "QString padStyle, mappingChanged",
        "QString gamepadName, gamepadNameChanged", "QVariantList systems, constant",
        "QVariantList buttons, mappingChanged", "QVariantList specials, mappingChanged",
        // clang-format on
    };
    EXPECT_EQ(declared, expected);
}

TEST(ObjectSurfaceTest, ListsTheSystemsOfTheRegistry) {
    InputBindings bindings;
    QStringList styles;
    QMap<qsizetype, int> systemsWithButtons;
    for (const QVariant& entry : bindings.systems()) {
        const QVariantMap row = entry.toMap();
        const QString id = row["id"].toString();
        EXPECT_EQ(row.keys(), QStringList({"accent", "id", "label", "pad", "short"}));
        EXPECT_TRUE(row["label"].toString().front().isUpper()) << id.toStdString();
        EXPECT_EQ(row["short"].toString(), row["short"].toString().toUpper()) << id.toStdString();
        EXPECT_TRUE(row["accent"].toString().startsWith('#'));
        bindings.setSystemId(id);
        EXPECT_EQ(bindings.padStyle(), row["pad"].toString());
        styles += id == bindings.padStyle() ? id : id + '=' + bindings.padStyle();
        ++systemsWithButtons[bindings.buttons().size()];
    }
    styles.sort();
    EXPECT_EQ(styles.join(' '),
              "atari2600=atari atari5200=atari atari7800=atari coleco=stick fds=nes gb gba gc "
              "genesis gg intellivision=stick lynx n64 nds nes ngp odyssey2=stick pce pcecd=pce "
              "pcfx=pce psp psx saturn=genesis sega32x=genesis segacd=genesis sg1000=sms sms snes "
              "vb vectrex=stick wswan");
    EXPECT_EQ(systemsWithButtons, (QMap<qsizetype, int>{{8, 20}, {10, 4}, {12, 5}, {14, 2}}));
}

TEST(ObjectSurfaceTest, TheLastObjectIsTheInstance) {
    EXPECT_EQ(settingskeys::org() + '/' + settingskeys::app(), "Velmora/Velmora");
    EXPECT_EQ(InputBindings::instance(), nullptr);
    auto first = std::make_unique<InputBindings>();
    auto second = std::make_unique<InputBindings>();
    EXPECT_EQ(InputBindings::instance(), second.get());
    first.reset();
    EXPECT_EQ(InputBindings::instance(), second.get()) << "the older one went";
    std::make_unique<InputBindings>().reset();
    EXPECT_EQ(InputBindings::instance(), nullptr) << "though an older one lives";
}

} // namespace
} // namespace velmora::test
