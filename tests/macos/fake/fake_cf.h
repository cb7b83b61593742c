// SPDX-License-Identifier: MIT
#pragma once

#include "fake_mac.h"

#include <CoreFoundation/CoreFoundation.h>

#include <string>

namespace pimloft::test::mac {

/// An object of the C frameworks, with its count of owners.
struct Object {
    Object();
    virtual ~Object();
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;

    int owners = 1;
    bool isImmortal = false;  ///< a constant of the system's
};

/// The object behind a reference; complains, and answers nothing, when it is none, or gone.
Object *liveObject(const void *reference);

template <typename T>
T *as(const void *reference, const char *what) {
    T *object = dynamic_cast<T *>(liveObject(reference));
    if (!object)
        complain(std::string(what) + ": not what it needs, or gone");
    return object;
}

template <typename Ref>
Ref refOf(const Object *object) {
    return reinterpret_cast<Ref>(const_cast<Object *>(object));
}

/// Adds an owner, as a getter with "Copy" in its name does.
template <typename Ref>
Ref owned(Ref reference) {
    CFRetain(reference);
    return reference;
}

struct String : Object {
    std::u16string characters;
};

CFStringRef makeString(const std::string &ascii);
std::string asciiOf(CFStringRef text);

}  // namespace pimloft::test::mac
