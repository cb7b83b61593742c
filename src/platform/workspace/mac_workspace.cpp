// SPDX-License-Identifier: MIT
#include "platform/workspace/mac_workspace.h"

#include "platform/mac/mac_picture.h"
#include "platform/workspace/mac_applications.h"

#include <QFileInfo>

namespace pimloft {

namespace {

ActivationPolicy policyOf(MacApplication::Policy policy) {
    switch (policy) {
    case MacApplication::Policy::regular:
        return ActivationPolicy::regular;
    case MacApplication::Policy::accessory:
        return ActivationPolicy::accessory;
    case MacApplication::Policy::prohibited:
        break;
    }
    return ActivationPolicy::prohibited;
}

Application applicationOf(const MacApplication &known) {
    return {QString::fromStdString(known.name),
            known.bundleId ? std::optional(QString::fromStdString(*known.bundleId)) : std::nullopt,
            ProcessId(known.process), policyOf(known.policy)};
}

/// Links can come from the network: what opens them is a browser or the settings, and nothing that does more.
bool mayBeOpened(const QUrl &url) {
    static const QStringList schemes{QStringLiteral("https"), QStringLiteral("http"),
                                     QStringLiteral("x-apple.systempreferences")};
    return schemes.contains(url.scheme());
}

}  // namespace

MacWorkspace::MacWorkspace() : activations_(MacNotice::Kind::applicationActivated, [this] { announce(); }) {
}

std::optional<Application> MacWorkspace::frontmostApplication() {
    const auto front = frontApplication();
    return front ? std::optional(applicationOf(*front)) : std::nullopt;
}

std::vector<Application> MacWorkspace::runningApplications() {
    std::vector<Application> applications;
    for (const MacApplication &each : launchedApplications())
        applications.push_back(applicationOf(each));
    return applications;
}

QIcon MacWorkspace::icon(const Application &application) {
    return iconOf([process = std::int32_t(application.processId)](int side) {
        return applicationPicture(process, side);
    });
}

QIcon MacWorkspace::fileIcon(const QString &path) {
    return iconOf([path = path.toStdString()](int side) { return filePicture(path, side); });
}

bool MacWorkspace::open(const QUrl &url) {
    return mayBeOpened(url) && openLink(url.toString(QUrl::FullyEncoded).toStdString());
}

void MacWorkspace::reveal(const QString &path) {
    if (QFileInfo(path).isDir())
        showInFileManager(std::nullopt, path.toStdString());
    else
        showInFileManager(path.toStdString(), {});
}

void MacWorkspace::announce() {
    QMetaObject::invokeMethod(
        &calls_,
        [this] {
            if (onFrontmostChanged)
                onFrontmostChanged();
        },
        Qt::QueuedConnection);
}

}  // namespace pimloft
