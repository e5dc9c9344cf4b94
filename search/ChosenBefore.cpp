// SPDX-License-Identifier: MIT
#include "search/ChosenBefore.h"

#include <algorithm>

namespace tarnwick {

void ChosenBefore::note(const QString& application, const QStringList& path)
{
    _times.insert(QStringList(application) + path, ++_last);
    if (_times.size() > Most)
        _times.erase(std::min_element(_times.cbegin(), _times.cend()));
}

quint32 ChosenBefore::when(const QString& application, const QStringList& path) const
{
    return _times.value(QStringList(application) + path);
}

} // namespace tarnwick
