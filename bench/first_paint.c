// SPDX-License-Identifier: MIT
// When a menu is first painted, as a client sees it that has nothing to do with the program: keys and pointer
// go to the X server with XTest, and what the server reports through Damage and as mapped is all that counts.
//   bench_first_paint ROUNDS X Y HELD KEY            pops up at (X, Y) with KEY while HELD is down (codes)
//   bench_first_paint ROUNDS X Y HELD KEY LETTER     and then points at the entry that LETTER moves to
//   bench_first_paint --search ROUNDS X Y HELD KEY DOWN SLASH LETTER...
//                                                    and then moves the highlight, begins the search and
//                                                    types
// prints the microseconds of each round, one a line: from the key's press, or from the pointer's motion onto
// the entry, to the first report of something drawn in the new menu's window. HELD 0 holds nothing. With
// "--hurry" before all that it does not wait for a quiet screen in between. A search prints what each time is
// of: "highlight" from DOWN to what it draws; "read" from SLASH, with the first letter right behind it, to
// the last that is drawn as ever more menus are read; "letter" from each further one to what it draws.
#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <errno.h>
#include <inttypes.h>
#include <poll.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

enum {
    Patience = 20000000, // microseconds
    Quiet = 60000,       // nothing was drawn for so long
    Read = 400000,       // nothing was found for so long: no menu takes longer to be read
    EscapeKey = 9,       // by its place on the keyboard
    MaximumMenus = 4,
    MaximumKeys = 32,
};

struct area
{
    int left;
    int top;
    int right;
    int bottom;
};

struct menu
{
    xcb_window_t window;
    struct area area;
};

static int in_a_hurry;
static xcb_connection_t* server;
static xcb_window_t root;
static uint8_t damage_event;
static struct menu menus[MaximumMenus];
static int menu_count;
static struct area drawn;        // what was drawn in the newest menu since forget_drawn()
static uint64_t drawn_last;      // when something was drawn last
static uint64_t menu_drawn_last; // the same of the newest menu
static uint64_t first_painted;   // the first drawing in the newest menu since forget_drawn(); 0 for none yet

static void fail(const char* what)
{
    fprintf(stderr, "bench_first_paint: %s\n", what);
    exit(1);
}

static uint64_t now_in_microseconds(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (uint64_t)time.tv_sec * 1000000 + (uint64_t)time.tv_nsec / 1000;
}

static int smaller(int a, int b)
{
    return a < b ? a : b;
}

static int larger(int a, int b)
{
    return a > b ? a : b;
}

static int is_empty(struct area area)
{
    return area.right <= area.left || area.bottom <= area.top;
}

static struct area common(struct area a, struct area b)
{
    return (struct area){larger(a.left, b.left), larger(a.top, b.top), smaller(a.right, b.right),
                         smaller(a.bottom, b.bottom)};
}

static struct area united(struct area a, struct area b)
{
    if (is_empty(a))
        return b;
    return (struct area){smaller(a.left, b.left), smaller(a.top, b.top), larger(a.right, b.right),
                         larger(a.bottom, b.bottom)};
}

