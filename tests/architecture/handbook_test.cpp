#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
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
    static const std::regex seam(R"re("\s*\n\s*")re");
    std::string text;
    for (const auto& entry : fs::recursive_directory_iterator(Root / "src")) {
        if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h") {
            text += std::regex_replace(TextOf(entry.path()), seam, "");
        }
    }
    return text;
}

/// What is between two "..." in `message`, which stand for a name or a number; ": " too joins two
/// texts of a failed link.
std::vector<std::string> FixedParts(const std::string& message) {
    static const std::regex gap(R"(\s*\.\.\.:?\s*|: )");
    std::vector<std::string> parts;
    for (std::sregex_token_iterator part(message.begin(), message.end(), gap, -1), end; part != end;
         ++part) {
        if (part->length() > 0) {
            parts.push_back(*part);
        }
    }
    return parts;
}

/// The messages that the page on trouble shooting explains: the first cells of its tables.
std::vector<std::string> MessagesExplained() {
    static const std::regex row(R"re(^\| "(.*?)" \|)re");
    std::vector<std::string> messages;
    std::istringstream page(TextOf(Root / "docs" / "handbook" / "trouble-shooting.md"));
    for (std::string line; std::getline(page, line);) {
        std::smatch match;
        if (std::regex_search(line, match, row)) {
            messages.push_back(match[1]);
        }
    }
    return messages;
}

TEST(Handbook, ExplainsMessagesInTheWordsOfTheProgram) {
    const std::string sources = SourcesWithWholeLiterals();
    const std::vector<std::string> messages = MessagesExplained();
    ASSERT_GE(messages.size(), 30U) << "the tables were not found";
    for (const std::string& message : messages) {
        for (const std::string& part : FixedParts(message)) {
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
