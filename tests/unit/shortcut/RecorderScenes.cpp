// SPDX-License-Identifier: MIT
#include "tests/unit/shortcut/RecorderScenes.h"

#include "shortcut/SRRecorderCell.h"
#include "shortcut/SRSharedImageProvider.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeEventSource.h"
#include "tests/fakes/FakeRecorderCellView.h"

#include <QPainter>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int Width = 180;
constexpr int Height = 22;
constexpr int Margin = 3;

/// What is done with a fresh recorder so that it shows the state.
struct State
{
    const char16_t* name;
    std::function<void(SRRecorderCell&, FakeRecorderCellView&)> reach;
};

Event keyEvent(quint16 code, quint64 flags, const QString& characters)
{
    Event event;
    event.type = Event::Type::KeyDown;
    event.keyCode = code;
    event.modifierFlags = flags;
    event.characters = characters;
    event.charactersIgnoringModifiers = characters;
    return event;
}

void setCombination(SRRecorderCell& cell)
{
    cell.setKeyCombo({ControlKeyMask | AlternateKeyMask | CommandKeyMask, 6});
}

FakeClock& fakeClock()
{
    return static_cast<FakeClock&>(Clock::shared());
}

void record(SRRecorderCell& cell)
{
    cell.performKeyEquivalent(keyEvent(49, 0, u" "_s));
    fakeClock().advance(1);
}

void hold(SRRecorderCell& cell, quint64 flags)
{
    Event held;
    held.type = Event::Type::FlagsChanged;
    held.modifierFlags = flags;
    cell.flagsChanged(held);
}

/// Presses at the button, which is at the end of the field, and draws while the mouse is down.
void pressButton(SRRecorderCell& cell, FakeRecorderCellView& view)
{
    cell.mouseEntered({});
    Event down;
    down.type = Event::Type::LeftMouseDown;
    down.locationInWindow = view.inWindow({Width - 10.0, 11});
    cell.trackMouseInRectOfViewUntilMouseUp(down, view.frame, view, true);
}

/// The same, and the mouse has left the button since.
void dragOffButton(SRRecorderCell& cell, FakeRecorderCellView& view)
{
    Event dragged;
    dragged.type = Event::Type::LeftMouseDragged;
    dragged.locationInWindow = view.inWindow({Width / 2.0, 11});
    static_cast<FakeEventSource&>(EventSource::shared()).events = {dragged};
    pressButton(cell, view);
}

void advanceTransition(int ticks)
{
    fakeClock().advance(ticks * double(1.0F / 30.0F) + 0.001);
}

QList<State> states()
{
    return {
        {u"idle", [](auto& cell, auto&) { setCombination(cell); }},
        {u"empty", [](auto&, auto&) {}},
        {u"focused",
         [](auto& cell, auto& view) {
             setCombination(cell);
             view.firstResponder = true;
         }},
        {u"empty-focused", [](auto&, auto& view) { view.firstResponder = true; }},
        {u"disabled",
         [](auto& cell, auto&) {
             setCombination(cell);
             cell.setEnabled(false);
         }},
        {u"empty-disabled", [](auto& cell, auto&) { cell.setEnabled(false); }},
        {u"over-remove",
         [](auto& cell, auto&) {
             setCombination(cell);
             cell.mouseEntered({});
         }},
        {u"pressed-remove",
         [](auto& cell, auto& view) {
             setCombination(cell);
             pressButton(cell, view);
         }},
        {u"dragged-off-remove",
         [](auto& cell, auto& view) {
             setCombination(cell);
             dragOffButton(cell, view);
         }},
        {u"recording",
         [](auto& cell, auto& view) {
             setCombination(cell);
             view.firstResponder = true;
             record(cell);
         }},
        {u"recording-modifiers",
         [](auto& cell, auto& view) {
             setCombination(cell);
             view.firstResponder = true;
             record(cell);
             hold(cell, ShiftKeyMask | CommandKeyMask);
         }},
        {u"over-snapback",
         [](auto& cell, auto& view) {
             setCombination(cell);
             view.firstResponder = true;
             record(cell);
             cell.mouseEntered({});
         }},
        {u"pressed-snapback",
         [](auto& cell, auto& view) {
             setCombination(cell);
             view.firstResponder = true;
             record(cell);
             pressButton(cell, view);
         }},
    };
}

