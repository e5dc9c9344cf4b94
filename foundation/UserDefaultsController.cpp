// SPDX-License-Identifier: MIT
#include "foundation/UserDefaultsController.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString& prefix()
{
    static const QString values = u"values."_s;
    return values;
}

// Empty for a path to something else than a setting.
QString keyOf(const QString& keyPath)
{
    return keyPath.startsWith(prefix()) ? keyPath.mid(prefix().size()) : QString();
}

} // namespace

UserDefaultsController::UserDefaultsController(UserDefaults& defaults)
    : _defaults(defaults), _defaultsObserver(defaults.addObserver(
                               [this](const QString& key) { _observers.notify(prefix() + key); }))
{
}

UserDefaultsController& UserDefaultsController::sharedUserDefaultsController()
{
    static UserDefaultsController controller(UserDefaults::standardUserDefaults());
    return controller;
}

void UserDefaultsController::setInitialValues(const DefaultsTable& table)
{
    _initialValues = table;
}

void UserDefaultsController::revertToInitialValues(ActionSender* /*sender*/)
{
    const DefaultsTable table = _initialValues;
    for (const auto& [key, value] : table)
        _defaults.storeObjectForKey(value, key);
    for (const auto& [key, value] : table)
        _defaults.didChange(key);
}

QVariant UserDefaultsController::valueForKeyPath(const QString& keyPath) const
{
    const QString key = keyOf(keyPath);
    return key.isEmpty() ? QVariant() : _defaults.objectForKey(key);
}

void UserDefaultsController::setValueForKeyPath(const QVariant& value, const QString& keyPath)
{
    if (const QString key = keyOf(keyPath); !key.isEmpty())
        _defaults.setObjectForKey(value, key);
}

std::unique_ptr<UserDefaultsController::Observer>
UserDefaultsController::addObserverForKeyPath(const QString& keyPath,
                                              std::function<void(const QString& keyPath)> changed)
{
    return _observers.add([keyPath, changed = std::move(changed)](const QString& path) {
        if (path == keyPath)
            changed(path);
    });
}

} // namespace tarnwick
