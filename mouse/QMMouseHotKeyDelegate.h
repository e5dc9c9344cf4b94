// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace tarnwick {

class QMMouseHotKey;

/// Who is told of extra mouse buttons. The body does what a delegate that does not respond does.
class QMMouseHotKeyDelegate
{
public:
    virtual ~QMMouseHotKeyDelegate() = default;

    /// `code` is the type of the event, 25 for every extra button, never the number of the button.
    virtual void mouseHotKeyMouseButtonActioned(QMMouseHotKey& /*sender*/, quint64 /*code*/) {}

protected:
    QMMouseHotKeyDelegate() = default;
    QMMouseHotKeyDelegate(const QMMouseHotKeyDelegate&) = default;
    QMMouseHotKeyDelegate& operator=(const QMMouseHotKeyDelegate&) = default;
    QMMouseHotKeyDelegate(QMMouseHotKeyDelegate&&) = default;
    QMMouseHotKeyDelegate& operator=(QMMouseHotKeyDelegate&&) = default;
};

} // namespace tarnwick
