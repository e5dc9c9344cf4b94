// SPDX-License-Identifier: MIT
// How fast a menu can be read at all: the fewest calls that carry the facts of its items, all on their way at
// once, and nothing done with the answers but to take them out of the message.
//   bench_floor ADDRESS SERVICE PATH gtk|qt|gtk-bar|qt-bar ROUNDS
//   bench_floor ADDRESS SERVICE PATH gtk-model ROUNDS GROUP ACTIONS...
//   bench_floor ADDRESS SERVICE PATH dbusmenu ROUNDS NUMBER
// The second reads a group of an exported model and the actions at these paths, the third an entry of a menu
// that is exported for outside of windows. Each prints the microseconds of each round, one a
// line, then "messages N" for one round.
#include <systemd/sd-bus.h>

#include <inttypes.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

enum { MaximumItems = 20000, MaximumOutstanding = 2000 };

static const char* const accessible = "org.a11y.atspi.Accessible";

struct item
{
    char* service;
    char* path;
};

static struct item items[MaximumItems];
static int item_count;
static long outstanding;
static long messages;
static size_t answered_bytes; // so that nothing is left out as unused

static void fail(const char* what, int error)
{
    fprintf(stderr, "bench_floor: %s: %s\n", what, strerror(-error));
    exit(1);
}

static uint64_t now_in_microseconds(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (uint64_t)time.tv_sec * 1000000 + (uint64_t)time.tv_nsec / 1000;
}

static void take(sd_bus_message* reply)
{
    char kind = 0;
    const char* contents = NULL;
    while (sd_bus_message_peek_type(reply, &kind, &contents) > 0) {
        if (kind == 'v' || kind == 'a' || kind == 'r' || kind == 'e') {
            if (sd_bus_message_enter_container(reply, kind, contents) < 0)
                return;
            take(reply);
            sd_bus_message_exit_container(reply);
        } else if (kind == 's' || kind == 'o') {
            const char* text = NULL;
            if (sd_bus_message_read_basic(reply, kind, &text) < 0)
                return;
            answered_bytes += strlen(text);
        } else {
            uint64_t number = 0;
            if (sd_bus_message_read_basic(reply, kind, &number) < 0)
                return;
            answered_bytes += number & 1;
        }
    }
}

static int on_reply(sd_bus_message* reply, void* data, sd_bus_error* error)
{
    (void)data;
    (void)error;
    --outstanding;
    take(reply);
    return 1;
}

static void step(sd_bus* bus)
{
    const int done = sd_bus_process(bus, NULL);
    if (done < 0)
        fail("reading from the bus", done);
    if (done == 0)
        sd_bus_wait(bus, UINT64_MAX);
}

static sd_bus_message* call_on(sd_bus* bus, const struct item* item, const char* interface,
                               const char* member)
{
    sd_bus_message* message = NULL;
    const int error =
        sd_bus_message_new_method_call(bus, &message, item->service, item->path, interface, member);
    if (error < 0)
        fail("a call", error);
    return message;
}

static void send_off(sd_bus* bus, sd_bus_message* message)
{
    while (outstanding >= MaximumOutstanding)
        step(bus);
    const int error = sd_bus_call_async(bus, NULL, message, on_reply, NULL, 0);
    if (error < 0)
        fail("sending", error);
    sd_bus_message_unref(message);
    ++outstanding;
    ++messages;
}

/// Entries of a menu bar have no key binding of their own, and their states tell which are hidden.
static void ask_about(sd_bus* bus, const struct item* item, int qt, int in_bar)
{
    sd_bus_message* message = call_on(bus, item, "org.freedesktop.DBus.Properties", "Get");
    sd_bus_message_append(message, "ss", accessible, "Name");
    send_off(bus, message);
    send_off(bus, call_on(bus, item, accessible, "GetRole"));
    send_off(bus, call_on(bus, item, accessible, "GetState"));
    if (!in_bar) {
        message = call_on(bus, item, "org.a11y.atspi.Action", "GetKeyBinding");
        sd_bus_message_append(message, "i", 0);
        send_off(bus, message);
    }
    if (!qt)
        return;
    // Whether it holds a menu, and whether it is hidden, is not in the answers above.
    message = call_on(bus, item, accessible, "GetChildAtIndex");
    sd_bus_message_append(message, "i", 0);
    send_off(bus, message);
    if (in_bar)
        return;
    message = call_on(bus, item, "org.a11y.atspi.Component", "GetExtents");
    sd_bus_message_append(message, "u", (uint32_t)0);
    send_off(bus, message);
}

