// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace pimloft::test {

/// One line of the preprocessor, or a text line that matters to a rule.
struct Include {
    std::string name;  ///< between the quotes or the angle brackets
    bool quoted = false;
    int line = 0;
};

/// A source file as the rules see it.
struct SourceFile {
    std::filesystem::path path;  ///< relative to the root of the project
    std::string target;          ///< empty when no target builds it
    std::string firstLine;
    int lines = 0;
    std::vector<Include> includes;
    std::vector<int> systemQuestions;  ///< lines that ask which operating system this is
};

/// Files of these folders that are written by hand: C++, Objective-C++ and QML.
std::vector<std::filesystem::path> handWrittenFiles(const std::filesystem::path &root,
                                                    const std::vector<std::string> &folders);

/// Reads one file. `path` is relative to `root`.
SourceFile readSource(const std::filesystem::path &root, const std::filesystem::path &path);

/// Which target builds a file, from CMake's list: "target folder file file ..." per line.
std::map<std::filesystem::path, std::string> readTargets(const std::filesystem::path &list,
                                                         const std::filesystem::path &root);

}  // namespace pimloft::test
