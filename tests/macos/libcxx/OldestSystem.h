// SPDX-License-Identifier: MIT
// Read before everything else where Apple's build is compiled on another system: what the oldest macOS that
// we are built for does not have of libc++ is not there, though the libc++ at hand has it.
#pragma once

#include <version>
#if __has_include(<__availability>)
#include <__availability>
#elif __has_include(<__configuration/availability.h>)
#include <__configuration/availability.h>
#endif

// A number is written since 14, and read since 20; an older libc++ has nothing that could be taken away.
#if _LIBCPP_VERSION >= 14000
#ifndef _LIBCPP_AVAILABILITY_TO_CHARS_FLOATING_POINT
#error "This libc++ says in another way what a system does not have"
#endif
#undef _LIBCPP_AVAILABILITY_TO_CHARS_FLOATING_POINT
#define _LIBCPP_AVAILABILITY_TO_CHARS_FLOATING_POINT __attribute__((unavailable("before macOS 13.3")))
#endif

#if _LIBCPP_VERSION >= 200000
#ifndef _LIBCPP_AVAILABILITY_FROM_CHARS_FLOATING_POINT
#error "This libc++ says in another way what a system does not have"
#endif
#undef _LIBCPP_AVAILABILITY_FROM_CHARS_FLOATING_POINT
#define _LIBCPP_AVAILABILITY_FROM_CHARS_FLOATING_POINT __attribute__((unavailable("before macOS 26")))
#endif
