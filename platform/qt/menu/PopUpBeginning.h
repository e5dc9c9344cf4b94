// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// What a pop-up begins with. GUI thread only.
class PopUpBeginning
{
public:
    enum class Kind {
        Menu,
        Search, ///< in the menu, which is behind it
    };

    /// Of the pop-up that is asked for now; the menu unless somebody has said otherwise.
    [[nodiscard]] static Kind current() { return _current; }

    /// Says it for as long as this is there.
    class Scope
    {
    public:
        explicit Scope(Kind kind) : _before(_current) { _current = kind; }
        ~Scope() { _current = _before; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        Kind _before;
    };

private:
    static inline Kind _current = Kind::Menu;
};

} // namespace tarnwick
