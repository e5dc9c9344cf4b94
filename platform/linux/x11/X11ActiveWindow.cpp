// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11ActiveWindow.h"

#include "platform/linux/x11/FrontWindowFilter.h"
#include "platform/linux/x11/X11EventFilter.h"
#include "platform/linux/x11/X11Thread.h"

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace tarnwick {

class X11ActiveWindow::Watcher
{
public:
    /// `changed` runs on the watching thread.
    Watcher(OwnX11Connection connection, std::function<void(const X11Window&)> changed)
        : _connection(std::move(connection)), _x11(_connection.get()), _windows(_x11),
          _changed(std::move(changed))
    {
        _look();
        _thread.emplace(_connection.get(),
                        X11Thread::Work{[this] { _run(); }, [this] { return _filter.due(); }});
    }

    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    [[nodiscard]] X11Window latest()
    {
        const std::lock_guard lock(_mutex);
        return _latest;
    }

    /// Runs `done` on the watching thread, after `changed` for what the server knows of by now.
    void lookThen(std::function<void()> done)
    {
        {
            const std::lock_guard lock(_mutex);
            _asked.push_back(std::move(done));
        }
        _thread->wake();
    }

private:
    void _run()
    {
        const auto asked = _takeAsked();
        if (!asked.empty())
            _x11.sync(); // what happened before has been received
        _lookAtChanges();
        for (const auto& done : asked)
            done();
    }

    [[nodiscard]] std::vector<std::function<void()>> _takeAsked()
    {
        const std::lock_guard lock(_mutex);
        return std::exchange(_asked, {});
    }

    void _lookAtChanges()
    {
        if (_filter.due())
            _look();
        while (_takeEvents()) // reading replies may have brought more of them
            _look();
    }

    /// Whether something happened that a look is due to.
    bool _takeEvents()
    {
        bool concerns = false;
        while (const XcbOwned<xcb_generic_event_t> event{xcb_poll_for_event(_connection.get())})
            concerns |= _concerns(*event);
        return concerns;
    }

    bool _concerns(const xcb_generic_event_t& event)
    {
        switch (x11EventType(event)) {
        case XCB_PROPERTY_NOTIFY: {
            const auto atom = x11EventAs<xcb_property_notify_event_t>(event).atom;
            return atom == _x11.atom("_NET_ACTIVE_WINDOW") || atom == _x11.atom("_NET_SUPPORTING_WM_CHECK") ||
                   atom == _x11.atom("_NET_SUPPORTED");
        }
        case XCB_MAP_NOTIFY:
            _watchFocus(x11EventAs<xcb_map_notify_event_t>(event).window);
            return true;
        case XCB_FOCUS_IN:
        case XCB_FOCUS_OUT:
        case XCB_UNMAP_NOTIFY:
        case XCB_DESTROY_NOTIFY:
            return true;
        default:
            return false;
        }
    }

    void _look()
    {
        _select();
        auto seen = _windows.front();
        if (seen && *seen && _watchEnd(seen->id))
            seen = _windows.front(); // it may have gone before it was watched
        const auto front = _filter.see(seen, FrontWindowFilter::Time::clock::now());
        xcb_flush(_connection.get());
        if (!front)
            return;
        {
            const std::lock_guard lock(_mutex);
            _latest = *front;
        }
        _changed(*front);
    }

    /// A window manager tells of changes in properties of the root. Without one, the top-level windows tell
    /// of their focus.
    void _select()
    {
        const bool managed = _windows.managed();
        if (_managed == managed)
            return;
        _managed = managed;
        const std::uint32_t mask = managed
                                       ? XCB_EVENT_MASK_PROPERTY_CHANGE
                                       : XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(_connection.get(), _x11.root(), XCB_CW_EVENT_MASK, &mask);
        const XcbOwned<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(_connection.get(), xcb_query_tree(_connection.get(), _x11.root()), nullptr));
        for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i)
            _watchFocus(xcb_query_tree_children(tree.get())[i]);
    }

    /// Not every window manager tells when the active window goes.
    bool _watchEnd(xcb_window_t window)
    {
        if (window == _watched)
            return false;
        const xcb_window_t previous = std::exchange(_watched, window);
        _watchFocus(previous);
        _watchFocus(window);
        return true;
    }

    void _watchFocus(xcb_window_t window)
    {
        const std::uint32_t mask =
            window == _watched ? _focusMask() | XCB_EVENT_MASK_STRUCTURE_NOTIFY : _focusMask();
        xcb_change_window_attributes(_connection.get(), window, XCB_CW_EVENT_MASK, &mask);
    }

    [[nodiscard]] std::uint32_t _focusMask() const
    {
        return *_managed ? XCB_EVENT_MASK_NO_EVENT : XCB_EVENT_MASK_FOCUS_CHANGE;
    }

    OwnX11Connection _connection;
    X11Connection _x11;
    X11Windows _windows;
    FrontWindowFilter _filter;
    std::optional<bool> _managed;
    xcb_window_t _watched = XCB_WINDOW_NONE;
    std::function<void(const X11Window&)> _changed;
    std::mutex _mutex; ///< for what follows
    X11Window _latest;
    std::vector<std::function<void()>> _asked;

    std::optional<X11Thread> _thread;
};

X11ActiveWindow::X11ActiveWindow()
{
    if (!X11Connection::shared())
        return;
    auto connection = connectToX11();
    if (!connection)
        return;
    _watcher = std::make_unique<Watcher>(std::move(connection), [this](const X11Window& front) {
        QMetaObject::invokeMethod(
            this, [this, front] { Q_EMIT changed(front); }, Qt::QueuedConnection);
    });
}

X11ActiveWindow::~X11ActiveWindow() = default;

void X11ActiveWindow::afterChangesSoFar(std::function<void()> then)
{
    const auto post = [this, then = std::move(then)] {
        QMetaObject::invokeMethod(this, then, Qt::QueuedConnection);
    };
    if (_watcher)
        _watcher->lookThen(post);
    else
        post();
}

X11Window X11ActiveWindow::current() const
{
    return _watcher ? _watcher->latest() : X11Window();
}

} // namespace tarnwick

#include "moc_X11ActiveWindow.cpp"
