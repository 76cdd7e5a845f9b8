#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path Root = TQX_SOURCE_DIR;

std::string TextOf(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

/// All sources in one text, literals that go on in the next line put together.
std::string SourcesWithWholeLiterals() {
    std::string text;
    for (const auto& entry : fs::recursive_directory_iterator(Root / "src")) {
        if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h") {
            text += TextOf(entry.path());
        }
    }
    for (auto end = text.find("\"\n"); end != std::string::npos; end = text.find("\"\n", end)) {
        const auto next = text.find_first_not_of(" \n", end + 1);
        if (next != std::string::npos && text[next] == '"') {
            text.erase(end, next + 1 - end);
        } else {
            ++end;
        }
    }
    return text;
}

/// The texts in `message` between the "..." that stand for a name or a number. A colon ends one
/// too: it joins what failed and why.
std::vector<std::string_view> FixedParts(std::string_view message) {
    constexpr std::string_view dots = "...";
    constexpr std::string_view colon = ": ";
    std::vector<std::string_view> parts;
    while (!message.empty()) {
        const auto end = std::min({message.find(dots), message.find(colon), message.size()});
        std::string_view part = message.substr(0, end);
        part.remove_prefix(std::min(part.find_first_not_of(' '), part.size()));
        part = part.substr(0, part.find_last_not_of(' ') + 1);
        if (!part.empty()) {
            parts.push_back(part);
        }
        message.remove_prefix(end);
        message.remove_prefix(
            std::min(message.starts_with(dots) ? dots.size() : colon.size(), message.size()));
    }
    return parts;
}

/// The messages that the troubleshooting page explains: the first cells of its tables.
std::vector<std::string> MessagesExplained() {
    constexpr std::string_view begin = "| \"";
    std::vector<std::string> messages;
    std::istringstream page(TextOf(Root / "docs" / "handbook" / "troubleshooting.md"));
    for (std::string line; std::getline(page, line);) {
        const auto end = line.find("\" |");
        if (line.starts_with(begin) && end != std::string::npos) {
            messages.push_back(line.substr(begin.size(), end - begin.size()));
        }
    }
    return messages;
}

TEST(Handbook, ExplainsMessagesInTheWordsOfTheProgram) {
    const std::string sources = SourcesWithWholeLiterals();
    const std::vector<std::string> messages = MessagesExplained();
    ASSERT_GE(messages.size(), 30U) << "the tables were not found";
    for (const std::string& message : messages) {
        for (const std::string_view part : FixedParts(message)) {
            EXPECT_NE(sources.find(part), std::string::npos)
                << "\"" << part << "\" of \"" << message << "\" is no text of the program";
        }
    }
}

TEST(Handbook, ItsFirstPageLeadsToEveryOther) {
    const std::string index = TextOf(Root / "docs" / "handbook" / "index.md");
    for (const auto& entry : fs::directory_iterator(Root / "docs" / "handbook")) {
        const std::string name = entry.path().filename();
        EXPECT_TRUE(name == "index.md" || index.find("(" + name + ")") != std::string::npos)
            << name;
    }
}

} // namespace
