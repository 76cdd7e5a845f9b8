#include "app/program_fixture.h"
#include "support/build_info.h"
#include "support/recording_link.h"

namespace tqx {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// Long enough for every timer of the program to tick more than once.
constexpr int SomeTicks = 150; // milliseconds

/// The program on a link that fails on request, with a chip at 58h on the printer port and at 2Ch
/// on the SMBus.
class LinkFailureTest : public test::ProgramTest {
    std::unique_ptr<test::RecordingLink> m_unclaimed;

protected:
    test::RecordingLink* link = nullptr;

    LinkFailureTest() { StartAfresh(); }

    void StartAfresh() {
        m_unclaimed = std::make_unique<test::RecordingLink>();
        link = m_unclaimed.get();
        link->Registers[0x16] = 0x41;
        link->Answering = {0x58, 0x2C, 0x00};
        Start({[this](const LinkSetup&) { return std::move(m_unclaimed); },
               [] { return std::make_unique<test::BuildInfo>("2222"); },
               {}});
        boxes.clear();
        dialogs.Messages.clear();
    }

    /// What the user is told of `steps`, which is told by itself once they are done.
    QStringList ToldBy(const std::function<void()>& steps) {
        const auto before = Told().size();
        steps();
        QCoreApplication::processEvents();
        return Told().mid(before);
    }

    /// What the user is told of a reading that goes on by itself, and some ticks after that.
    QStringList ToldOfReading() {
        const auto before = Told().size();
        EXPECT_TRUE(QTest::qWaitFor([&] { return Told().size() > before; }));
        QTest::qWait(SomeTicks);
        return Told().mid(before);
    }

    /// Waits until the link has read something more.
    void WaitForARead() {
        link->Take();
        EXPECT_TRUE(QTest::qWaitFor([this] {
            return testing::Value(link->Calls, Contains(StartsWith("BoardBus.ReadByte")));
        }));
    }

    /// A row of the register console, which can be read again and again.
    void ReadContinuously() {
        Press("ReadWrite1");
        Click(*program->Main(), "SSRibbon5");
    }

    int WizardPage() { return program->Wizard()->CurrentPage(); }

    bool HourglassShows() {
        return program->Wizard()->cursor().shape() != Qt::ArrowCursor ||
               QApplication::overrideCursor() != nullptr;
    }
};

/// Everything that reads by itself stops at its first failure, and stays stopped.
TEST_F(LinkFailureTest, OfAReadingThatGoesOnByItselfIsToldOnce) {
    struct Reading {
        const char* Name;
        std::function<void()> Begin;
    };

    Choose(0);
    for (const Reading& reading : {Reading{"the monitor", [this] { Press("Go1"); }},
                                   Reading{"continuous reading", [this] { ReadContinuously(); }},
                                   Reading{"an EEPROM window", [this] {
                                               Press("RegAccess");
                                               Click(*Shown("EEPROMComFRM"), "AutoReadCHK");
                                           }}}) {
        SCOPED_TRACE(reading.Name);
        reading.Begin();
        WaitForARead();
        link->FailOn = "BoardBus.ReadByte";
        EXPECT_THAT(ToldOfReading(), SizeIs(1));
        link->Take();
        link->FailOn.clear();
        QTest::qWait(SomeTicks);
        EXPECT_THAT(link->Take(), Not(Contains(StartsWith("BoardBus.ReadByte"))));
    }
}

TEST_F(LinkFailureTest, OfOneWhileAnotherIsToldIsNotToldAgain) {
    Choose(0);
    for (int i = 0; i < 3; ++i) {
        Press("RegAccess");
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->objectName() == "EEPROMComFRM" && window->isVisible()) {
            Click(*window, "AutoReadCHK");
        }
    }
    duringBox = [] { QTest::qWait(SomeTicks); };
    link->FailOn = "BoardBus.ReadByte";
    EXPECT_THAT(ToldOfReading(), SizeIs(1));
}

/// A key that fails half way must not leave an empty window behind.
TEST_F(LinkFailureTest, OfAKeyIsToldOnceAndAPanelIsOnView) {
    Choose(0);
    for (const char* key : {"ControlPanel1", "Go1", "GPIO"}) {
        SCOPED_TRACE(key);
        for (const char* panel : {"MainPanel", "ReadWritePanel"}) {
            if (panel == std::string("ReadWritePanel")) {
                Press("ReadWrite1");
            }
            link->FailOn = "BoardBus.ReadByte 58 1";
            const QStringList told = ToldBy([&] { Press(key); });
            EXPECT_EQ(std::count_if(told.begin(), told.end(),
                                    [](const QString& box) { return box.contains("failed"); }),
                      1);
            link->FailOn.clear();
            int onView = 0;
            for (const char* each :
                 {"MainPanel", "ReadWritePanel", "ControlCentrePanel", "BlockReadCRCPanel"}) {
                onView += Find(*program->Main(), each).isVisible() ? 1 : 0;
            }
            EXPECT_EQ(onView, 1);
        }
    }
    EXPECT_EQ(Shown("GPIOConfigFRM"), nullptr);
}

} // namespace
} // namespace tqx
