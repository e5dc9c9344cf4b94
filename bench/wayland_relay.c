// SPDX-License-Identifier: MIT
// What a program and its compositor say to each other, seen from in between: neither has to tell anything.
//   bench_wayland_relay SOCKET COMPOSITOR
// hands everything on between those who connect to SOCKET and the compositor at COMPOSITOR (both are paths),
// and writes a line for each of these moments, with the microseconds of the monotonic clock:
//   ground      a surface has been made a layer
//   handed-over the program has given the compositor the first picture of a pop-up
//   shown       the compositor has said that the frame with that picture is over: it asks for the next one
//   closed      the program has taken the pop-up back
// Each line from the standard input is answered by "asked N surfaces M": how many answers were waited for
// (wl_display.sync) and surfaces made so far. Ends with the standard input.
#define _GNU_SOURCE
#include <inttypes.h>
#include <poll.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <time.h>
#include <unistd.h>

enum {
    MaximumPairs = 16,
    MaximumObjects = 65536, // of the program's; they are used again
    ChunkSize = 65536,
    MaximumDescriptors = 28, // in one message of the socket, as the libraries have it
    HeadSize = 8,
    MaximumMessage = 65536,
    DisplayObject = 1,
};

enum kind { None, Registry, Compositor, WindowBase, LayerShell, Surface, WindowSurface, PopUp, Callback };

struct object
{
    enum kind kind;
    uint32_t surface; // what the object belongs to; 0 for none
    int is_popup;     // the rest is of surfaces
    int has_picture;
    int handed_over;
};

struct direction
{
    int from;
    int to;
    size_t size;
    uint8_t pending[2 * MaximumMessage];
};

struct pair
{
    struct direction requests;
    struct direction events;
    struct object objects[MaximumObjects];
};

static struct pair* pairs[MaximumPairs];
static int pair_count;
static long asked;
static long surfaces;
static const char* compositor_path;

static void fail(const char* what)
{
    fprintf(stderr, "bench_wayland_relay: %s\n", what);
    exit(1);
}

static uint64_t now_in_microseconds(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (uint64_t)time.tv_sec * 1000000 + (uint64_t)time.tv_nsec / 1000;
}

static void tell(const char* moment)
{
    printf("%s %" PRIu64 "\n", moment, now_in_microseconds());
}

static struct object* object(struct pair* pair, uint32_t id)
{
    static struct object nobody; // the compositor's own
    return id < MaximumObjects ? &pair->objects[id] : &nobody;
}

static void make(struct pair* pair, uint32_t id, enum kind kind, uint32_t surface)
{
    *object(pair, id) = (struct object){.kind = kind, .surface = surface};
}

static enum kind kind_of_interface(const char* name)
{
    if (strcmp(name, "wl_compositor") == 0)
        return Compositor;
    if (strcmp(name, "xdg_wm_base") == 0)
        return WindowBase;
    return strcmp(name, "zwlr_layer_shell_v1") == 0 ? LayerShell : None;
}

static void on_bind(struct pair* pair, const uint32_t* words)
{
    const uint32_t length = words[1]; // of the name, with its end
    const uint32_t id = words[2 + (length + 3) / 4 + 1];
    make(pair, id, kind_of_interface((const char*)(words + 2)), 0);
}

static void on_surface_request(struct pair* pair, struct object* surface, uint32_t id, uint16_t opcode,
                               const uint32_t* words)
{
    enum { Attach = 1, Frame = 3, Commit = 6 };
    if (opcode == Attach)
        surface->has_picture = words[0] != 0;
    else if (opcode == Frame && surface->is_popup && !surface->handed_over)
        make(pair, words[0], Callback, id);
    else if (opcode == Frame)
        make(pair, words[0], None, 0);
    else if (opcode == Commit && surface->is_popup && surface->has_picture && !surface->handed_over) {
        surface->handed_over = 1;
        tell("handed-over");
    }
}

static void on_request(struct pair* pair, uint32_t id, uint16_t opcode, const uint32_t* words)
{
    struct object* target = object(pair, id);
    if (id == DisplayObject && opcode == 0)
        ++asked;
    else if (id == DisplayObject)
        make(pair, words[0], Registry, 0);
    else if (target->kind == Registry)
        on_bind(pair, words);
    else if (target->kind == Compositor && opcode == 0) {
        make(pair, words[0], Surface, 0);
        ++surfaces;
    } else if (target->kind == WindowBase && opcode == 2)
        make(pair, words[0], WindowSurface, words[1]);
    else if (target->kind == LayerShell && opcode == 0)
        tell("ground");
    else if (target->kind == WindowSurface && opcode == 2) {
        make(pair, words[0], PopUp, target->surface);
        object(pair, target->surface)->is_popup = 1;
    } else if (target->kind == PopUp && opcode == 0)
        tell("closed");
    else if (target->kind == Surface)
        on_surface_request(pair, target, id, opcode, words);
}

static void on_event(struct pair* pair, uint32_t id, uint16_t opcode, const uint32_t* words)
{
    if (id == DisplayObject && opcode == 1)
        make(pair, words[0], None, 0);
    else if (object(pair, id)->kind == Callback) {
        tell("shown");
        make(pair, id, None, 0);
    }
}

