// SPDX-License-Identifier: MIT
#include "finderfix/unique_name.h"

namespace pimloft {

QByteArray uniqueName(const QByteArray &name, int number) {
    if (number == 1)
        return name;
    const qsizetype dot = name.lastIndexOf('.');
    const bool hasExtension = dot > 0 && dot < name.size() - 1;
    const qsizetype base = hasExtension ? dot : name.size();
    return name.left(base) + ' ' + QByteArray::number(number) + name.mid(base);
}

}  // namespace pimloft
