// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/XfceShortcuts.h"

#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr qsizetype ProviderDepth = 3; // provider, "default" or "custom", accelerator

void append(QStringList& list, const QStringList& more)
{
    for (const QString& text : more) {
        if (!list.contains(text))
            list.append(text);
    }
}

} // namespace

std::optional<XfceShortcuts> XfceShortcuts::parse(const QByteArray& xml)
{
    XfceShortcuts found;
    QXmlStreamReader reader(xml);
    QStringList path;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == u"property") {
            const auto attributes = reader.attributes();
            path.append(attributes.value("name"_L1).toString());
            found._take(path, attributes.value("type"_L1).toString(),
                        attributes.value("value"_L1).toString());
        } else if (reader.isEndElement() && reader.name() == u"property") {
            path.removeLast();
        }
    }
    if (reader.hasError())
        return std::nullopt;
    return found;
}

void XfceShortcuts::merge(const XfceShortcuts& over)
{
    for (const Provider& provider : over._providers) {
        Provider& merged = _provider(provider.name);
        append(merged.defaults, provider.defaults);
        append(merged.custom, provider.custom);
        if (provider.customReplaces)
            merged.customReplaces = provider.customReplaces;
    }
}

QList<DesktopShortcut> XfceShortcuts::shortcuts() const
{
    QList<DesktopShortcut> list;
    for (const Provider& provider : _providers) {
        const bool custom = provider.customReplaces.value_or(false);
        for (const QString& accelerator : custom ? provider.custom : provider.defaults) {
            if (const auto shortcut = DesktopShortcut::ofAccelerator(accelerator))
                list.append(*shortcut);
        }
    }
    return list;
}

XfceShortcuts::Provider& XfceShortcuts::_provider(const QString& name)
{
    const auto known = std::find_if(_providers.begin(), _providers.end(),
                                    [&](const Provider& provider) { return provider.name == name; });
    if (known != _providers.end())
        return *known;
    _providers.append({name, {}, {}, {}});
    return _providers.last();
}

void XfceShortcuts::_take(const QStringList& path, const QString& type, const QString& value)
{
    if (path.size() != ProviderDepth || (path.at(1) != u"default" && path.at(1) != u"custom"))
        return;
    Provider& provider = _provider(path.first());
    const bool custom = path.at(1) == u"custom";
    if (path.last() == u"override") {
        if (custom)
            provider.customReplaces = value == u"true";
        return;
    }
    // An entry of type "empty" has been cleared.
    if (type == u"string" && !value.isEmpty())
        append(custom ? provider.custom : provider.defaults, {path.last()});
}

} // namespace tarnwick
