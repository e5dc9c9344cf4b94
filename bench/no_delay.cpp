// SPDX-License-Identifier: MIT
// The toolkit's own style, but submenus open as soon as the pointer is on their entry: what a menu waits on
// purpose is no time that the program takes. Nor does the cursor of a field blink, which would be taken for
// something that was found. A style plugin, named by QT_STYLE_OVERRIDE.
#include <QGuiApplication>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleHints>
#include <QStylePlugin>

using namespace Qt::StringLiterals;

namespace {

class NoDelayStyle final : public QProxyStyle
{
public:
    NoDelayStyle() : QProxyStyle(u"fusion"_s) {}

    using QProxyStyle::polish;
    void polish(QApplication* application) override
    {
        QProxyStyle::polish(application);
        QGuiApplication::styleHints()->setCursorFlashTime(0);
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override
    {
        return hint == SH_Menu_SubMenuPopupDelay ? 0
                                                 : QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

} // namespace

class NoDelayPlugin final : public QStylePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QStyleFactoryInterface_iid FILE "no_delay.json")

public:
    QStyle* create(const QString& /*key*/) override { return new NoDelayStyle; }
};

#include "no_delay.moc"
