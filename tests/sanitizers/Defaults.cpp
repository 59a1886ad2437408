// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0
//
// Linked into every program of a sanitized build, the processes that tests start included: what the sanitizers are to
// leave out, and why. All of it is the distribution's libraries' own.

#pragma GCC visibility push(default)

extern "C" {

// A library that is unloaded at the end could not be named below.
int dlclose(void *)
{
    return 0;
}

const char *__lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier): the sanitizer's name
{
    return "leak:QScreen::QScreen\n" // platform plugins do not take back the screens that they announced
           "leak:libqoffscreen.so\n" // likewise
           "leak:swrast_dri.so\n"    // the renderer's tables
           "leak:libdbus-1.so.3\n";  // the connection to the session bus
}

const char *__lsan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "print_suppressions=0";
}

// What Qt does with its own data and the threads' library is Qt's; what it does with ours, it is called for.
const char *__tsan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "ignore_noninstrumented_modules=1";
}
}

#pragma GCC visibility pop
