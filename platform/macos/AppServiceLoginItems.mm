// SPDX-License-Identifier: MIT
#include "platform/macos/AppServiceLoginItems.h"

#include "platform/macos/MacBundle.h"

#import <Foundation/Foundation.h>

/// The few messages of the service that the login item is registered with; its class is looked up when it is
/// needed.
@protocol TWAppService
+ (id<TWAppService>)mainAppService;
- (NSInteger)status;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end

namespace tarnwick {
namespace {

constexpr NSInteger Enabled = 1;

class OurselvesList final : public LoginItems::List
{
public:
    explicit OurselvesList(id<TWAppService> service) : _service(service) {}

    [[nodiscard]] QList<std::shared_ptr<LoginItems::Item>> copySnapshot() override
    {
        if ([_service status] != Enabled)
            return {};
        return {std::make_shared<LoginItems::Item>()};
    }

    [[nodiscard]] std::optional<QUrl> resolve(const LoginItems::Item& /*item*/,
                                              quint32 /*resolveFlags*/) override
    {
        return QUrl::fromLocalFile(mainBundlePath());
    }

    void insertBeforeFirst(const QUrl& applicationUrl) override
    {
        if (applicationUrl == QUrl::fromLocalFile(mainBundlePath()))
            [_service registerAndReturnError:nullptr];
    }

    void remove(const LoginItems::Item& /*item*/) override { [_service unregisterAndReturnError:nullptr]; }

private:
    id<TWAppService> _service; ///< the system's, for the life of the process
};

} // namespace

std::unique_ptr<LoginItems::List> AppServiceLoginItems::createSessionLoginItems()
{
    Class<TWAppService> service = static_cast<Class<TWAppService>>(NSClassFromString(@"SMAppService"));
    if (!service)
        return nullptr;
    return std::make_unique<OurselvesList>([service mainAppService]);
}

} // namespace tarnwick
