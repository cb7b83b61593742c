// SPDX-License-Identifier: MIT
#include "fake_preferences.h"

#include "fake_cf.h"

#include <map>

namespace pimloft::test::mac {

namespace {

std::map<std::string, CFTypeRef> values;

void store(const std::string &key, CFTypeRef owned) {
    const auto found = values.find(key);
    if (found != values.end())
        CFRelease(found->second);
    values[key] = owned;
}

std::string describe(CFTypeRef value) {
    const CFTypeID type = CFGetTypeID(value);
    if (type == CFBooleanGetTypeID())
        return CFBooleanGetValue(static_cast<CFBooleanRef>(value)) ? "true" : "false";
    if (type == CFStringGetTypeID())
        return '"' + asciiOf(static_cast<CFStringRef>(value)) + '"';
    if (type == CFNumberGetTypeID()) {
        const auto number = static_cast<CFNumberRef>(value);
        double fraction = 0;
        CFNumberGetValue(number, kCFNumberDoubleType, &fraction);
        return plain(fraction) + (CFNumberIsFloatType(number) ? "" : " (whole)");
    }
    std::string list;
    const auto array = static_cast<CFArrayRef>(value);
    for (CFIndex index = 0; index < CFArrayGetCount(array); ++index)
        list += (list.empty() ? "" : ", ") + describe(CFArrayGetValueAtIndex(array, index));
    return '[' + list + ']';
}

}  // namespace

void resetPreferences() {
    for (const auto &[key, value] : values)
        CFRelease(value);
    values.clear();
}

void storeFlag(const std::string &key, bool value) {
    store(key, value ? kCFBooleanTrue : kCFBooleanFalse);
    CFRetain(values[key]);
}

void storeNumber(const std::string &key, double value) {
    store(key, CFNumberCreate(nullptr, kCFNumberDoubleType, &value));
}

void storeWhole(const std::string &key, long long value) {
    const std::int64_t whole = value;
    store(key, CFNumberCreate(nullptr, kCFNumberSInt64Type, &whole));
}

void storeText(const std::string &key, const std::string &value) {
    store(key, makeString(value));
}

void storeTexts(const std::string &key, const std::vector<std::string> &texts) {
    std::vector<const void *> entries;
    for (const std::string &text : texts)
        entries.push_back(makeString(text));
    store(key, CFArrayCreate(nullptr, entries.data(), CFIndex(entries.size()), &kCFTypeArrayCallBacks));
    for (const void *entry : entries)
        CFRelease(entry);
}

std::string stored(const std::string &key) {
    const auto found = values.find(key);
    return found == values.end() ? "nothing" : describe(found->second);
}

}  // namespace pimloft::test::mac

using namespace pimloft::test::mac;

extern "C" {

const CFStringRef kCFPreferencesCurrentApplication =
    __CFStringMakeConstantString("kCFPreferencesCurrentApplication");
const CFStringRef kCFPreferencesAnyApplication = __CFStringMakeConstantString("kCFPreferencesAnyApplication");

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application) {
    if (application != kCFPreferencesCurrentApplication)
        complain("CFPreferencesCopyAppValue: another application's");
    const auto found = values.find(asciiOf(key));
    return found == values.end() ? nullptr : owned(found->second);
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application) {
    if (application != kCFPreferencesCurrentApplication)
        complain("CFPreferencesSetAppValue: another application's");
    const std::string name = asciiOf(key);
    note("set " + name + ' ' + (value ? describe(value) : "nothing"));
    if (value)
        return store(name, owned(value));
    const auto found = values.find(name);
    if (found == values.end())
        return;
    CFRelease(found->second);
    values.erase(found);
}

Boolean CFPreferencesAppSynchronize(CFStringRef application) {
    if (application != kCFPreferencesCurrentApplication)
        complain("CFPreferencesAppSynchronize: another application's");
    note("synchronize");
    return true;
}

}  // extern "C"
