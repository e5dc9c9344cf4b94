// SPDX-License-Identifier: MIT
#include "tests/fuzz/WindowTable.h"

#include <QList>
#include <xcb/res.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace tarnwick {

namespace {

QList<QByteArray>& atoms()
{
    static QList<QByteArray> names{"NONE"};
    return names;
}

/// What was asked, by the number of the question.
template <typename Question>
class Questions
{
public:
    unsigned int ask(const Question& question)
    {
        _asked.insert(++_last, question);
        return _last;
    }

    Question take(unsigned int number) { return _asked.take(number); }
    void forget(unsigned int number) { _asked.remove(number); }

private:
    static inline unsigned int _last = 0; // one count for all kinds
    QHash<unsigned int, Question> _asked;
};

struct PropertyQuestion
{
    xcb_window_t window = XCB_WINDOW_NONE;
    xcb_atom_t property = XCB_ATOM_NONE;
    quint32 words = 0;
};

Questions<PropertyQuestion> propertyQuestions;
Questions<xcb_window_t> attributeQuestions;
Questions<xcb_window_t> treeQuestions;
Questions<xcb_window_t> processQuestions;

/// A reply with room behind it; to be freed by whoever asked.
template <typename Reply>
Reply* answer(qsizetype behind = 0)
{
    return static_cast<Reply*>(std::calloc(1, sizeof(Reply) + static_cast<std::size_t>(behind)));
}

const WindowTable::Window* windowOf(xcb_window_t window)
{
    const auto& windows = WindowTable::shared().windows;
    const auto found = windows.constFind(window);
    return found == windows.cend() ? nullptr : &*found;
}

} // namespace

WindowTable& WindowTable::shared()
{
    static WindowTable table;
    return table;
}

xcb_atom_t WindowTable::atom(const QByteArray& name)
{
    const qsizetype known = atoms().indexOf(name);
    if (known >= 0)
        return static_cast<xcb_atom_t>(known);
    atoms().append(name);
    return static_cast<xcb_atom_t>(atoms().size() - 1);
}

} // namespace tarnwick

using namespace tarnwick;

