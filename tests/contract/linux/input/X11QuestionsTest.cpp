// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11Focus.h"
#include "platform/linux/input/X11PointerGrab.h"

#include <gtest/gtest.h>

#include <string>

using namespace tarnwick;

namespace {

constexpr xcb_input_device_id_t corePointer = 2;

/// A pointer besides the one that every display has, and this program's own as long as it lives.
class SecondPointer
{
public:
    SecondPointer()
    {
        struct
        {
            xcb_input_hierarchy_change_t head{XCB_INPUT_HIERARCHY_CHANGE_TYPE_ADD_MASTER, 4};
            std::uint16_t nameLength = 6;
            std::uint8_t sendsCore = 1;
            std::uint8_t enabled = 1;
            char name[8] = "second";
        } added;
        xcb_input_xi_change_hierarchy(_x11.get(), 1, &added.head);
        _device = _find("second pointer");
        xcb_input_xi_set_client_pointer(_x11.get(), XCB_WINDOW_NONE, _device);
    }
    ~SecondPointer()
    {
        xcb_input_xi_set_client_pointer(_x11.get(), XCB_WINDOW_NONE, corePointer);
        struct
        {
            xcb_input_hierarchy_change_t head{XCB_INPUT_HIERARCHY_CHANGE_TYPE_REMOVE_MASTER, 3};
            xcb_input_device_id_t device = 0;
            std::uint8_t returnMode = XCB_INPUT_CHANGE_MODE_FLOAT;
            std::uint8_t pad = 0;
            xcb_input_device_id_t returnPointer = 0;
            xcb_input_device_id_t returnKeyboard = 0;
        } removed;
        removed.device = _device;
        xcb_input_xi_change_hierarchy(_x11.get(), 1, &removed.head);
        _x11.sync();
    }
    SecondPointer(const SecondPointer&) = delete;
    SecondPointer& operator=(const SecondPointer&) = delete;

    [[nodiscard]] xcb_input_device_id_t device() const { return _device; }

    void warp(int x, int y) const
    {
        xcb_input_xi_warp_pointer(_x11.get(), XCB_WINDOW_NONE, _x11.root(), 0, 0, 0, 0, x << 16, y << 16,
                                  _device);
    }

private:
    [[nodiscard]] xcb_input_device_id_t _find(const std::string& name) const
    {
        const XcbOwned<xcb_input_xi_query_device_reply_t> reply(xcb_input_xi_query_device_reply(
            _x11.get(), xcb_input_xi_query_device(_x11.get(), XCB_INPUT_DEVICE_ALL_MASTER), nullptr));
        if (!reply)
            return 0;
        for (auto infos = xcb_input_xi_query_device_infos_iterator(reply.get()); infos.rem > 0;
             xcb_input_xi_device_info_next(&infos))
            if (std::string(xcb_input_xi_device_info_name(infos.data),
                            static_cast<std::size_t>(xcb_input_xi_device_info_name_length(infos.data))) ==
                name)
                return infos.data->deviceid;
        return 0;
    }

    X11Connection& _x11 = X11Connection::shared();
    xcb_input_device_id_t _device = 0;
};

xcb_window_t windowIn(X11Connection& x11, xcb_window_t parent)
{
    const xcb_window_t window = xcb_generate_id(x11.get());
    xcb_create_window(x11.get(), 0, window, parent, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

} // namespace

TEST(X11PointerQuestion, answer_isOfTheProgramsOwnPointer)
{
    auto& x11 = X11Connection::shared();
    EXPECT_EQ(pointerState(x11).device, corePointer);
    {
        const SecondPointer second;
        ASSERT_NE(second.device(), 0);
        second.warp(123, 45);
        const X11PointerState state = pointerState(x11);
        EXPECT_EQ(state.device, second.device());
        EXPECT_EQ(state.x, 123);
        EXPECT_EQ(state.y, 45);
        EXPECT_FALSE(state.anyButtonDown);
    }
    EXPECT_EQ(pointerState(x11).device, corePointer);
}

TEST(X11OutermostQuestion, answer_isTheAncestorBelowTheRoot_alsoStepByStep)
{
    auto& x11 = X11Connection::shared();
    const xcb_window_t frame = windowIn(x11, x11.root());
    const xcb_window_t window = windowIn(x11, frame);
    const xcb_window_t focus = windowIn(x11, window);
    EXPECT_EQ(outermostWindow(x11, focus), frame);
    EXPECT_EQ(outermostWindow(x11, frame), frame);
    EXPECT_EQ(outermostWindow(x11, XCB_WINDOW_NONE), xcb_window_t{XCB_WINDOW_NONE});

    X11OutermostQuestion question(x11, focus);
    EXPECT_EQ(question.of(), focus);
    EXPECT_TRUE(question.advance());
    EXPECT_TRUE(question.advance());
    EXPECT_FALSE(question.advance());
    EXPECT_FALSE(question.advance()) << "there is nothing left to ask";
    EXPECT_EQ(question.answer(), frame);

    xcb_destroy_window(x11.get(), frame);
    EXPECT_EQ(outermostWindow(x11, focus), focus) << "it is gone";
}
