// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

namespace tarnwick {

/// The toolkit's connection to the session bus, and another one once a bus that went has come back at the
/// same address: the toolkit itself stays away for good. GUI thread only.
class SessionBusWatch final : public QObject
{
    Q_OBJECT

public:
    SessionBusWatch();
    ~SessionBusWatch() override;

    /// The one that stands; while there is no bus, one that is not connected.
    [[nodiscard]] QDBusConnection connection() const { return _connection; }

Q_SIGNALS:
    /// The bus has gone, or has come back: connection() is another one, or not connected.
    void changed();

private Q_SLOTS:
    void _lost();

private:
    void _watch();
    void _tryAgain();

    QDBusConnection _connection = QDBusConnection::sessionBus();
    int _number = 0;
    QTimer _again;
};

} // namespace tarnwick
