// SPDX-License-Identifier: MIT
#include "platform/events/tap_state.h"

#include <algorithm>
#include <utility>

namespace pimloft {

namespace {

constexpr KeyFlags operator&(KeyFlags a, KeyFlags b) {
    return KeyFlags(std::uint64_t(a) & std::uint64_t(b));
}

constexpr KeyFlags everyModifier = KeyFlags::shift | KeyFlags::control | KeyFlags::option | KeyFlags::command;

/// Start and end of the line, where the platform has keys of their own for them.
KeyEvent forThisPlatform(KeyEvent event, KeyCode before) {
    const bool isArrow = event.key == Key::leftArrow || event.key == Key::rightArrow;
    if (!isArrow || event.key == before || !contains(event.flags, KeyFlags::command))
        return event;
    event.key = event.key == Key::leftArrow ? Key::home : Key::end;
    event.flags = event.flags - KeyFlags::command;
    return event;
}

}  // namespace

TapState::TapState(const TapKeys &keys, KeyFilter &filter) : keys_(keys), filter_(filter) {
    // More keys than fingers, so that a key press needs no memory.
    held_.reserve(64);
    actions_.reserve(64);
}

void TapState::add(Source source, const Down &down) {
    const auto &[held, seen, typed] = down;
    for (std::size_t each = 0; each < held.size(); ++each) {
        const auto key = TapKey(each);
        if (!held.test(key))
            continue;
        const TapKeys::Kind kind = keys_[key].kind;
        const bool isModifier = kind != TapKeys::Kind::ordinary;
        // A key that the programs do not see down does nothing until it is pressed anew; a modifier counts.
        if (kind != TapKeys::Kind::modifier && !seen.test(key))
            continue;
        held_.push_back({source, key, key, isModifier});
        if (!isModifier)
            ++sent_[key];
        else if (seen.test(key))
            shown_.set(key);
        else
            withheld_.set(key);
        if (seen.test(key) && !typed.test(key))
            untouched_.set(key);
    }
}

TapState::Actions TapState::remove(Source source) {
    actions_.clear();
    for (;;) {
        const auto found = std::find_if(held_.begin(), held_.end(),
                                        [source](const Held &each) { return each.source == source; });
        if (found == held_.end())
            break;
        const Held held = *found;
        held_.erase(found);
        letGo(held);
    }
    return actions_;
}

TapState::Actions TapState::key(const Physical &key, Instant now) {
    actions_.clear();
    if (!key.down)
        release(key, now);
    else if (keys_[key.key].kind != TapKeys::Kind::ordinary)
        pressModifier(key, now);
    else
        press(key, now);
    return actions_;
}

void TapState::pressModifier(const Physical &key, Instant now) {
    const bool isHeld = std::any_of(held_.begin(), held_.end(), [&](const Held &each) {
        return each.source == key.source && each.key == key.key;
    });
    withheld_.reset(key.key);
    if (!isHeld)
        held_.push_back({key.source, key.key, key.key, true});
    if (const auto code = keys_[key.key].code)
        ask({*code, flags(), KeyEventType::flagsChanged}, now);
    showWanted();
}

void TapState::press(const Physical &key, Instant now) {
    const auto old = std::find_if(held_.begin(), held_.end(), [&](const Held &each) {
        return each.source == key.source && each.key == key.key;
    });
    if (old != held_.end()) {
        const Held held = *old;
        held_.erase(old);
        if (!held.isModifier)
            sendRelease(held.sent);
    }
    const KeyFlags before = flags();
    KeyFlags after = before;
    TapKey sent = key.key;
    if (const auto code = keys_[key.key].code) {
        const KeyEvent event = forThisPlatform(ask({*code, before, KeyEventType::down}, now), *code);
        const TapKey wanted = event.key == *code ? key.key : keys_.keycode(event.key);
        // What this keyboard does not have cannot be sent; then the key stays what it is.
        if (wanted) {
            sent = wanted;
            after = event.flags & everyModifier;
        }
    }
    added_ = after - before;
    removed_ = before - after;
    changeSource_ = key.source;
    changeKey_ = key.key;
    withheld_.reset();
    showWanted();
    sendPress(sent);
    held_.push_back({key.source, key.key, sent, false});
}

void TapState::release(const Physical &key, Instant now) {
    const auto found = std::find_if(held_.begin(), held_.end(), [&](const Held &each) {
        return each.source == key.source && each.key == key.key;
    });
    // It was pressed before the tap, unless its release was lost.
    const Held held = found != held_.end() ? *found : Held{key.source, key.key, key.key, false};
    if (found != held_.end())
        held_.erase(found);
    else
        ++sent_[key.key];
    if (const auto code = keys_[key.key].code)
        ask({*code, flags(), held.isModifier ? KeyEventType::flagsChanged : KeyEventType::up}, now);
    letGo(held);
}

void TapState::letGo(const Held &held) {
    untouched_.reset(held.key);
    if (held.isModifier) {
        if (removed_ != KeyFlags::none && (flags() & removed_) == KeyFlags::none)
            added_ = removed_ = KeyFlags::none;
    } else {
        sendRelease(held.sent);
        if (held.source == changeSource_ && held.key == changeKey_)
            endChange();
    }
    showWanted();
}

KeyEvent TapState::ask(const KeyEvent &event, Instant now) {
    return passing_ ? event : filter_.filter(event, frontmost_, now);
}

KeyFlags TapState::flags() const {
    KeyFlags flags = KeyFlags::none;
    for (const Held &each : held_)
        if (each.isModifier)
            flags = flags | keys_[each.key].flag;
    return flags;
}

/// The user's modifiers come back at once, save those that mean something when they are let go with no other
/// key in between: Option and Command open menus.
void TapState::endChange() {
    added_ = removed_ = KeyFlags::none;
    withhold(wanted() & ~shown_);
}

void TapState::withhold(const Keys &keys) {
    for (const Held &each : held_) {
        const KeyFlags flag = keys_[each.key].flag;
        if (each.isModifier && keys.test(each.key) && (flag == KeyFlags::option || flag == KeyFlags::command))
            withheld_.set(each.key);
    }
}

TapState::Keys TapState::wanted() const {
    Keys wanted;
    KeyFlags present = KeyFlags::none;
    for (const Held &each : held_) {
        const KeyFlags flag = keys_[each.key].flag;
        if (!each.isModifier || (flag & removed_) != KeyFlags::none)
            continue;
        present = present | flag;
        if (!withheld_.test(each.key))
            wanted.set(each.key);
    }
    for (std::size_t i = 0; i < TapKeys::flags.size(); ++i) {
        const KeyFlags flag = TapKeys::flags[i];
        if (contains(added_, flag) && !contains(present, flag) && keys_.substitutes[i])
            wanted.set(keys_.substitutes[i]);
    }
    return wanted;
}

void TapState::showWanted() {
    const Keys wanted = this->wanted();
    const Keys before = shown_;
    if (wanted == before)
        return;
    shown_ = wanted;
    for (std::size_t key = 0; key < wanted.size(); ++key)
        if (wanted.test(key) && !before.test(key) && !sent_[key])
            send(TapKey(key), true);
    for (std::size_t key = 0; key < wanted.size(); ++key)
        if (!wanted.test(key) && before.test(key) && !sent_[key])
            send(TapKey(key), false);
}

void TapState::send(TapKey key, bool down) {
    untouched_.reset(key);
    actions_.push_back({key, down});
}

void TapState::sendPress(TapKey key) {
    const bool isDown = sent_[key]++ > 0;
    if (shown_.test(key))
        return;
    // Two keys that are delivered as the same one: a key that is down cannot be pressed.
    if (isDown)
        send(key, false);
    send(key, true);
}

void TapState::sendRelease(TapKey key) {
    if (--sent_[key] == 0 && !shown_.test(key))
        send(key, false);
}

TapState::Actions TapState::post(TapKey key, std::span<const TapKey> modifiers) {
    actions_.clear();
    Keys wanted;
    for (const TapKey modifier : modifiers)
        wanted.set(modifier);
    const Keys before = shown_;
    const auto isOurs = [&](std::size_t each) {
        return keys_.keys[each].kind == TapKeys::Kind::modifier && !wanted.test(each) && !sent_[each];
    };
    for (const TapKey modifier : modifiers)
        if (!before.test(modifier) && !sent_[modifier])
            send(modifier, true);
    for (std::size_t each = 0; each < before.size(); ++each)
        if (before.test(each) && isOurs(each))
            send(TapKey(each), false);
    if (sent_[key])
        send(key, false);
    send(key, true);
    send(key, false);
    // A change that was on has ended with it.
    for (std::size_t each = 0; each < before.size(); ++each)
        if (before.test(each) && isOurs(each))
            shown_.reset(each);
    shown_ |= wanted;
    endChange();
    showWanted();
    return actions_;
}

TapState::Actions TapState::setKeys(const TapKeys &keys) {
    actions_.clear();
    keys_ = keys;
    showWanted();
    return actions_;
}

TapState::Actions TapState::setPassing(bool passing) {
    actions_.clear();
    if (!std::exchange(passing_, passing) && passing) {
        endChange();
        showWanted();
    }
    return actions_;
}

TapState::Actions TapState::stop() {
    actions_.clear();
    for (std::size_t key = 0; key < sent_.size(); ++key)
        if (sent_[key] && !shown_.test(key) && !untouched_.test(key))
            send(TapKey(key), false);
    for (std::size_t key = 0; key < shown_.size(); ++key)
        if (shown_.test(key) && !untouched_.test(key))
            send(TapKey(key), false);
    held_.clear();
    sent_.fill(0);
    shown_.reset();
    untouched_.reset();
    withheld_.reset();
    added_ = removed_ = KeyFlags::none;
    return actions_;
}

TapState::Keys TapState::held() const {
    Keys keys;
    for (const Held &each : held_)
        keys.set(each.sent);
    return keys;
}

}  // namespace pimloft
