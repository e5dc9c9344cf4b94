// SPDX-License-Identifier: MIT
#include "tests/macos/DeclaredFunctions.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace tarnwick {

QStringList declaredFunctions()
{
    // A result's type at the beginning of a line, then the name; what a line goes on with is indented.
    static const QRegularExpression declaration(
        u"^(?!using |inline |static |struct |enum |constexpr |return )[A-Za-z_][\\w ]*[ *](\\w+)\\("_s,
        QRegularExpression::MultilineOption);
    QStringList names;
    QDirIterator headers(QStringLiteral(TARNWICK_FRAMEWORKS), {u"*.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        QFile header(headers.next());
        if (!header.open(QIODevice::ReadOnly))
            return {};
        for (const auto& match : declaration.globalMatch(QString::fromUtf8(header.readAll())))
            names.append(match.captured(1));
    }
    for (const QString& uncounted : {u"CFRetain"_s, u"CFRelease"_s, u"__CFStringMakeConstantString"_s})
        names.removeAll(uncounted);
    names.sort();
    return names;
}

} // namespace tarnwick
