// SPDX-License-Identifier: MIT
#include "platform/qt/tray/QtStatusBar.h"
#include "tests/contract/app/StatusBarContract.h"
#include "tests/fakes/FakeStatusBar.h"

#include <memory>

using namespace tarnwick;

namespace {

TEST(StatusBar, fake_keepsTheContract)
{
    FakeStatusBar bar;
    StatusBarContract contract({.bar = bar,
                                .shown = [&bar] { return static_cast<int>(bar.items().size()); },
                                .setArea = [&bar](bool has) { bar.hasArea = has; }});
    contract.run();
}

/// A tray that counts the icons in it.
class CountingTray final : public TrayHost
{
public:
    explicit CountingTray(int& icons) : _icons(icons) {}

    [[nodiscard]] Kind kind() const override { return _kind; }
    [[nodiscard]] std::unique_ptr<PublishedIcon> publish(QMenu& /*menu*/,
                                                         const std::function<void()>& /*clicked*/) override
    {
        return std::make_unique<Icon>(_icons);
    }
    void become(Kind kind)
    {
        _kind = kind;
        Q_EMIT changed();
    }

private:
    class Icon final : public PublishedIcon
    {
    public:
        explicit Icon(int& icons) : _icons(icons) { ++_icons; }
        ~Icon() override { --_icons; }
        Icon(const Icon&) = delete;
        Icon& operator=(const Icon&) = delete;
        void setIcon(const QIcon& /*icon*/) override {}

    private:
        int& _icons;
    };

    int& _icons;
    Kind _kind = Kind::None;
};

TEST(StatusBar, tray_keepsTheContract)
{
    int icons = 0;
    auto owned = std::make_unique<CountingTray>(icons);
    CountingTray& tray = *owned;
    QtStatusBar bar(std::move(owned));
    StatusBarContract contract(
        {.bar = bar,
         .shown = [&icons] { return icons; },
         .setArea =
             [&tray](bool has) { tray.become(has ? TrayHost::Kind::Publishing : TrayHost::Kind::None); }});
    contract.run();
}

TEST(StatusBar, itemThatOutlivesTheTray_isNotShownAnyMore)
{
    int icons = 0;
    auto owned = std::make_unique<CountingTray>(icons);
    owned->become(TrayHost::Kind::Publishing);
    auto bar = std::make_unique<QtStatusBar>(std::move(owned));
    const auto item = bar->statusItemWithLength(StatusBar::VariableStatusItemLength);
    EXPECT_EQ(icons, 1);
    bar.reset();
    EXPECT_EQ(icons, 0);
    item->setImage(QImage());
}

} // namespace
