// SPDX-License-Identifier: MIT
#include "platform/linux/menus/MenusAhead.h"

#include "platform/qt/menu/MenuTracking.h"

namespace tarnwick {

MenusAhead::MenusAhead()
{
    QObject::connect(&MenuTracking::shared(), &MenuTracking::ended, &_untilEnded, [this] { _read.clear(); });
}

void MenusAhead::setBar(const BusReference& bar, const QList<MenuRow>& rows)
{
    _service = bar.service;
    _menusOfBar = menusIn(rows);
}

void MenusAhead::read(const QByteArray& service, Deadline deadline, const Read& readLevel)
{
    _read.clear();
    if (service != _service)
        return;
    for (QList<BusReference> level = _menusOfBar; !level.isEmpty();) {
        const Answers answers = readLevel(level);
        if (deadline.passed())
            return;
        QList<BusReference> below;
        for (qsizetype i = 0; i < level.size(); ++i) {
            if (!answers[i] || _read.contains(level[i]))
                continue;
            _read.insert(level[i], *answers[i]);
            below += menusIn(*answers[i]);
        }
        level = below;
    }
}

const QList<MenuRow>* MenusAhead::of(const BusReference& menu) const
{
    const auto found = _read.constFind(menu);
    return found == _read.cend() ? nullptr : &*found;
}

} // namespace tarnwick
