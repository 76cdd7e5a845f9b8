#include "cli/command_fixture.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <set>

namespace tqx {
namespace {

using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;

class ChannelCommands : public test::CommandFixture {
protected:
    Json Channels() {
        OnBoard({"--json", "channels"});
        return Json::parse(out);
    }

    std::set<std::string> Alarms() {
        std::set<std::string> alarms;
        for (const Json& each : Channels()) {
            if (each["alarm"]) {
                alarms.insert(each["channel"]);
            }
        }
        return alarms;
    }
};

TEST_F(ChannelCommands, TheChannelsAreThoseThatThePinsAllow) {
    EXPECT_EQ(Channels().size(), 26U);
    OnBoard({"write", "Config 2", "+EnGPIO0/Fan0"});
    OnBoard({"write", "Config 1", "+En V/Ext2"});
    OnBoard({"channels"});
    EXPECT_THAT(out, Not(HasSubstr("Fan 0 ")));
    EXPECT_THAT(out, Not(HasSubstr("ExtTemp1")));
    EXPECT_THAT(out, HasSubstr("Ain 8 "));
    EXPECT_THAT(out, HasSubstr("Ain 9 "));
}

/// A limit below each value in turn raises the alarm of that channel and of no other.
TEST_F(ChannelCommands, EveryChannelHasItsOwnLimitsAndItsOwnAlarm) {
    const Json all = Channels();
    for (const Json& channel : all) {
        const bool fan = channel["unit"] == "RPM";
        const Json limits{{channel["channel"].get<std::string>(),
                           {{fan ? "low" : "high",
                             fan ? Json(9000) : Json(channel["value"].get<double>() - 1)}}}};
        const double value = channel["value"];
        Json wanted = limits;
        if (channel["unit"] == "V") {
            wanted.begin().value()["high"] = value > 0 ? value / 2 : value - 2;
        }
        std::ofstream(Path("limit.json")) << wanted;
        ASSERT_EQ(OnBoard({"limits", "load", Path("limit.json")}), 0) << err;
        EXPECT_THAT(Alarms(), testing::ElementsAre(channel["channel"])) << wanted;
        std::ofstream(Path("limit.json"))
            << Json{{channel["channel"].get<std::string>(),
                     {{"low", channel["low"]}, {"high", channel.value("high", Json(nullptr))}}}};
        ASSERT_EQ(OnBoard({"limits", "load", Path("limit.json")}), 0) << err;
    }
}

TEST_F(ChannelCommands, LimitsThatWereSavedComeBackUnchanged) {
    OnBoard({"limits", "defaults"});
    OnBoard({"dump", Path("before")});
    EXPECT_EQ(OnBoard({"limits", "save", Path("limits.json")}), 0);
    OnBoard({"limits", "show"});
    EXPECT_THAT(out, HasSubstr("+12V          1.743    14.382         V\n"));
    OnBoard({"write", "46h", "0"});
    EXPECT_EQ(OnBoard({"limits", "load", Path("limits.json")}), 0);
    EXPECT_EQ(err, "46 limits written, 0 of them rounded\n");
    EXPECT_EQ(OnBoard({"compare", Path("before"), "--settings"}), 0) << out;
}

TEST_F(ChannelCommands, LoadingSaysWhatWasRoundedAndRefusesTheWholeFileForOneFault) {
    std::ofstream(Path("good.json")) << R"({"+12V":{"high":11.4}, "Fan 1":{"low":3000}})";
    EXPECT_EQ(OnBoard({"limits", "load", Path("good.json")}), 0);
    EXPECT_EQ(err, "+12V high: 11.4 became 11.393 V\nFan 1 low: 3000 became 3013 RPM\n"
                   "2 limits written, 2 of them rounded\n");
    for (const char* bad :
         {R"({"+12V":{"high":1},"+13V":{"low":1}})", R"({"+12V":{"high":1},"+5V":{"low":"1"}})",
          R"({"+12V":{"high":1},"+5V":{"low":70}})", "no JSON", "[1]"}) {
        std::ofstream(Path("bad.json")) << bad;
        EXPECT_EQ(OnBoard({"limits", "load", Path("bad.json")}), 2) << bad;
    }
    OnBoard({"read", "46h"});
    EXPECT_THAT(out, HasSubstr("B6h"));
}

TEST_F(ChannelCommands, WatchingShowsOneLineForEachInterval) {
    EXPECT_EQ(OnBoard({"watch", "--every", "500ms", "--for", "2s"}), 0);
    EXPECT_EQ(std::ranges::count(out, '\n'), 5);
    EXPECT_THAT(out, HasSubstr("2026-03-01T12:00:01.500+00:00"));
    stopAt = time + std::chrono::seconds(3);
    EXPECT_EQ(OnBoard({"--json", "watch"}), 0);
    EXPECT_EQ(std::ranges::count(out, '\n'), 3);
    EXPECT_EQ(Json::parse(out.substr(0, out.find('\n')))["values"].size(), 26U);
}

TEST_F(ChannelCommands, WatchingEndsAtAnAlarmWithStatusOne) {
    EXPECT_EQ(OnBoard({"watch", "--for", "3s", "--until-alarm"}), 0);
    OnBoard({"write", "TDM1 High", "20C"});
    EXPECT_EQ(OnBoard({"watch", "--until-alarm"}), 1);
    EXPECT_EQ(err, "alarm: ExtTemp0\n");
    EXPECT_THAT(out, HasSubstr("!"));
}

TEST_F(ChannelCommands, ARecordingHasARowForEachIntervalAndIsContinued) {
    const std::string file = Path("soak.csv");
    for (const char* rows : {"60 rows in ", "30 rows in "}) {
        EXPECT_EQ(OnBoard({"watch", "--csv", file, "--for", rows[0] == '6' ? "1m" : "30s"}), 0);
        EXPECT_EQ(err, rows + file + "\n");
    }
    const std::string content = test::ContentOf(file);
    EXPECT_EQ(std::ranges::count(content, '\n'), 91);
    EXPECT_THAT(content, testing::StartsWith("Time,Seconds,IntTemp mean (C),IntTemp min (C),"));
    EXPECT_EQ(OnBoard({"watch", "--csv", file, "--every", "tick"}), 2);
    EXPECT_THAT(err, HasSubstr("it holds something else"));
}

} // namespace
} // namespace tqx
