// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"

#include <QByteArray>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace pimloft {

/// One form in which content is offered to other programs. A value; any thread.
struct SelectionForm {
    QByteArray target;  ///< what it is asked for by
    QByteArray type;    ///< what the answer says it is
    /// Made at each request, on the selection's thread, so that rarely wanted forms of large content cost
    /// nothing.
    std::function<QByteArray()> bytes;
};
using SelectionContent = std::vector<SelectionForm>;

/// One form in which content would be welcome. A value; any thread.
struct SelectionWish {
    QByteArray target;
    int tag = 0;  ///< the asker's own
    /// What an answer of this type means; nothing where it is not what was asked for. `type` is empty unless
    /// it is one of the text types of X11. Called on the selection's thread.
    std::optional<QByteArray> (*understand)(const QByteArray &type, QByteArray bytes) = nullptr;
};

/// A question to the program that owns the selection.
struct SelectionQuery {
    std::uint64_t id = 0;
    qint64 change = 0;                  ///< of which the answer is wanted
    std::vector<SelectionWish> wishes;  ///< the best first
    qsizetype cap = 0;                  ///< bytes; no transfer goes on above it
    bool wantsOwner = false;
    bool wantsTargets = false;
};

struct SelectionAnswer {
    enum Status { present, absent, tooLarge, superseded, failed };
    Status status = failed;
    int tag = 0;  ///< of the wish that was fulfilled or was too large
    QByteArray bytes = {};
    QByteArray textType = {};              ///< of the content, where it is one of the text types of X11
    std::optional<ProcessId> owner = {};   ///< if wanted, where it runs here and the server tells
    std::vector<QByteArray> targets = {};  ///< if wanted, all that is offered
};

}  // namespace pimloft
