// SPDX-License-Identifier: MIT
#include "platform/preferences/cf_value.h"

#include "platform/mac/cf_text.h"

#include <QStringList>

#include <vector>

namespace pimloft {

namespace {

CfRef<CFTypeRef> cfNumber(CFNumberType type, const void *number) {
    return CfRef<CFTypeRef>(CFNumberCreate(kCFAllocatorDefault, type, number));
}

CfRef<CFTypeRef> cfList(const QVariantList &list) {
    std::vector<CfRef<CFTypeRef>> owned;
    std::vector<CFTypeRef> entries;
    for (const QVariant &entry : list) {
        owned.push_back(cfValue(entry));
        if (!owned.back())
            return {};
        entries.push_back(owned.back().get());
    }
    return CfRef<CFTypeRef>(
        CFArrayCreate(kCFAllocatorDefault, entries.data(), CFIndex(entries.size()), &kCFTypeArrayCallBacks));
}

QVariant qtNumber(CFNumberRef number) {
    if (CFNumberIsFloatType(number)) {
        double value = 0;
        CFNumberGetValue(number, kCFNumberDoubleType, &value);
        return value;
    }
    std::int64_t value = 0;
    CFNumberGetValue(number, kCFNumberSInt64Type, &value);
    return QVariant(qlonglong(value));
}

/// A list of texts where that is what it is.
QVariant qtList(CFArrayRef list) {
    QVariantList values;
    QStringList texts;
    for (CFIndex index = 0; index < CFArrayGetCount(list); ++index) {
        values << qtValue(CFArrayGetValueAtIndex(list, index));
        if (values.last().typeId() == QMetaType::QString)
            texts << values.last().toString();
    }
    return texts.size() == values.size() ? QVariant(texts) : QVariant(values);
}

}  // namespace

CfRef<CFTypeRef> cfValue(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return CfRef<CFTypeRef>(CFRetain(value.toBool() ? kCFBooleanTrue : kCFBooleanFalse));
    case QMetaType::Int:
    case QMetaType::LongLong: {
        const std::int64_t number = value.toLongLong();
        return cfNumber(kCFNumberSInt64Type, &number);
    }
    case QMetaType::Float:
    case QMetaType::Double: {
        const double number = value.toDouble();
        return cfNumber(kCFNumberDoubleType, &number);
    }
    case QMetaType::QString: {
        const auto text = cfText(value.toString());
        return CfRef<CFTypeRef>(CFRetain(text.get()));
    }
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return cfList(value.toList());
    default:
        return {};
    }
}

QVariant qtValue(CFTypeRef value) {
    if (!value)
        return {};
    const CFTypeID type = CFGetTypeID(value);
    if (type == CFBooleanGetTypeID())
        return bool(CFBooleanGetValue(static_cast<CFBooleanRef>(value)));
    if (type == CFNumberGetTypeID())
        return qtNumber(static_cast<CFNumberRef>(value));
    if (type == CFStringGetTypeID())
        return qtText(static_cast<CFStringRef>(value));
    if (type == CFArrayGetTypeID())
        return qtList(static_cast<CFArrayRef>(value));
    return {};
}

}  // namespace pimloft
