// SPDX-License-Identifier: MIT
#include "fake_cf.h"

#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <typeindex>
#include <utility>
#include <vector>

namespace pimloft::test::mac {

namespace {

std::set<const Object *> &registry() {
    static std::set<const Object *> objects;
    return objects;
}

std::string log;
std::string problemLines;

struct Boolean_ : Object {
    explicit Boolean_(bool flag) : value(flag) { isImmortal = true; }
    bool value;
};

struct Number : Object {
    bool isFloat = false;
    std::int64_t whole = 0;
    double fraction = 0;
};

struct Array : Object {
    ~Array() override {
        for (const void *value : values)
            CFRelease(value);
    }
    std::vector<const void *> values;
};

CFTypeID typeNumber(const std::type_info &type) {
    static std::map<std::type_index, CFTypeID> numbers;
    return numbers.emplace(type, numbers.size() + 1).first->second;
}

}  // namespace

void reset() {
    log.clear();
    problemLines.clear();
    resetAppKit();
    resetApplicationServices();
    resetAudio();
    resetCarbon();
    resetEvents();
    resetFiles();
    resetPreferences();
}

void note(const std::string &line) {
    log += line + '\n';
}

std::string takeLog() {
    return std::exchange(log, {});
}

void complain(const std::string &problem) {
    problemLines += problem + '\n';
}

std::string problems() {
    return problemLines;
}

int liveObjects() {
    int count = 0;
    for (const Object *object : registry())
        count += !object->isImmortal;
    return count;
}

std::string hex(std::uint64_t number) {
    std::ostringstream text;
    text << "0x" << std::hex << number;
    return text.str();
}

std::string fourCharacters(std::uint32_t code) {
    return {char(code >> 24), char(code >> 16), char(code >> 8), char(code)};
}

std::string plain(double number) {
    std::ostringstream text;
    text << number;
    return text.str();
}

Object::Object() {
    registry().insert(this);
}

Object::~Object() {
    registry().erase(this);
}

Object *liveObject(const void *reference) {
    const auto *object = static_cast<const Object *>(reference);
    return registry().count(object) ? const_cast<Object *>(object) : nullptr;
}

CFStringRef makeString(const std::string &ascii) {
    auto *text = new String;
    text->characters.assign(ascii.begin(), ascii.end());
    return refOf<CFStringRef>(text);
}

std::string asciiOf(CFStringRef text) {
    const auto *string = as<String>(text, "a text");
    return string ? std::string(string->characters.begin(), string->characters.end()) : std::string();
}

}  // namespace pimloft::test::mac

using namespace pimloft::test::mac;

namespace {

template <typename T>
const T *constant(T *object) {
    object->isImmortal = true;
    return object;
}

String *constantText(const std::string &ascii) {
    auto *text = new String;
    text->characters.assign(ascii.begin(), ascii.end());
    text->isImmortal = true;
    return text;
}

}  // namespace

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFRunLoopMode kCFRunLoopDefaultMode = refOf<CFStringRef>(constantText("kCFRunLoopDefaultMode"));
const CFRunLoopMode kCFRunLoopCommonModes = refOf<CFStringRef>(constantText("kCFRunLoopCommonModes"));
const CFBooleanRef kCFBooleanTrue = refOf<CFBooleanRef>(new Boolean_(true));
const CFBooleanRef kCFBooleanFalse = refOf<CFBooleanRef>(new Boolean_(false));
const CFArrayCallBacks kCFTypeArrayCallBacks = {};

CFTypeRef CFRetain(CFTypeRef reference) {
    if (auto *object = as<Object>(reference, "CFRetain"))
        ++object->owners;
    return reference;
}

void CFRelease(CFTypeRef reference) {
    auto *object = as<Object>(reference, "CFRelease");
    if (object && --object->owners == 0 && !object->isImmortal)
        delete object;
}

