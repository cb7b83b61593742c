// SPDX-License-Identifier: MIT
// Calls of the other system's own library, declared from its public documentation.
#pragma once

#define RENAME_EXCL 0x00000004
#define SYNC_VOLUME_WAIT 0x02

extern "C" {
int renamex_np(const char *from, const char *to, unsigned flags);
int sync_volume_np(const char *path, int flags);
}
