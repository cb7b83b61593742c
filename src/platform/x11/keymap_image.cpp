// SPDX-License-Identifier: MIT
#include "platform/x11/keymap_image.h"

#include "platform/x11/xcb_reply.h"

// A member of a structure in it is named as this keyword.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xcb/xcbext.h>

#include <sys/uio.h>

#include <cstring>

namespace pimloft {

namespace {

constexpr std::uint16_t everyPart = 0xff;

void append(std::vector<std::uint8_t> &bytes, const std::uint8_t *first, std::size_t size) {
    bytes.insert(bytes.end(), first, first + size);
}

/// The types of keys are told and set in different forms: what is told of an entry beside is left out.
/// Answers how much was read, or nothing where the answer is too short for what it announces.
std::size_t appendTypes(std::vector<std::uint8_t> &request, const std::uint8_t *data, std::size_t size,
                        int types) {
    std::size_t at = 0;
    for (int type = 0; type < types; ++type) {
        xcb_xkb_key_type_t header;
        if (at + sizeof header > size)
            return 0;
        std::memcpy(&header, data + at, sizeof header);
        append(request, data + at, sizeof header);
        at += sizeof header;
        const std::size_t entries = header.nMapEntries;
        const std::size_t preserved = header.hasPreserve ? entries * sizeof(xcb_xkb_mod_def_t) : 0;
        if (at + entries * sizeof(xcb_xkb_kt_map_entry_t) + preserved > size)
            return 0;
        for (std::size_t entry = 0; entry < entries; ++entry) {
            xcb_xkb_kt_map_entry_t told;
            std::memcpy(&told, data + at, sizeof told);
            const xcb_xkb_kt_set_map_entry_t set{told.level, told.mods_mods, told.mods_vmods};
            append(request, reinterpret_cast<const std::uint8_t *>(&set), sizeof set);
            at += sizeof told;
        }
        append(request, data + at, preserved);
        at += preserved;
    }
    return at;
}

}  // namespace

KeymapImage KeymapImage::read(xcb_connection_t *connection, std::uint16_t device) {
    const auto cookie =
        xcb_xkb_get_map(connection, device, everyPart, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    const XcbReply<xcb_xkb_get_map_reply_t> map(xcb_xkb_get_map_reply(connection, cookie, nullptr));
    if (!map)
        return {};
    xcb_xkb_set_map_request_t header{};
    header.present = map->present;
    header.flags = XCB_XKB_SET_MAP_FLAGS_RESIZE_TYPES | XCB_XKB_SET_MAP_FLAGS_RECOMPUTE_ACTIONS;
    header.minKeyCode = map->minKeyCode;
    header.maxKeyCode = map->maxKeyCode;
    header.firstType = map->firstType;
    header.nTypes = map->nTypes;
    header.firstKeySym = map->firstKeySym;
    header.nKeySyms = map->nKeySyms;
    header.totalSyms = map->totalSyms;
    header.firstKeyAction = map->firstKeyAction;
    header.nKeyActions = map->nKeyActions;
    header.totalActions = map->totalActions;
    header.firstKeyBehavior = map->firstKeyBehavior;
    header.nKeyBehaviors = map->nKeyBehaviors;
    header.totalKeyBehaviors = map->totalKeyBehaviors;
    header.firstKeyExplicit = map->firstKeyExplicit;
    header.nKeyExplicit = map->nKeyExplicit;
    header.totalKeyExplicit = map->totalKeyExplicit;
    header.firstModMapKey = map->firstModMapKey;
    header.nModMapKeys = map->nModMapKeys;
    header.totalModMapKeys = map->totalModMapKeys;
    header.firstVModMapKey = map->firstVModMapKey;
    header.nVModMapKeys = map->nVModMapKeys;
    header.totalVModMapKeys = map->totalVModMapKeys;
    header.virtualMods = map->virtualMods;

    KeymapImage image;
    append(image.request_, reinterpret_cast<const std::uint8_t *>(&header), sizeof header);
    const auto *data = static_cast<const std::uint8_t *>(xcb_xkb_get_map_map(map.get()));
    const std::size_t size = 32 + map->length * 4 - sizeof(xcb_xkb_get_map_reply_t);
    const std::size_t types = appendTypes(image.request_, data, size, map->nTypes);
    if (!types)
        return {};
    // All else has one form.
    append(image.request_, data + types, size - types);
    return image;
}

void KeymapImage::write(xcb_connection_t *connection, std::uint16_t device) const {
    if (request_.empty())
        return;
    std::vector<std::uint8_t> request = request_;
    reinterpret_cast<xcb_xkb_set_map_request_t *>(request.data())->deviceSpec = device;
    static constexpr xcb_protocol_request_t kind{1, &xcb_xkb_id, XCB_XKB_SET_MAP, 1};
    // xcb puts what it needs before the parts.
    iovec parts[3]{};
    parts[2] = {request.data(), request.size()};
    xcb_send_request(connection, 0, parts + 2, &kind);
}

}  // namespace pimloft
