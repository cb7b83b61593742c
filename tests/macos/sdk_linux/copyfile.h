// SPDX-License-Identifier: MIT
// What Pimloft uses of the system's own library to copy files, declared from its public documentation.
#pragma once

#include <cstdint>

extern "C" {

typedef struct _copyfile_state *copyfile_state_t;
typedef std::uint32_t copyfile_flags_t;
typedef int (*copyfile_callback_t)(int what, int stage, copyfile_state_t state, const char *from,
                                   const char *to, void *context);

#define COPYFILE_ALL 15
#define COPYFILE_RECURSIVE (1 << 15)
#define COPYFILE_EXCL (1 << 17)
#define COPYFILE_NOFOLLOW ((1 << 18) | (1 << 19))
#define COPYFILE_STATE_STATUS_CB 6
#define COPYFILE_STATE_STATUS_CTX 7
#define COPYFILE_CONTINUE 0
#define COPYFILE_QUIT 2

copyfile_state_t copyfile_state_alloc(void);
int copyfile_state_free(copyfile_state_t state);
int copyfile_state_set(copyfile_state_t state, std::uint32_t key, const void *value);
int copyfile(const char *from, const char *to, copyfile_state_t state, copyfile_flags_t flags);

}  // extern "C"
