// SPDX-License-Identifier: MIT
// What windows say of themselves and of each other. Each line lays one thing down: a byte that says of which
// window, one that says what, one that says in which form, the rest.
#include "platform/linux/x11/X11Windows.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/fuzz/WindowTable.h"

#include <QSet>

#include <algorithm>
#include <limits>

using namespace tarnwick;

namespace {

constexpr int Windows = 6; // the root is the first

constexpr const char* properties[] = {
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_SUPPORTED",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_PID",
    "_NET_WM_NAME",
    "WM_NAME",
    "WM_CLASS",
    "WM_STATE",
    "WM_CLIENT_MACHINE",
    "WM_TRANSIENT_FOR",
    "_GTK_APPLICATION_ID",
};

X11Connection& connection()
{
    static char anything = 0; // nobody looks into it
    static X11Connection x11(reinterpret_cast<xcb_connection_t*>(&anything));
    return x11;
}

/// A byte stands for one number of 32 bits: small ones are windows and atoms, the largest byte the largest.
QByteArray numbersOf(QByteArrayView bytes)
{
    QByteArray numbers;
    for (const char byte : bytes) {
        const auto small = static_cast<quint8>(byte);
        const quint32 number = small < 0xF0 ? small : std::numeric_limits<quint32>::max() >> (0xFF - small);
        numbers.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    return numbers;
}

void layDown(QByteArrayView line)
{
    FuzzInput input(reinterpret_cast<const std::uint8_t*>(line.data()),
                    static_cast<std::size_t>(line.size()));
    auto& table = WindowTable::shared();
    auto& window = table.windows[static_cast<xcb_window_t>(1 + input.choice(Windows))];
    const auto what = static_cast<std::size_t>(input.choice(std::size(properties) + 5));
    if (what < std::size(properties)) {
        constexpr quint8 formats[] = {8, 32, 16};
        const quint8 format = formats[input.choice(3)];
        window.properties[WindowTable::atom(properties[what])] = {
            format, format == 32 ? numbersOf(input.rest()) : input.rest().toByteArray()};
    } else if (what == std::size(properties)) {
        window.mapped = input.flag();
    } else if (what == std::size(properties) + 1) {
        window.overrideRedirect = input.flag();
    } else if (what == std::size(properties) + 2) {
        window.parent = input.byte();
    } else if (what == std::size(properties) + 3) {
        window.process = input.byte();
    } else {
        table.focus = input.byte();
    }
}

void checkProcess(const std::optional<qint64>& process)
{
    require(!process || (*process > 0 && *process <= std::numeric_limits<pid_t>::max()),
            "a process identifier is one");
}

void checkWindow(X11Windows& windows, xcb_window_t window)
{
    const auto title = windows.title(window);
    require(!title || title->isValidUtf16(), "a title is a text");
    for (const QString& name : windows.applicationNames(window))
        require(!name.isEmpty() && name.isValidUtf16(), "a name is a text");
    const auto process = windows.processIdentifier(window);
    checkProcess(process);
    const auto chain = windows.withOwners(window);
    require(chain.value(0) == window && chain.size() <= 32, "a window comes before its owners");
    require(QSet<xcb_window_t>(chain.cbegin(), chain.cend()).size() == chain.size(), "no owner comes twice");
    require(!chain.contains(XCB_WINDOW_NONE), "an owner is a window");
    if (process)
        for (const xcb_window_t other : windows.windowsOf(*process))
            require(windows.processIdentifier(other) == process, "a process' windows are its own");
}

void checkFront(X11Windows& windows)
{
    const auto front = windows.front();
    require(windows.front() == front, "what was seen before makes no difference");
    X11Windows others(connection());
    require(others.front() == front, "nor for whom it was");
    require(others.managed() == windows.managed(), "nor for whether there is a window manager");
    if (!front || !*front)
        return;
    const auto& table = WindowTable::shared().windows;
    const auto found = table.constFind(front->id);
    require(found != table.cend() && found->mapped && !found->overrideRedirect,
            "the front window is there to be seen");
    checkProcess(front->processIdentifier);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& table = WindowTable::shared();
    table = {};
    table.windows[WindowTable::Root].parent = XCB_WINDOW_NONE;
    FuzzInput input(data, size);
    while (!input.atEnd())
        layDown(input.until('\n'));
    X11Windows windows(connection());
    checkFront(windows);
    for (xcb_window_t window = WindowTable::Root; window <= Windows; ++window)
        checkWindow(windows, window);
    require(windows.managerName().isValidUtf16(), "a window manager's name is a text");
    return 0;
}
