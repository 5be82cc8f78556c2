#include <algorithm>
#include <memory>

#include <QMetaMethod>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include "bindings/stored_bindings.h"

namespace velmora::test {
namespace {

TEST(ObjectSurfaceTest, DeclaresWhatPagesAreWrittenAgainst) {
    const QMetaObject& meta = InputBindings::staticMetaObject;
    EXPECT_STREQ(meta.className(), "velmora::InputBindings");
    EXPECT_EQ(meta.superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(meta.enumeratorCount() + meta.classInfoCount() + meta.constructorCount(), 0);

    const char* methods[] = {
        // clang-format off
        "signal void mappingChanged()",     "signal void listeningChanged()",
        "signal void gamepadNameChanged()", "method void listen(int)",
        "method void cancelListen()",       "method void clearButton(int)",
        "method void resetSystem()",        "method void beginEdit()",
        "method void commitEdit()",         "method void revertEdit()",
        "method QString bindingLabel(int)", "method QString bindingCaption(int)",
        "method void prepare()",
        // clang-format on
    };
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), std::ssize(methods));
    for (int i = 0; i < std::ssize(methods); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        const char* kinds[] = {"method ", "signal ", "slot "};
        EXPECT_EQ(kinds[method.methodType()] + QByteArray(method.typeName()) + ' ' +
                      method.methodSignature(),
                  methods[i]);
        EXPECT_EQ(method.access(), QMetaMethod::Public) << i;
    }

    constexpr int constant = -1;
    const struct {
        const char* text;
        bool settable;
        int notify; // number of the signal
    } properties[] = {
        {"QString systemId", true, 0},       {"QString device", true, 0},
        {"bool listening", false, 1},        {"int listeningId", false, 1},
        {"QString listeningName", false, 1}, {"QString padStyle", false, 0},
        {"QString gamepadName", false, 2},   {"QVariantList systems", false, constant},
        {"QVariantList buttons", false, 0},  {"QVariantList specials", false, 0},
    };
    ASSERT_EQ(meta.propertyCount() - meta.propertyOffset(), std::ssize(properties));
    for (int i = 0; i < std::ssize(properties); ++i) {
        const QMetaProperty property = meta.property(meta.propertyOffset() + i);
        const auto& [text, settable, notify] = properties[i];
        EXPECT_EQ(QByteArray(property.typeName()) + ' ' + property.name(), text);
        EXPECT_EQ(property.isWritable(), settable) << text;
        EXPECT_EQ(property.hasStdCppSet(), settable) << text;
        EXPECT_EQ(property.isConstant(), notify == constant) << text;
        EXPECT_EQ(property.notifySignalIndex(),
                  notify == constant ? -1 : meta.methodOffset() + notify);
        EXPECT_TRUE(property.isReadable() && property.isDesignable() && property.isScriptable() &&
                    property.isStored() && !property.isResettable())
            << text;
    }
}

TEST(ObjectSurfaceTest, PropertiesAreSetByName) {
    InputBindings bindings;
    Signals emitted(bindings);
    EXPECT_TRUE(bindings.setProperty("systemId", "n64"));
    EXPECT_TRUE(bindings.setProperty("device", "gamepad"));
    EXPECT_EQ(emitted.take(), "MM");
    EXPECT_TRUE(bindings.setProperty("systemId", "n64"));
    EXPECT_TRUE(bindings.setProperty("device", "gamepad"));
    EXPECT_FALSE(bindings.setProperty("listening", true));
    EXPECT_EQ(emitted.take(), "");
    EXPECT_FALSE(bindings.listening());
    EXPECT_EQ(bindings.property("padStyle"), "n64");
    EXPECT_EQ(bindings.property("buttons").toList().size(), 14);
    for (const char* other : {"Gamepad", ""}) {
        bindings.setProperty("device", "gamepad");
        bindings.setProperty("device", other);
        EXPECT_EQ(bindings.device(), "keyboard");
    }
}

TEST(ObjectSurfaceTest, ListsTheSystemsOfTheRegistry) {
    InputBindings bindings;
    QSet<QString> ids;
    for (const QVariant& entry : bindings.systems()) {
        const QVariantMap row = entry.toMap();
        EXPECT_EQ(row.keys(), QStringList({"accent", "id", "label", "pad", "short"}));
        EXPECT_FALSE(row["label"].toString().isEmpty());
        EXPECT_TRUE(
            QRegularExpression("^#[0-9a-f]{6}$").match(row["accent"].toString()).hasMatch());
        ids += row["id"].toString();
        EXPECT_FALSE(row["short"].toString().isEmpty());
        bindings.setSystemId(row["id"].toString());
        EXPECT_EQ(bindings.padStyle(), row["pad"].toString());
    }
    EXPECT_EQ(bindings.systems().size(), 31);
    EXPECT_EQ(ids.size(), 31);
}

TEST(ObjectSurfaceTest, TheLastObjectIsTheInstance) {
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
