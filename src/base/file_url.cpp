// SPDX-License-Identifier: MIT
#include "base/file_url.h"

namespace pimloft {

namespace {

const QByteArray scheme = QByteArrayLiteral("file://");

/// What stays as it is in the path of a URL, beside letters, digits and "-._~". The same as in the URLs that
/// other programs put on the clipboard.
const QByteArray plain = QByteArrayLiteral("!$&'()*+,/:=@");

bool isThisComputer(const QByteArray &host) {
    return host.isEmpty() || host.compare("localhost", Qt::CaseInsensitive) == 0;
}

}  // namespace

std::optional<FileUrl> FileUrl::fromPath(QByteArray path) {
    if (!path.startsWith('/') || path.contains('\0'))
        return std::nullopt;
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return FileUrl(std::move(path));
}

std::optional<FileUrl> FileUrl::fromText(const QString &text) {
    const QByteArray bytes = text.toUtf8();
    if (!bytes.startsWith(scheme))
        return fromPath(bytes);
    const qsizetype path = bytes.indexOf('/', scheme.size());
    if (path < 0 || !isThisComputer(bytes.mid(scheme.size(), path - scheme.size())))
        return std::nullopt;
    return fromPath(QByteArray::fromPercentEncoding(bytes.mid(path)));
}

QByteArray FileUrl::encoded() const {
    return scheme + path_.toPercentEncoding(plain);
}

QByteArray FileUrl::lastPathComponent() const {
    return path_.mid(path_.lastIndexOf('/') + 1);
}

FileUrl FileUrl::folder() const {
    return FileUrl(path_.left(std::max<qsizetype>(1, path_.lastIndexOf('/'))));
}

FileUrl FileUrl::appending(const QByteArray &name) const {
    return FileUrl(path_.endsWith('/') ? path_ + name : path_ + '/' + name);
}

}  // namespace pimloft
