// SPDX-License-Identifier: MIT
#include "search/FoldedText.h"

#include <QChar>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <iterator>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// What decomposition leaves as it is and a person types in another way.
struct Replacement
{
    char32_t from;
    const char16_t* to;
};
constexpr Replacement Replacements[] = {
    {U'ß', u"ss"},          {U'æ', u"ae"},     {U'ð', u"d"},           {U'ø', u"o"},       {U'þ', u"th"},
    {U'đ', u"d"},           {U'ħ', u"h"},      {U'ı', u"i"},           {U'ł', u"l"},       {U'œ', u"oe"},
    {U'ŧ', u"t"},           {U'\u02BC', u"'"}, {U'\u0629', u"\u0647"}, // Arabic: teh marbuta as heh
    {U'\u0649', u"\u064A"}, // alef maqsura, and Persian yeh, as yeh
    {U'\u06A9', u"\u0643"}, // Persian kaf as kaf
    {U'\u06CC', u"\u064A"}, {U'\u2018', u"'"}, {U'\u2019', u"'"},      {U'\u201C', u"\""}, {U'\u201D', u"\""},
    {U'\u201E', u"\""},     {U'\u2044', u"/"},
};

/// Marks that a reader can do without. Those of Indian scripts are vowels.
constexpr struct
{
    char32_t first;
    char32_t last;
} PassedOver[] = {
    {0x00AD, 0x00AD}, {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD},   {0x05BF, 0x05BF},
    {0x05C1, 0x05C2}, {0x05C4, 0x05C5}, {0x05C7, 0x05C7}, {0x0610, 0x061A},   {0x061C, 0x061C},
    {0x0640, 0x0640}, {0x064B, 0x065F}, {0x0670, 0x0670}, {0x06D6, 0x06DC},   {0x06DF, 0x06E4},
    {0x06E7, 0x06E8}, {0x06EA, 0x06ED}, {0x0711, 0x0711}, {0x0730, 0x074A},   {0x1AB0, 0x1AFF},
    {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x206F},   {0x20D0, 0x20FF},
    {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}, {0xE0100, 0xE01EF},
};

constexpr uint KanaVoiced = 0x3099;
constexpr uint KanaHalfVoiced = 0x309A;

bool isPassedOver(char32_t character)
{
    return character >= PassedOver[0].first &&
           std::any_of(std::begin(PassedOver), std::end(PassedOver), [character](const auto& range) {
               return character >= range.first && character <= range.last;
           });
}

bool isSpace(char32_t character)
{
    return QChar::isSpace(character) || QChar::category(character) == QChar::Other_Control;
}

/// Between the parts of a word, or in front of the letter that is its mnemonic.
bool isMark(char32_t character)
{
    constexpr char32_t MinusSign = 0x2212;
    return character == U'&' || character == U'_' || character == MinusSign ||
           QChar::category(character) == QChar::Punctuation_Dash;
}

bool isOfEastAsia(char32_t character)
{
    const auto script = QChar::script(character);
    return script == QChar::Script_Han || script == QChar::Script_Hiragana ||
           script == QChar::Script_Katakana || script == QChar::Script_Hangul ||
           character == 0x30FC; // the prolonged sound mark, which belongs to several
}

bool isEllipsisOrColon(QChar character)
{
    return character == u'.' || character == u'\u2026' || character == u':' || character == u' ';
}

/// Where no Latin letter is in a title its mnemonic stands behind it, in parentheses.
TextRange mnemonicBehind(QStringView title)
{
    qsizetype end = title.size();
    while (end > 0 && isEllipsisOrColon(title.at(end - 1)))
        --end;
    if (end < 4 || title.at(end - 1) != u')')
        return {};
    const QChar letter = title.at(end - 2);
    if (letter.unicode() >= 0x80 || !letter.isLetterOrNumber())
        return {};
    qsizetype begin = end - 3;
    if (isMark(title.at(begin).unicode()))
        --begin;
    if (begin < 1 || title.at(begin) != u'(')
        return {};
    const qsizetype before = begin - 1;
    const bool pair =
        title.at(before).isLowSurrogate() && before > 0 && title.at(before - 1).isHighSurrogate();
    const char32_t last = pair ? QChar::surrogateToUcs4(title.at(before - 1), title.at(before))
                               : char32_t{title.at(before).unicode()};
    return isOfEastAsia(last) ? TextRange{begin, end} : TextRange{};
}

