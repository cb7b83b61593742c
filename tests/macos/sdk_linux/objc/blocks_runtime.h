// SPDX-License-Identifier: MIT
// GNUstep's headers look for blocks in another runtime than the one that is used here.
#pragma once

#include <Block.h>
