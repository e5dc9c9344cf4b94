// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>
#include <utility>

namespace tarnwick {

struct AxNode;
using AxNodeRef = std::shared_ptr<AxNode>;

/// One element of the user interface of a simulated application. A value is a QString, bool, number, AXValue,
/// QUrl, AxNodeRef, or a QVariantList of these.
struct AxNode
{
    qint64 processIdentifier = 0;
    QList<std::pair<QString, QVariant>> attributes; ///< in the order in which they are listed
    QStringList unlisted;                           ///< attributes that can be read but are not listed
    QStringList settable;
    QList<std::pair<QString, QString>> actions; ///< with their descriptions
    bool gone = false;                          ///< its application has quit: every call fails
    bool hung = false;                          ///< its application does not answer: a call waits in vain
    bool refusing = false;                      ///< the same answer, at once
    std::function<void()> onPerform;            ///< of this process: what it does, within the call

    QStringList performed;                       ///< look: the actions performed
    QList<std::pair<QString, QVariant>> written; ///< look: the attribute values set

    [[nodiscard]] QVariant* value(const QString& attribute)
    {
        for (auto& [name, value] : attributes) {
            if (name == attribute)
                return &value;
        }
        return nullptr;
    }

    void set(const QString& attribute, const QVariant& newValue)
    {
        if (QVariant* old = value(attribute))
            *old = newValue;
        else
            attributes.append({attribute, newValue});
    }
};

} // namespace tarnwick

Q_DECLARE_METATYPE(tarnwick::AxNodeRef)
