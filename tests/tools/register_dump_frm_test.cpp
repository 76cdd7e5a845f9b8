#include "register_dump/register_dump_frm.h"
#include "support/answered_dialogs.h"
#include "support/dump_sample.h"
#include "tools/tool_fixture.h"

#include <controls/percent_bar.h>

#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

namespace tqx {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Lt;
using testing::Not;

const char* const refusal = "exclamation|There was a Problem!|Invalid filename.";

class RegisterDumpFrmTest : public test::ToolFixture {
protected:
    QTemporaryDir folder;
    test::AnsweredDialogs dialogs;
    std::unique_ptr<RegisterDumpFRM> window;

    void SetUp() override {
        // "C:\" stands for the documents folder of this home.
        qputenv("HOME", folder.path().toLocal8Bit());
        window = std::make_unique<RegisterDumpFRM>(bench, door, dialogs);
        window->Clock = [] { return DumpStamp{"T", "D"}; };
        window->show();
    }

    QWidget& Window() override { return *window; }

    PercentBar& Progress() { return Find<PercentBar>("ProgressBar1"); }

    void Choose(const QString& name) {
        dialogs.FileName = name;
        Click("BrowseCMD");
    }

    QString Place() const { return folder.filePath("Documents/RegisterDump.txt"); }

    /// The file in the documents folder.
    std::string Contents() const {
        QFile file(Place());
        file.open(QIODevice::ReadOnly);
        return file.readAll().toStdString();
    }

    static std::uint8_t Zero(int /*address*/) { return 0; }

    static std::uint8_t Erased(int /*high*/, int /*low*/) { return 0xFF; }

    static std::string WholeDump() {
        return test::ExpectedRAMBlock("T", "D", Zero) + test::ExpectedEEPROMBlock("T", "D", Erased);
    }
};

TEST_F(RegisterDumpFrmTest, DumpsToTheDocumentsFolderUnlessToldOtherwise) {
    EXPECT_EQ(Text("PathLBL"), "Path; C:\\RegisterDump.txt");
    EXPECT_TRUE(Find<QLabel>("PathLBL").toolTip().contains(Place()));
    EXPECT_THAT(Text("StatusLBL"), Not(HasSubstr("not the chip")));
    Click("DumpCMD");
    EXPECT_EQ(Contents(), WholeDump());
    EXPECT_THAT(Text("StatusLBL"), HasSubstr(Place().toStdString()));
    EXPECT_EQ(Progress().maximum(), 1056);
    EXPECT_EQ(Progress().value(), 0);
    bench.Bus.BusCell.ComsMedium = ComsSMBus;
    Choose({});
    EXPECT_THAT(Text("StatusLBL"), HasSubstr("not the chosen chip"));
}

TEST_F(RegisterDumpFrmTest, ADumpNeedsANameAndSomethingToDump) {
    QTimer::singleShot(0, window.get(), [this] { Click("StopDumpCMD"); });
    Click("DumpCMD");
    EXPECT_GT(Progress().value(), 0);
    link.Take();
    Choose("no ending");
    dialogs.Messages.clear();
    Click("DumpCMD");
    EXPECT_EQ(dialogs.Messages, QStringList(refusal));
    EXPECT_EQ(Progress().value(), 0) << "of the dump before";
    EXPECT_TRUE(Enabled("DumpCMD"));
    EXPECT_FALSE(Enabled("StopDumpCMD"));
    Click("RAMSettingsCHK");
    Click("EEPROMSettingsCHK");
    Click("DumpCMD");
    EXPECT_THAT(messages, ElementsAre("Notice|Either the Dump RAM or Dump EEPROM check box must be "
                                      "selected to do a register dump|1"));
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(RegisterDumpFrmTest, StopEndsTheDumpAndKeepsTheProgress) {
    QTimer::singleShot(0, window.get(), [this] {
        for (const char* name :
             {"RAMSettingsCHK", "EEPROMSettingsCHK", "DumpCMD", "BrowseCMD", "PathLBL"}) {
            EXPECT_FALSE(Enabled(name)) << name;
        }
        Click("StopDumpCMD");
    });
    Click("DumpCMD");
    EXPECT_THAT(Progress().value(), AllOf(Ge(1), Lt(32)));
    EXPECT_EQ(Contents(), test::ExpectedRAMBlock("T", "D", Zero, Progress().value()) +
                              test::ExpectedStop("T", "D"));
    EXPECT_TRUE(Enabled("DumpCMD"));
    EXPECT_FALSE(Enabled("StopDumpCMD"));

    QFile::remove(Place());
    Click("DumpCMD");
    EXPECT_EQ(Contents(), WholeDump()) << "an old stop lives on";
}

} // namespace
} // namespace tqx
