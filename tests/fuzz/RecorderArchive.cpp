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

int checkRecorder(const std::uint8_t* data, std::size_t size, Archive::Form form)
{
    const bool keyed = form == Archive::Form::Keyed;
    Archive archive =
        Archive::fromData(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (archive.allowsKeyedCoding() != keyed)
        return -1;
    const SRRecorderCell cell(archive);
    require(cell.keyCombo().code >= -0x8000 && cell.keyCombo().code <= 0x7FFF, "a key code has 16 bits");
    require(cell.style() == 0 || cell.style() == 1, "a style is one of the two");
    require((cell.allowedFlags() & FunctionKeyMask) != 0, "function keys can be recorded");
    require(!cell.isRecording(), "a cell that is made does not record");
    require(cell.keyComboString().has_value() == !cell.isEmpty(), "a cell says what it holds");

    const QByteArray once = written(cell, form);
    Archive again = Archive::fromData(once);
    require(again.allowsKeyedCoding() == keyed, "an archive keeps its form");
    const SRRecorderCell other(again);
    require(written(other, form) == once, "a cell that is made from what it wrote writes the same");
    require(other.keyCombo() == cell.keyCombo() && other.keyChars() == cell.keyChars() &&
                other.autosaveName() == cell.autosaveName(),
            "a cell that is made from what it wrote is the same");
    return 0;
}

} // namespace tarnwick

/// Sets up what a cell needs around it.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    using namespace tarnwick;
    static int argumentCount = 0;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(argumentCount, nullptr);
    static FakeDefaultsStore store;
    static FakeKeyboardLayout keyboard;
    DefaultsStore::setShared(&store);
    KeyboardLayout::setShared(&keyboard);
    return 0;
}
