#include "support/temporary_folder.h"

#include <jobs/recording.h>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using namespace std::chrono_literals;

class RecordingTest : public testing::Test {
protected:
    test::TemporaryFolder folder;
    std::string place = folder.Path("soak.csv");

    Recording Make(std::chrono::nanoseconds every) {
        return {place, {{"+12V", "V"}, {"Fan 0", "RPM"}}, every};
    }

    static RecordedMoment At(std::chrono::milliseconds since) {
        const std::chrono::sys_days day = std::chrono::year{2026} / 3 / 1;
        return {day + 12h + since, 5h + since};
    }
};

TEST_F(RecordingTest, AnIntervalIsItsMeanMinimumAndMaximum) {
    Recording recording = Make(1s);
    recording.Take(At(0ms), {{12.0}, {4000}});
    recording.Take(At(500ms), {{11.0}, {}});
    recording.Take(At(900ms), {{11.5}, {4100}});
    recording.Take(At(3100ms), {{12.25}, {}}); // nothing was read for two seconds
    recording.Stop();
    EXPECT_EQ(recording.Rows(), 2);
    EXPECT_EQ(
        test::ContentOf(place),
        "Time,Seconds,+12V mean (V),+12V min (V),+12V max (V),Fan 0 mean (RPM),Fan 0 min (RPM),"
        "Fan 0 max (RPM)\n"
        "2026-03-01T12:00:00.900+00:00,0.9,11.5,11,12,4050,4000,4100\n"
        "2026-03-01T12:00:03.100+00:00,3.1,12.25,12.25,12.25,,,\n");
}

TEST_F(RecordingTest, EveryReadingIsARowAndAlarmsThatComeAndGoAreRowsBeside) {
    Recording recording = Make(0s);
    recording.Take(At(0ms), {{12.0}, {4000}});
    recording.Take(At(5ms), {{12.001}, {90, true}});
    recording.Take(At(10ms), {{12.0}, {80, true}});
    recording.Take(At(15ms), {{12.0}, {4000}});
    EXPECT_EQ(recording.Rows(), 4);
    EXPECT_NE(test::ContentOf(place).find("12:00:00.005+00:00,0.005,12.001,90\n"),
              std::string::npos);
    EXPECT_EQ(test::ContentOf(folder.Path("soak-alarms.csv")),
              "Time,Seconds,Channel,Alarm,Value\n"
              "2026-03-01T12:00:00.005+00:00,0.005,Fan 0,on,90\n"
              "2026-03-01T12:00:00.015+00:00,0.015,Fan 0,off,4000\n");
}

TEST_F(RecordingTest, AHalfLineOfAPowerCutIsDroppedAndTheFileGoesOn) {
    Make(0s).Take(At(0ms), {{12.0}, {4000}});
    const std::string whole = test::ContentOf(place);
    std::ofstream(place, std::ios::app) << "2026-03-01T12:0";
    Make(0s).Take(At(0ms), {{12.0}, {4000}});
    EXPECT_EQ(test::ContentOf(place), whole + whole.substr(whole.find('\n') + 1));
}

TEST_F(RecordingTest, AFileOfSomethingElseIsRefusedAndOneThatVanishesIsToldOnce) {
    std::ofstream(place) << "Time,Seconds,other\n";
    EXPECT_EQ(Make(0s).Reason(), "it holds something else; choose another name");
    EXPECT_EQ(test::ContentOf(place), "Time,Seconds,other\n");
    std::filesystem::remove(place);
    Recording recording = Make(0s);
    recording.Take(At(0ms), {{12.0}, {4000}});
    std::filesystem::remove(place);
    recording.Take(At(1500ms), {{12.0}, {4000}});
    EXPECT_EQ(recording.Reason(), "it was removed or moved away meanwhile");
    recording.Take(At(3000ms), {{12.0}, {4000}});
    EXPECT_FALSE(std::filesystem::exists(place));
}

} // namespace
} // namespace tqx
