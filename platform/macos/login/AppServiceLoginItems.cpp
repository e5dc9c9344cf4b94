// SPDX-License-Identifier: MIT
#include "platform/macos/login/AppServiceLoginItems.h"

#include "platform/macos/login/AppService.h"
#include "platform/macos/system/MacBundle.h"

namespace tarnwick {
namespace {

class OurselvesList final : public LoginItems::List
{
public:
    [[nodiscard]] QList<std::shared_ptr<LoginItems::Item>> copySnapshot() override
    {
        const AppServiceStatus status = appServiceStatus();
        if (status != AppServiceStatus::Enabled && status != AppServiceStatus::RequiresApproval)
            return {};
        return {std::make_shared<LoginItems::Item>()};
    }

    [[nodiscard]] std::optional<QUrl> resolve(const LoginItems::Item& /*item*/,
                                              quint32 /*resolveFlags*/) override
    {
        const QString path = mainBundlePath();
        return path.isEmpty() ? std::nullopt : std::optional(QUrl::fromLocalFile(path));
    }

    void insertBeforeFirst(const QUrl& applicationUrl) override
    {
        // The service knows this application only.
        if (applicationUrl == QUrl::fromLocalFile(mainBundlePath()))
            registerAppService();
    }

    void remove(const LoginItems::Item& /*item*/) override { unregisterAppService(); }
};

} // namespace

std::unique_ptr<LoginItems::List> AppServiceLoginItems::createSessionLoginItems()
{
    return hasAppService() ? std::make_unique<OurselvesList>() : nullptr;
}

} // namespace tarnwick
