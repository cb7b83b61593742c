// SPDX-License-Identifier: MIT
// As much of the system's queues as can be handed on: nothing here runs anything.
#pragma once

typedef struct dispatch_queue_s *dispatch_queue_t;

extern "C" dispatch_queue_t dispatch_get_main_queue(void);
