// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtAlerts.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

Alert accessAlert()
{
    return {Alert::Style::Warning,
            u"Tarnwick requires that the Accessibility API be enabled."_s,
            u"Would you like to turn on \"Enable access <b>for</b> assistive devices\"?"_s,
            {u"Open && Settings"_s, u"Continue Anyway"_s, u"Quit Tarnwick"_s}};
}

QMessageBox* shownBox()
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        auto* box = qobject_cast<QMessageBox*>(window);
        if (box && box->isVisible())
            return box;
    }
    return nullptr;
}

QAbstractButton* button(const QMessageBox& box, const QString& text)
{
    const auto buttons = box.buttons();
    for (QAbstractButton* each : buttons) {
        if (each->text() == text)
            return each;
    }
    return nullptr;
}

/// Answers the alert as soon as it is there.
int runAnswered(const Alert& alert, const std::function<void(QMessageBox&)>& answer)
{
    QTimer poll;
    poll.callOnTimeout([&] {
        if (QMessageBox* box = shownBox()) {
            poll.stop();
            answer(*box);
        }
    });
    poll.start(5);
    return QtAlerts().runModal(alert);
}

TEST(QtAlerts, buttons_answerWithTheirNumbers)
{
    const QStringList texts = {u"Open &&&& Settings"_s, u"Continue Anyway"_s, u"Quit Tarnwick"_s};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(runAnswered(accessAlert(), [&](QMessageBox& box) { button(box, texts.at(i))->click(); }),
                  1000 + i);
}

TEST(QtAlerts, texts_beginWhereTheAlertDoes)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        int texts = 0;
        static_cast<void>(runAnswered(accessAlert(), [&](QMessageBox& box) {
            for (const QLabel* label : box.findChildren<QLabel*>()) {
                if (label->text().isEmpty())
                    continue;
                const auto side = direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
                EXPECT_EQ(label->alignment() & Qt::AlignHorizontal_Mask, side | Qt::AlignAbsolute);
                ++texts;
            }
            box.close();
        }));
        EXPECT_EQ(texts, 2);
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST(QtAlerts, returnAnswersAsTheFirstButton_escapeAsTheSecond)
{
    EXPECT_EQ(runAnswered(accessAlert(), [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              Alert::FirstButtonReturn);
    EXPECT_EQ(runAnswered(accessAlert(), [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              Alert::SecondButtonReturn);
    EXPECT_EQ(runAnswered(accessAlert(), [](QMessageBox& box) { box.close(); }), Alert::SecondButtonReturn);
}

TEST(QtAlerts, singleButton_isAlsoTheOneForEscape)
{
    const Alert alert = {Alert::Style::Critical, u"Taken"_s, {}, {u"OK"_s}};
    EXPECT_EQ(runAnswered(alert, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              Alert::FirstButtonReturn);
}

TEST(QtAlerts, texts_areShownLiterally_andAssistiveProgramsCanReadThem)
{
    runAnswered(accessAlert(), [](QMessageBox& box) {
        EXPECT_EQ(box.text(), accessAlert().messageText);
        EXPECT_EQ(box.informativeText(), accessAlert().informativeText);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        auto* accessible = QAccessible::queryAccessibleInterface(&box);
        ASSERT_NE(accessible, nullptr);
        EXPECT_EQ(accessible->role(), QAccessible::AlertMessage);
        QStringList names;
        for (QWidget* child : box.findChildren<QWidget*>()) {
            if (auto* interface = QAccessible::queryAccessibleInterface(child))
                names.append(interface->text(QAccessible::Name));
        }
        EXPECT_TRUE(names.contains(accessAlert().messageText));
        EXPECT_TRUE(names.contains(u"Continue Anyway"_s));
        box.close();
    });
}

TEST(QtAlerts, endOfTheProgram_endsTheAlert)
{
    EXPECT_EQ(runAnswered(accessAlert(), [](QMessageBox&) { QCoreApplication::exit(0); }),
              Alert::SecondButtonReturn);
}

class QtAlertsSheetTest : public ::testing::Test
{
protected:
    QtAlertsSheetTest() { window->show(); }

    void begin()
    {
        QtAlerts().beginSheetModalForWindow(accessAlert(), window.get(), [this](int code) {
            ++ends;
            answer = code;
        });
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    int ends = 0;
    int answer = 0;
};

TEST_F(QtAlertsSheetTest, sheet_returnsAtOnce_blocksItsWindowOnly_andTellsItsAnswer)
{
    begin();
    QMessageBox* box = shownBox();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowModality(), Qt::WindowModal);
    EXPECT_EQ(box->parentWidget(), window.get());
    EXPECT_EQ(ends, 0);
    button(*box, u"Quit Tarnwick"_s)->click();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(answer, Alert::ThirdButtonReturn);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->findChildren<QMessageBox*>().isEmpty(); }));
}

TEST_F(QtAlertsSheetTest, escape_answersAsTheSecondButton)
{
    begin();
    QTest::keyClick(shownBox(), Qt::Key_Escape);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(answer, Alert::SecondButtonReturn);
}

TEST_F(QtAlertsSheetTest, windowThatGoes_takesTheSheetWithIt_unanswered)
{
    begin();
    window.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(shownBox(), nullptr);
}

} // namespace