static int holds(struct area outer, struct area inner)
{
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

static void forget_drawn(void)
{
    drawn = (struct area){0, 0, 0, 0};
    first_painted = 0;
}

/// A submenu covers a part of its menu: what is drawn within the menu alone is none of the submenu's.
static int is_of_newest_menu(struct area area)
{
    if (menu_count == 0 || is_empty(common(area, menus[menu_count - 1].area)))
        return 0;
    for (int i = 0; i < menu_count - 1; ++i)
        if (holds(menus[i].area, area))
            return 0;
    return 1;
}

static void on_mapped(const xcb_map_notify_event_t* event)
{
    if (!event->override_redirect || menu_count == MaximumMenus)
        return;
    xcb_get_geometry_reply_t* geometry =
        xcb_get_geometry_reply(server, xcb_get_geometry(server, event->window), NULL);
    if (!geometry)
        return;
    const struct area area = {geometry->x, geometry->y, geometry->x + geometry->width,
                              geometry->y + geometry->height};
    free(geometry);
    menus[menu_count++] = (struct menu){event->window, area};
    forget_drawn(); // the entry that it opens from may have been drawn anew before
}

static void on_unmapped(xcb_window_t window)
{
    int kept = 0;
    for (int i = 0; i < menu_count; ++i)
        if (menus[i].window != window)
            menus[kept++] = menus[i];
    menu_count = kept;
}

static void on_drawn(const xcb_damage_notify_event_t* event, uint64_t when)
{
    const struct area area = {event->area.x, event->area.y, event->area.x + event->area.width,
                              event->area.y + event->area.height};
    drawn_last = when;
    if (!is_of_newest_menu(area))
        return;
    menu_drawn_last = when;
    drawn = united(drawn, area);
    if (first_painted == 0)
        first_painted = when;
}

static void take(const xcb_generic_event_t* event, uint64_t when)
{
    const uint8_t type = event->response_type & 0x7f;
    if (type == XCB_MAP_NOTIFY)
        on_mapped((const xcb_map_notify_event_t*)event);
    else if (type == XCB_UNMAP_NOTIFY)
        on_unmapped(((const xcb_unmap_notify_event_t*)event)->window);
    else if (type == damage_event)
        on_drawn((const xcb_damage_notify_event_t*)event, when);
}

/// Takes in what has come, and what comes within `limit` microseconds.
static void take_in(uint64_t limit)
{
    struct pollfd descriptor = {xcb_get_file_descriptor(server), POLLIN, 0};
    xcb_generic_event_t* event = xcb_poll_for_event(server);
    if (!event && poll(&descriptor, 1, (int)(limit / 1000)) > 0)
        event = xcb_poll_for_event(server);
    const uint64_t when = now_in_microseconds();
    while (event) {
        take(event, when);
        free(event);
        event = xcb_poll_for_event(server);
    }
    if (xcb_connection_has_error(server))
        fail("the X server has gone");
}

static void wait_for_quiet(void)
{
    if (in_a_hurry)
        return;
    const uint64_t begin = now_in_microseconds();
    drawn_last = begin;
    while (now_in_microseconds() - drawn_last < Quiet) {
        take_in(Quiet);
        if (now_in_microseconds() - begin > Patience)
            fail("the screen does not come to rest");
    }
}

static void wait_for_menus(int count)
{
    const uint64_t begin = now_in_microseconds();
    while (menu_count != count) {
        take_in(10000);
        if (now_in_microseconds() - begin > Patience)
            fail("not as many menus as there should be");
    }
}

/// The moment at which the newest of `count` menus was first drawn; 0 when that takes longer than `limit`.
static uint64_t painted_within(uint64_t limit, int count)
{
    const uint64_t begin = now_in_microseconds();
    while (menu_count != count || first_painted == 0) {
        take_in(10000);
        if (now_in_microseconds() - begin > limit)
            return 0;
    }
    return first_painted;
}

static void send_input(uint8_t type, uint8_t detail, int x, int y)
{
    xcb_test_fake_input(server, type, detail, XCB_CURRENT_TIME, root, (int16_t)x, (int16_t)y, 0);
    xcb_flush(server);
}

static void move_to(int x, int y)
{
    send_input(XCB_MOTION_NOTIFY, 0, x, y);
}

static void tap(uint8_t key)
{
    send_input(XCB_KEY_PRESS, key, 0, 0);
    send_input(XCB_KEY_RELEASE, key, 0, 0);
}

struct trigger
{
    int x;
    int y;
    uint8_t held;
    uint8_t key;
};

/// Microseconds from the press of the key to the first paint.
static uint64_t pop_up(struct trigger trigger)
{
    move_to(trigger.x, trigger.y);
    if (trigger.held)
        send_input(XCB_KEY_PRESS, trigger.held, 0, 0);
    wait_for_quiet();
    forget_drawn();
    const uint64_t begin = now_in_microseconds();
    send_input(XCB_KEY_PRESS, trigger.key, 0, 0);
    const uint64_t painted = painted_within(Patience, 1);
    if (painted == 0)
        fail("no menu was drawn");
    send_input(XCB_KEY_RELEASE, trigger.key, 0, 0);
    if (trigger.held)
        send_input(XCB_KEY_RELEASE, trigger.held, 0, 0);
    wait_for_quiet();
    return painted - begin;
}

static void close_menus(void)
{
    while (menu_count > 0) {
        const int left = menu_count - 1;
        tap(EscapeKey);
        wait_for_menus(left);
    }
    wait_for_quiet();
}

/// Where the entry is that the letter moves the highlight to: what is drawn is its row.
static struct area row_of(struct trigger trigger, uint8_t letter)
{
    pop_up(trigger);
    forget_drawn();
    tap(letter);
    if (painted_within(Patience, 1) == 0)
        fail("the letter moves to no entry");
    wait_for_quiet();
    const struct area row = common(drawn, menus[0].area);
    close_menus();
    return row;
}

/// The toolkit may make nothing of the first motion in a new menu: so that none is lost that counts, the
/// pointer moves beside the menu first, where no entry is.
static void move_beside_menu(int y)
{
    for (int step = 1; step <= 2; ++step) {
        forget_drawn();
        move_to(menus[0].area.left - 10 * step, y);
        wait_for_quiet();
        if (first_painted != 0)
            fail("something is drawn in the menu while the pointer is beside it");
    }
}

/// Microseconds from the pointer's motion onto the entry to the first paint of its submenu, however long it
/// takes.
static uint64_t open_submenu(struct trigger trigger, struct area row)
{
    const int x = (row.left + row.right) / 2;
    const int y = (row.top + row.bottom) / 2;
    pop_up(trigger);
    move_beside_menu(y);
    forget_drawn();
    const uint64_t begin = now_in_microseconds();
    move_to(x, y);
    const uint64_t painted = painted_within(Patience, 2);
    if (painted == 0)
        fail("no submenu was drawn");
    wait_for_quiet();
    return painted - begin;
}

/// Types a key in the menu; microseconds to the first that is drawn in it.
static uint64_t type(uint8_t key)
{
    forget_drawn();
    const uint64_t begin = now_in_microseconds();
    tap(key);
    const uint64_t painted = painted_within(Patience, 1);
    if (painted == 0)
        fail("a key draws nothing");
    wait_for_quiet();
    return painted - begin;
}

/// Begins the search; microseconds until what is found by the letter is no longer drawn anew.
static uint64_t search_whole(uint8_t slash, uint8_t letter)
{
    forget_drawn();
    const uint64_t begin = now_in_microseconds();
    tap(slash);
    tap(letter);
    if (painted_within(Patience, 1) == 0)
        fail("the search draws nothing");
    while (now_in_microseconds() - menu_drawn_last < Read)
        take_in(Read / 10);
    return menu_drawn_last - begin;
}

/// `keys`: what moves the highlight, begins the search and is typed.
static void search(struct trigger trigger, const uint8_t* keys, int count)
{
    pop_up(trigger);
    printf("highlight %" PRIu64 "\n", type(keys[0]));
    printf("read %" PRIu64 "\n", search_whole(keys[1], keys[2]));
    for (int i = 3; i < count; ++i)
        printf("letter %" PRIu64 "\n", type(keys[i]));
    tap(EscapeKey); // back to the menu
    wait_for_quiet();
    close_menus();
}

static void watch(void)
{
    server = xcb_connect(NULL, NULL);
    if (xcb_connection_has_error(server))
        fail("no X server");
    root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(server, &xcb_damage_id);
    if (!extension || !extension->present)
        fail("the X server has no Damage");
    damage_event = extension->first_event + XCB_DAMAGE_NOTIFY;
    free(xcb_damage_query_version_reply(server, xcb_damage_query_version(server, 1, 1), NULL));
    xcb_damage_create(server, xcb_generate_id(server), root, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(server, root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(server);
}

static int measure_search(int argc, char** argv)
{
    if (argc < 9 || argc - 6 > MaximumKeys)
        return 2;
    uint8_t keys[MaximumKeys];
    for (int i = 6; i < argc; ++i)
        keys[i - 6] = (uint8_t)atoi(argv[i]);
    const struct trigger trigger = {atoi(argv[2]), atoi(argv[3]), (uint8_t)atoi(argv[4]),
                                    (uint8_t)atoi(argv[5])};
    watch();
    for (long round = 0; round < strtol(argv[1], NULL, 10); ++round)
        search(trigger, keys, argc - 6);
    xcb_disconnect(server);
    return 0;
}

int main(int argc, char** argv)
{
    if (argc > 1 && strcmp(argv[1], "--search") == 0)
        return measure_search(argc - 1, argv + 1);
    if (argc > 1 && strcmp(argv[1], "--hurry") == 0) {
        in_a_hurry = 1;
        ++argv;
        --argc;
    }
    if (argc != 6 && argc != 7) {
        fprintf(stderr, "bench_first_paint [--hurry] ROUNDS X Y HELD KEY [LETTER]\n");
        return 2;
    }
    const long rounds = strtol(argv[1], NULL, 10);
    const struct trigger trigger = {atoi(argv[2]), atoi(argv[3]), (uint8_t)atoi(argv[4]),
                                    (uint8_t)atoi(argv[5])};
    watch();
    struct area row = {0, 0, 0, 0};
    if (argc == 7)
        row = row_of(trigger, (uint8_t)atoi(argv[6]));
    for (long round = 0; round < rounds; ++round) {
        printf("%" PRIu64 "\n", argc == 7 ? open_submenu(trigger, row) : pop_up(trigger));
        close_menus();
    }
    xcb_disconnect(server);
    return 0;
}
