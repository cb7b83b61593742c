// SPDX-License-Identifier: MIT
// Adds to a history until it is killed: history_saver FOLDER FIRST. Each entry is numbered from FIRST on and
// told on standard output once it is saved.
#include "app/settings_keys.h"
#include "clipboard/clipboard_store.h"
#include "entries.h"
#include "platform/fake_desktop.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv) {
    using namespace pimloft;
    if (argc != 3)
        return 2;
    FakeDesktop desktop;
    desktop.preferences.stored[SettingsKeys::clipboardMaxItems] = 20;
    ClipboardStore store(desktop.preferences, QString::fromLocal8Bit(argv[1]));
    for (unsigned number = unsigned(std::atoi(argv[2]));; ++number) {
        // A picture now and then, so that a save takes long enough to be met.
        if (number % 5 == 0)
            store.add(test::entry(ImageContent{test::noise(1'000'000, number)}));
        ClipboardItem item = test::text(QStringLiteral("entry %1").arg(number));
        item.timestamp.seconds = number;
        store.add(item);
        std::printf("%u\n", number);
        std::fflush(stdout);
    }
}
