// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusObject.h"

#include <QXmlStreamReader>
#include <systemd/sd-bus.h>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr qsizetype MaximumNames = 1'000;

} // namespace

BusObject BusObject::fromIntrospection(const QByteArray& text)
{
    BusObject object;
    QXmlStreamReader xml(text);
    if (!xml.readNextStartElement() || xml.name() != "node"_L1)
        return object;
    while (xml.readNextStartElement()) {
        const QByteArray name = xml.attributes().value("name"_L1).toUtf8();
        QByteArrayList* names = nullptr;
        if (xml.name() == "interface"_L1)
            names = &object.interfaces;
        else if (xml.name() == "node"_L1)
            names = &object.children;
        if (names && !name.isEmpty() && names->size() < MaximumNames)
            names->append(name);
        xml.skipCurrentElement();
    }
    return object;
}

QByteArray childPath(const QByteArray& path, const QByteArray& name)
{
    const QByteArray child = (path == "/" ? QByteArray() : path) + '/' + name;
    return sd_bus_object_path_is_valid(child.constData()) > 0 ? child : QByteArray();
}

} // namespace tarnwick
