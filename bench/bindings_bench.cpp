// Lookups, polls and the settings page's lists against the reads of the store that they cannot
// avoid, and over stores of different sizes.
#include <QCoreApplication>
#include <QEvent>

#include <memory>
#include <vector>

#include <velmora/sdl_input.h>

#include "binding_store.h"
#include "ratio_table.h"

namespace velmora::bench {
namespace {

constexpr int joypadButtons = 16;
constexpr int rowsOfLists = 12 + 10; // what a "snes" has, and the special actions

// Each read opens the store afresh, to see what another thread has just written.
Side reads(BindingStore& store, int count) {
    std::vector<QString> keys;
    for (int i = 0; i < count; ++i)
        keys.push_back(BindingStore::keyOf(i));
    const auto read = [keys] {
        for (const QString& key : keys)
            QSettings(settingskeys::org(), settingskeys::app()).value(key).toString();
    };
    return {read, [&store] { store.keep(); }};
}

Side polls(BindingStore& store, SdlInput& input) {
    return {[&input] { input.poll(); }, [&store] { store.bind(); }};
}

Side lookups(BindingStore& store) {
    const auto lookUp = [system = QStringLiteral("snes")] {
        for (int button = 0; button < joypadButtons; ++button)
            InputBindings::instance()->keyboardScancode(system, button);
    };
    return {lookUp, [&store] { store.bind(); }};
}

Side lists(BindingStore& store) {
    const auto list = [] {
        InputBindings::instance()->buttons();
        InputBindings::instance()->specials();
    };
    const auto enter = [&store] {
        store.bind();
        InputBindings::instance()->setSystemId(QStringLiteral("snes"));
    };
    return {list, enter};
}

Side events(std::function<void()> enter) {
    const auto send = [receiver = std::make_shared<QObject>()] {
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(receiver.get(), &event);
    };
    return {send, std::move(enter)};
}

} // namespace

void measureBindings(const RatioTable& table) {
    BindingStore store(20);
    BindingStore large(500);
    BindingStore larger(600);
    SdlInput input;
    input.systemId = "snes";
    const auto compare = [&](const char* what, const char* against, double bound,
                             const Side& measured, const Side& other) {
        table.ratio({what, against, Clock::Thread, bound}, measured, other);
    };
    compare("an input poll, sixteen bindings read afresh", "sixteen bare reads of the store", 1.1,
            polls(store, input), reads(store, joypadButtons));
    compare("a poll over a store of 500 bindings", "one of 20", 1.3, polls(large, input),
            polls(store, input));
    compare("sixteen lookups in a store of 600 bindings", "in one of 20", 1.2, lookups(larger),
            lookups(store));
    compare("the settings page's lists", "their reads of the store", 1.1, lists(store),
            reads(store, rowsOfLists));
    table.surplus({"an event past the idle event filter", "without the filter"}, 1,
                  events([&] { store.bind(); }), events([&] { store.keep(); }));
}

} // namespace velmora::bench
