// SPDX-License-Identifier: MIT
#include "platform/linux/keys/KeyCodes.h"

#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

/// The rows of the published table: virtual key code, evdev code, X key code, name.
QList<QStringList> publishedRows()
{
    QFile file(QStringLiteral(TARNWICK_TEST_DATA "/key-codes.csv"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QList<QStringList> rows;
    file.readLine();
    while (!file.atEnd())
        rows.append(QString::fromLatin1(file.readLine()).trimmed().split(u','));
    return rows;
}

TEST(KeyCodes, eachRowOfTheTable_mapsBothWays)
{
    const auto rows = publishedRows();
    ASSERT_EQ(rows.size(), 128);
    int mapped = 0;
    for (const QStringList& row : rows) {
        const quint32 virtualKeyCode = row.at(0).toUInt();
        if (row.at(2).isEmpty()) {
            EXPECT_EQ(x11KeyCodeOf(virtualKeyCode), std::nullopt) << virtualKeyCode;
            continue;
        }
        const auto x11 = static_cast<quint16>(row.at(2).toUInt());
        EXPECT_EQ(x11KeyCodeOf(virtualKeyCode), x11) << row.at(3).toStdString();
        EXPECT_EQ(virtualKeyCodeOf(x11), virtualKeyCode) << row.at(3).toStdString();
        EXPECT_EQ(x11, row.at(1).toUInt() + 8) << row.at(3).toStdString();
        ++mapped;
    }
    EXPECT_EQ(mapped, 120);
}

TEST(KeyCodes, codesOutsideTheTable_mapToNothing)
{
    EXPECT_EQ(x11KeyCodeOf(128), std::nullopt);
    EXPECT_EQ(x11KeyCodeOf(0xFFFFFFFF), std::nullopt);
    EXPECT_EQ(virtualKeyCodeOf(0), std::nullopt);
    EXPECT_EQ(virtualKeyCodeOf(8), std::nullopt);
    EXPECT_EQ(virtualKeyCodeOf(500), std::nullopt);
}

TEST(KeyCodes, fn_hasACodeThatCannotBeGrabbed)
{
    EXPECT_GT(x11KeyCodeOf(63), MaximumX11KeyCode);
}

} // namespace
} // namespace tarnwick
