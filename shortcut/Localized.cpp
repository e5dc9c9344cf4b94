// SPDX-License-Identifier: MIT
#include "shortcut/Localized.h"

#include "shortcut/SRDummyClass.h"

#include <QRegularExpression>

namespace tarnwick {

using namespace Qt::StringLiterals;

QString localized(const char* english)
{
    return SRDummyClass::tr(english);
}

QString filledIn(const QString& format, std::initializer_list<std::optional<QString>> texts)
{
    static const QRegularExpression directive(u"%(?:%|(?:([1-9])\\$)?@)"_s);
    const auto text = [&texts](qsizetype index) {
        const auto* found = index < qsizetype(texts.size()) ? texts.begin() + index : nullptr;
        return found ? found->value_or(u"(null)"_s) : QString();
    };

    QString result;
    qsizetype copied = 0;
    qsizetype next = 0;
    for (auto matches = directive.globalMatch(format); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += QStringView(format).mid(copied, match.capturedStart() - copied);
        copied = match.capturedEnd();
        if (match.capturedView() == u"%%")
            result += u'%';
        else if (match.hasCaptured(1))
            result += text(match.capturedView(1).toInt() - 1);
        else
            result += text(next++);
    }
    result += QStringView(format).mid(copied);
    return result;
}

} // namespace tarnwick
