// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QUrl>
#include <QVariantMap>

namespace pimloft {

/// A view that the user interface can load without knowing its type. A value; any thread.
struct Page {
    Q_GADGET
    Q_PROPERTY(QUrl source MEMBER source)
    Q_PROPERTY(QVariantMap properties MEMBER properties)

public:
    QUrl source;             ///< where the view is
    QVariantMap properties;  ///< what it is given; objects in it outlive the view
};

}  // namespace pimloft
