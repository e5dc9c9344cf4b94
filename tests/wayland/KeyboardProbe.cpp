// SPDX-License-Identifier: MIT
// Writes what two keys type on the layout that the compositor tells, at the start and after each change that
// is told, and when its window gets and loses the keyboard. With --hidden it has no window.
#include "platform/linux/wayland/CompositorConnection.h"
#include "platform/linux/wayland/WaylandKeyboard.h"
#include "platform/linux/wayland/WaylandKeyboardLayout.h"

#include <QApplication>
#include <QWidget>

#include <cstdio>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

QString typed(const KeyboardLayout& layout, quint16 keyCode, quint32 state = 0)
{
    quint32 deadKeys = 0;
    const auto source = layout.copyCurrentKeyboardInputSource();
    return source ? source->keyTranslate(keyCode, 3, state, layout.keyboardType(), 0, deadKeys)
                        .value_or(u"(failed)"_s)
                  : u"(no layout)"_s;
}

void write(const QString& line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

void tell(const KeyboardLayout& layout)
{
    constexpr quint16 keyA = 0;
    constexpr quint16 keyZ = 6;
    constexpr quint32 shift = 0x200;
    write(u"types %1%2 %3%4"_s.arg(typed(layout, keyA), typed(layout, keyZ), typed(layout, keyA, shift),
                                   typed(layout, keyZ, shift)));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto keyboard = std::make_shared<WaylandKeyboard>(CompositorConnection::ofToolkit());
    WaylandKeyboardLayout layout(keyboard);
    layout.addSelectedKeyboardInputSourceChangedObserver([&] { tell(layout); });
    QObject::connect(keyboard.get(), &WaylandKeyboard::focusChanged,
                     [&] { write(keyboard->focus() ? u"focus in"_s : u"focus out"_s); });
    QWidget window;
    window.resize(300, 200);
    if (!QCoreApplication::arguments().contains(u"--hidden"_s))
        window.show();
    return QApplication::exec();
}