/// Folds one text from its begin to its end.
class Folder
{
public:
    Folder(const QString& text, bool keepsMarks, QList<TextRange>* sources)
        : _text(text), _keepsMarks(keepsMarks), _sources(sources)
    {
        _folded.text.reserve(text.size());
        _folded.wordStarts.reserve(text.size());
    }

    FoldedText fold()
    {
        const TextRange mnemonic = _keepsMarks ? TextRange() : mnemonicBehind(_text);
        const bool plain = std::all_of(_text.cbegin(), _text.cend(),
                                       [](QChar character) { return character.unicode() < 0x80; });
        if (plain) {
            for (_source = {0, 1}; _source.begin < _text.size(); ++_source.begin, ++_source.end)
                _take(_text.at(_source.begin).unicode());
        } else {
            _takeCharacters(mnemonic);
        }
        _endDots();
        return std::move(_folded);
    }

private:
    void _takeCharacters(TextRange leftOut)
    {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, _text);
        while (_source.end < _text.size()) {
            const qsizetype next = finder.toNextBoundary();
            _source = {_source.end, next > _source.end ? next : _text.size()};
            if (_source.begin >= leftOut.begin && _source.end <= leftOut.end)
                continue;
            const QString character = _text.sliced(_source.begin, _source.end - _source.begin);
            auto points = character.normalized(QString::NormalizationForm_KD).toUcs4();
            // What sounds of kana are written with is no accent: "ga" does not begin with "ka".
            if (points.contains(KanaVoiced) || points.contains(KanaHalfVoiced))
                points = character.normalized(QString::NormalizationForm_KC).toUcs4();
            for (const char32_t point : std::as_const(points))
                _take(point);
        }
    }

    void _take(char32_t character)
    {
        if (isPassedOver(character))
            return;
        if (character == U'.' && !_keepsMarks) {
            _dots.append(_source);
            return;
        }
        _endDots();
        if (isSpace(character)) {
            _noteSpace();
        } else if (!_keepsMarks && (isMark(character) || character == 0x22EF)) {
            _wordBegins = true;
        } else {
            _addLetter(character);
        }
    }

    /// One full stop is one; several are an ellipsis.
    void _endDots()
    {
        if (_dots.isEmpty())
            return;
        if (_dots.size() == 1)
            _add(u".", _dots.first());
        _dots.clear();
        _wordBegins = true;
    }

    void _noteSpace()
    {
        if (!_spaceBefore && !_folded.text.isEmpty()) {
            _spaceBefore = true;
            _space = _source;
        }
        _wordBegins = true;
    }

    void _addLetter(char32_t character)
    {
        // "JavaScript" is two words to who types their initials.
        if (QChar::isUpper(character) && _afterLowerCase)
            _wordBegins = true;
        const char32_t folded = QChar::toCaseFolded(character);
        const auto* const replacement =
            std::find_if(std::begin(Replacements), std::end(Replacements),
                         [folded](const Replacement& each) { return each.from == folded; });
        if (folded >= 0x80 && replacement != std::end(Replacements))
            _add(replacement->to, _source);
        else
            _add(QChar::fromUcs4(folded), _source);
        _afterLowerCase = QChar::isLower(character);
        _wordBegins = !QChar::isLetterOrNumber(character) && !QChar::isMark(character);
    }

    void _add(QStringView units, TextRange source)
    {
        if (_spaceBefore)
            _append(u' ', false, _space);
        _spaceBefore = false;
        for (qsizetype i = 0; i < units.size(); ++i)
            _append(units.at(i), i == 0 && _wordBegins, source);
    }

    void _append(QChar unit, bool beginsWord, TextRange source)
    {
        _folded.text.append(unit);
        _folded.wordStarts.append(beginsWord ? '\1' : '\0');
        if (_sources)
            _sources->append(source);
    }

    const QString& _text;
    bool _keepsMarks;
    QList<TextRange>* _sources;
    FoldedText _folded;
    TextRange _source;      ///< of what is taken now
    QList<TextRange> _dots; ///< those that have come last
    TextRange _space;       ///< the first of those that have come last
    bool _spaceBefore = false;
    bool _wordBegins = true;
    bool _afterLowerCase = false;
};

FoldedText fold(const QString& text, QList<TextRange>* sources)
{
    FoldedText folded = Folder(text, false, sources).fold();
    return folded.text.isEmpty() ? Folder(text, true, sources).fold() : folded;
}

} // namespace

FoldedText foldedText(const QString& text)
{
    return fold(text, nullptr);
}

QList<TextRange> sourcesOfFoldedText(const QString& text)
{
    QList<TextRange> sources;
    fold(text, &sources);
    return sources;
}

} // namespace tarnwick
