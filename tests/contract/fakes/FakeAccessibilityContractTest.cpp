// SPDX-License-Identifier: MIT
#include "tests/contract/ax/AccessibilityContract.h"
#include "tests/fakes/FakeAccessibility.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

TEST(FakeAccessibility, keepsTheContract)
{
    FakeAccessibility accessibility;
    const auto application = accessibility.addApplication(1234, u"Editor"_s);
    accessibility.setMenuBar(application, MenuFile::read(u"editor"_s));
    accessibility.setFocusedApplication(application);
    AccessibilityContract contract(
        {.accessibility = accessibility,
         .processIdentifier = 1234,
         .title = u"Editor"_s,
         .pressed = [&accessibility](qsizetype) { return accessibility.pressedTitles(); }});
    contract.run();
}
