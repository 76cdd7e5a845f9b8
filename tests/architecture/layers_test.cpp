#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

using Edges = std::map<std::string, std::set<std::string>>;

const fs::path Root = TQX_SOURCE_DIR;

/// The arrows of the drawing in docs/architecture.md, between ```layers and ```.
Edges DrawnEdges() {
    Edges edges;
    std::ifstream page(Root / "docs" / "architecture.md");
    bool inside = false;
    for (std::string line; std::getline(page, line);) {
        if (line == "```layers") {
            inside = true;
        } else if (line == "```") {
            inside = false;
        } else if (inside) {
            std::string arrow, from, to;
            std::istringstream words(line);
            words >> from >> arrow;
            edges[from];
            while (words >> to) {
                if (to.back() == ',') {
                    to.pop_back();
                }
                edges[from].insert(to);
            }
        }
    }
    return edges;
}

/// The library that a source belongs to: the one name in the include/ of its folder, or of its
/// board under boards/. A folder that nobody includes from has none.
std::string LibraryOf(const fs::path& file) {
    const fs::path below = fs::relative(file, Root / "src");
    auto part = below.begin();
    const fs::path folder =
        *part == "boards" ? Root / "src" / *part / *std::next(part) : Root / "src" / *part;
    return fs::is_directory(folder / "include")
               ? fs::directory_iterator(folder / "include")->path().filename()
               : folder.filename();
}

/// Calls `work` with every source below `folder` and each line of it.
template <typename Work>
void ForEachLine(const fs::path& folder, Work&& work) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string ending = entry.path().extension();
        if (ending == ".h" || ending == ".cpp") {
            std::ifstream source(entry.path());
            for (std::string line; std::getline(source, line);) {
                work(entry.path(), line);
            }
        }
    }
}

/// The arrows that the sources need, with a file for each; includes of no known library are left
/// out.
std::map<std::pair<std::string, std::string>, std::string> UsedEdges(const Edges& known) {
    static const std::regex include(R"(^\s*#include\s*["<]([a-z_]+)/)");
    std::map<std::pair<std::string, std::string>, std::string> used;
    ForEachLine(Root / "src", [&](const fs::path& file, const std::string& line) {
        std::smatch match;
        if (std::regex_search(line, match, include) && known.contains(match[1])) {
            const std::string from = LibraryOf(file);
            if (match[1] != from) {
                used[{from, match[1]}] = file.string();
            }
        }
    });
    return used;
}

TEST(Layers, EveryIncludeFollowsAnArrowOfTheDrawing) {
    const Edges drawn = DrawnEdges();
    ASSERT_GE(drawn.size(), 8U) << "the drawing was not found";
    for (const auto& [edge, file] : UsedEdges(drawn)) {
        ASSERT_TRUE(drawn.contains(edge.first)) << edge.first << " is not in the drawing";
        EXPECT_TRUE(drawn.at(edge.first).contains(edge.second))
            << file << " includes " << edge.second << ", which " << edge.first << " may not";
    }
}

TEST(Layers, EveryArrowOfTheDrawingIsNeeded) {
    const Edges drawn = DrawnEdges();
    const auto used = UsedEdges(drawn);
    for (const auto& [from, targets] : drawn) {
        for (const std::string& to : targets) {
            EXPECT_TRUE(used.contains({from, to})) << from << " -> " << to;
        }
    }
}

TEST(Layers, TheLowerLibrariesNeverSeeQt) {
    static const std::regex qt(R"(^\s*#include\s*<Q)");
    for (const char* folder : {"link", "device", "boards", "jobs", "cli"}) {
        ForEachLine(Root / "src" / folder, [](const fs::path& file, const std::string& line) {
            EXPECT_FALSE(std::regex_search(line, qt)) << file << ": " << line;
        });
    }
}

TEST(Layers, NoPanelNamesAnotherAndNoToolWindowAnother) {
    static const std::regex own(R"(^\s*#include\s*"([a-z_]+)/)");
    for (const char* library : {"console", "tools"}) {
        const fs::path root = Root / "src" / library;
        ForEachLine(root, [&](const fs::path& file, const std::string& line) {
            const std::string part = fs::relative(file, root).begin()->string();
            std::smatch match;
            if (part == "shell" || !fs::is_directory(root / part) ||
                !std::regex_search(line, match, own) || !fs::is_directory(root / match[1].str())) {
                return;
            }
            EXPECT_EQ(match[1], part) << file << ": " << line;
        });
    }
}

TEST(Layers, EveryHeaderOfAFaceHasAUserOutside) {
    static const std::regex include(R"(^\s*#include\s*(["<])([a-z_]+/[a-z_]+\.h)[">])");
    std::set<std::string> faces;
    std::map<std::string, std::set<std::string>> ofFaces;
    std::set<std::string> reached;
    for (const char* top : {"src", "tour"}) {
        ForEachLine(Root / top, [&](const fs::path& file, const std::string& line) {
            const bool face = file.parent_path().parent_path().filename() == "include";
            const std::string name =
                file.parent_path().filename().string() + "/" + file.filename().string();
            if (face) {
                faces.insert(name);
            }
            std::smatch match;
            if (!std::regex_search(line, match, include)) {
                return;
            }
            if (match[1] == "<") {
                reached.insert(match[2]);
            } else if (face) {
                ofFaces[name].insert(match[2]);
            }
        });
    }
    // What a face is made of is seen by whoever includes the face.
    for (std::set<std::string> open = reached; !open.empty();) {
        std::set<std::string> next;
        for (const std::string& name : open) {
            for (const std::string& part : ofFaces[name]) {
                if (reached.insert(part).second) {
                    next.insert(part);
                }
            }
        }
        open = next;
    }
    for (const std::string& face : faces) {
        EXPECT_TRUE(reached.contains(face)) << face;
    }
}

} // namespace
