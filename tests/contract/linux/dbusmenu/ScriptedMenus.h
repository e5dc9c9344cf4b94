// SPDX-License-Identifier: MIT
#pragma once

#include "tests/contract/session/ScriptedApplication.h"

#include <QByteArray>
#include <QList>
#include <QMap>

#include <condition_variable>
#include <mutex>

namespace tarnwick {

/// What a test exports as "com.canonical.dbusmenu", by an application that answers in a thread of its own.
class ScriptedMenus
{
public:
    struct Entry
    {
        QByteArray label;
        QList<qint32> holds = {};
        bool enabled = true;
        bool isHolder = false; ///< also where it holds nothing
    };
    /// One "Event" of type "clicked".
    struct Click
    {
        qint32 number;
        quint32 time;
    };

    /// Answers in place of `application`, which must go first.
    explicit ScriptedMenus(ScriptedApplication& application)
    {
        application.setInterceptor([this](sd_bus_message* call) { return _receive(call); });
    }

    /// Number 0 is the bar.
    void set(const QMap<qint32, Entry>& entries)
    {
        const std::scoped_lock lock(_mutex);
        _entries = entries;
    }
    void change(qint32 number, const std::function<void(Entry&)>& change)
    {
        const std::scoped_lock lock(_mutex);
        change(_entries[number]);
    }
    void setHanging(bool hanging)
    {
        const std::scoped_lock lock(_mutex);
        _hangs = hanging;
    }
    /// Answers nothing until it is idle again, and then, in their order, what it was asked meanwhile.
    void setBusy(bool busy)
    {
        const std::scoped_lock lock(_mutex);
        _busy = busy;
        _idle.notify_all();
    }
    void setRefusingFacts(bool refuses)
    {
        const std::scoped_lock lock(_mutex);
        _refusesFacts = refuses;
    }
    /// So many times an entry that is asked for says that it is disabled.
    void setGreyedFor(int times)
    {
        const std::scoped_lock lock(_mutex);
        _greyedFor = times;
    }
    /// Has "AboutToShow" change the menus.
    void setAboutToShow(const std::function<void(qint32 number, QMap<qint32, Entry>& entries)>& change)
    {
        const std::scoped_lock lock(_mutex);
        _aboutToShow = change;
    }
    /// The same of the event "closed".
    void setClosed(const std::function<void(qint32 number, QMap<qint32, Entry>& entries)>& change)
    {
        const std::scoped_lock lock(_mutex);
        _closed = change;
    }
    [[nodiscard]] QList<Click> clicks() const
    {
        const std::scoped_lock lock(_mutex);
        return _clicks;
    }

private:
    bool _receive(sd_bus_message* call)
    {
        std::unique_lock lock(_mutex);
        _idle.wait(lock, [this] { return !_busy; });
        const QByteArrayView member = sd_bus_message_get_member(call);
        qint32 number = 0;
        if (_hangs)
            return true;
        if (_refusesFacts && member == "GetGroupProperties")
            return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "no facts") >= 0;
        if (member == "GetLayout")
            return sd_bus_message_read(call, "i", &number) > 0 && _sendLayout(call, number);
        if (member == "GetGroupProperties")
            return _sendProperties(call);
        if (member == "AboutToShow" && sd_bus_message_read(call, "i", &number) > 0) {
            if (_aboutToShow)
                _aboutToShow(number, _entries);
            return sd_bus_reply_method_return(call, "b", 0) >= 0;
        }
        const char* event = nullptr;
        quint32 time = 0;
        if (member == "Event" && sd_bus_message_read(call, "is", &number, &event) > 0 &&
            sd_bus_message_skip(call, "v") > 0 && sd_bus_message_read(call, "u", &time) > 0) {
            if (QByteArrayView(event) == "clicked")
                _clicks.append({number, time});
            if (QByteArrayView(event) == "closed" && _closed)
                _closed(number, _entries);
        }
        return member != "Introspect";
    }

    static void _appendFacts(sd_bus_message* reply, qint32 number, const Entry& entry)
    {
        sd_bus_message_append(reply, "i", number);
        sd_bus_message_append(reply, "a{sv}", 3, "label", "s", entry.label.constData(), "enabled", "b",
                              entry.enabled ? 1 : 0, "children-display", "s",
                              entry.isHolder || !entry.holds.isEmpty() ? "submenu" : "");
    }

    bool _sendLayout(sd_bus_message* call, qint32 number)
    {
        if (!_entries.contains(number))
            return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "no such entry") >= 0;
        sd_bus_message* reply = nullptr;
        sd_bus_message_new_method_return(call, &reply);
        sd_bus_message_append(reply, "u", 1);
        sd_bus_message_open_container(reply, SD_BUS_TYPE_STRUCT, "ia{sv}av");
        const Entry menu = _entries.value(number);
        _appendFacts(reply, number, menu);
        sd_bus_message_open_container(reply, SD_BUS_TYPE_ARRAY, "v");
        for (const qint32 child : menu.holds) {
            sd_bus_message_open_container(reply, SD_BUS_TYPE_VARIANT, "(ia{sv}av)");
            sd_bus_message_open_container(reply, SD_BUS_TYPE_STRUCT, "ia{sv}av");
            _appendFacts(reply, child, _entries.value(child));
            sd_bus_message_append(reply, "av", 0);
            sd_bus_message_close_container(reply);
            sd_bus_message_close_container(reply);
        }
        sd_bus_message_close_container(reply);
        sd_bus_message_close_container(reply);
        return _send(reply);
    }

    bool _sendProperties(sd_bus_message* call)
    {
        qint32 number = 0;
        if (sd_bus_message_enter_container(call, SD_BUS_TYPE_ARRAY, "i") <= 0 ||
            sd_bus_message_read(call, "i", &number) <= 0)
            return false;
        if (!_entries.contains(number))
            return sd_bus_reply_method_return(call, "a(ia{sv})", 0) >= 0;
        Entry entry = _entries.value(number);
        entry.enabled = entry.enabled && _greyedFor-- <= 0;
        sd_bus_message* reply = nullptr;
        sd_bus_message_new_method_return(call, &reply);
        sd_bus_message_open_container(reply, SD_BUS_TYPE_ARRAY, "(ia{sv})");
        sd_bus_message_open_container(reply, SD_BUS_TYPE_STRUCT, "ia{sv}");
        _appendFacts(reply, number, entry);
        sd_bus_message_close_container(reply);
        sd_bus_message_close_container(reply);
        return _send(reply);
    }

    static bool _send(sd_bus_message* reply)
    {
        const bool sent = sd_bus_send(sd_bus_message_get_bus(reply), reply, nullptr) >= 0;
        sd_bus_message_unref(reply);
        return sent;
    }

    mutable std::mutex _mutex; ///< guards all below
    QMap<qint32, Entry> _entries;
    std::condition_variable _idle;
    bool _busy = false;
    bool _hangs = false;
    bool _refusesFacts = false;
    int _greyedFor = 0;
    std::function<void(qint32, QMap<qint32, Entry>&)> _aboutToShow;
    std::function<void(qint32, QMap<qint32, Entry>&)> _closed;
    QList<Click> _clicks;
};

} // namespace tarnwick
