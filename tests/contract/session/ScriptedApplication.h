// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <systemd/sd-bus.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

namespace tarnwick {

/// An application on the accessibility bus that publishes what a test has written down, in a thread of its
/// own, and remembers what it was asked.
class ScriptedApplication
{
public:
    struct Object
    {
        QByteArray name;
        quint32 role = 0;
        quint64 states = 0;
        QByteArray keyBinding;
        QList<QByteArray> children; ///< paths
    };

    /// `objects` by path; "toolkit" is what its root answers. It claims the well-known `names`.
    ScriptedApplication(const QByteArray& address, const QByteArray& toolkit,
                        const QMap<QByteArray, Object>& objects, const QList<QByteArray>& names = {});
    ~ScriptedApplication();
    ScriptedApplication(const ScriptedApplication&) = delete;
    ScriptedApplication& operator=(const ScriptedApplication&) = delete;

    [[nodiscard]] QByteArray service() const { return _service; }

    /// Lever: gets each call first; true when it has answered, or wants no answer, itself.
    void setInterceptor(std::function<bool(sd_bus_message* call)> interceptor);
    void change(const QByteArray& path, const std::function<void(Object&)>& change);

    /// What was asked so far, "Member path" each, and with a property's name for "Get".
    [[nodiscard]] QStringList calls() const;
    [[nodiscard]] int count(const QString& beginning) const;
    void forgetCalls();

private:
    static int _receive(sd_bus_message* call, void* data, sd_bus_error* error);
    void _run();
    void _note(sd_bus_message* call);
    int _answer(sd_bus_message* call);
    int _answerProperty(sd_bus_message* call, const Object& object);
    int _answerChildren(sd_bus_message* call, const Object& object);

    QByteArray _service;
    QByteArray _toolkit;
    sd_bus* _bus = nullptr;
    std::atomic<bool> _ending = false;
    mutable std::mutex _mutex;
    QMap<QByteArray, Object> _objects;                      ///< guarded by the mutex
    QStringList _calls;                                     ///< guarded by the mutex
    std::function<bool(sd_bus_message* call)> _interceptor; ///< guarded by the mutex
    std::thread _thread;
};

} // namespace tarnwick
