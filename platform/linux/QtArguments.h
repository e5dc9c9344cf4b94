// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace tarnwick {

/// main's arguments as the toolkit's application object is to get them: with the option that keeps it from
/// grabbing keyboard and pointer for its pop-ups, since grabs of its own take the focus from the application
/// in front. Must outlive the application object.
class QtArguments
{
public:
    QtArguments(int argc, char** argv);
    QtArguments(const QtArguments&) = delete;
    QtArguments& operator=(const QtArguments&) = delete;

    [[nodiscard]] int& argc() { return _argc; }
    [[nodiscard]] char** argv() { return _argv.data(); }

private:
    int _argc;
    std::vector<char*> _argv;
};

} // namespace tarnwick
