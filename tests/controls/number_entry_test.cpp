#include <controls/number_entry.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace tqx {
namespace {

TEST(NumberEntry, TakesOnlyDigitsThatMakeAByte) {
    struct {
        NumberEntry::Base Base;
        const char* Start;
        const char* Keys;
        const char* Shown;
    } const table[] = {
        {NumberEntry::Hexadecimal, "", "ff", "FF"},
        {NumberEntry::Hexadecimal, "", "xa- gB", "AB"},
        {NumberEntry::Hexadecimal, "", "1234", "12"},
        {NumberEntry::Hexadecimal, "00", "1f", "1F"}, // leading zeros make room
        {NumberEntry::Hexadecimal, "0", "f", "0F"},
        {NumberEntry::Decimal, "", "255", "255"},
        {NumberEntry::Decimal, "", "256", "25"},
        {NumberEntry::Decimal, "", "1af9", "19"},
        {NumberEntry::Decimal, "000", "7", "007"},
    };

    for (const auto& row : table) {
        NumberEntry entry(row.Base);
        entry.Put(row.Start);
        QTest::keyClicks(&entry, row.Keys);
        EXPECT_EQ(entry.text().toStdString(), row.Shown) << row.Start << " + " << row.Keys;
    }
}

TEST(NumberEntry, HandsOverItsTextOnEnterAlone) {
    NumberEntry entry(NumberEntry::Hexadecimal);
    const QSignalSpy confirmed(&entry, &NumberEntry::EntryConfirmed);
    entry.show();
    entry.setFocus();
    QTest::keyClicks(&entry, "0a");
    entry.clearFocus();
    EXPECT_TRUE(confirmed.isEmpty());
    entry.setFocus();
    QTest::keyClick(&entry, Qt::Key_Return);
    QTest::keyClick(&entry, Qt::Key_Enter, Qt::KeypadModifier);
    ASSERT_EQ(confirmed.size(), 2);
    EXPECT_EQ(confirmed[0][0].toString(), "0A");
}

TEST(NumberEntry, LeftEmptyItShowsWhatStoodLast) {
    NumberEntry entry(NumberEntry::Hexadecimal);
    entry.Put("12");
    entry.show();

    struct {
        Qt::FocusReason Reason;
        const char* Shown;
    } const table[] = {
        {Qt::PopupFocusReason, ""}, // its own menu, to paste
        {Qt::ActiveWindowFocusReason, ""},
        {Qt::TabFocusReason, "12"},
        {Qt::MouseFocusReason, "12"},
    };

    for (const auto& row : table) {
        entry.selectAll();
        QTest::keyClick(&entry, Qt::Key_Delete);
        QFocusEvent left(QEvent::FocusOut, row.Reason);
        QApplication::sendEvent(&entry, &left);
        EXPECT_EQ(entry.text(), row.Shown) << row.Reason;
    }
}

} // namespace
} // namespace tqx
