// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace pimloft {

/// One property of one object of the sound system, as the system numbers them. A value; any thread.
struct MacAudioProperty {
    std::uint32_t object;
    std::uint32_t selector;
    std::uint32_t scope;
    std::uint32_t element;
};

/// Is told, on the main thread, when a property changes. Destroying it ends that; no call follows. Main
/// thread.
class MacAudioListener {
public:
    /// Nothing when the system refuses.
    static std::unique_ptr<MacAudioListener> install(const MacAudioProperty &property,
                                                     std::function<void()> changed);
    ~MacAudioListener();
    MacAudioListener(const MacAudioListener &) = delete;
    MacAudioListener &operator=(const MacAudioListener &) = delete;

private:
    struct Registration;
    explicit MacAudioListener(std::unique_ptr<Registration> registration);

    const std::unique_ptr<Registration> registration_;
};

}  // namespace pimloft
