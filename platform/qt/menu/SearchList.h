// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/menu/PointerTravel.h"

#include <QListView>

#include <optional>

namespace tarnwick {

/// The rows of a search. The pointer highlights and chooses only after it has been moved since the rows
/// changed last: they come under one that rests.
class SearchList final : public QListView
{
    Q_OBJECT

public:
    explicit SearchList(QWidget* parent);

    /// Other rows are under the pointer now.
    void forgetPointer() { _pointer.reset(); }

    /// Nothing highlights nothing. Told to screen readers, though the list has no focus.
    void highlight(std::optional<int> row);

    /// How high it is with so many rows.
    [[nodiscard]] int heightOf(int rows) const;

Q_SIGNALS:
    void pointedAt(int row);
    void rowClicked(int row);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    /// The row under a pointer that has been moved.
    [[nodiscard]] std::optional<int> _rowOf(const QMouseEvent& event);

    std::optional<PointerTravel> _pointer; ///< from where it was first seen
};

} // namespace tarnwick
