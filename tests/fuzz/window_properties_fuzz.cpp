// SPDX-License-Identifier: MIT
#include "platform/displays/work_area.h"
#include "platform/filemanager/file_manager_window.h"
#include "platform/filemanager/path_bar.h"
#include "platform/workspace/identity_table.h"
#include "platform/workspace/window_icon.h"

#include <QGuiApplication>

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdlib>

namespace {

using namespace pimloft;

QString text(FuzzedDataProvider &input) {
    return QString::fromUtf8(QByteArray::fromStdString(input.ConsumeRandomLengthString(60)));
}

std::vector<std::uint32_t> numbers(FuzzedDataProvider &input, std::size_t most) {
    std::vector<std::uint32_t> result(input.ConsumeIntegralInRange<std::size_t>(0, most));
    for (std::uint32_t &number : result)
        number = input.ConsumeIntegral<std::uint32_t>();
    return result;
}

DesktopEntry desktopEntry(FuzzedDataProvider &input) {
    return {.id = text(input),
            .name = text(input),
            .icon = {},
            .startupClass = text(input),
            .executable = text(input),
            .categories = text(input).split(u';', Qt::SkipEmptyParts),
            .mimeTypes = text(input).split(u';', Qt::SkipEmptyParts),
            .isHidden = input.ConsumeBool()};
}

/// What a program calls itself decides which program it is taken for; the order of the entries does not.
void checkNames(FuzzedDataProvider &input) {
    const ProgramTraits traits{.windowClass = text(input),
                               .windowInstance = text(input),
                               .gtkApplicationId = text(input),
                               .executable = text(input),
                               .launchedEntry = text(input)};
    std::vector<DesktopEntry> entries;
    while (entries.size() < 4 && input.ConsumeBool())
        entries.push_back(desktopEntry(input));
    const auto entry = DesktopEntryIndex(entries).match(traits);
    identify(traits, entry);
    std::reverse(entries.begin(), entries.end());
    if (DesktopEntryIndex(entries).match(traits).has_value() != entry.has_value())
        std::abort();
    fileManagerKind({traits.windowInstance, traits.windowClass, traits.gtkApplicationId});
}

/// Every path that is read out of a title is one, without a slash at its end.
void checkTitle(const QString &title) {
    for (const QByteArray &path : pathsInTitle(title))
        if (!path.startsWith('/') || (path.size() > 1 && path.endsWith('/')))
            std::abort();
}

/// Whatever windows reserve, a part of the monitor is left, and nothing beside it.
void checkStruts(FuzzedDataProvider &input) {
    const QSize root(input.ConsumeIntegralInRange(1, 32767), input.ConsumeIntegralInRange(1, 32767));
    const QRect monitor(
        input.ConsumeIntegralInRange(0, root.width() - 1), input.ConsumeIntegralInRange(0, root.height() - 1),
        input.ConsumeIntegralInRange(1, root.width()), input.ConsumeIntegralInRange(1, root.height()));
    std::vector<Strut> struts;
    while (struts.size() < 4 && input.ConsumeBool())
        if (const auto strut = parseStrut(numbers(input, 14), numbers(input, 5), root))
            struts.push_back(*strut);
    const QRect area = workArea(monitor, struts, root);
    if (area.isEmpty() || !monitor.contains(area))
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Icons are made of pixmaps, which there are only with an application.
    static QGuiApplication application(*argc, *argv);
    return 0;
}

/// Whatever other programs' windows say of themselves.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    checkNames(input);
    checkTitle(text(input));
    checkStruts(input);
    windowIcon(numbers(input, 400));
    return 0;
}
