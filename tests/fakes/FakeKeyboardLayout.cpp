// SPDX-License-Identifier: MIT
#include "tests/fakes/FakeKeyboardLayout.h"

#include <iterator>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 ShiftState = 0x200;
constexpr quint16 KeyCodes = 128;

/// What one key types alone and with Shift, on each layout in turn: us, de, fr, jp.
struct Key
{
    quint16 code;
    const char16_t* characters;
};

constexpr Key Keys[] = {
    {0, u"aAaAqQaA"},
    {1, u"sSsSsSsS"},
    {2, u"dDdDdDdD"},
    {3, u"fFfFfFfF"},
    {4, u"hHhHhHhH"},
    {5, u"gGgGgGgG"},
    {6, u"zZyYwWzZ"},
    {7, u"xXxXxXxX"},
    {8, u"cCcCcCcC"},
    {9, u"vVvVvVvV"},
    {10, u"<><><><>"},
    {11, u"bBbBbBbB"},
    {12, u"qQqQaAqQ"},
    {13, u"wWwWzZwW"},
    {14, u"eEeEeEeE"},
    {15, u"rRrRrRrR"},
    {16, u"yYzZyYyY"},
    {17, u"tTtTtTtT"},
    {18, u"1!1!&11!"},
    {19, u"2@2\"\u00E922\""},
    {20, u"3#3\u00A7\"33#"},
    {21, u"4$4$'44$"},
    {22, u"6^6&-66&"},
    {23, u"5%5%(55%"},
    {24, u"=+\u00B4`=+^~"},
    {25, u"9(9)\u00E799)"},
    {26, u"7&7/\u00E877'"},
    {27, u"-_\u00DF?)\u00B0-="},
    {28, u"8*8(_88("},
    {29, u"0)0=\u00E000~"},
    {30, u"]}+*$\u00A3[{"},
    {31, u"oOoOoOoO"},
    {32, u"uUuUuUuU"},
    {33, u"[{\u00FC\u00DC^\u00A8@`"},
    {34, u"iIiIiIiI"},
    {35, u"pPpPpPpP"},
    {36, u"\r\r\r\r\r\r\r\r"},
    {37, u"lLlLlLlL"},
    {38, u"jJjJjJjJ"},
    {39, u"'\"\u00E4\u00C4\u00F9%:*"},
    {40, u"kKkKkKkK"},
    {41, u";:\u00F6\u00D6mM;+"},
    {42, u"\\|#'*\u00B5]}"},
    {43, u",<,;;.,<"},
    {44, u"/?-_!\u00A7/?"},
    {45, u"nNnNnNnN"},
    {46, u"mMmM,?mM"},
    {47, u".>.::/.>"},
    {49, u"        "},
    {48, u"\t\t\t\t\t\t\t\t"},
    {65, u"..,,...."},
    {82, u"00000000"},
    {83, u"11111111"},
    {84, u"22222222"},
    {85, u"33333333"},
    {86, u"44444444"},
    {87, u"55555555"},
    {88, u"66666666"},
    {89, u"77777777"},
    {91, u"88888888"},
    {92, u"99999999"},
    {51, u"\b\b\b\b\b\b\b\b"},
    {53, u"\u001B\u001B\u001B\u001B\u001B\u001B\u001B\u001B"},
    {67, u"********"},
    {69, u"++++++++"},
    {75, u"////////"},
    {76, u"\r\r\r\r\r\r\r\r"},
    {78, u"--------"},
    {81, u"========"},
    {95, u"........"},
    {117, u"\u007F\u007F\u007F\u007F\u007F\u007F\u007F\u007F"},
};

/// Keys that type nothing on some layouts.
struct SparseKey
{
    quint16 code;
    const char16_t* alone[4];
    const char16_t* shifted[4];
};

constexpr SparseKey SparseKeys[] = {
    {50, {u"`", u"^", u"\u00B2", u""}, {u"~", u"\u00B0", u"~", u""}},
    {93, {u"", u"", u"", u"\\"}, {u"", u"", u"", u"|"}},
    {94, {u"", u"", u"", u"\\"}, {u"", u"", u"", u"_"}},
};

QString charactersOf(quint16 code, int layout, bool shift)
{
    for (const Key& key : Keys) {
        if (key.code == code)
            return QString(QChar(key.characters[2 * layout + (shift ? 1 : 0)]));
    }
    for (const SparseKey& key : SparseKeys) {
        if (key.code == code)
            return QString::fromUtf16(shift ? key.shifted[layout] : key.alone[layout]);
    }
    return u""_s;
}

} // namespace

class FakeKeyboardLayout::KeyTable final : public UnicodeKeyLayout
{
public:
    explicit KeyTable(const FakeKeyboardLayout& keyboard) : _keyboard(keyboard) {}

    [[nodiscard]] std::optional<QString> keyTranslate(quint16 virtualKeyCode, quint16 keyAction,
                                                      quint32 modifierKeyState, quint32 keyboardType,
                                                      quint32 options, quint32& deadKeyState) const override
    {
        _keyboard.asked.append(
            {virtualKeyCode, keyAction, modifierKeyState, keyboardType, options, deadKeyState});
        return _keyboard._translate(virtualKeyCode, modifierKeyState);
    }

private:
    const FakeKeyboardLayout& _keyboard;
};

void FakeKeyboardLayout::select(Layout layout)
{
    _layout = layout;
    const auto observers = _observers;
    for (const auto& observer : observers)
        observer();
}

void FakeKeyboardLayout::reset()
{
    inputSourceMissing = false;
    refuses = false;
    typed.clear();
    select(Us);
    asked.clear();
}

std::unique_ptr<KeyboardLayout::UnicodeKeyLayout> FakeKeyboardLayout::copyCurrentKeyboardInputSource() const
{
    return inputSourceMissing ? nullptr : std::make_unique<KeyTable>(*this);
}

void FakeKeyboardLayout::addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed)
{
    _observers.append(std::move(changed));
}

std::optional<QString> FakeKeyboardLayout::_translate(quint16 virtualKeyCode, quint32 modifierKeyState) const
{
    if (refuses || virtualKeyCode >= KeyCodes)
        return std::nullopt;
    const auto set = typed.constFind({virtualKeyCode, modifierKeyState});
    if (set != typed.cend())
        return set->left(4);
    return charactersOf(virtualKeyCode, _layout, (modifierKeyState & ShiftState) != 0);
}

} // namespace tarnwick
