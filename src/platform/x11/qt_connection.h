// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>

namespace pimloft {

/// Has Qt talk to the X server, where the user has not chosen otherwise: by a variable of the environment, so
/// it is to be called before the QApplication is made. Main thread.
void chooseQtConnection();

/// The variables that were set for that. They are not for the programs that are opened from here. Main
/// thread.
const QByteArrayList &variablesForQt();

}  // namespace pimloft
