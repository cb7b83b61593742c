// SPDX-License-Identifier: MIT
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace pimloft {

/// Owns one reference to an object of the C frameworks, as every function with "Create" or "Copy" in its name
/// hands it out. May be empty. As safe on other threads as the object.
template <typename T>
class CfRef {
public:
    CfRef() = default;
    explicit CfRef(T owned) : object_(owned) {}
    CfRef(CfRef &&other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    CfRef &operator=(CfRef other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~CfRef() {
        if (object_)
            CFRelease(object_);
    }

    T get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    T object_ = nullptr;
};

}  // namespace pimloft
