// SPDX-License-Identifier: MIT
#include "platform/macos/session/AlertAnswer.h"

#include "foundation/Application.h"

namespace tarnwick {

qint64 modalAnswer(const std::function<qint64()>& runModal)
{
    // Qt leaves the loop of an alert to look after its own events.
    qint64 nativeCode = runModal();
    while (nativeCode == ModalSessionContinues && !Application::shared().terminating())
        nativeCode = runModal();
    return nativeCode;
}

int answerOf(const Alert& alert, qint64 nativeCode)
{
    if (nativeCode >= Alert::FirstButtonReturn)
        return static_cast<int>(nativeCode);
    return alert.buttonTitles.size() > 1 ? Alert::SecondButtonReturn : Alert::FirstButtonReturn;
}

} // namespace tarnwick