// In place of those of the library.
extern "C" {

const xcb_setup_t* xcb_get_setup(xcb_connection_t* /*connection*/)
{
    struct Setup
    {
        xcb_setup_t setup;
        xcb_screen_t screen;
    };
    static const Setup all = [] {
        Setup made{};
        made.setup.roots_len = 1;
        made.screen.root = WindowTable::Root;
        return made;
    }();
    return &all.setup;
}

const xcb_query_extension_reply_t* xcb_get_extension_data(xcb_connection_t* /*connection*/,
                                                          xcb_extension_t* /*extension*/)
{
    static const xcb_query_extension_reply_t there = [] {
        xcb_query_extension_reply_t made{};
        made.present = 1;
        return made;
    }();
    return &there;
}

xcb_intern_atom_cookie_t xcb_intern_atom(xcb_connection_t* /*connection*/, std::uint8_t /*onlyIfExists*/,
                                         std::uint16_t length, const char* name)
{
    return {WindowTable::atom(QByteArray(name, length))};
}

xcb_intern_atom_reply_t* xcb_intern_atom_reply(xcb_connection_t* /*connection*/,
                                               xcb_intern_atom_cookie_t cookie,
                                               xcb_generic_error_t** /*error*/)
{
    auto* reply = answer<xcb_intern_atom_reply_t>();
    reply->atom = cookie.sequence;
    return reply;
}

xcb_get_property_cookie_t xcb_get_property(xcb_connection_t* /*connection*/, std::uint8_t /*deletes*/,
                                           xcb_window_t window, xcb_atom_t property, xcb_atom_t /*type*/,
                                           std::uint32_t /*offset*/, std::uint32_t words)
{
    return {propertyQuestions.ask({window, property, words})};
}

xcb_get_property_reply_t* xcb_get_property_reply(xcb_connection_t* /*connection*/,
                                                 xcb_get_property_cookie_t cookie,
                                                 xcb_generic_error_t** /*error*/)
{
    const auto question = propertyQuestions.take(cookie.sequence);
    const auto* window = windowOf(question.window);
    if (!window)
        return nullptr;
    const auto found = window->properties.constFind(question.property);
    if (found == window->properties.cend())
        return answer<xcb_get_property_reply_t>();
    const qsizetype unit = found->format / 8;
    const qsizetype size = std::min<qsizetype>(found->contents.size(), qsizetype{question.words} * 4);
    const qsizetype items = size / unit;
    auto* reply = answer<xcb_get_property_reply_t>(items * unit);
    reply->format = found->format;
    reply->type = XCB_ATOM_STRING;
    reply->value_len = static_cast<std::uint32_t>(items);
    reply->bytes_after = static_cast<std::uint32_t>(found->contents.size() - items * unit);
    reply->length = static_cast<std::uint32_t>((items * unit + 3) / 4);
    if (items > 0)
        std::memcpy(reply + 1, found->contents.constData(), static_cast<std::size_t>(items * unit));
    return reply;
}

xcb_get_window_attributes_cookie_t xcb_get_window_attributes(xcb_connection_t* /*connection*/,
                                                             xcb_window_t window)
{
    return {attributeQuestions.ask(window)};
}

xcb_get_window_attributes_reply_t* xcb_get_window_attributes_reply(xcb_connection_t* /*connection*/,
                                                                   xcb_get_window_attributes_cookie_t cookie,
                                                                   xcb_generic_error_t** /*error*/)
{
    const auto* window = windowOf(attributeQuestions.take(cookie.sequence));
    if (!window)
        return nullptr;
    auto* reply = answer<xcb_get_window_attributes_reply_t>();
    reply->map_state = window->mapped ? XCB_MAP_STATE_VIEWABLE : XCB_MAP_STATE_UNMAPPED;
    reply->override_redirect = window->overrideRedirect ? 1 : 0;
    return reply;
}

xcb_query_tree_cookie_t xcb_query_tree(xcb_connection_t* /*connection*/, xcb_window_t window)
{
    return {treeQuestions.ask(window)};
}

xcb_query_tree_reply_t* xcb_query_tree_reply(xcb_connection_t* /*connection*/, xcb_query_tree_cookie_t cookie,
                                             xcb_generic_error_t** /*error*/)
{
    const xcb_window_t asked = treeQuestions.take(cookie.sequence);
    const auto* window = windowOf(asked);
    if (!window)
        return nullptr;
    QList<xcb_window_t> children;
    const auto& windows = WindowTable::shared().windows;
    for (auto other = windows.cbegin(); other != windows.cend(); ++other)
        if (other->parent == asked && other.key() != asked)
            children.append(other.key());
    std::sort(children.begin(), children.end());
    const qsizetype size = children.size() * qsizetype{sizeof(xcb_window_t)};
    auto* reply = answer<xcb_query_tree_reply_t>(size);
    reply->root = WindowTable::Root;
    reply->parent = asked == WindowTable::Root ? xcb_window_t(XCB_WINDOW_NONE) : window->parent;
    reply->children_len = static_cast<std::uint16_t>(children.size());
    if (size > 0)
        std::memcpy(reply + 1, children.constData(), static_cast<std::size_t>(size));
    return reply;
}

xcb_get_input_focus_cookie_t xcb_get_input_focus(xcb_connection_t* /*connection*/)
{
    return {0};
}

xcb_get_input_focus_reply_t* xcb_get_input_focus_reply(xcb_connection_t* /*connection*/,
                                                       xcb_get_input_focus_cookie_t /*cookie*/,
                                                       xcb_generic_error_t** /*error*/)
{
    auto* reply = answer<xcb_get_input_focus_reply_t>();
    reply->focus = WindowTable::shared().focus;
    return reply;
}

xcb_res_query_client_ids_cookie_t xcb_res_query_client_ids(xcb_connection_t* /*connection*/,
                                                           std::uint32_t /*count*/,
                                                           const xcb_res_client_id_spec_t* wanted)
{
    return {processQuestions.ask(wanted->client)};
}

xcb_res_query_client_ids_reply_t* xcb_res_query_client_ids_reply(xcb_connection_t* /*connection*/,
                                                                 xcb_res_query_client_ids_cookie_t cookie,
                                                                 xcb_generic_error_t** /*error*/)
{
    const auto* window = windowOf(processQuestions.take(cookie.sequence));
    struct Told
    {
        xcb_res_client_id_spec_t client;
        std::uint32_t bytes;
        std::uint32_t process;
    };
    const bool isKnown = window && window->process;
    auto* reply = answer<xcb_res_query_client_ids_reply_t>(sizeof(Told));
    reply->num_ids = isKnown ? 1 : 0;
    if (isKnown) {
        const Told told{
            {0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID}, sizeof(std::uint32_t), *window->process};
        std::memcpy(reply + 1, &told, sizeof told);
    }
    return reply;
}

void xcb_discard_reply(xcb_connection_t* /*connection*/, unsigned int sequence)
{
    propertyQuestions.forget(sequence);
    attributeQuestions.forget(sequence);
    treeQuestions.forget(sequence);
    processQuestions.forget(sequence);
}

} // extern "C"
