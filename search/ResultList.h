// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <optional>

namespace tarnwick {

/// The rows of a search, as entries' numbers, and which of them is highlighted. With a new query they are put
/// in order anew and the first one is highlighted. What arrives later for the same query never moves the
/// highlighted row nor what stands above it: it is added below, there at the place that it belongs to, and so
/// a better one directly below. Without a highlighted row it goes where it belongs.
class ResultList
{
public:
    /// What a new query finds, the best first. `highlightsFirst`: the first one is what somebody means.
    void begin(const QList<int>& ranked, bool highlightsFirst);
    /// What the same query finds by now: what it found before, and more.
    void extend(const QList<int>& ranked, bool highlightsFirst);

    [[nodiscard]] const QList<int>& rows() const { return _rows; }

    /// An index of rows(); nothing when none is.
    [[nodiscard]] std::optional<int> highlighted() const { return _highlighted; }
    /// What somebody does with a key or the pointer: from now on the query highlights nothing of its own
    /// accord. An index that is none of rows() is nothing.
    void highlight(std::optional<int> row);

private:
    void _highlightFirst(bool wanted);

    QList<int> _rows;
    std::optional<int> _highlighted;
    bool _movedByHand = false;
};

} // namespace tarnwick
