// SPDX-License-Identifier: MIT
#include "prefs/PaneLayout.h"

#include <QEvent>
#include <QFrame>
#include <QVBoxLayout>

namespace tarnwick {

namespace {

constexpr double HintSize = 0.88; ///< of the usual text
constexpr double HintInk = 0.72;
constexpr int SeparatorSpace = 6;

/// Keeps its quieter ink when the desktop changes its colours.
class Hint final : public QLabel
{
public:
    explicit Hint(const QString& text) : QLabel(text)
    {
        QFont small = font();
        small.setPointSizeF(small.pointSizeF() * HintSize);
        setFont(small);
        setWordWrap(true);
        _quieten();
    }

    void changeEvent(QEvent* event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !_quietening)
            _quieten();
    }

private:
    void _quieten()
    {
        _quietening = true;
        setPalette({}); // what it inherits
        QColor ink = palette().color(QPalette::WindowText);
        ink.setAlphaF(float(HintInk));
        QPalette quiet = palette();
        quiet.setColor(QPalette::WindowText, ink);
        setPalette(quiet);
        _quietening = false;
    }

    bool _quietening = false;
};

} // namespace

QLabel* makeHint(const QString& text)
{
    return new Hint(text);
}

QLayout* makeSeparator()
{
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(0, SeparatorSpace, 0, SeparatorSpace);
    layout->addWidget(line);
    return layout;
}

} // namespace tarnwick