/// Of style 1 only.
QList<State> transitions()
{
    const auto towards = [](int ticks) {
        return [ticks](SRRecorderCell& cell, FakeRecorderCellView& view) {
            setCombination(cell);
            view.firstResponder = true;
            cell.performKeyEquivalent(keyEvent(49, 0, u" "_s));
            advanceTransition(ticks);
        };
    };
    const auto away = [](int ticks) {
        return [ticks](SRRecorderCell& cell, FakeRecorderCellView& view) {
            view.firstResponder = true;
            record(cell);
            cell.performKeyEquivalent(keyEvent(7, ControlKeyMask, u"x"_s));
            advanceTransition(ticks);
        };
    };
    return {{u"towards-recording-3", towards(3)},
            {u"towards-recording-5", towards(5)},
            {u"towards-recording-8", towards(8)},
            {u"away-from-recording-5", away(5)}};
}

QImage canvas(const QSize& points, double scale, const QColor& ground)
{
    QImage image((QSizeF(points) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(ground);
    return image;
}

QImage drawn(const State& state, int style, const QPalette& palette, double scale, bool rightToLeft)
{
    FakeRecorderCellView view;
    view.frame = {0, 0, Width, Height};
    view.colors = palette;
    view.rightToLeft = rightToLeft;
    SRRecorderCell cell;
    cell.setControlView(&view);
    cell.setStyle(style);
    cell.setAnimates(true);
    NotificationCenter::defaultCenter().postNotificationName(SystemColorsDidChangeNotification, nullptr);
    state.reach(cell, view);

    QImage image = canvas({Width + 2 * Margin, Height + 2 * Margin}, scale, palette.color(QPalette::Window));
    QPainter painter(&image);
    painter.translate(Margin, Margin);
    cell.drawWithFrameInView(view.frame, painter, view);
    return image;
}

QImage drawnImage(const QString& name, double scale)
{
    const QColor middleGrey(0x60, 0x78, 0x98);
    QImage image = canvas({20, 20}, scale, middleGrey);
    QPainter painter(&image);
    SRSharedImageProvider::supportingImageWithName(name)->draw(painter, QRectF(3, 3, 14, 14), 1.0);
    return image;
}

QString scaleSuffix(double scale)
{
    return scale == 1 ? QString() : u"@%1x"_s.arg(scale);
}

RecorderScene scene(const State& state, int style, bool dark, double scale, bool rightToLeft)
{
    const QString name = u"recorder-style%1-%2-%3%4%5"_s.arg(
        QString::number(style), dark ? u"dark"_s : u"light"_s, QString::fromUtf16(state.name),
        rightToLeft ? u"-rtl"_s : QString(), scaleSuffix(scale));
    return {name,
            [=] { return drawn(state, style, dark ? darkPalette() : lightPalette(), scale, rightToLeft); }};
}

QColor rgb(QRgb value)
{
    return QColor(value);
}

QPalette palette(const QColor& window, const QColor& base, const QColor& button, const QColor& text,
                 const QColor& dimText, const QColor& highlight)
{
    QPalette made(button, window);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor ink = group == QPalette::Disabled ? dimText : text;
        made.setColor(group, QPalette::Window, window);
        made.setColor(group, QPalette::WindowText, ink);
        made.setColor(group, QPalette::Base, base);
        made.setColor(group, QPalette::Text, ink);
        made.setColor(group, QPalette::Button, button);
        made.setColor(group, QPalette::ButtonText, ink);
        made.setColor(group, QPalette::Highlight, highlight);
        made.setColor(group, QPalette::HighlightedText, Qt::white);
    }
    return made;
}

} // namespace

QPalette lightPalette()
{
    return palette(rgb(0xF2F2F2), rgb(0xFFFFFF), rgb(0xE8E8E8), rgb(0x1A1A1A), rgb(0xA0A0A0), rgb(0x3584E4));
}

QPalette darkPalette()
{
    return palette(rgb(0x2A2A2E), rgb(0x1D1D20), rgb(0x3A3A40), rgb(0xF0F0F0), rgb(0x7A7A80), rgb(0x3584E4));
}

QList<RecorderScene> recorderScenes()
{
    QList<RecorderScene> scenes;
    for (const int style : {0, 1}) {
        const QList<State> all = style == 1 ? states() + transitions() : states();
        for (const bool dark : {false, true}) {
            for (const State& state : all)
                scenes.append(scene(state, style, dark, 2, false));
        }
        for (const State& state : states()) {
            const QString name = QString::fromUtf16(state.name);
            if (name != u"idle" && name != u"recording")
                continue;
            for (const double scale : {1.0, 1.5, 3.0})
                scenes.append(scene(state, style, false, scale, false));
            scenes.append(scene(state, style, false, 2, true));
        }
    }
    for (const auto& name : {u"SRRemoveShortcut"_s, u"SRRemoveShortcutRollover"_s,
                             u"SRRemoveShortcutPressed"_s, u"SRSnapback"_s}) {
        for (const double scale : {1.0, 1.5, 2.0, 3.0})
            scenes.append({name + scaleSuffix(scale), [=] { return drawnImage(name, scale); }});
    }
    return scenes;
}

} // namespace tarnwick
