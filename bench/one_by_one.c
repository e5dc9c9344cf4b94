// SPDX-License-Identifier: MIT
// The same facts as bench_floor reads, the usual way: libatspi, one call after another.
//   bench_one_by_one PID TITLE ROUNDS
// reads the menu of the bar's entry TITLE and prints the microseconds of each round, one a line. Runs with
// the session's bus in its environment; libatspi's own cache is emptied before each round.
#include <atspi/atspi.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static AtspiAccessible* application_of(guint pid)
{
    AtspiAccessible* desktop = atspi_get_desktop(0);
    const int count = atspi_accessible_get_child_count(desktop, NULL);
    for (int i = 0; i < count; ++i) {
        AtspiAccessible* child = atspi_accessible_get_child_at_index(desktop, i, NULL);
        if (child && atspi_accessible_get_process_id(child, NULL) == pid)
            return child;
    }
    return NULL;
}

static AtspiAccessible* child_with(AtspiAccessible* parent, AtspiRole role, const char* name)
{
    const int count = parent ? atspi_accessible_get_child_count(parent, NULL) : 0;
    for (int i = 0; i < count; ++i) {
        AtspiAccessible* child = atspi_accessible_get_child_at_index(parent, i, NULL);
        if (!child)
            continue;
        if (role != ATSPI_ROLE_INVALID && atspi_accessible_get_role(child, NULL) == role)
            return child;
        if (name && strcmp(atspi_accessible_get_name(child, NULL), name) == 0)
            return child;
        AtspiAccessible* below = name ? NULL : child_with(child, role, NULL);
        if (below)
            return below;
        g_object_unref(child);
    }
    return NULL;
}

static size_t read_item(AtspiAccessible* item)
{
    size_t seen = 0;
    gchar* name = atspi_accessible_get_name(item, NULL);
    seen += name ? strlen(name) : 0;
    g_free(name);
    seen += (size_t)atspi_accessible_get_role(item, NULL);
    AtspiStateSet* states = atspi_accessible_get_state_set(item);
    seen += atspi_state_set_contains(states, ATSPI_STATE_ENABLED) ? 1 : 0;
    g_object_unref(states);
    AtspiAction* action = atspi_accessible_get_action_iface(item);
    if (action) {
        gchar* binding = atspi_action_get_key_binding(action, 0, NULL);
        seen += binding ? strlen(binding) : 0;
        g_free(binding);
        g_object_unref(action);
    }
    seen += (size_t)atspi_accessible_get_child_count(item, NULL);
    return seen;
}

static size_t read_menu(AtspiAccessible* menu)
{
    size_t seen = 0;
    const int count = atspi_accessible_get_child_count(menu, NULL);
    for (int i = 0; i < count; ++i) {
        AtspiAccessible* item = atspi_accessible_get_child_at_index(menu, i, NULL);
        if (!item)
            continue;
        seen += read_item(item);
        g_object_unref(item);
    }
    return seen;
}

int main(int argc, char** argv)
{
    if (argc != 4) {
        fprintf(stderr, "bench_one_by_one PID TITLE ROUNDS\n");
        return 2;
    }
    atspi_init();
    AtspiAccessible* application = application_of((guint)strtoul(argv[1], NULL, 10));
    AtspiAccessible* bar = application ? child_with(application, ATSPI_ROLE_MENU_BAR, NULL) : NULL;
    AtspiAccessible* menu = bar ? child_with(bar, ATSPI_ROLE_INVALID, argv[2]) : NULL;
    // Qt puts a menu of its own between an entry and its items.
    if (menu && atspi_accessible_get_child_count(menu, NULL) == 1)
        menu = atspi_accessible_get_child_at_index(menu, 0, NULL);
    if (!menu) {
        fprintf(stderr, "bench_one_by_one: no menu %s\n", argv[2]);
        return 1;
    }
    const long rounds = strtol(argv[3], NULL, 10);
    size_t seen = 0;
    for (long round = 0; round < rounds; ++round) {
        atspi_accessible_clear_cache(menu);
        const gint64 begin = g_get_monotonic_time();
        seen += read_menu(menu);
        printf("%" G_GINT64_FORMAT "\n", g_get_monotonic_time() - begin);
    }
    fprintf(stderr, "%zu\n", seen);
    return 0;
}