/// Looks at the messages that are there as a whole by now.
static void look(struct pair* pair, struct direction* direction)
{
    size_t begin = 0;
    while (direction->size - begin >= HeadSize) {
        uint32_t head[2];
        memcpy(head, direction->pending + begin, HeadSize);
        const size_t size = head[1] >> 16;
        if (size < HeadSize)
            fail("these are no messages");
        if (direction->size - begin < size)
            break;
        static uint32_t words[MaximumMessage / 4];
        memcpy(words, direction->pending + begin + HeadSize, size - HeadSize);
        if (direction == &pair->requests)
            on_request(pair, head[0], (uint16_t)head[1], words);
        else
            on_event(pair, head[0], (uint16_t)head[1], words);
        begin += size;
    }
    memmove(direction->pending, direction->pending + begin, direction->size - begin);
    direction->size -= begin;
}

/// Whether all of it was taken.
static int hand_on(const struct direction* direction, struct msghdr* message, size_t size)
{
    struct iovec* part = message->msg_iov;
    part->iov_len = size;
    while (part->iov_len > 0) {
        const ssize_t sent = sendmsg(direction->to, message, MSG_NOSIGNAL);
        if (sent < 0)
            return 0;
        part->iov_base = (char*)part->iov_base + sent;
        part->iov_len -= (size_t)sent;
        message->msg_control = NULL;
        message->msg_controllen = 0;
    }
    return 1;
}

/// They belong to whoever they were handed on to.
static void close_descriptors(struct msghdr* message)
{
    for (struct cmsghdr* head = CMSG_FIRSTHDR(message); head; head = CMSG_NXTHDR(message, head)) {
        const size_t count = (head->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (size_t i = 0; i < count; ++i) {
            int descriptor;
            memcpy(&descriptor, CMSG_DATA(head) + i * sizeof(int), sizeof(int));
            close(descriptor);
        }
    }
}

/// Whether both sides are still there.
static int relay(struct pair* pair, struct direction* direction)
{
    union {
        struct cmsghdr head;
        char space[CMSG_SPACE(MaximumDescriptors * sizeof(int))];
    } control;
    static char chunk[ChunkSize];
    struct iovec part = {chunk, sizeof chunk};
    struct msghdr message = {.msg_iov = &part,
                             .msg_iovlen = 1,
                             .msg_control = control.space,
                             .msg_controllen = sizeof control.space};
    const ssize_t size = recvmsg(direction->from, &message, MSG_CMSG_CLOEXEC);
    if (size <= 0)
        return 0;
    struct msghdr received = message;
    if (message.msg_controllen == 0)
        message.msg_control = NULL;
    const int handed_on = hand_on(direction, &message, (size_t)size);
    close_descriptors(&received);
    memcpy(direction->pending + direction->size, chunk, (size_t)size);
    direction->size += (size_t)size;
    look(pair, direction);
    return handed_on;
}

static struct sockaddr_un address_of(const char* path)
{
    struct sockaddr_un address = {.sun_family = AF_UNIX};
    if (strlen(path) >= sizeof address.sun_path)
        fail("a path is too long");
    strcpy(address.sun_path, path);
    return address;
}

static void take_in_program(int listener)
{
    const struct sockaddr_un address = address_of(compositor_path);
    const int program = accept(listener, NULL, NULL);
    const int compositor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    struct pair* pair = calloc(1, sizeof *pair);
    if (program < 0 || !pair || pair_count == MaximumPairs)
        fail("too many programs");
    if (connect(compositor, (const struct sockaddr*)&address, sizeof address) != 0)
        fail("no compositor");
    pair->requests.from = pair->events.to = program;
    pair->requests.to = pair->events.from = compositor;
    pairs[pair_count++] = pair;
}

static void take_out(int index)
{
    close(pairs[index]->requests.from);
    close(pairs[index]->requests.to);
    free(pairs[index]);
    pairs[index] = pairs[--pair_count];
}

static int listen_at(const char* path)
{
    const struct sockaddr_un address = address_of(path);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(listener, (const struct sockaddr*)&address, sizeof address) != 0 || listen(listener, 8) != 0)
        fail("no socket");
    return listener;
}

/// Whether there may be more of them.
static int answer_question(void)
{
    char line[64];
    if (!fgets(line, sizeof line, stdin))
        return 0;
    printf("asked %ld surfaces %ld\n", asked, surfaces);
    return 1;
}

int main(int argc, char** argv)
{
    if (argc != 3) {
        fputs("bench_wayland_relay SOCKET COMPOSITOR\n", stderr);
        return 2;
    }
    setvbuf(stdout, NULL, _IOLBF, 0);
    setvbuf(stdin, NULL, _IONBF, 0);
    compositor_path = argv[2];
    const int listener = listen_at(argv[1]);
    puts("ready");
    for (;;) {
        struct pollfd watched[2 + 2 * MaximumPairs] = {{STDIN_FILENO, POLLIN, 0}, {listener, POLLIN, 0}};
        const int count = pair_count;
        for (int i = 0; i < count; ++i) {
            watched[2 + 2 * i] = (struct pollfd){pairs[i]->requests.from, POLLIN, 0};
            watched[3 + 2 * i] = (struct pollfd){pairs[i]->events.from, POLLIN, 0};
        }
        if (poll(watched, (nfds_t)(2 + 2 * count), -1) < 0)
            fail("nothing can be waited for");
        for (int i = count - 1; i >= 0; --i) {
            int there = !watched[2 + 2 * i].revents || relay(pairs[i], &pairs[i]->requests);
            there = there && (!watched[3 + 2 * i].revents || relay(pairs[i], &pairs[i]->events));
            if (!there)
                take_out(i);
        }
        if (watched[1].revents)
            take_in_program(listener);
        if (watched[0].revents && !answer_question())
            return 0;
    }
}
