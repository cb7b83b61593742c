// SPDX-License-Identifier: MIT
#include "source_tree.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace pimloft::test {

namespace fs = std::filesystem;

std::vector<fs::path> handWrittenFiles(const fs::path &root, const std::vector<std::string> &folders) {
    static const std::set<std::string> kinds = {".h", ".cpp", ".mm", ".qml"};
    std::vector<fs::path> files;
    for (const std::string &folder : folders)
        for (const auto &entry : fs::recursive_directory_iterator(root / folder))
            if (entry.is_regular_file() && kinds.count(entry.path().extension().string()))
                files.push_back(fs::relative(entry.path(), root));
    std::sort(files.begin(), files.end());
    return files;
}

SourceFile readSource(const fs::path &root, const fs::path &path) {
    static const std::regex include(R"(^\s*#\s*(?:include|import)\s*([<"])([^>"]+)[>"])");
    static const std::regex question(R"(^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*)"
                                     R"((?:Q_OS_|__linux|__APPLE__|__MACH__|__unix|_WIN32|TARGET_OS_))");
    SourceFile file{path, {}, {}, 0, {}, {}};
    std::ifstream stream(root / path);
    for (std::string line; std::getline(stream, line);) {
        if (++file.lines == 1)
            file.firstLine = line;
        std::smatch match;
        if (std::regex_search(line, match, include))
            file.includes.push_back({match[2], match[1] == "\"", file.lines});
        else if (std::regex_search(line, question))
            file.systemQuestions.push_back(file.lines);
    }
    return file;
}

std::map<fs::path, std::string> readTargets(const fs::path &list, const fs::path &root) {
    std::map<fs::path, std::string> targets;
    std::ifstream stream(list);
    for (std::string line; std::getline(stream, line);) {
        std::istringstream words(line);
        std::string target, folder, name;
        words >> target >> folder;
        while (words >> name) {
            const fs::path path = fs::path(name).is_absolute() ? fs::path(name) : fs::path(folder) / name;
            targets[fs::relative(path.lexically_normal(), root)] = target;
        }
    }
    return targets;
}

}  // namespace pimloft::test
