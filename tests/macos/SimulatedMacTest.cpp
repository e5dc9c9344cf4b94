// SPDX-License-Identifier: MIT
// The simulation itself: what it must notice, so that the other tests mean something.
#include "platform/macos/CfText.h"
#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

using SimulatedMacItself = MacTest;

TEST_F(SimulatedMacItself, reference_neverReleased_isNamed)
{
    const CFStringRef text = cfString(u"leak"_s).release();
    EXPECT_EQ(mac.unreleased(), QStringList{u"CFStringCreateWithCharacters"_s});
    CFRelease(text);
    EXPECT_EQ(mac.unreleased(), QStringList());
}

TEST_F(SimulatedMacItself, reference_releasedTwice_isAFault)
{
    const CFStringRef text = cfString(u"twice"_s).release();
    CFRelease(text);
    CFRelease(text);
    EXPECT_FALSE(mac.faults().isEmpty());
    mac.reset();
}

TEST_F(SimulatedMacItself, reference_usedAfterItsRelease_isAFault)
{
    const CFStringRef text = cfString(u"gone"_s).release();
    CFRelease(text);
    EXPECT_TRUE(mac.faults().isEmpty());
    (void)CFStringGetLength(text);
    EXPECT_FALSE(mac.faults().isEmpty());
    mac.reset();
}

TEST_F(SimulatedMacItself, members_ofAReleasedArray_areGone)
{
    const CFStringRef text = cfString(u"inside"_s).release();
    const void* values[] = {text};
    const CFArrayRef array = CFArrayCreate(kCFAllocatorDefault, values, 1, &kCFTypeArrayCallBacks);
    CFRelease(text);
    EXPECT_EQ(CFStringGetLength(text), 6); // the array holds it
    CFRelease(array);
    EXPECT_TRUE(mac.faults().isEmpty());
    (void)CFStringGetLength(text);
    EXPECT_FALSE(mac.faults().isEmpty());
    mac.reset();
}

TEST_F(SimulatedMacItself, texts_surviveTheWayThereAndBack)
{
    for (const QString& text :
         {u""_s, u"Tarnwick"_s, u"Größe ⌘ 漢字"_s, u"\U0001F600"_s, QString(QChar(u'\0'))})
        EXPECT_EQ(textOfString(cfString(text).get()), text);
    EXPECT_EQ(textOfString(nullptr), QString());
}

TEST_F(SimulatedMacItself, filePath_ofAFolder_hasNoSlashAtTheEnd)
{
    EXPECT_EQ(filePathOf(cfFileUrl(u"/Applications/Tarnwick.app"_s, true).get()),
              u"/Applications/Tarnwick.app"_s);
    EXPECT_EQ(filePathOf(nullptr), QString());
}

} // namespace tarnwick
