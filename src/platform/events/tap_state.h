// SPDX-License-Identifier: MIT
#pragma once

#include "platform/events/key_tap.h"
#include "platform/events/tap_keys.h"

#include <bitset>
#include <span>
#include <vector>

namespace pimloft {

/// A key that is to be pressed or let go in the user's place.
struct TapAction {
    TapKey key;
    bool down;

    friend bool operator==(const TapAction &, const TapAction &) = default;
};

/// Decides what the programs get of what happens on the physical keyboards. Pure; one thread at a time.
///
/// Programs see the user's modifiers, changed for a key as the filter decided: what the key needs more is
/// pressed before what it must not have is let go, so that no modifier is ever seen pressed and let go alone.
/// The change ends with the key, with the next key, or when the user lets go of the modifier that was
/// replaced. Every operation answers what to do, in order; the answer is valid until the next operation.
class TapState {
public:
    using Keys = std::bitset<256>;
    using Source = std::uint16_t;  ///< one of several keyboards
    using Actions = std::span<const TapAction>;

    struct Physical {
        Source source;
        TapKey key;
        bool down;
    };

    TapState(const TapKeys &keys, KeyFilter &filter);

    /// A keyboard on which the user holds `held` comes under the tap; the programs see `seen` as down.
    void add(Source source, const Keys &held, const Keys &seen);
    /// It is gone, and with it what was held on it.
    Actions remove(Source source);

    /// One key, in the order in which they happen; repeats of a held key are not told.
    Actions key(const Physical &key, Instant now);
    /// Presses and lets go of a key with exactly these modifier keys, whatever the user holds.
    Actions post(TapKey key, std::span<const TapKey> modifiers);

    Actions setKeys(const TapKeys &keys);
    /// While passing, keys are delivered as they are and the filter does not hear of them.
    Actions setPassing(bool passing);
    void setFrontmost(std::string bundleId) { frontmost_ = std::move(bundleId); }

    /// Lets go of everything that was pressed. What the user held before the tap is left to the keyboard.
    Actions stop();

    /// The delivered keys that are still under the user's fingers.
    Keys held() const;

private:
    struct Held {
        Source source;
        TapKey key;
        TapKey sent;
        bool isModifier;
    };

    void press(const Physical &key, Instant now);
    void pressModifier(const Physical &key, Instant now);
    void release(const Physical &key, Instant now);
    void letGo(const Held &held);
    KeyEvent ask(const KeyEvent &event, Instant now);
    KeyFlags flags() const;

    void endChange();
    void withhold(const Keys &keys);
    Keys wanted() const;
    void showWanted();

    void send(TapKey key, bool down);
    void sendPress(TapKey key);
    void sendRelease(TapKey key);

    TapKeys keys_;
    KeyFilter &filter_;
    std::string frontmost_;
    bool passing_ = false;

    std::vector<Held> held_;  ///< in the order in which they were pressed
    std::array<std::uint8_t, 256>
        sent_{};      ///< how many held keys, modifiers aside, were delivered as this one
    Keys shown_;      ///< modifiers that the programs see
    Keys untouched_;  ///< down since before the tap, and never sent by it

    /// How the modifiers differ from what the user holds, and the key that they differ for.
    KeyFlags added_ = KeyFlags::none;
    KeyFlags removed_ = KeyFlags::none;
    Source changeSource_ = 0;
    TapKey changeKey_ = 0;
    /// Held by the user, and shown again only with the next key.
    Keys withheld_;

    std::vector<TapAction> actions_;
};

}  // namespace pimloft
