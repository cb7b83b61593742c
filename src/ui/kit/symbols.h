// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QIcon>
#include <QString>

class QPainter;

/// The system symbols that the program draws with, by their names. Main thread.
namespace pimloft {

/// Whether there is a drawing for this name.
bool hasSymbol(const QString &name);

/// Paints the symbol with `tint` as large as it fits into the middle of `rect`, in the painter's units and
/// as sharp as its device. Draws nothing for a name that there is no drawing for.
void paintSymbol(QPainter &painter, const QString &name, const QRectF &rect, const QBrush &tint);

/// The symbol in one colour, sharp at every size. With a valid `halo` its outline is set off in that colour:
/// for places whose background is not known.
QIcon symbolIcon(const QString &name, const QColor &color, const QColor &halo = {});

}  // namespace pimloft
