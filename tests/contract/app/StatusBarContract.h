// SPDX-License-Identifier: MIT
#pragma once

#include "app/StatusBar.h"
#include "menu/Menu.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

namespace tarnwick {

/// What the core relies on of the status area.
class StatusBarContract
{
public:
    struct Subject
    {
        StatusBar& bar;
        /// How many items are shown now.
        std::function<int()> shown;
        /// Lets the desktop have a status area, or none.
        std::function<void(bool has)> setArea;
    };

    explicit StatusBarContract(Subject subject) : _subject(std::move(subject)) {}

    void run()
    {
        _subject.setArea(true);
        _checkRemoval();
        _checkEndOfTheItem();
        _checkWhatItShows();
        _checkArea();
    }

private:
    [[nodiscard]] std::shared_ptr<StatusItem> _make()
    {
        return _subject.bar.statusItemWithLength(StatusBar::VariableStatusItemLength);
    }

    void _checkRemoval()
    {
        auto first = _make();
        EXPECT_EQ(_subject.shown(), 1);
        const auto second = _make();
        EXPECT_EQ(_subject.shown(), 2);
        _subject.bar.removeStatusItem(first);
        EXPECT_EQ(_subject.shown(), 1);
        _subject.bar.removeStatusItem(first);
        EXPECT_EQ(_subject.shown(), 1) << "it is not there any more";
        first->setImage(QImage(16, 16, QImage::Format_ARGB32));
        first->setMenu(Menu::create(QStringLiteral("Tarnwick")));
        EXPECT_EQ(_subject.shown(), 1) << "nor does it come back";
        first.reset();
        EXPECT_EQ(_subject.shown(), 1) << "it is the other one that is shown";
        _subject.bar.removeStatusItem(second);
        EXPECT_EQ(_subject.shown(), 0);
    }

    void _checkEndOfTheItem()
    {
        auto item = _make();
        EXPECT_EQ(_subject.shown(), 1);
        item.reset();
        EXPECT_EQ(_subject.shown(), 0) << "nobody has it any more";
    }

    void _checkWhatItShows()
    {
        const auto item = _make();
        item->setHighlightMode(true);
        item->setMenu(nullptr);
        item->setImage(QImage());
        item->setAlternateImage(QImage());
        EXPECT_EQ(_subject.shown(), 1) << "without an image, and without a menu";
    }

    void _checkArea()
    {
        _subject.setArea(false);
        const auto item = _make();
        const auto removed = _make();
        EXPECT_EQ(_subject.shown(), 0);
        _subject.bar.removeStatusItem(removed);
        for (int time = 0; time < 2; ++time) {
            _subject.setArea(true);
            EXPECT_EQ(_subject.shown(), 1) << "it comes with the area";
            _subject.setArea(false);
            EXPECT_EQ(_subject.shown(), 0);
        }
    }

    Subject _subject;
};

} // namespace tarnwick
