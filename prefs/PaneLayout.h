// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QString>

class QLayout;

namespace tarnwick {

// What the panes of the preferences have in common.

/// Space around the contents of a pane, and before what belongs to the check box above it, in points.
inline constexpr int PaneMargin = 20;
inline constexpr int PaneIndent = 24;

/// A line of smaller, quieter text that explains the control above it.
[[nodiscard]] QLabel* makeHint(const QString& text);

/// Large bold text: what a pane is about.
[[nodiscard]] QLabel* makeTitle(const QString& text);

/// A thin line between two groups of controls, with space around it.
[[nodiscard]] QLayout* makeSeparator();

} // namespace tarnwick
