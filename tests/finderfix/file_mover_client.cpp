// SPDX-License-Identifier: MIT
// Moves one folder until it is killed: file_mover_client ITEM FOLDER. Says on standard output when it begins.
#include "finderfix/file_mover.h"
#include "platform/files/linux_files.h"

#include <cstdio>

int main(int argc, char **argv) {
    using namespace pimloft;
    if (argc != 3)
        return 2;
    const FileCalls calls{};
    LinuxFiles files(calls);
    std::puts("begin");
    std::fflush(stdout);
    const auto failure = FileMover(files).move(FileUrl::fromPath(argv[1]).value(),
                                               FileUrl::fromPath(argv[2]).value(), [] { return false; });
    if (failure)
        std::puts(qPrintable(failure->description));
    return failure ? 1 : 0;
}
