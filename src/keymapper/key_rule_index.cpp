// SPDX-License-Identifier: MIT
#include "keymapper/key_rule_index.h"

#include <algorithm>
#include <map>

namespace pimloft {

namespace {

bool has(const std::vector<std::uint32_t> &sorted, std::uint32_t value) {
    return std::binary_search(sorted.begin(), sorted.end(), value);
}

}  // namespace

KeyRuleIndex::KeyRuleIndex(const KeyMappings &rules) {
    std::vector<std::vector<App>> excluded;
    std::map<std::pair<KeyCode, KeyFlags>, std::vector<Order>> alike;
    for (const KeyMapping &rule : rules) {
        alike[{rule.fromKeyCode, rule.fromModifiers}].push_back(Order(rewrites_.size()));
        rewrites_.push_back({rule.toKeyCode, rule.fromModifiers, rule.toModifiers});
        excluded.push_back(number(rule.excludedApps));
    }
    for (const auto &[condition, orders] : alike) {
        Group group{condition.second, orders.front(), {}};
        for (const App app : excluded[orders.front()]) {
            const auto next = std::find_if(orders.begin(), orders.end(),
                                           [&](Order order) { return !has(excluded[order], app); });
            group.elsewhere.emplace_back(app, next == orders.end() ? std::nullopt : std::optional(*next));
        }
        groups_[condition.first].push_back(std::move(group));
    }
    for (auto &[key, groups] : groups_)
        std::sort(groups.begin(), groups.end(),
                  [](const Group &a, const Group &b) { return a.first < b.first; });
}

const KeyRuleIndex::Rewrite *KeyRuleIndex::find(KeyCode key, KeyFlags flags,
                                                std::string_view frontmost) const noexcept {
    const auto groups = groups_.find(key);
    if (groups == groups_.end())
        return nullptr;
    const std::optional<App> app = appOf(frontmost);
    std::optional<Order> best;
    for (const Group &group : groups->second) {
        if (best && *best < group.first)
            break;
        if (!contains(flags, group.modifiers))
            continue;
        const std::optional<Order> rule = group.rule(app);
        if (rule && (!best || *rule < *best))
            best = rule;
    }
    return best ? &rewrites_[*best] : nullptr;
}

std::optional<KeyRuleIndex::Order> KeyRuleIndex::Group::rule(std::optional<App> frontmost) const noexcept {
    if (!frontmost)
        return first;
    const auto found =
        std::lower_bound(elsewhere.begin(), elsewhere.end(), *frontmost,
                         [](const auto &entry, App application) { return entry.first < application; });
    return found == elsewhere.end() || found->first != *frontmost ? std::optional(first) : found->second;
}

std::vector<KeyRuleIndex::App> KeyRuleIndex::number(const QStringList &apps) {
    std::vector<App> numbers;
    for (const QString &app : apps)
        numbers.push_back(apps_.try_emplace(app.toStdString(), App(apps_.size())).first->second);
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

std::optional<KeyRuleIndex::App> KeyRuleIndex::appOf(std::string_view identifier) const noexcept {
    // An application without an identifier is none that a rule could name.
    const auto found = identifier.empty() ? apps_.end() : apps_.find(identifier);
    return found == apps_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace pimloft
