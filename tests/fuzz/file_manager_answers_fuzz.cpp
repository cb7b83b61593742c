// SPDX-License-Identifier: MIT
#include "base/file_url.h"
#include "platform/filemanager/folder_routes.h"
#include "platform/filemanager/open_locations.h"
#include "platform/filemanager/path_bar.h"
#include "platform/filemanager/selection_question.h"
#include "platform/scripting/finder_scripts.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>

namespace {

using namespace pimloft;

QByteArray bytes(FuzzedDataProvider &input) {
    return QByteArray::fromStdString(input.ConsumeRandomLengthString(80));
}

QString text(FuzzedDataProvider &input) {
    return QString::fromUtf8(bytes(input));
}

void checkPath(const QByteArray &path) {
    if (!path.startsWith('/'))
        std::abort();
}

/// The elements of a window, in any order and with any parents.
AccessibleTree tree(FuzzedDataProvider &input) {
    AccessibleTree result;
    while (result.size() < 12 && input.ConsumeBool())
        result.push_back({.parent = input.ConsumeIntegralInRange(-1, 12),
                          .role = AccessibleRole(input.ConsumeIntegralInRange(0, 90)),
                          .states = input.ConsumeIntegral<std::uint64_t>(),
                          .name = text(input),
                          .text = text(input)});
    return result;
}

void checkWindow(FuzzedDataProvider &input) {
    const AccessibleTree elements = tree(input);
    hasFocusedText(elements);
    for (const QByteArray &path : pathsShown(elements, "/home/user"))
        checkPath(path);
}

void checkLocations(FuzzedDataProvider &input) {
    FileManagerWindow window;
    window.title = text(input);
    window.objectPath = QStringLiteral("/window");
    QStringList locations;
    while (locations.size() < 4 && input.ConsumeBool())
        locations << text(input);
    if (const auto folder = shownFolder({{window.objectPath, locations}}, window))
        checkPath(*folder);
}

void checkSelection(FuzzedDataProvider &input) {
    const CopiedContent content{CopiedContent::files, bytes(input)};
    for (const FileManagerKind kind : {FileManagerKind::thunar, FileManagerKind::pcmanfmQt}) {
        const auto paths = selectedPaths(content, kind);
        for (const QByteArray &path : paths)
            checkPath(path);
        if (const auto folder = commonFolder(paths))
            checkPath(*folder);
        // As scripts tell them, they are the same files.
        for (const QByteArray &path : paths)
            if (FileUrl::fromText(scriptedPath(path)) != FileUrl::fromPath(path))
                std::abort();
    }
}

void checkUrl(const QString &answer) {
    const auto url = FileUrl::fromText(answer);
    if (!url)
        return;
    checkPath(url->path());
    if (url->path().contains('\0') || FileUrl::fromText(QString::fromLatin1(url->encoded())) != url)
        std::abort();
}

}  // namespace

/// Whatever a file manager answers when it is asked what it shows and what is selected: every path is one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    checkWindow(input);
    checkLocations(input);
    checkSelection(input);
    checkUrl(text(input));
    return 0;
}
