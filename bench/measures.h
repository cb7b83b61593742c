// SPDX-License-Identifier: MIT
#pragma once

#include "table.h"

/// What is measured, each in a desktop of its own. Main thread.
namespace pimloft::bench {

struct Extent {
    bool quick = false;  ///< fewer samples, and no minute-long waits
};

/// From the start of the process until its tray icon is there and its last shortcut is live.
void measureStart(Table &table, Extent extent);
/// What it takes while nobody uses it, and a minute after all its windows were closed.
void measureRest(Table &table, Extent extent);
/// From the pointer to the overlay, and what a drag costs.
void measureDrag(Table &table, Extent extent);
/// From letting go of a window to its exact frame.
void measurePlacement(Table &table, Extent extent);
/// A large picture through the clipboard, both ways.
void measurePasteboard(Table &table, Extent extent);
/// From the shortcut to the popup with the clipboard history.
void measurePopup(Table &table, Extent extent);
/// From a copy in another program until it is in the history.
void measureCapture(Table &table, Extent extent);
/// What the clipboard history costs: to start with it, to keep it, to search it.
void measureHistory(Table &table, Extent extent);
/// The rules that run at every pointer event.
void measureRules(Table &table, Extent extent);
/// What the key tap adds to the way of a key to its window.
void measureKeyTap(Table &table, Extent extent);

/// What it takes to ask each file manager for its selected files and its folder.
void measureFinder(Table &table, Extent extent);

/// How long a change of the volume is on its way, and what looking for players costs.
void measureSound(Table &table, Extent extent);

/// Moving files to another file system, beside what others do.
void measureMoves(Table &table, Extent extent);

/// What the clipboard history of a peer takes, CopyQ, where it is installed.
void measureCopyQ(Table &table, Extent extent);

}  // namespace pimloft::bench
