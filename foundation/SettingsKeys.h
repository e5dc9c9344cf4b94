// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The keys of the user's settings.
namespace tarnwick {

inline const QString TWEnableHotKeyKey = QStringLiteral("EnableHotkey");
inline const QString TWTriggerKey = QStringLiteral("NewTrigger");
inline const QString TWTriggerCharacterKey = QStringLiteral("TriggerCharacterUInt");
inline const QString TWTriggerModifiersKey = QStringLiteral("TriggerModifiers");
inline const QString TWFoldAlternateKey = QStringLiteral("FoldAlternate");
inline const QString TWShowKeyEquivalentsKey = QStringLiteral("ShowKeyEquivalents");
inline const QString TWShowAppleMenuKey = QStringLiteral("ShowAppleMenu");
inline const QString TWShowStatusBarIconKey = QStringLiteral("ShowStatusBarIcon");
inline const QString TWShowTarnwickMenuKey = QStringLiteral("ShowTarnwickMenu");
inline const QString TWLaunchOnLoginKey = QStringLiteral("LaunchOnLogin");
inline const QString TWFontSizeSmallKey = QStringLiteral("FontSizeSmall");
inline const QString TWTitleFontSizeSmallKey = QStringLiteral("TitleFontSizeSmall");
inline const QString TWShowApplicationMenuKey = QStringLiteral("ShowApplicationMenu");
inline const QString TWEnableMouseButtonKey = QStringLiteral("EnableMouseButton");
inline const QString TWMouseButtonKey = QStringLiteral("MouseButton");
inline const QString TWFirstRunKey = QStringLiteral("FirstRun");
inline const QString TWToldWhatIsMissingKey = QStringLiteral("ToldWhatIsMissing");
inline const QString TWLinesThatWorkKey = QStringLiteral("LinesThatWork");

} // namespace tarnwick
