// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QTranslator>

namespace tarnwick {

/// The texts of the program, and those of Qt's own dialogs, in the language of `locale` for as long as this
/// lives; what has no translation stays English. To be made after the application and before any window.
class Translations
{
public:
    explicit Translations(const QLocale& locale = QLocale());
    Translations(const Translations&) = delete;
    Translations& operator=(const Translations&) = delete;

private:
    QTranslator _qt;
    QTranslator _own;
};

} // namespace tarnwick
