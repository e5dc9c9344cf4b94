// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// What a person has opened the menu with. GUI thread only.
class PopUpTrigger
{
public:
    enum class Kind {
        Key,
        Pointer, ///< no hand is at the keyboard
    };

    /// Of the pop-up that is asked for now; a key unless somebody has said otherwise.
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
    static inline Kind _current = Kind::Key;
};

} // namespace tarnwick
