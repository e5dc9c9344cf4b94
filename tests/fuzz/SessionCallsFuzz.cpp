// SPDX-License-Identifier: MIT
// Calls to the one name on the session bus. A byte that says which method, the signature, a zero byte, the
// body.
#include "platform/linux/session/SessionInstance.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/PeerBus.h"
#include "tests/fuzz/Wire.h"

#include <climits>
#include <cstring>

using namespace tarnwick;

namespace {

constexpr const char* Application = "org.freedesktop.Application";
constexpr const char* Properties = "org.freedesktop.DBus.Properties";
constexpr const char* Path = "/example/quorlane/Tarnwick";

constexpr PeerBus::Call calls[] = {
    {Path, Application, "Activate"}, {Path, Application, "ActivateAction"},
    {Path, Application, "Open"},     {Path, nullptr, "ActivateAction"},
    {Path, Properties, "Get"},       {Path, Properties, "Set"},
    {Path, Properties, "GetAll"},    {Path, Application, "deleteLater"},
    {Path, nullptr, "_request"},
};

struct Made
{
    SessionInstance::Request request;
    FrontHint hint;
};

QList<Made>& requests()
{
    static QList<Made> seen;
    return seen;
}

void publish()
{
    static auto* const instance = [] {
        auto& bus = PeerBus::shared();
        auto* made = new SessionInstance(QDBusConnection(QString())); // nobody to share a name with
        made->setRequested([](SessionInstance::Request request, const FrontHint& hint) {
            requests().append({request, hint});
        });
        require(desktop_names::ObjectPath == QLatin1StringView(Path), "the path is the one that is called");
        require(
            bus.connection().registerObject(desktop_names::ObjectPath, made, QDBusConnection::ExportAllSlots),
            "an object can be published");
        return made;
    }();
    Q_UNUSED(instance)
}

/// The text that comes first; empty when there is none.
QByteArray firstText(sd_bus_message* message)
{
    const char* text = nullptr;
    require(sd_bus_message_rewind(message, 1) >= 0, "a message can be read again");
    return sd_bus_message_read_basic(message, 's', &text) > 0 ? QByteArray(text) : QByteArray();
}

/// Whether there is a variant of this signature in the message's second argument, a list of them.
bool hasOneMap(sd_bus_message* message)
{
    if (sd_bus_message_rewind(message, 1) < 0 || sd_bus_message_skip(message, "s") < 0 ||
        sd_bus_message_enter_container(message, 'a', "v") <= 0)
        return false;
    const char* first = nullptr;
    char type = 0;
    const bool isMap = sd_bus_message_peek_type(message, &type, &first) > 0 && type == 'v' && first &&
                       std::strcmp(first, "a{sv}") == 0;
    return isMap && sd_bus_message_skip(message, "v") > 0 && sd_bus_message_at_end(message, 0) > 0;
}

void checkHint(const FrontHint& hint, sd_bus_message* arguments)
{
    require(hint == FrontHint() || hasOneMap(arguments), "only one map tells anything");
    require(!hint.processIdentifier || (*hint.processIdentifier > 0 && *hint.processIdentifier <= INT_MAX),
            "a process has a positive number");
    require(!hint.title || !hint.title->isEmpty(), "a title is not empty");
}

QString actionOf(SessionInstance::Request request)
{
    switch (request) {
    case SessionInstance::Request::PopUp:
        return desktop_names::PopUpAction;
    case SessionInstance::Request::PopUpByPointer:
        return desktop_names::PopUpByPointerAction;
    case SessionInstance::Request::Search:
        return desktop_names::SearchAction;
    case SessionInstance::Request::Show:
        break;
    }
    return {};
}

void checkRequest(const Made& made, const PeerBus::Call& call, sd_bus_message* arguments)
{
    if (made.request == SessionInstance::Request::Show) {
        require(std::strcmp(call.member, "Activate") == 0, "only an activation shows the preferences");
        require(made.hint == FrontHint(), "which tells nothing of the front");
        return;
    }
    require(std::strcmp(call.member, "ActivateAction") == 0, "only an action opens the menu");
    require(QString::fromUtf8(firstText(arguments)) == actionOf(made.request),
            "and only the one of that name");
    checkHint(made.hint, arguments);
}

void checkCall(const PeerBus::Call& call, sd_bus_message* arguments)
{
    requests().clear();
    if (!PeerBus::shared().call(call, arguments))
        return;
    require(requests().size() <= 1, "one call makes one request");
    for (const Made& made : std::as_const(requests()))
        checkRequest(made, call, arguments);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    publish();
    FuzzInput input(data, size);
    const PeerBus::Call& call = calls[input.choice(std::size(calls))];
    return Wire::shared().feed(input, [&call](sd_bus_message* arguments) { checkCall(call, arguments); });
}