static void read_children(sd_bus* bus, const struct item* menu)
{
    sd_bus_message* reply = NULL;
    sd_bus_message* call = call_on(bus, menu, accessible, "GetChildren");
    const int error = sd_bus_call(bus, call, 0, NULL, &reply);
    if (error < 0)
        fail("GetChildren", error);
    ++messages;
    sd_bus_message_unref(call);
    sd_bus_message_enter_container(reply, 'a', "(so)");
    const char* service = NULL;
    const char* path = NULL;
    while (item_count < MaximumItems && sd_bus_message_read(reply, "(so)", &service, &path) > 0) {
        items[item_count].service = strdup(service);
        items[item_count].path = strdup(path);
        ++item_count;
    }
    sd_bus_message_unref(reply);
}

/// Sends what nobody answers.
static void tell(sd_bus* bus, sd_bus_message* message)
{
    sd_bus_message_set_expect_reply(message, 0);
    const int error = sd_bus_send(bus, message, NULL);
    if (error < 0)
        fail("telling", error);
    sd_bus_message_unref(message);
    ++messages;
}

static sd_bus_message* group_call(sd_bus* bus, const struct item* menus, const char* member, uint32_t group)
{
    sd_bus_message* message = call_on(bus, menus, "org.gtk.Menus", member);
    sd_bus_message_append(message, "au", 1, group);
    return message;
}

static void finish(sd_bus* bus)
{
    while (outstanding > 0)
        step(bus);
}

static void read_model(sd_bus* bus, const struct item* menus, char** arguments)
{
    const uint32_t group = (uint32_t)strtoul(arguments[0], NULL, 10);
    send_off(bus, group_call(bus, menus, "Start", group));
    for (char** path = arguments + 1; *path; ++path) {
        const struct item actions = {menus->service, *path};
        send_off(bus, call_on(bus, &actions, "org.gtk.Actions", "DescribeAll"));
    }
    finish(bus);
    tell(bus, group_call(bus, menus, "End", group));
}

static void read_layout(sd_bus* bus, const struct item* menu, char** arguments)
{
    const int32_t number = (int32_t)strtol(arguments[0], NULL, 10);
    sd_bus_message* message = call_on(bus, menu, "com.canonical.dbusmenu", "AboutToShow");
    sd_bus_message_append(message, "i", number);
    send_off(bus, message);
    message = call_on(bus, menu, "com.canonical.dbusmenu", "GetLayout");
    sd_bus_message_append(message, "iias", number, 1, 8, "label", "enabled", "visible", "type", "toggle-type",
                          "toggle-state", "shortcut", "children-display");
    send_off(bus, message);
    finish(bus);
    message = call_on(bus, menu, "com.canonical.dbusmenu", "Event");
    sd_bus_message_append(message, "isvu", number, "closed", "i", 0, (uint32_t)0);
    tell(bus, message);
}

static void forget_items(void)
{
    for (int i = 0; i < item_count; ++i) {
        free(items[i].service);
        free(items[i].path);
    }
    item_count = 0;
}

static void read_tree(sd_bus* bus, const struct item* menu, const char* kind)
{
    const int qt = strncmp(kind, "qt", 2) == 0;
    const int in_bar = strstr(kind, "-bar") != NULL;
    read_children(bus, menu);
    for (int i = 0; i < item_count; ++i)
        ask_about(bus, &items[i], qt, in_bar);
    finish(bus);
}

static sd_bus* connect_to(const char* address)
{
    sd_bus* bus = NULL;
    int error = sd_bus_new(&bus);
    if (error >= 0)
        error = sd_bus_set_address(bus, address);
    if (error >= 0)
        error = sd_bus_set_bus_client(bus, 1);
    if (error >= 0)
        error = sd_bus_start(bus);
    if (error < 0)
        fail(address, error);
    return bus;
}

int main(int argc, char** argv)
{
    const int model = argc > 4 && strcmp(argv[4], "gtk-model") == 0;
    const int layout = argc > 4 && strcmp(argv[4], "dbusmenu") == 0;
    if (model || layout ? argc < 7 : argc != 6) {
        fprintf(stderr, "bench_floor ADDRESS SERVICE PATH gtk|qt|gtk-bar|qt-bar ROUNDS\n"
                        "bench_floor ADDRESS SERVICE PATH gtk-model ROUNDS GROUP ACTIONS...\n"
                        "bench_floor ADDRESS SERVICE PATH dbusmenu ROUNDS NUMBER\n");
        return 2;
    }
    sd_bus* bus = connect_to(argv[1]);
    struct item menu = {argv[2], argv[3]};
    const long rounds = strtol(argv[5], NULL, 10);
    for (long round = 0; round < rounds; ++round) {
        messages = 0;
        const uint64_t begin = now_in_microseconds();
        if (model)
            read_model(bus, &menu, argv + 6);
        else if (layout)
            read_layout(bus, &menu, argv + 6);
        else
            read_tree(bus, &menu, argv[4]);
        printf("%" PRIu64 "\n", now_in_microseconds() - begin);
        forget_items();
    }
    printf("messages %ld\n", messages);
    fprintf(stderr, "%zu\n", answered_bytes);
    sd_bus_unref(bus);
    return 0;
}
