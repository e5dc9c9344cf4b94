// SPDX-License-Identifier: MIT
#pragma once

#include "tests/contract/session/ScriptedApplication.h"

#include <QByteArray>
#include <QMap>

#include <mutex>

namespace tarnwick {

/// Collects menu bars as a test says, as long as it lives.
class ScriptedRegistrar
{
public:
    struct Place
    {
        QByteArray service;
        QByteArray path;
    };

    explicit ScriptedRegistrar(const QByteArray& address)
        : _application(address, "", QMap<QByteArray, ScriptedApplication::Object>(),
                       {"com.canonical.AppMenu.Registrar"})
    {
        _application.setInterceptor([this](sd_bus_message* call) { return _receive(call); });
    }
    ~ScriptedRegistrar() { _application.setInterceptor({}); }
    ScriptedRegistrar(const ScriptedRegistrar&) = delete;
    ScriptedRegistrar& operator=(const ScriptedRegistrar&) = delete;

    void set(quint32 window, const Place& place)
    {
        const std::scoped_lock lock(_mutex);
        _places.insert(window, place);
    }
    void setHanging(bool hanging)
    {
        const std::scoped_lock lock(_mutex);
        _hangs = hanging;
    }
    [[nodiscard]] QStringList calls() const { return _application.calls(); }

private:
    bool _receive(sd_bus_message* call)
    {
        const std::scoped_lock lock(_mutex);
        quint32 window = 0;
        if (_hangs || QByteArrayView(sd_bus_message_get_member(call)) != "GetMenuForWindow" ||
            sd_bus_message_read(call, "u", &window) <= 0)
            return true;
        const Place place = _places.value(window, {"", "/"});
        return sd_bus_reply_method_return(call, "so", place.service.constData(), place.path.constData()) >= 0;
    }

    std::mutex _mutex; ///< guards the next two
    QMap<quint32, Place> _places;
    bool _hangs = false;
    ScriptedApplication _application; ///< its thread uses what is above
};

} // namespace tarnwick
