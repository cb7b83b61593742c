// SPDX-License-Identifier: MIT
#include "fake_carbon.h"

#include "fake_cf.h"

#include <map>
#include <optional>

namespace pimloft::test::mac {

namespace {

struct Handler {
    EventHandlerUPP call;
    void *owner;
};

std::optional<Handler> handler;
std::map<std::pair<UInt32, UInt32>, std::optional<EventHotKeyID>> hotkeys;  // nothing: another program's
bool isSecure = false;
int applicationTarget;

struct HotkeyEvent {
    std::optional<EventHotKeyID> id;
};

OSStatus send(HotkeyEvent event) {
    return handler ? handler->call(nullptr, reinterpret_cast<EventRef>(&event), handler->owner)
                   : hotkeyUnknown;
}

}  // namespace

void resetCarbon() {
    handler.reset();
    hotkeys.clear();
    isSecure = false;
}

void takeHotkey(UInt32 key, UInt32 modifiers) {
    hotkeys[{key, modifiers}] = std::nullopt;
}

OSStatus pressHotkey(UInt32 key, UInt32 modifiers) {
    const auto found = hotkeys.find({key, modifiers});
    return found == hotkeys.end() || !found->second ? hotkeyUnknown : send({found->second});
}

OSStatus pressWithoutId() {
    return send({std::nullopt});
}

OSStatus callWithoutEvent() {
    return handler ? handler->call(nullptr, nullptr, handler->owner) : hotkeyUnknown;
}

OSStatus pressId(UInt32 id) {
    return send({EventHotKeyID{0, id}});
}

void setSecureInput(bool on) {
    isSecure = on;
}

}  // namespace pimloft::test::mac

using namespace pimloft::test::mac;

extern "C" {

EventTargetRef GetApplicationEventTarget(void) {
    return reinterpret_cast<EventTargetRef>(&applicationTarget);
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP call, ItemCount count,
                             const EventTypeSpec *types, void *owner, EventHandlerRef *result) {
    if (target != GetApplicationEventTarget())
        complain("InstallEventHandler: on another target");
    if (handler)
        complain("InstallEventHandler: a second one");
    std::string list;
    for (ItemCount index = 0; index < count; ++index)
        list += ' ' + fourCharacters(types[index].eventClass) + ' ' + std::to_string(types[index].eventKind);
    note("install handler for" + list);
    handler = Handler{call, owner};
    *result = reinterpret_cast<EventHandlerRef>(&handler);
    return noErr;
}

OSStatus RemoveEventHandler(EventHandlerRef reference) {
    if (!handler || reference != reinterpret_cast<EventHandlerRef>(&handler))
        complain("RemoveEventHandler: not installed");
    handler.reset();
    note("remove handler");
    return noErr;
}

OSStatus RegisterEventHotKey(UInt32 key, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef *result) {
    if (target != GetApplicationEventTarget())
        complain("RegisterEventHotKey: on another target");
    if (!result)
        complain("RegisterEventHotKey: no place for the answer");
    note("register " + std::to_string(key) + ' ' + hex(modifiers) + " as " + fourCharacters(id.signature) +
         ' ' + std::to_string(id.id) + ", options " + std::to_string(options));
    if (hotkeys.count({key, modifiers}))
        return eventHotKeyExistsErr;
    hotkeys[{key, modifiers}] = id;
    return noErr;
}

OSStatus GetEventParameter(EventRef reference, EventParamName name, EventParamType type, EventParamType *,
                           ByteCount size, ByteCount *, void *data) {
    note("read parameter " + fourCharacters(name) + ' ' + fourCharacters(type) + ", " + std::to_string(size) +
         " bytes");
    const auto &event = *reinterpret_cast<const HotkeyEvent *>(reference);
    if (name != kEventParamDirectObject || type != typeEventHotKeyID || size != sizeof(EventHotKeyID) ||
        !event.id)
        return eventParameterNotFoundErr;
    *static_cast<EventHotKeyID *>(data) = *event.id;
    return noErr;
}

Boolean IsSecureEventInputEnabled(void) {
    return isSecure;
}

}  // extern "C"
