#include "result_rows.h"

#include <gtest/gtest.h>

namespace tqx {
namespace {

TEST(ResultRows, StartWithTheSentenceAndEndInTheTail) {
    EXPECT_EQ(PrinterPortRow(0x58, 0x378, 1),
              "Found an TQX7716 at:2Ch, on printer port:378h" + QString(50, ' ') + "Printer 1");
    EXPECT_EQ(SMBusRow(0x2E),
              "An TQX7716 was found at:2Eh, on the SMBus" + QString(98, ' ') + "SMBus2E");
    EXPECT_EQ(SentenceOfRow(PrinterPortRow(0x5C, 0xBC, 2)),
              "Found an TQX7716 at:2Eh, on printer port:BCh");
    EXPECT_EQ(SentenceOfRow(SMBusRow(0x2C)), "An TQX7716 was found at:2Ch, on the SMBus");
    EXPECT_EQ(SentenceOfRow("no tail here"), "no tail here");
}

TEST(ResultRows, TellTheirMediumByTheTailAlone) {
    const RowTail port{.Medium = RowMedium::PrinterPort, .Number = 9};
    EXPECT_EQ(TailOfRow(PrinterPortRow(0x58, 0x378, 9)), port);
    const RowTail smbus{.Medium = RowMedium::SMBus, .Address = 0x2D};
    EXPECT_EQ(TailOfRow(SMBusRow(0x2D)), smbus);
    for (const QString& foreign :
         {PrinterPortRow(0x58, 0x378, 10), QString("Printer 1 "), QString("SMBus"), QString()}) {
        EXPECT_EQ(TailOfRow(foreign), RowTail{}) << foreign.toStdString();
    }
}

} // namespace
} // namespace tqx
