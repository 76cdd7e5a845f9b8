#include "about/about_frm.h"

#include <tools/sys_info.h>

#include <QLabel>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace tqx {
namespace {

const std::string pathKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
const std::string folderKey = R"(SOFTWARE\Microsoft\Shared Tools Location)";

/// A registry of values by key and name; it counts what is open.
class FakeRegistry : public SystemRegistry {
public:
    std::map<std::pair<std::string, std::string>, Value> Values;
    int Opened = 0;
    int Closed = 0;

    bool Open(std::uint32_t /*root*/, const std::string& name, std::uint32_t access,
              Key& key) override {
        ++Opened;
        EXPECT_EQ(access, 0x2003FU);
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

    void TearDown() override { EXPECT_EQ(host.Keys.Opened, host.Keys.Closed); }

    /// Starts what there is, and expects that; nothing when the user is to be told of it.
    void ExpectStarted(const QStringList& program) {
        host.Started.clear();
        messages.clear();
        StartSysInfo(host, door);
        if (program.isEmpty()) {
            EXPECT_TRUE(host.Started.isEmpty());
            EXPECT_THAT(messages, testing::ElementsAre(
                                      "Information|System Information Is Unavailable At This "
                                      "Time|1"));
        } else {
            EXPECT_EQ(host.Started, QList<QStringList>{program});
            EXPECT_TRUE(messages.empty());
        }
    }
};

TEST_F(SysInfoTest, TheRegistryNamesAPathUncheckedOrAFolderThatMustHoldTheFile) {
    ExpectStarted({});
    host.Keys.Values[{folderKey, "MSINFO"}] = {1, "C:\\tools"};
    ExpectStarted({});
    host.ExistingFile = R"(C:\tools\MSINFO32.EXE)";
    ExpectStarted({host.ExistingFile});
    host.Keys.Values[{pathKey, "PATH"}] = {1, std::string("C:\\info.exe\0", 12)};
    ExpectStarted({"C:\\info.exe"});
    host.Keys.Values[{pathKey, "PATH"}] = {4, std::string(1000, '\xFF')}; // makes no sense
    ExpectStarted({});
}

TEST_F(SysInfoTest, TheAboutBoxShowsTheVersionAndOffersTheProgram) {
    host.HasRegistry = false;
    AboutFRM about(door, host);
    EXPECT_EQ(about.findChild<QLabel*>("lblVersion")->text(), "Version 3.0.0");
    about.findChild<QPushButton*>("cmdSysInfo")->click();
    EXPECT_EQ(messages.size(), 1U);
    about.findChild<QPushButton*>("cmdOK")->click();
    EXPECT_TRUE(about.CanBeDestroyed());
}

} // namespace
} // namespace tqx
