// SPDX-License-Identifier: MIT
#include "tests/contract/foundation/WorkspaceContract.h"
#include "tests/fakes/FakeWorkspace.h"

using namespace tarnwick;

TEST(FakeWorkspace, keepsThePromisesOfWorkspaces)
{
    FakeWorkspace workspace;
    const auto nameOf = [](qint64 processIdentifier) {
        return QStringLiteral("application %1").arg(processIdentifier);
    };
    WorkspaceContract contract({.workspace = workspace,
                                .first = 11,
                                .second = 12,
                                .bringToFront =
                                    [&workspace, nameOf](qint64 processIdentifier) {
                                        workspace.switchTo(nameOf(processIdentifier), processIdentifier);
                                    },
                                .leaveNothingInFront = [&workspace] { workspace.active.reset(); },
                                .titleOf = nameOf});
    contract.run();
}
