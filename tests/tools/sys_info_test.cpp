#include <tools/frm_about.h>
#include <tools/sys_info.h>

#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string pathKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
const std::string folderKey = R"(SOFTWARE\Microsoft\Shared Tools Location)";

/// A registry of values by key and name; it counts what is open.
class FakeRegistry : public SystemRegistry {
public:
    std::map<std::pair<std::string, std::string>, Value> Values;
    int Opened = 0;
    int Closed = 0;
    std::uint32_t Access = 0;

    bool Open(std::uint32_t /*root*/, const std::string& name, std::uint32_t access,
              Key& key) override {
        ++Opened;
        Access = access;
        m_open = name;
        key = 7;
        return Values.lower_bound({name, ""}) != Values.end();
    }

    std::optional<Value> Query(Key key, const std::string& name, std::size_t size) override {
        EXPECT_EQ(key, 7U);
        EXPECT_EQ(size, 1024U);
        const auto found = Values.find({m_open, name});
        return found == Values.end() ? std::nullopt : std::optional(found->second);
    }

    void Close(Key /*key*/) override { ++Closed; }

private:
    std::string m_open;
};

class FakeHost : public SysInfoHost {
public:
    FakeRegistry Keys;
    bool HasRegistry = true;
    QString ExistingFile;
    QStringList OwnProgram;
    QList<QStringList> Started;

    SystemRegistry* Registry() override { return HasRegistry ? &Keys : nullptr; }

    bool FileExists(const QString& path) override { return path == ExistingFile; }

    QStringList DesktopProgram() override { return OwnProgram; }

    bool Start(const QStringList& program) override {
        Started << program;
        return true;
    }
};

class SysInfoTest : public testing::Test {
protected:
    FakeHost host;
    std::vector<std::string> messages;
    MessageDoor door = [this](const QString& title, const QString& message, std::uint8_t okOnly) {
        messages.push_back((title + '|' + message + '|' + QString::number(okOnly)).toStdString());
        return std::uint8_t{1};
    };

    void Set(const std::string& key, const std::string& name, std::uint32_t type,
             const std::string& characters) {
        host.Keys.Values[{key, name}] = {type, characters};
    }
};

TEST_F(SysInfoTest, ThePathOfTheFirstKeyIsStartedUnchecked) {
    Set(pathKey, "PATH", 1, std::string("C:\\info.exe\0", 12));
    Set(folderKey, "MSINFO", 1, "C:\\other");
    host.ExistingFile = R"(C:\other\MSINFO32.EXE)";
    StartSysInfo(host, door);
    EXPECT_EQ(host.Started, QList<QStringList>{{"C:\\info.exe"}});
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(host.Keys.Access, 0x2003FU);
    EXPECT_EQ(host.Keys.Opened, host.Keys.Closed);
}

TEST_F(SysInfoTest, TheFolderOfTheSecondKeyMustHoldTheFile) {
    Set(folderKey, "MSINFO", 1, "C:\\tools");
    StartSysInfo(host, door);
    EXPECT_TRUE(host.Started.isEmpty());
    EXPECT_THAT(messages,
                ElementsAre("Information|System Information Is Unavailable At This Time|1"));
    host.ExistingFile = R"(C:\tools\MSINFO32.EXE)";
    StartSysInfo(host, door);
    EXPECT_EQ(host.Started, QList<QStringList>{{R"(C:\tools\MSINFO32.EXE)"}});
    EXPECT_EQ(host.Keys.Opened, host.Keys.Closed);
}

TEST_F(SysInfoTest, WithoutARegistryTheDesktopsOwnProgramIsStarted) {
    host.HasRegistry = false;
    StartSysInfo(host, door);
    EXPECT_EQ(messages.size(), 1U);
    host.OwnProgram = QStringList{"/usr/bin/facts", "--all"};
    StartSysInfo(host, door);
    EXPECT_EQ(host.Started, QList<QStringList>{host.OwnProgram});
    EXPECT_EQ(messages.size(), 1U);
}

TEST_F(SysInfoTest, ValuesAreReadByTheirType) {
    struct Case {
        std::uint32_t Type;
        std::string Characters;
        std::string Before;
        std::string After;
    };

    const Case cases[] = {
        {1, std::string("text\0", 5), "", "text"},
        {1, "text", "old", "text"},
        {1, "", "old", ""},
        {4, std::string("\x34\x12", 2), "", "4660"},        // 1234h
        {4, std::string("\x05\x0A\x00\x00", 4), "", "165"}, // "0", "A", "5"
        {4, std::string("\xFF\xFF\xFF\xFF", 4), "", "4294967295"},
        {3, "binary", "kept", "kept"},
    };
    for (const Case& each : cases) {
        Set("key", "name", each.Type, each.Characters);
        std::string value = each.Before;
        EXPECT_TRUE(GetKeyValue(host.Keys, LocalMachine, "key", "name", value));
        EXPECT_EQ(value, each.After);
    }
    std::string value = "old";
    EXPECT_FALSE(GetKeyValue(host.Keys, LocalMachine, "key", "missing", value));
    EXPECT_EQ(value, "");
    EXPECT_EQ(host.Keys.Opened, host.Keys.Closed);
}

TEST_F(SysInfoTest, AValueThatMakesNoSenseEndsInTheMessage) {
    Set(pathKey, "PATH", 4, std::string(1000, '\xFF'));
    StartSysInfo(host, door);
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(host.Keys.Opened, host.Keys.Closed);
}

TEST_F(SysInfoTest, TheAboutBoxShowsTheVersionAndOffersTheProgram) {
    host.HasRegistry = false;
    frmAbout about(door, host);
    EXPECT_EQ(about.windowTitle(), "About the TQX7716 Evaluation Software");
    EXPECT_EQ(about.findChild<QLabel*>("lblVersion")->text(), "Version 3.0.0");
    EXPECT_EQ(about.findChild<QLabel*>("lblTitle")->text(), "TQX7716 Evaluation Software");
    about.findChild<QPushButton*>("cmdSysInfo")->click();
    EXPECT_EQ(messages.size(), 1U);
    about.findChild<QPushButton*>("cmdOK")->click();
    EXPECT_TRUE(about.CanBeDestroyed());
}

} // namespace
} // namespace tqx
