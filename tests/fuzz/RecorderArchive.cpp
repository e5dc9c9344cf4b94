// SPDX-License-Identifier: MIT
#include "tests/fuzz/RecorderArchive.h"

#include "foundation/Application.h"
#include "shortcut/KeyboardLayout.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/SRRecorderCell.h"
#include "tests/fakes/FakeDefaultsStore.h"
#include "tests/fakes/FakeKeyboardLayout.h"
#include "tests/fuzz/Fuzzing.h"

#include <QGuiApplication>

namespace tarnwick {

namespace {

QByteArray written(const SRRecorderCell& cell, Archive::Form form)
{
    Archive archive(form);
    cell.encodeWithCoder(archive);
    return archive.data();
}

} // namespace

void prepareRecorder()
{
    static int argumentCount = 0;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(argumentCount, nullptr);
    static FakeDefaultsStore store;
    static FakeKeyboardLayout keyboard;
    DefaultsStore::setShared(&store);
    KeyboardLayout::setShared(&keyboard);
}

void checkRecorder(const Archive& archive)
{
    const Archive::Form form = archive.allowsKeyedCoding() ? Archive::Form::Keyed : Archive::Form::Unkeyed;
    Archive read = archive;
    const SRRecorderCell cell(read);
    require(cell.keyCombo().code >= -0x8000 && cell.keyCombo().code <= 0x7FFF, "a key code has 16 bits");
    require(cell.style() == 0 || cell.style() == 1, "a style is one of the two");
    require((cell.allowedFlags() & FunctionKeyMask) != 0, "function keys can be recorded");
    require(!cell.isRecording(), "a cell that is made does not record");
    require(cell.keyComboString().has_value() == !cell.isEmpty(), "a cell says what it holds");

    const QByteArray data = written(cell, form);
    Archive again = Archive::fromData(data);
    require(again.allowsKeyedCoding() == archive.allowsKeyedCoding(), "an archive keeps its form");
    const SRRecorderCell other(again);
    require(written(other, form) == data, "a cell that is made from what it wrote writes the same");
    require(other.keyCombo() == cell.keyCombo() && other.keyChars() == cell.keyChars() &&
                other.autosaveName() == cell.autosaveName(),
            "a cell that is made from what it wrote is the same");
}

} // namespace tarnwick
