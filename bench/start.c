// SPDX-License-Identifier: MIT
// How long a program takes from its start until it can be used.
//   bench_start ROUNDS tray COMMAND...               until it asks for a place in the tray
//   bench_start ROUNDS key KEY MODIFIERS COMMAND...  until it holds a key (X key code, X state bits)
// prints the microseconds of each round, one a line. It is the tray of the display meanwhile, for both. The
// program is ended after each round.
#include <xcb/xcb.h>

#include <errno.h>
#include <inttypes.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <time.h>

enum {
    Patience = 20000000, // microseconds
    Look = 1,            // milliseconds
};

extern char** environ;

static xcb_connection_t* server;
static xcb_window_t root;
static xcb_atom_t tray_opcode;

static void fail(const char* what)
{
    fprintf(stderr, "bench_start: %s\n", what);
    exit(1);
}

static uint64_t now_in_microseconds(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (uint64_t)time.tv_sec * 1000000 + (uint64_t)time.tv_nsec / 1000;
}

static xcb_atom_t atom(const char* name)
{
    xcb_intern_atom_reply_t* reply =
        xcb_intern_atom_reply(server, xcb_intern_atom(server, 0, (uint16_t)strlen(name), name), NULL);
    if (!reply)
        fail("no atom");
    const xcb_atom_t found = reply->atom;
    free(reply);
    return found;
}

static void be_the_tray(void)
{
    const xcb_window_t window = xcb_generate_id(server);
    xcb_create_window(server, XCB_COPY_FROM_PARENT, window, root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, NULL);
    xcb_set_selection_owner(server, window, atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
    tray_opcode = atom("_NET_SYSTEM_TRAY_OPCODE");
    xcb_flush(server);
}

/// Whether something came from a program that wants to be in the tray.
static int docked(void)
{
    int found = 0;
    xcb_generic_event_t* event = NULL;
    while ((event = xcb_poll_for_event(server))) {
        const xcb_client_message_event_t* message = (const xcb_client_message_event_t*)event;
        found |= (event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message->type == tray_opcode &&
                 message->data.data32[1] == 0;
        free(event);
    }
    return found;
}

/// Whether somebody holds the key. Nobody can try to take it while this looks.
static int key_is_held(uint8_t key, uint16_t modifiers)
{
    xcb_grab_server(server);
    xcb_generic_error_t* error =
        xcb_request_check(server, xcb_grab_key_checked(server, 0, root, modifiers, key, XCB_GRAB_MODE_ASYNC,
                                                       XCB_GRAB_MODE_ASYNC));
    if (!error)
        xcb_ungrab_key(server, key, root, modifiers);
    xcb_ungrab_server(server);
    xcb_flush(server);
    const int held = error != NULL;
    free(error);
    return held;
}

static pid_t start(char** command)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", 1, 0); // 1: for writing
    posix_spawn_file_actions_adddup2(&actions, 1, 2);
    pid_t pid = 0;
    if (posix_spawn(&pid, command[0], &actions, NULL, command, environ) != 0)
        fail(command[0]);
    posix_spawn_file_actions_destroy(&actions);
    return pid;
}

static void end(pid_t pid)
{
    kill(pid, SIGTERM);
    while (waitpid(pid, NULL, 0) < 0 && errno == EINTR)
        ;
}

static void wait_a_moment(void)
{
    struct pollfd descriptor = {xcb_get_file_descriptor(server), POLLIN, 0};
    poll(&descriptor, 1, Look);
}

int main(int argc, char** argv)
{
    const int for_key = argc > 5 && strcmp(argv[2], "key") == 0;
    if (!for_key && (argc < 4 || strcmp(argv[2], "tray") != 0)) {
        fprintf(stderr, "bench_start ROUNDS tray|key [KEY MODIFIERS] COMMAND...\n");
        return 2;
    }
    server = xcb_connect(NULL, NULL);
    if (xcb_connection_has_error(server))
        fail("no X server");
    root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    be_the_tray();
    const uint8_t key = for_key ? (uint8_t)atoi(argv[3]) : 0;
    const uint16_t modifiers = for_key ? (uint16_t)atoi(argv[4]) : 0;
    char** command = argv + (for_key ? 5 : 3);
    const long rounds = strtol(argv[1], NULL, 10);
    for (long round = 0; round < rounds; ++round) {
        while (for_key && key_is_held(key, modifiers)) // the last one's
            wait_a_moment();
        docked();
        const uint64_t begin = now_in_microseconds();
        const pid_t pid = start(command);
        while (for_key ? !key_is_held(key, modifiers) : !docked()) {
            wait_a_moment();
            if (now_in_microseconds() - begin > Patience)
                fail("it does not come up");
        }
        printf("%" PRIu64 "\n", now_in_microseconds() - begin);
        end(pid);
    }
    xcb_disconnect(server);
    return 0;
}
