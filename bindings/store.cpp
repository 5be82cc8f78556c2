#include <velmora/input_bindings.h>

#include <chrono>

#include <QCoreApplication>
#include <QStringBuilder>

#include "bindings/catalogue.h"
#include "bindings/settings_store.h"
#include "support/no_throw.h"

namespace velmora {

using namespace Qt::StringLiterals;

InputBindings* InputBindings::instance_ = nullptr;

InputBindings::InputBindings(QObject* parent) : QObject(parent) {
    instance_ = this;
    // An exception from here would leave `instance_` at an object that never was.
    noThrow([this] {
        if (QCoreApplication* application = QCoreApplication::instance())
            application->installEventFilter(this);
        timer_.setInterval(std::chrono::milliseconds(16));
        connect(&timer_, &QTimer::timeout, this, &InputBindings::pollGamepad);
        keepsFileParsed_ = std::make_unique<QSettings>(settingskeys::org(), settingskeys::app());
    });
}

InputBindings::~InputBindings() {
    if (instance_ == this)
        instance_ = nullptr;
    if (QCoreApplication* application = QCoreApplication::instance())
        application->removeEventFilter(this);
}

InputBindings* InputBindings::instance() { return instance_; }

QString InputBindings::systemId() const { return systemId_; }

void InputBindings::setSystemId(const QString& id) {
    if (id == systemId_)
        return;
    cancelListen();
    systemId_ = id;
    Q_EMIT mappingChanged();
}

QString InputBindings::device() const { return device_; }

void InputBindings::setDevice(const QString& name) {
    const QString known = name == "gamepad"_L1 ? u"gamepad"_s : u"keyboard"_s;
    if (known == device_)
        return;
    cancelListen();
    device_ = known;
    Q_EMIT mappingChanged();
}

QString InputBindings::settingsKey(const QString& device, const QString& systemId, int id) const {
    // "controls/%1/%2/%3", put together without the cost of QString::arg: a game asks for sixteen
    // of these and more every frame.
    const QStringView group = catalogue::isSpecial(id) ? QStringView(u"special") : systemId;
    return u"controls/" % device % u'/' % group % u'/' % QString::number(id);
}

bool InputBindings::loadBinding(const QString& device, const QString& systemId, int id,
                                QString* kind, int* code) const {
    return noThrowOr(false, [&] {
        const QString value = openStore().value(settingsKey(device, systemId, id)).toString();
        const qsizetype colon = value.lastIndexOf(u':');
        if (colon <= 0)
            return false;
        *kind = value.first(colon);
        *code = QStringView(value).sliced(colon + 1).toInt();
        return true;
    });
}

void InputBindings::saveBinding(int id, const QString& kind, int code) {
    noThrow([&] {
        openStore().setValue(settingsKey(device_, systemId_, id),
                             u"%1:%2"_s.arg(kind, QString::number(code)));
    });
}

void InputBindings::assign(const QString& kind, int code) {
    if (!listening_ || (kind == "key"_L1 && code <= 0))
        return;
    saveBinding(listeningId_, kind, code);
    cancelListen();
    Q_EMIT mappingChanged();
}

void InputBindings::clearButton(int buttonId) {
    // Stored, not removed: without a value the default would be back.
    noThrow([&] { openStore().setValue(settingsKey(device_, systemId_, buttonId), u"none:0"_s); });
    Q_EMIT mappingChanged();
}

void InputBindings::resetSystem() {
    noThrow([this] {
        QSettings store = openStore();
        removeUnder(store, u"controls/%1/%2/"_s.arg(device_, systemId_));
        removeUnder(store, u"controls/%1/special/"_s.arg(device_));
    });
    cancelListen();
    Q_EMIT mappingChanged();
}

} // namespace velmora
