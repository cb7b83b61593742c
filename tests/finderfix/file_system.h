// SPDX-License-Identifier: MIT
#pragma once

#include "base/file_url.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <string>
#include <sys/stat.h>

namespace pimloft::test {

/// Two folders of real file systems that go with the test.
class TwoVolumes {
public:
    TwoVolumes();
    ~TwoVolumes();

    /// Whether they lie on different ones here.
    bool areTwo() const;
    FileUrl here() const;
    FileUrl there() const;

private:
    QTemporaryDir here_;
    QTemporaryDir there_;
};

void makeFolder(const FileUrl &folder);
void write(const FileUrl &file, const QByteArray &content);
QByteArray read(const FileUrl &file);
/// Of the entry itself, also of a link. Zero fields for what is not there.
struct stat statusOf(const FileUrl &file);
bool isThere(const FileUrl &file);
void removeAll(const FileUrl &folder);

/// Every entry below a folder, one per line: "name = content", "name/" or "name -> target", hidden ones too.
std::string listing(const FileUrl &folder);

}  // namespace pimloft::test
