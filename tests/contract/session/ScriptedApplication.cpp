// SPDX-License-Identifier: MIT
#include "tests/contract/session/ScriptedApplication.h"

#include "platform/linux/atspi/AtspiConstants.h"

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tarnwick {

ScriptedApplication::ScriptedApplication(const QByteArray& address, const QByteArray& toolkit,
                                         const QMap<QByteArray, Object>& objects,
                                         const QList<QByteArray>& names)
    : _toolkit(toolkit), _objects(objects)
{
    const char* name = nullptr;
    const bool connected = sd_bus_new(&_bus) >= 0 && sd_bus_set_address(_bus, address.constData()) >= 0 &&
                           sd_bus_set_bus_client(_bus, 1) >= 0 && sd_bus_start(_bus) >= 0 &&
                           sd_bus_get_unique_name(_bus, &name) >= 0 &&
                           sd_bus_add_filter(_bus, nullptr, _receive, this) >= 0;
    if (!connected)
        throw std::runtime_error("no bus for the scripted application");
    _service = name;
    for (const QByteArray& wanted : names)
        if (sd_bus_request_name(_bus, wanted.constData(), 0) < 0)
            throw std::runtime_error("a name is taken");
    _thread = std::thread([this] { _run(); });
}

ScriptedApplication::~ScriptedApplication()
{
    _ending = true;
    _thread.join();
    sd_bus_close_unref(_bus);
}

void ScriptedApplication::_run()
{
    while (!_ending) {
        const int handled = sd_bus_process(_bus, nullptr);
        if (handled < 0)
            return;
        if (handled == 0)
            sd_bus_wait(_bus, 5000);
    }
}

void ScriptedApplication::setInterceptor(std::function<bool(sd_bus_message* call)> interceptor)
{
    const std::lock_guard lock(_mutex);
    _interceptor = std::move(interceptor);
}

void ScriptedApplication::change(const QByteArray& path, const std::function<void(Object&)>& change)
{
    const std::lock_guard lock(_mutex);
    change(_objects[path]);
}

QStringList ScriptedApplication::calls() const
{
    const std::lock_guard lock(_mutex);
    return _calls;
}

int ScriptedApplication::count(const QString& beginning) const
{
    const QStringList all = calls();
    return static_cast<int>(std::count_if(all.cbegin(), all.cend(),
                                          [&](const QString& call) { return call.startsWith(beginning); }));
}

void ScriptedApplication::forgetCalls()
{
    const std::lock_guard lock(_mutex);
    _calls.clear();
}

int ScriptedApplication::_receive(sd_bus_message* call, void* data, sd_bus_error* /*error*/)
{
    std::uint8_t type = 0;
    sd_bus_message_get_type(call, &type);
    if (type != SD_BUS_MESSAGE_METHOD_CALL)
        return 0;
    auto* self = static_cast<ScriptedApplication*>(data);
    const std::lock_guard lock(self->_mutex);
    self->_note(call);
    if (self->_interceptor && self->_interceptor(call))
        return 1;
    return self->_answer(call);
}

void ScriptedApplication::_note(sd_bus_message* call)
{
    QString line = QString::fromLatin1(sd_bus_message_get_member(call));
    const char* interface = nullptr;
    const char* property = nullptr;
    if (line == "Get"_L1 && sd_bus_message_read(call, "ss", &interface, &property) > 0)
        line += u' ' + QString::fromLatin1(property);
    sd_bus_message_rewind(call, 1);
    _calls.append(line + u' ' + QString::fromLatin1(sd_bus_message_get_path(call)));
}

int ScriptedApplication::_answer(sd_bus_message* call)
{
    const QByteArrayView member = sd_bus_message_get_member(call);
    const Object object = _objects.value(sd_bus_message_get_path(call));
    if (member == "Get")
        return _answerProperty(call, object);
    if (member == "GetChildren")
        return _answerChildren(call, object);
    if (member == "GetRole")
        return sd_bus_reply_method_return(call, "u", object.role);
    if (member == "GetState")
        return sd_bus_reply_method_return(call, "au", 2, static_cast<std::uint32_t>(object.states),
                                          static_cast<std::uint32_t>(object.states >> 32U));
    if (member == "GetKeyBinding")
        return sd_bus_reply_method_return(call, "s", object.keyBinding.constData());
    if (member == "GetChildAtIndex") {
        const QByteArray child = object.children.value(0, atspi::NullPath);
        return sd_bus_reply_method_return(call, "(so)", _service.constData(), child.constData());
    }
    if (member == "DoAction")
        return sd_bus_reply_method_return(call, "b", 1);
    return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_UNKNOWN_METHOD, "No such method");
}

int ScriptedApplication::_answerProperty(sd_bus_message* call, const Object& object)
{
    const char* interface = nullptr;
    const char* property = nullptr;
    if (sd_bus_message_read(call, "ss", &interface, &property) <= 0)
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "Two names");
    if (QByteArrayView(property) == "Name")
        return sd_bus_reply_method_return(call, "v", "s", object.name.constData());
    if (QByteArrayView(property) == "ToolkitName")
        return sd_bus_reply_method_return(call, "v", "s", _toolkit.constData());
    return sd_bus_reply_method_return(call, "v", "i", static_cast<int>(object.children.size()));
}

int ScriptedApplication::_answerChildren(sd_bus_message* call, const Object& object)
{
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call, &reply);
    sd_bus_message_open_container(reply, SD_BUS_TYPE_ARRAY, "(so)");
    for (const QByteArray& child : object.children)
        sd_bus_message_append(reply, "(so)", _service.constData(), child.constData());
    sd_bus_message_close_container(reply);
    const int sent = sd_bus_send(nullptr, reply, nullptr);
    sd_bus_message_unref(reply);
    return sent;
}

} // namespace tarnwick
