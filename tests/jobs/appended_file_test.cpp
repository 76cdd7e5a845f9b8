#include "appended_file.h"
#include "support/temporary_folder.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tqx {
namespace {

class AppendedFileTest : public testing::Test {
protected:
    test::TemporaryFolder folder;
    std::string place = folder.Path("file");

    std::string ReasonFor(const std::string& name) {
        AppendedFile file(name);
        file.Write("text");
        EXPECT_FALSE(file.Reached());
        return file.Reason();
    }
};

TEST_F(AppendedFileTest, WhatIsNoPlainFileIsRefusedWithoutWaiting) {
    ASSERT_EQ(mkfifo(place.c_str(), 0600), 0);
    EXPECT_EQ(ReasonFor(place), "it is a pipe and not a file");
    EXPECT_EQ(ReasonFor("/dev/full"), "it is a device and not a file");
    EXPECT_EQ(ReasonFor(folder.Path("")), "it is a folder");
    EXPECT_EQ(ReasonFor(folder.Path("not there/file")), "No such file or directory");
}

TEST_F(AppendedFileTest, ATextThatMeetsTheEndOfTheRoomIsToldAndLeavesNoPart) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{.rlim_cur = 100, .rlim_max = before.rlim_max};
    AppendedFile file(place);
    file.Write(std::string(60, 'a'));
    setrlimit(RLIMIT_FSIZE, &small);
    file.Write(std::string(60, 'b')); // 40 bytes of it have room
    setrlimit(RLIMIT_FSIZE, &before);
    file.Write("c");
    EXPECT_EQ(file.Reason(), "File too large");
    EXPECT_TRUE(file.Reached());
    file.Close();
    EXPECT_EQ(test::ContentOf(place), std::string(60, 'a'));
}

TEST_F(AppendedFileTest, OneThatIsBeingWrittenIsRefusedWithTheNameOfItsWriter) {
    AppendedFile first(place);
    first.Write("first");
    EXPECT_EQ(ReasonFor(place),
              "it is being written by jobs_tests, process " + std::to_string(getpid()));
    first.Close();
    AppendedFile second(place);
    EXPECT_FALSE(second.Failed());
}

TEST_F(AppendedFileTest, OneThatWasMovedAwayIsToldAtTheNextFlush) {
    AppendedFile file(place);
    file.Write("text");
    file.Flush();
    EXPECT_FALSE(file.Failed());
    std::filesystem::rename(place, folder.Path("elsewhere"));
    file.Flush();
    EXPECT_TRUE(file.Failed());
    EXPECT_FALSE(file.Reached());
}

} // namespace
} // namespace tqx
