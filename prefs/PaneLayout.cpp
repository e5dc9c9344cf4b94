// SPDX-License-Identifier: MIT
#include "prefs/PaneLayout.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QFrame>
#include <QStyle>
#include <QVBoxLayout>

namespace tarnwick {

namespace {

constexpr double HintSize = 0.88; ///< of the usual text
constexpr double TitleSize = 1.6;
constexpr double HintInk = 0.72;
constexpr int SeparatorSpace = 6;

/// Text of another size than usual, also when the desktop changes its font.
class SizedLabel : public QLabel
{
public:
    SizedLabel(const QString& text, double size, bool bold) : QLabel(text), _size(size), _bold(bold)
    {
        _takeFont();
    }

    bool event(QEvent* event) override
    {
        const bool handled = QLabel::event(event);
        if (event->type() == QEvent::ApplicationFontChange)
            _takeFont();
        return handled;
    }

private:
    void _takeFont()
    {
        QFont sized = QApplication::font(this);
        sized.setPointSizeF(QFontInfo(sized).pointSizeF() * _size);
        sized.setBold(_bold || sized.bold());
        setFont(sized);
    }

    double _size;
    bool _bold;
};

/// Keeps its quieter ink when the desktop changes its colours, and its side of the window whatever its text.
class Hint final : public SizedLabel
{
public:
    explicit Hint(const QString& text) : SizedLabel(text, HintSize, false)
    {
        setWordWrap(true);
        _quieten();
        _alignWithWindow();
    }

    void changeEvent(QEvent* event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !_quietening)
            _quieten();
        else if (event->type() == QEvent::LayoutDirectionChange)
            _alignWithWindow();
    }

private:
    /// A label begins where its text does: one in English would stay at the left of a window that runs from
    /// right to left.
    void _alignWithWindow()
    {
        if (!alignment().testFlag(Qt::AlignHCenter))
            setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading) | Qt::AlignAbsolute |
                         Qt::AlignVCenter);
    }

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

QLabel* makeTitle(const QString& text)
{
    return new SizedLabel(text, TitleSize, true);
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
