// SPDX-License-Identifier: MIT
#include "platform/diagnosis/mac_diagnosis.h"

#include "platform/audio/audio.h"
#include "platform/events/mac_key_tap.h"
#include "platform/windows/windows.h"

#include <Carbon/Carbon.h>
#include <CoreGraphics/CoreGraphics.h>

namespace pimloft {

namespace {

QString text(const char *english) {
    return QString::fromLatin1(english);
}

}  // namespace

MacDiagnosis::MacDiagnosis(WindowService &windows, const MacKeyTap &keyTap, AudioService &audio)
    : windows_(windows), keyTap_(keyTap), audio_(audio) {
}

std::vector<Finding> MacDiagnosis::findings() {
    return {accessibility(), keyEvents(), secureInput(), keyMappings(), sound()};
}

Finding MacDiagnosis::accessibility() {
    const QString subject = text("Accessibility");
    if (windows_.isTrusted())
        return {subject, true, text("Allowed")};
    return {
        subject, false,
        text("Not allowed in the privacy settings: windows are not placed, and key mappings do nothing.")};
}

Finding MacDiagnosis::keyEvents() const {
    const QString subject = text("Key events");
    if (CGPreflightPostEventAccess())
        return {subject, true, text("Allowed")};
    return {subject, false, text("Pimloft may not type: nothing is pasted.")};
}

Finding MacDiagnosis::secureInput() const {
    const QString subject = text("Secure input");
    if (!IsSecureEventInputEnabled())
        return {subject, true, text("Off")};
    return {subject, false, text("Another program keeps the keyboard to itself: key mappings wait for it.")};
}

Finding MacDiagnosis::keyMappings() {
    const QString subject = text("Key mappings");
    if (!windows_.isTrusted())
        return {subject, false, text("They need accessibility.")};
    switch (keyTap_.status()) {
    case MacKeyTap::Status::running:
        return {subject, true, text("Active")};
    case MacKeyTap::Status::ended:
        return {subject, false, text("Ended by the system, because Pimloft held up the keyboard.")};
    case MacKeyTap::Status::resting:
        break;
    }
    return {subject, true, text("Ready")};
}

Finding MacDiagnosis::sound() {
    const QString subject = text("Sound");
    const auto output = audio_.defaultOutputDevice();
    if (!output)
        return {subject, false, text("There is no output device: the volume mixer stays empty.")};
    return {subject, true, audio_.name(*output).value_or(text("An output device without a name"))};
}

}  // namespace pimloft
