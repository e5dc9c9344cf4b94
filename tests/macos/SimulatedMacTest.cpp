// SPDX-License-Identifier: MIT
// The simulation itself: what it must notice, so that the other tests mean something.
#include "platform/macos/system/CfText.h"
#include "platform/macos/system/CfValue.h"
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

TEST_F(SimulatedMacItself, entriesWhoseKeysAreNoTexts_areLeftOut)
{
    const auto number = cfValue(5);
    const auto text = cfString(u"key"_s);
    const void* keys[] = {number.get(), text.get()};
    const void* values[] = {kCFBooleanTrue, kCFBooleanTrue};
    const CfOwned<CFDictionaryRef> dictionary(CFDictionaryCreate(kCFAllocatorDefault, keys, values, 2,
                                                                 &kCFTypeDictionaryKeyCallBacks,
                                                                 &kCFTypeDictionaryValueCallBacks));
    EXPECT_EQ(variantOf(dictionary.get()), (QVariantMap{{u"key"_s, true}}));
}

TEST_F(SimulatedMacItself, failedCall_isThatOneAlone)
{
    mac.failOnly(1);
    EXPECT_TRUE(cfString(u"first"_s)); // made and released: calls 0 and 1, and a release always works
    mac.failOnly(mac.calls().size());
    EXPECT_FALSE(cfString(u"second"_s));
    EXPECT_TRUE(cfString(u"third"_s));
    EXPECT_EQ(
        mac.callsOf(u"CFStringCreateWithCharacters"_s),
        (QList<QVariantList>{{QVariant(), u"first"_s}, {QVariant(), u"second"_s}, {QVariant(), u"third"_s}}));
}

TEST_F(SimulatedMacItself, filePath_ofAFolder_hasNoSlashAtTheEnd)
{
    EXPECT_EQ(filePathOf(cfFileUrl(u"/Applications/Tarnwick.app"_s, true).get()),
              u"/Applications/Tarnwick.app"_s);
    EXPECT_EQ(filePathOf(nullptr), QString());
}

} // namespace tarnwick
