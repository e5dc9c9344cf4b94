// SPDX-License-Identifier: MIT
#include "tests/contract/linux/globalkeys/FakeKGlobalAccel.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString Service = u"org.kde.kglobalaccel"_s;
const QString Compositor = u"org.kde.KWin"_s;
const QString Interface = u"org.kde.KGlobalAccel"_s;
const QString OurComponent = u"example.quorlane.Tarnwick"_s;

QDBusConnection connectTo(const QString& address)
{
    static int number = 0;
    return QDBusConnection::connectToBus(address, u"kglobalaccel %1"_s.arg(++number));
}

} // namespace

FakeKGlobalAccel::FakeKGlobalAccel(const QString& address) : _bus(connectTo(address))
{
    registerKGlobalAccelTypes();
    _bus.registerVirtualObject(u"/kglobalaccel"_s, this);
    _bus.registerService(Compositor);
    moveToThread(&_thread);
    _thread.start();
    appear();
}

FakeKGlobalAccel::~FakeKGlobalAccel()
{
    _bus.unregisterService(Compositor);
    vanish();
    _bus.unregisterObject(u"/kglobalaccel"_s);
    _thread.quit();
    _thread.wait();
    QDBusConnection::disconnectFromBus(_bus.name());
}

void FakeKGlobalAccel::giveToAnother(int key, const QStringList& id)
{
    const QMutexLocker lock(&_mutex);
    _others.insert(key, id);
}

void FakeKGlobalAccel::appear()
{
    _bus.registerService(Service);
}

void FakeKGlobalAccel::vanish()
{
    _bus.unregisterService(Service);
    const QMutexLocker lock(&_mutex);
    _ours.clear();
    _introduced.clear();
}

void FakeKGlobalAccel::setSilent(bool silent)
{
    const QMutexLocker lock(&_mutex);
    _silent = silent;
}

bool FakeKGlobalAccel::press(int key, int repeats)
{
    const auto holder = _holder(key);
    if (!holder)
        return false;
    for (int i = 0; i <= repeats; ++i)
        _tell(u"globalShortcutPressed"_s, *holder);
    _tell(u"globalShortcutReleased"_s, *holder);
    return true;
}

bool FakeKGlobalAccel::pressOnly(int key)
{
    const auto holder = _holder(key);
    if (holder)
        _tell(u"globalShortcutPressed"_s, *holder);
    return holder.has_value();
}

void FakeKGlobalAccel::change(const QString& action, int key)
{
    const QMutexLocker lock(&_mutex);
    Shortcut& shortcut = _ours[action];
    shortcut.keys = {key, 0, 0, 0};
    auto message = QDBusMessage::createSignal(u"/kglobalaccel"_s, Interface, u"yourShortcutsChanged"_s);
    message.setArguments({shortcut.id, QVariant::fromValue(QList{KdeKeySequence{shortcut.keys}})});
    _bus.send(message);
}

QMap<QString, FakeKGlobalAccel::Shortcut> FakeKGlobalAccel::ours() const
{
    const QMutexLocker lock(&_mutex);
    return _ours;
}

QStringList FakeKGlobalAccel::introduced() const
{
    const QMutexLocker lock(&_mutex);
    return _introduced;
}

QString FakeKGlobalAccel::introspect(const QString& /*path*/) const
{
    return {};
}

bool FakeKGlobalAccel::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QMutexLocker lock(&_mutex);
    const QVariantList arguments = message.arguments();
    const QString method = message.member();
    if (message.interface() != Interface)
        return false;
    if (_silent)
        return true;
    if (method == u"doRegister" && message.signature() == u"as") {
        _introduced.append(arguments.value(0).toStringList().value(1));
        connection.send(message.createReply());
    } else if (method == u"setShortcutKeys" && message.signature() == u"asa(ai)u") {
        const auto keys = qdbus_cast<QList<KdeKeySequence>>(arguments.value(1));
        connection.send(message.createReply(
            _set({arguments.value(0).toStringList(), keys.value(0).keys, arguments.value(2).toUInt()})));
    } else if (method == u"unregister" && message.signature() == u"ss") {
        const bool had =
            arguments.value(0).toString() == OurComponent && _ours.remove(arguments.value(1).toString()) > 0;
        connection.send(message.createReply(had));
    } else if (method == u"globalShortcutsByKey" && message.signature() == u"(ai)(i)") {
        const auto keys = qdbus_cast<KdeKeySequence>(arguments.value(0));
        connection.send(message.createReply(_byKey(keys.keys.value(0))));
    } else {
        return false;
    }
    return true;
}

QVariant FakeKGlobalAccel::_set(const Shortcut& wanted)
{
    const int key = wanted.keys.value(0);
    if (_others.contains(key) || wanted.keys.size() != 4 || !_introduced.contains(wanted.id.value(1)))
        return QVariant::fromValue(QList<KdeKeySequence>());
    _ours.insert(wanted.id.value(1), wanted);
    return QVariant::fromValue(QList{KdeKeySequence{wanted.keys}});
}

QVariant FakeKGlobalAccel::_byKey(int key) const
{
    QList<KdeShortcutInfo> found;
    const auto add = [&](const QStringList& id) {
        found.append({id.value(1),
                      id.value(3),
                      id.value(0),
                      id.value(2),
                      u"default"_s,
                      u"Default Context"_s,
                      {key},
                      {}});
    };
    for (const Shortcut& shortcut : _ours) {
        if (shortcut.keys.value(0) == key)
            add(shortcut.id);
    }
    if (_others.contains(key))
        add(_others.value(key));
    return QVariant::fromValue(found);
}

std::optional<QStringList> FakeKGlobalAccel::_holder(int key) const
{
    const QMutexLocker lock(&_mutex);
    for (const Shortcut& shortcut : _ours) {
        if (shortcut.keys.value(0) == key)
            return shortcut.id;
    }
    return std::nullopt;
}

void FakeKGlobalAccel::_tell(const QString& signal, const QStringList& id)
{
    auto message = QDBusMessage::createSignal(u"/component/example_quorlane_Tarnwick"_s,
                                              u"org.kde.kglobalaccel.Component"_s, signal);
    message.setArguments({id.value(0), id.value(1), qlonglong(1)});
    _bus.send(message);
}

} // namespace tarnwick