CFTypeID CFGetTypeID(CFTypeRef reference) {
    const auto *object = as<Object>(reference, "CFGetTypeID");
    return object ? typeNumber(typeid(*object)) : 0;
}

CFTypeID CFStringGetTypeID(void) {
    return typeNumber(typeid(String));
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar *characters, CFIndex count) {
    auto *text = new String;
    text->characters.assign(characters, characters + count);
    return refOf<CFStringRef>(text);
}

CFIndex CFStringGetLength(CFStringRef text) {
    const auto *string = as<String>(text, "CFStringGetLength");
    return string ? CFIndex(string->characters.size()) : 0;
}

void CFStringGetCharacters(CFStringRef text, CFRange range, UniChar *buffer) {
    const auto *string = as<String>(text, "CFStringGetCharacters");
    if (!string)
        return;
    if (range.location < 0 || range.location + range.length > CFIndex(string->characters.size()))
        return complain("CFStringGetCharacters: out of range");
    string->characters.copy(reinterpret_cast<char16_t *>(buffer), std::size_t(range.length),
                            std::size_t(range.location));
}

CFStringRef __CFStringMakeConstantString(const char *text) {
    static std::map<std::string, String *> constants;
    String *&known = constants[text];
    if (!known)
        known = constantText(text);
    return refOf<CFStringRef>(known);
}

CFTypeID CFBooleanGetTypeID(void) {
    return typeNumber(typeid(Boolean_));
}

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
    const auto *object = as<Boolean_>(boolean, "CFBooleanGetValue");
    return object && object->value;
}

CFTypeID CFNumberGetTypeID(void) {
    return typeNumber(typeid(Number));
}

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void *value) {
    auto *number = new Number;
    number->isFloat = type == kCFNumberDoubleType;
    if (type == kCFNumberDoubleType)
        number->fraction = *static_cast<const double *>(value);
    else if (type == kCFNumberSInt64Type)
        number->whole = *static_cast<const std::int64_t *>(value);
    else
        complain("CFNumberCreate: an unexpected type");
    return refOf<CFNumberRef>(number);
}

Boolean CFNumberGetValue(CFNumberRef reference, CFNumberType type, void *value) {
    const auto *number = as<Number>(reference, "CFNumberGetValue");
    if (!number)
        return false;
    if (type == kCFNumberDoubleType)
        *static_cast<double *>(value) = number->isFloat ? number->fraction : double(number->whole);
    else if (type == kCFNumberSInt64Type)
        *static_cast<std::int64_t *>(value) =
            number->isFloat ? std::int64_t(number->fraction) : number->whole;
    return true;
}

Boolean CFNumberIsFloatType(CFNumberRef reference) {
    const auto *number = as<Number>(reference, "CFNumberIsFloatType");
    return number && number->isFloat;
}

CFTypeID CFArrayGetTypeID(void) {
    return typeNumber(typeid(Array));
}

CFArrayRef CFArrayCreate(CFAllocatorRef, const void **values, CFIndex count,
                         const CFArrayCallBacks *callbacks) {
    if (callbacks != &kCFTypeArrayCallBacks)
        complain("CFArrayCreate: would not own its entries");
    auto *array = new Array;
    for (CFIndex index = 0; index < count; ++index)
        array->values.push_back(CFRetain(values[index]));
    return refOf<CFArrayRef>(array);
}

CFIndex CFArrayGetCount(CFArrayRef reference) {
    const auto *array = as<Array>(reference, "CFArrayGetCount");
    return array ? CFIndex(array->values.size()) : 0;
}

const void *CFArrayGetValueAtIndex(CFArrayRef reference, CFIndex index) {
    const auto *array = as<Array>(reference, "CFArrayGetValueAtIndex");
    if (array && index >= 0 && index < CFIndex(array->values.size()))
        return array->values[std::size_t(index)];
    complain("CFArrayGetValueAtIndex: out of range");
    return nullptr;
}

}  // extern "C"
