// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace pimloft {

/// Calls back for one kind of notice that AppKit posts, until it is destroyed. Main thread.
class MacNotice {
public:
    enum class Kind {
        screensChanged,         ///< a screen came, went or changed its size or its usable area
        displayOptionsChanged,  ///< contrast, motion and the like
        applicationActivated,
        sessionLeft,   ///< another user's session is in front
        screensSlept,  ///< which locks them where the user wants that
    };
    MacNotice(Kind kind, std::function<void()> posted);
    ~MacNotice();
    MacNotice(const MacNotice &) = delete;
    MacNotice &operator=(const MacNotice &) = delete;

private:
    struct Observation;
    const std::unique_ptr<Observation> observation_;
};

}  // namespace pimloft
