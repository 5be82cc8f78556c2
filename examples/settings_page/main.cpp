#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QSettings>
#include <QTextStream>

#include <velmora/input_bindings.h>
#include <velmora/settings_keys.h>

namespace {

struct Options {
    QString systemId;
    QString device;
    bool printStore = false;
};

Options parse(const QCoreApplication& application) {
    const QCommandLineOption system("system", "Open the page on this system.", "id", "nes");
    const QCommandLineOption device("device", "Open the page on the keyboard or the gamepad.",
                                    "name", "keyboard");
    const QCommandLineOption store("store", "Print where the controls are kept, and leave.");

    QCommandLineParser parser;
    parser.setApplicationDescription("Shows and edits the controls of every system.");
    parser.addHelpOption();
    parser.addOptions({system, device, store});
    parser.process(application);
    return {parser.value(system), parser.value(device), parser.isSet(store)};
}

int printStore() {
    const QSettings store(velmora::settingskeys::org(), velmora::settingskeys::app());
    QTextStream(stdout) << store.fileName() << '\n';
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    // SDL comes up for the gamepads, and would take Ctrl+C and a polite kill for events of its own.
    qputenv("SDL_NO_SIGNAL_HANDLERS", "1");
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationDisplayName("Velmora controls");
    const Options options = parse(application);
    if (options.printStore)
        return printStore();

    // After the application object, or no key press would reach it; before the engine, which is
    // then gone first.
    velmora::InputBindings bindings;
    bindings.setSystemId(options.systemId);
    bindings.setDevice(options.device);
    qmlRegisterSingletonInstance("Velmora", 1, 0, "InputBindings", &bindings);

    QQmlApplicationEngine engine;
    engine.load(QUrl("qrc:/VelmoraSettings/Main.qml"));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
