// SPDX-License-Identifier: MIT
#include "prefs/DefaultsBinding.h"

#include "foundation/UserDefaultsController.h"

#include <QCheckBox>
#include <QSignalBlocker>
#include <QSpinBox>

#include <memory>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

UserDefaultsController& defaults()
{
    return UserDefaultsController::sharedUserDefaultsController();
}

QString keyPath(const QString& key)
{
    return u"values."_s + key;
}

/// Holds an observation for as long as its parent lives.
class ObservationHolder final : public QObject
{
public:
    ObservationHolder(QObject& parent, std::unique_ptr<UserDefaultsController::Observer> observer)
        : QObject(&parent), _observer(std::move(observer))
    {
    }

private:
    std::unique_ptr<UserDefaultsController::Observer> _observer;
};

} // namespace

void bindToDefaults(QObject& control, const QString& key, std::function<void(const QVariant& value)> show)
{
    show(defaults().valueForKeyPath(keyPath(key)));
    auto observer =
        defaults().addObserverForKeyPath(keyPath(key), [show = std::move(show)](const QString& path) {
            show(defaults().valueForKeyPath(path));
        });
    new ObservationHolder(control, std::move(observer)); // goes with the control
}

void bindCheckBox(QCheckBox& box, const QString& key, std::function<void()> switched)
{
    bindToDefaults(box, key, [&box](const QVariant& value) { box.setChecked(value.toBool()); });
    // A screen reader switches it without a click.
    QObject::connect(&box, &QCheckBox::toggled, &box, [key, switched = std::move(switched)](bool checked) {
        if (defaults().valueForKeyPath(keyPath(key)).toBool() == checked)
            return; // the setting has switched it
        defaults().setValueForKeyPath(checked, keyPath(key));
        if (switched)
            switched();
    });
}

void bindSpinBox(QSpinBox& box, const QString& key)
{
    bindToDefaults(box, key, [&box](const QVariant& value) {
        const QSignalBlocker quiet(box);
        box.setValue(value.toInt());
    });
    QObject::connect(&box, &QSpinBox::valueChanged, &box,
                     [key](int number) { defaults().setValueForKeyPath(number, keyPath(key)); });
}

} // namespace tarnwick
