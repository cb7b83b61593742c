// SPDX-License-Identifier: MIT
#include "platform/pasteboard/copied_files.h"

#include <glib.h>

#include <memory>

namespace pimloft {

namespace {

struct GFree {
    void operator()(char *text) const { g_free(text); }
    void operator()(char **texts) const { g_strfreev(texts); }
};
using GText = std::unique_ptr<char, GFree>;
using GTexts = std::unique_ptr<char *, GFree>;

bool isThisComputer(const char *host) {
    return !host || g_ascii_strcasecmp(host, "localhost") == 0 ||
           g_ascii_strcasecmp(host, g_get_host_name()) == 0;
}

/// The bytes of a path need not be text in any encoding. Null for what is no file of this computer.
GText localPath(const char *uri) {
    char *host = nullptr;
    GText path(g_filename_from_uri(uri, &host, nullptr));
    const GText ownedHost(host);
    return isThisComputer(host) ? std::move(path) : nullptr;
}

GTexts lines(const QByteArray &text) {
    return GTexts(g_uri_list_extract_uris(text.constData()));
}

}  // namespace

std::optional<QByteArray> fileUrlsOfUriList(const QByteArray &list) {
    QByteArray result;
    const GTexts uris = lines(list);
    for (char **uri = uris.get(); *uri; ++uri) {
        const GText path = localPath(*uri);
        const GText url(path ? g_filename_to_uri(path.get(), nullptr, nullptr) : nullptr);
        if (url)
            result += url.get() + QByteArrayLiteral("\n");
    }
    if (result.isEmpty())
        return std::nullopt;
    result.chop(1);
    return result;
}

std::optional<QByteArray> fileUrlsOfCopiedFiles(const QByteArray &list) {
    const qsizetype head = list.indexOf('\n');
    const QByteArray purpose = list.left(head).trimmed();
    if (head < 0 || (purpose != "copy" && purpose != "cut"))
        return std::nullopt;
    return fileUrlsOfUriList(list.mid(head + 1));
}

std::vector<QByteArray> localPaths(const QByteArray &fileUrls) {
    std::vector<QByteArray> result;
    const GTexts urls = lines(fileUrls);
    for (char **url = urls.get(); *url; ++url)
        if (const GText path = localPath(*url))
            result.emplace_back(path.get());
    return result;
}

QByteArray uriList(const QByteArray &fileUrls) {
    QByteArray result;
    const GTexts urls = lines(fileUrls);
    for (char **url = urls.get(); *url; ++url)
        result += *url + QByteArrayLiteral("\r\n");
    return result;
}

QByteArray copiedFiles(const QByteArray &fileUrls) {
    QByteArray result = QByteArrayLiteral("copy");
    const GTexts urls = lines(fileUrls);
    for (char **url = urls.get(); *url; ++url)
        result += '\n' + QByteArray(*url);
    return result;
}

QByteArray filePaths(const QByteArray &fileUrls) {
    QByteArray result;
    for (const QByteArray &path : localPaths(fileUrls))
        result += path + '\n';
    result.chop(1);
    return result;
}

}  // namespace pimloft
