// SPDX-License-Identifier: MIT
#include "tests/contract/menu/MenuPresenterContract.h"
#include "tests/fakes/FakeMenuPresenter.h"

using namespace tarnwick;

TEST(FakeMenuPresenter, keepsThePromisesOfMenuPresenters)
{
    FakeMenuPresenter presenter;
    MenuPresenterContract contract(
        {.presenter = presenter, .user = [&presenter](const QStringList& way, const auto& whileOpen) {
             presenter.choose = way;
             presenter.whileOpen = whileOpen;
         }});
    contract.run();
}
