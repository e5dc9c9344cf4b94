// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>

#include <clocale>
#include <cstdio>
#include <locale>
#include <string>

namespace tarnwick {

/// While it lives the process speaks German, with its decimal comma: de_DE.UTF-8 is made for the occasion
/// where the machine has none.
class CommaLocale
{
public:
    CommaLocale() : _before(std::setlocale(LC_ALL, nullptr))
    {
        if (!std::setlocale(LC_ALL, "de_DE.UTF-8") && _make())
            std::setlocale(LC_ALL, "de_DE.UTF-8");
        std::locale::global(std::locale(std::locale::classic(), new Punctuation)); // the locale owns it
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    ~CommaLocale()
    {
        std::locale::global(std::locale::classic());
        qunsetenv("LOCPATH");
        std::setlocale(LC_ALL, _before.c_str());
        QLocale::setDefault(QLocale::system());
    }

    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    static constexpr const char* whyMissing = "de_DE.UTF-8 is not installed, and localedef could not make it";

    /// Whether a test that cannot have the locale fails instead of being skipped.
    [[nodiscard]] static bool required() { return qEnvironmentVariableIsSet("TARNWICK_REQUIRE_TOOLS"); }

    /// Whether the C library really prints a comma.
    [[nodiscard]] bool inEffect() const
    {
        char text[8] = {};
        std::snprintf(text, sizeof text, "%g", 1.5);
        return std::string(text) == "1,5";
    }

private:
    class Punctuation final : public std::numpunct<char>
    {
        [[nodiscard]] char do_decimal_point() const override { return ','; }
        [[nodiscard]] char do_thousands_sep() const override { return '.'; }
        [[nodiscard]] std::string do_grouping() const override { return "\3"; }
    };

    bool _make()
    {
        const QString name = QStringLiteral("de_DE.UTF-8");
        const bool made =
            QProcess::execute(QStringLiteral("localedef"),
                              {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                               QStringLiteral("UTF-8"), _folder.filePath(name)}) == 0;
        qputenv("LOCPATH", _folder.path().toLocal8Bit());
        return made;
    }

    QTemporaryDir _folder;
    std::string _before;
};

} // namespace tarnwick
