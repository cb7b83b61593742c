// SPDX-License-Identifier: MIT
// Reads the project's own source and compares it with the house plan.
#include "house.h"
#include "source_tree.h"

#include <gmock/gmock.h>

#include <optional>
#include <sstream>

namespace pimloft::test {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;

constexpr int longestFile = 450;

/// A violation as a compiler would report it, so that an editor can jump there.
std::string at(const SourceFile &file, int line, const std::string &what) {
    std::ostringstream text;
    text << '\n' << file.path.generic_string() << ':' << line << ": " << what;
    return text.str();
}

std::vector<SourceFile> product() {
    const auto targets = readTargets(TARGETS_FILE, SOURCE_ROOT);
    std::vector<SourceFile> files;
    for (const fs::path &path : handWrittenFiles(SOURCE_ROOT, {"src"})) {
        files.push_back(readSource(SOURCE_ROOT, path));
        const auto target = targets.find(path);
        if (target != targets.end())
            files.back().target = target->second;
    }
    return files;
}

std::vector<SourceFile> everything() {
    std::vector<SourceFile> files;
    for (const fs::path &path : handWrittenFiles(SOURCE_ROOT, {"src", "tests", "bench"}))
        files.push_back(readSource(SOURCE_ROOT, path));
    return files;
}

/// The part of Qt that a header in angle brackets belongs to.
std::optional<std::string> partOfQt(const std::string &header) {
    const fs::path root = QT_HEADERS;
    if (header.find('/') != std::string::npos)
        return header.rfind("Qt", 0) == 0 ? std::optional(header.substr(0, header.find('/'))) : std::nullopt;
    for (const auto &folder : fs::directory_iterator(root))
        if (fs::exists(folder.path() / header))
            return folder.path().filename().string();
    return std::nullopt;
}

TEST(Architecture, everyFileIsBuiltByATargetOfThePlan) {
    std::vector<std::string> violations;
    for (const SourceFile &file : product()) {
        if (file.target.empty())
            violations.push_back(at(file, 1, "no target of CMake lists this file"));
        else if (!layerOf(file.target))
            violations.push_back(at(file, 1, "the house plan has no place for " + file.target));
    }
    EXPECT_THAT(violations, IsEmpty());
}

TEST(Architecture, everyFileForAMacIsInTheListThatBothTheMacAndItsTestsBuild) {
    std::vector<std::string> violations;
    for (const SourceFile &file : product()) {
        const bool isForMac =
            file.path.extension() == ".mm" || file.path.filename().string().rfind("mac_", 0) == 0;
        if (isForMac && file.target != "pimloft_platform_macos")
            violations.push_back(at(file, 1, "is not in src/platform/macos.cmake alone"));
    }
    EXPECT_THAT(violations, IsEmpty());
}

TEST(Architecture, aLayerIncludesOnlyTheLayersUnderIt) {
    const std::vector<SourceFile> files = product();
    std::map<std::string, std::string> targetOf;
    for (const SourceFile &file : files)
        targetOf[file.path.lexically_relative("src").generic_string()] = file.target;
    std::vector<std::string> violations;
    for (const SourceFile &file : files) {
        for (const Include &include : file.includes) {
            const auto included = targetOf.find(include.name);
            if (!include.quoted || included == targetOf.end())
                continue;
            if (const std::string why = objection(file.target, included->second); !why.empty())
                violations.push_back(at(file, include.line, "includes " + include.name + ": " + why));
        }
    }
    EXPECT_THAT(violations, IsEmpty());
}

TEST(Architecture, anIncludeOfOurOwnNamesTheFileFromTheRootOfTheSources) {
    std::vector<std::string> violations;
    for (const SourceFile &file : product())
        for (const Include &include : file.includes)
            if (include.quoted && include.name.find("moc_") == std::string::npos &&
                include.name.find(".moc") == std::string::npos &&
                !fs::exists(fs::path(SOURCE_ROOT) / "src" / include.name))
                violations.push_back(at(file, include.line, "no src/" + include.name));
    EXPECT_THAT(violations, IsEmpty());
}

TEST(Architecture, aLayerUsesOnlyItsPartsOfQt) {
    std::vector<std::string> violations;
    for (const SourceFile &file : product()) {
        const Layer *layer = layerOf(file.target);
        for (const Include &include : file.includes) {
            const auto part = include.quoted || !layer ? std::nullopt : partOfQt(include.name);
            if (part && std::find(layer->qt.begin(), layer->qt.end(), *part) == layer->qt.end())
                violations.push_back(at(file, include.line,
                                        "includes <" + include.name + ">: " + std::string(layer->name) +
                                            " does without " + *part));
        }
    }
    EXPECT_THAT(violations, IsEmpty());
}

TEST(Architecture, onlyThePlatformAsksWhichSystemThisIs) {
    std::vector<std::string> violations;
    for (const SourceFile &file : product())
        if (const Layer *layer = layerOf(file.target); !layer || !layer->mayNameSystems)
            for (const int line : file.systemQuestions)
                violations.push_back(at(file, line, "asks for an operating system outside src/platform"));
    EXPECT_THAT(violations, IsEmpty());
}

TEST(Architecture, everyFileNamesItsLicenceFirst) {
    std::vector<std::string> violations;
    for (const SourceFile &file : everything())
        if (file.firstLine != "// SPDX-License-Identifier: MIT")
            violations.push_back(at(file, 1, "does not begin with its licence"));
    EXPECT_THAT(violations, IsEmpty());
}

TEST(Architecture, noFileIsLongerThanAPersonReads) {
    std::vector<std::string> violations;
    for (const SourceFile &file : everything())
        if (file.lines > longestFile)
            violations.push_back(
                at(file, file.lines, "has more than " + std::to_string(longestFile) + " lines"));
    EXPECT_THAT(violations, IsEmpty());
}

TEST(HousePlan, letsALayerKnowTheLayersUnderIt) {
    EXPECT_EQ(objection("pimloft_windowsnap", "pimloft_core"), "");
    EXPECT_EQ(objection("pimloft_windowsnap_ui", "pimloft_windowsnap"), "");
    EXPECT_EQ(objection("pimloft", "pimloft_platform_linux"), "");
}

TEST(HousePlan, refusesAnArrowThatPointsUp) {
    EXPECT_EQ(objection("pimloft_base", "pimloft_platform"), "base may not know platform");
    EXPECT_EQ(objection("pimloft_windowsnap", "pimloft_app"), "module may not know app");
    EXPECT_EQ(objection("pimloft_core", "pimloft_platform_linux"), "core may not know platform_host");
}

TEST(HousePlan, keepsModulesApart) {
    EXPECT_EQ(objection("pimloft_windowsnap", "pimloft_clipboard"), "modules never know each other");
    EXPECT_EQ(objection("pimloft_windowsnap_ui", "pimloft_clipboard"), "modules never know each other");
    EXPECT_EQ(objection("pimloft_windowsnap", "pimloft_windowsnap_ui"), "module may not know module_ui");
}

TEST(HousePlan, knowsQtsPartsByTheirHeaders) {
    EXPECT_EQ(partOfQt("QApplication"), "QtWidgets");
    EXPECT_EQ(partOfQt("QtQuick/QQuickItem"), "QtQuick");
    EXPECT_EQ(partOfQt("vector"), std::nullopt);
}

}  // namespace
}  // namespace pimloft::test
