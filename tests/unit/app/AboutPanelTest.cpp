// SPDX-License-Identifier: MIT
#include "app/AboutPanel.h"

#include "foundation/Version.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/SharedPorts.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class NotingTarget final : public ActionTarget
{
public:
    QStringList performed;
    [[nodiscard]] bool respondsTo(const QString& /*action*/) const override { return true; }
    void perform(const QString& action, ActionSender* /*sender*/) override { performed.append(action); }
};

class AboutPanelTest : public ::testing::Test
{
protected:
    [[nodiscard]] QStringList labels() const
    {
        QStringList texts;
        for (const QLabel* label : panel.findChildren<QLabel*>())
            texts.append(label->text());
        return texts;
    }

    FakeApplication application;
    SharedPorts sharedPorts{application};
    NotingTarget target;
    AboutPanel panel{target};
};

TEST_F(AboutPanelTest, tellsNameAndVersion)
{
    EXPECT_TRUE(labels().isEmpty()) << "not before it is shown";
    panel.orderFrontRegardless();
    EXPECT_EQ(panel.windowTitle(), u"About Tarnwick"_s);
    EXPECT_EQ(panel.accessibleName(), u"About Tarnwick"_s);
    panel.orderFrontRegardless();
    EXPECT_EQ(labels().count(u"Tarnwick"_s), 1);
    EXPECT_TRUE(labels().contains(u"Tarnwick"_s));
    EXPECT_TRUE(labels().contains(u"Version "_s + TarnwickVersion));
    EXPECT_FALSE(TarnwickVersion.isEmpty());
    EXPECT_FALSE(TarnwickVersion.contains(u'@')) << "filled in by the build";
}

TEST_F(AboutPanelTest, links_areReachableByKeyboard_named_andAskTheTarget)
{
    const QList<std::pair<QString, QString>> links = {{u"Quorlane Home Page"_s, u"openQuorlaneWebpage:"_s},
                                                      {u"Ostravane Home Page"_s, u"openOstravaneWebpage:"_s}};
    panel.orderFrontRegardless();
    for (const auto& [name, action] : links) {
        SCOPED_TRACE(qPrintable(name));
        QPushButton* link = nullptr;
        for (QPushButton* button : panel.findChildren<QPushButton*>()) {
            if (button->accessibleName() == name)
                link = button;
        }
        ASSERT_NE(link, nullptr);
        EXPECT_TRUE((link->focusPolicy() & Qt::TabFocus) != 0);
        target.performed.clear();
        link->click();
        EXPECT_EQ(target.performed, QStringList{action});
    }
}

TEST_F(AboutPanelTest, comesToTheFront_withoutTakingTheKeyboardFromTheActiveApplication)
{
    EXPECT_FALSE(panel.isVisible());
    panel.orderFrontRegardless();
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(panel.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_FALSE(panel.isModal());
    EXPECT_TRUE(application.activations.isEmpty());
}

TEST_F(AboutPanelTest, comesBack_whenItWasMinimized)
{
    panel.orderFrontRegardless();
    panel.showMinimized();
    panel.orderFrontRegardless();
    EXPECT_FALSE(panel.isMinimized());
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(AboutPanelTest, escapeAndTheButton_closeIt_andItCanBeShownAgain)
{
    panel.orderFrontRegardless();
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&panel, &escape);
    EXPECT_FALSE(panel.isVisible());

    panel.orderFrontRegardless();
    EXPECT_TRUE(panel.isVisible());
    QPushButton* close = nullptr;
    for (QPushButton* button : panel.findChildren<QPushButton*>()) {
        if (button->isDefault())
            close = button;
    }
    ASSERT_NE(close, nullptr);
    close->click();
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(AboutPanelTest, closing_doesNotEndTheProgram)
{
    EXPECT_FALSE(panel.testAttribute(Qt::WA_QuitOnClose));
    EXPECT_FALSE(panel.testAttribute(Qt::WA_DeleteOnClose));
}

} // namespace
