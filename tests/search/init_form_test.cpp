#include "result_rows.h"
#include "search/wizard_fixture.h"

#include <QMouseEvent>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InitFormSearch : public test::WizardTest {
protected:
    /// State and pointer of the wizard while the main window loads.
    std::string stateAtLoad;
    Qt::CursorShape pointerAtLoad = Qt::ArrowCursor;
    /// A button on which the user clicks while the search holds the events up.
    const char* clickedMeanwhile = nullptr;
    /// What the progress bar has shown.
    std::vector<int> progress;

    void Load() override {
        stateAtLoad = State();
        pointerAtLoad = wizard->cursor().shape();
        if (clickedMeanwhile != nullptr) {
            PostClick(Find<QPushButton>(clickedMeanwhile));
        }
        WizardTest::Load();
    }

    static void PostClick(QPushButton& button) {
        const QPointF at = button.rect().center();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QCoreApplication::postEvent(&button, new QMouseEvent(type, at, button.mapToGlobal(at),
                                                                 Qt::LeftButton, Qt::LeftButton,
                                                                 Qt::NoModifier));
        }
    }

    void WatchProgress() {
        QObject::connect(&Find<QProgressBar>("SearchProgress"), &QProgressBar::valueChanged,
                         wizard.get(), [this](int value) { progress.push_back(value); });
    }

    /// Clicks, or double clicks, a row of the list.
    void Pick(int row, bool twice = false) {
        auto& list = Find<QListWidget>("SearchResultsLIST");
        const QPoint at = list.visualItemRect(list.item(row)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
        if (twice) {
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
        }
    }
};

TEST_F(InitFormSearch, AsksEveryPortInBothWiringsThenTheSMBus) {
    ChipsAt({0x2E});
    link.Registers[0x16] = 0x40; // another maker's
    link.Ports = 2;
    Search(true, true);
    std::vector<std::string> expected{"MainForm.Load"};
    for (const char* port : {"0", "1"}) {
        expected.push_back(std::string("PrinterPortLink.PortIndex ") + port);
        for (const char* mode : {"0", "1"}) {
            expected.push_back(std::string("BoardBus.BoardMode ") + mode);
            for (const char* address : {"58", "5A", "5C"}) {
                expected.push_back(std::string("BoardBus.ReadByte ") + address + " 16");
            }
        }
    }
    for (const char* address : {"2C", "2D", "2E"}) {
        expected.push_back(std::string("SMBusLink.ReadByte ") + address + " 16");
    }
    EXPECT_EQ(link.Take(), expected);
    EXPECT_EQ(State(), "4 Back Cancel");
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_EQ(Text("SearchResultsLBL"),
              "Sorry, no TQX7716s were found. Please check all connections and try again");
    EXPECT_EQ(Text("SearchInsLBL"), "Click Back to continue...");
}

TEST_F(InitFormSearch, HoldsTheButtonsAndShowsTheHourglass) {
    Search(true, false);
    EXPECT_EQ(stateAtLoad, "3");
    EXPECT_EQ(pointerAtLoad, Qt::WaitCursor);
    EXPECT_EQ(wizard->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(InitFormSearch, ProgressStopsAtItsEndAndGoesBackToTheStart) {
    Open();
    WatchProgress();
    Click("NextCMD");
    Check("SMBusCheck", true);
    Click("NextCMD");
    EXPECT_EQ(Find<QProgressBar>("SearchProgress").maximum(), 66);
    EXPECT_THAT(progress, ElementsAre(8, 24, 40, 56, 0));
    Click("BackCMD");
    Check("PPCheck", false);
    progress.clear();
    Click("NextCMD");
    EXPECT_EQ(Find<QProgressBar>("SearchProgress").maximum(), 33);
    EXPECT_THAT(progress, ElementsAre(16, 32, 33, 0));
}

TEST_F(InitFormSearch, SaysWhatAMediumCouldNotGive) {
    ChipsAt({0x2C});
    Search(true, true);
    EXPECT_EQ(Text("SearchNotesLBL"), "Nothing answered on the printer port.");
    Click("BackCMD");
    link.Ports = 0;
    Click("NextCMD");
    EXPECT_EQ(Text("SearchNotesLBL"), "This machine has no printer port.");
    EXPECT_THAT(Rows(), ElementsAre(SMBusRow(0x2C)));
    Click("BackCMD");
    Check("PPCheck", false);
    Click("NextCMD");
    EXPECT_TRUE(Find<QLabel>("SearchNotesLBL").isHidden());
}

TEST_F(InitFormSearch, FinishOnAPrinterPortSetsUpTheLinkThenTheCell) {
    ChipsAt({0x5A, 0x2C});
    link.Ports = 2;
    Search(true, true);
    Pick(3); // the second port in the inverted wiring
    link.Take();
    Click("FinishCMD");
    EXPECT_THAT(link.Take(),
                ElementsAre("PrinterPortLink.PortIndex 1", "BoardBus.BoardMode 1",
                            "SlaveAddress 5A", "LinkServer.ActiveMedium 0", "MainForm.Show"));
    EXPECT_EQ(cell.SlaveAddress, 0x5A);
    EXPECT_EQ(cell.PortAddress, 0x278);
    EXPECT_EQ(cell.ComsMedium, ComsPrinterPort);
    EXPECT_FALSE(wizard->isVisible());
}

TEST_F(InitFormSearch, FinishOnTheSMBusSetsUpTheLinkThenTheCell) {
    ChipsAt({0x58, 0x2D});
    Search(true, true);
    link.Take();
    Pick(2, true);
    EXPECT_THAT(link.Take(),
                ElementsAre("SlaveAddress 2D", "LinkServer.ActiveMedium 1", "MainForm.Show"));
    EXPECT_EQ(cell.SlaveAddress, 0x2D);
    EXPECT_EQ(cell.PortAddress, 0);
    EXPECT_EQ(cell.ComsMedium, ComsSMBus);
    EXPECT_FALSE(wizard->isVisible());
}

} // namespace
} // namespace tqx
