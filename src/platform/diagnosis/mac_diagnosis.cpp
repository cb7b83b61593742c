// SPDX-License-Identifier: MIT
#include "platform/diagnosis/mac_diagnosis.h"

#include "platform/audio/audio.h"
#include "platform/events/mac_key_tap.h"
#include "platform/windows/windows.h"

#include <Carbon/Carbon.h>
#include <CoreGraphics/CoreGraphics.h>

namespace pimloft {

MacDiagnosis::MacDiagnosis(WindowService &windows, const MacKeyTap &keyTap, AudioService &audio)
    : windows_(windows), keyTap_(keyTap), audio_(audio) {
}

std::vector<Finding> MacDiagnosis::findings() {
    return {accessibility(), keyEvents(), secureInput(), keyMappings(), sound()};
}

Finding MacDiagnosis::accessibility() {
    const QString subject = tr("Accessibility");
    if (windows_.isTrusted())
        return {subject, true, tr("Allowed")};
    return {subject, false,
            tr("Not allowed in the privacy settings: windows are not placed, and key mappings do nothing.")};
}

Finding MacDiagnosis::keyEvents() const {
    const QString subject = tr("Key events");
    if (CGPreflightPostEventAccess())
        return {subject, true, tr("Allowed")};
    return {subject, false, tr("Pimloft may not type: nothing is pasted.")};
}

Finding MacDiagnosis::secureInput() const {
    const QString subject = tr("Secure input");
    if (!IsSecureEventInputEnabled())
        return {subject, true, tr("Off")};
    return {subject, false, tr("Another program keeps the keyboard to itself: key mappings wait for it.")};
}

Finding MacDiagnosis::keyMappings() {
    const QString subject = tr("Key mappings");
    if (!windows_.isTrusted())
        return {subject, false, tr("They need accessibility.")};
    switch (keyTap_.status()) {
    case MacKeyTap::Status::running:
        return {subject, true, tr("Active")};
    case MacKeyTap::Status::ended:
        return {subject, false, tr("Ended by the system, because Pimloft held up the keyboard.")};
    case MacKeyTap::Status::resting:
        break;
    }
    return {subject, true, tr("Ready")};
}

Finding MacDiagnosis::sound() {
    const QString subject = tr("Sound");
    const auto output = audio_.defaultOutputDevice();
    if (!output)
        return {subject, false, tr("There is no output device: the volume mixer stays empty.")};
    return {subject, true, audio_.name(*output).value_or(tr("An output device without a name"))};
}

}  // namespace pimloft
