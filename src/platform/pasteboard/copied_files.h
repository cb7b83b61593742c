// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

/// How programs tell each other of copied files. File URLs stand one per line, percent-encoded, without a
/// host. Pure; any thread.
namespace pimloft {

/// The local files of a list of URIs (text/uri-list); nothing where it names none.
std::optional<QByteArray> fileUrlsOfUriList(const QByteArray &list);

/// The same of the list that file managers make, which begins with what is to become of the files.
std::optional<QByteArray> fileUrlsOfCopiedFiles(const QByteArray &list);

/// The bytes of the files' paths, in their order.
std::vector<QByteArray> localPaths(const QByteArray &fileUrls);

QByteArray uriList(const QByteArray &fileUrls);
QByteArray copiedFiles(const QByteArray &fileUrls);

/// The paths as a person would type them, one per line.
QByteArray filePaths(const QByteArray &fileUrls);

}  // namespace pimloft
