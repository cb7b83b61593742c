// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace pimloft {

// Pictures that the system draws. Main thread.

/// A square picture: rows from the top, red, green, blue and opacity in a byte each, the colours multiplied
/// by the opacity. Without pixels where there is none.
struct MacPicture {
    int side = 0;  ///< in pixels
    std::vector<std::uint8_t> pixels;
};

MacPicture applicationPicture(std::int32_t process, int side);
/// Of the file's kind where the file is not there.
MacPicture filePicture(const std::string &path, int side);
/// A symbol of the system's own, to be coloured by whoever shows it; a template, in the system's words.
MacPicture symbolPicture(const std::string &name, int side);

/// An icon of pictures in the sizes of lists, also on a fine screen. Null where there is none.
QIcon iconOf(const std::function<MacPicture(int side)> &draw);

/// The system's own symbol, which a menu bar colours as it needs. Null for a name that the system lacks.
QIcon templateIcon(const QString &symbol);

}  // namespace pimloft
