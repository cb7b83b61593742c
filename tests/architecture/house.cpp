// SPDX-License-Identifier: MIT
#include "house.h"

#include <algorithm>
#include <array>

namespace pimloft::test {

namespace {

constexpr std::array<std::string_view, 6> modules = {"windowsnap", "clipboard",   "finderfix",
                                                     "keymapper",  "quickvolume", "updates"};

const std::vector<Layer> plan = {
    {"base", {}, {"QtCore"}},
    {"i18n", {}, {"QtCore"}},
    {"platform", {"base"}, {"QtCore", "QtGui"}, true},
    {"platform_fake", {"platform", "base"}, {"QtCore", "QtGui"}, true},
    {"x11_keys", {}, {}, true},
    {"keyguard", {"x11_keys"}, {}, true},
    {"platform_host",
     {"platform", "x11_keys", "base"},
     {"QtCore", "QtGui", "QtWidgets", "QtNetwork", "QtDBus"},
     true},
    {"core", {"platform", "base"}, {"QtCore", "QtGui"}},
    {"module", {"core", "platform", "base"}, {"QtCore", "QtGui", "QtNetwork"}},
    {"app", {"module", "core", "platform", "base"}, {"QtCore", "QtGui"}},
    {"ui_kit",
     {"core", "platform", "base"},
     {"QtCore", "QtGui", "QtQml", "QtQuick", "QtQuickControls2", "QtSvg"}},
    {"module_ui",
     {"ui_kit", "module", "core", "platform", "base"},
     {"QtCore", "QtGui", "QtQml", "QtQuick", "QtQuickControls2"}},
    {"ui",
     {"ui_kit", "app", "module", "core", "platform", "base"},
     {"QtCore", "QtGui", "QtWidgets", "QtQml", "QtQuick", "QtQuickControls2", "QtSvg"}},
    {"main",
     {"ui", "ui_kit", "module_ui", "app", "module", "core", "platform_host", "platform", "i18n", "base"},
     {"QtCore", "QtGui", "QtWidgets", "QtQml", "QtQuick", "QtQuickControls2"}},
};

constexpr std::string_view prefix = "pimloft_";

std::string_view shortName(std::string_view target) {
    return target.substr(0, prefix.size()) == prefix ? target.substr(prefix.size()) : target;
}

std::string_view layerName(std::string_view target) {
    const std::string_view name = shortName(target);
    if (target == "pimloft")
        return "main";
    if (name == "platform_linux" || name == "platform_macos")
        return "platform_host";
    if (const std::string_view module = moduleOf(target); !module.empty())
        return name == module ? "module" : "module_ui";
    return name;
}

template <typename Range>
bool has(const Range &range, std::string_view value) {
    return std::find(range.begin(), range.end(), value) != range.end();
}

}  // namespace

std::string_view moduleOf(std::string_view target) {
    std::string_view name = shortName(target);
    constexpr std::string_view pages = "_ui";
    if (name.size() > pages.size() && name.substr(name.size() - pages.size()) == pages)
        name.remove_suffix(pages.size());
    return has(modules, name) ? name : std::string_view();
}

const Layer *layerOf(std::string_view target) {
    const std::string_view name = layerName(target);
    const auto found = std::find_if(plan.begin(), plan.end(), [&](const Layer &l) { return l.name == name; });
    return found == plan.end() ? nullptr : &*found;
}

std::string objection(std::string_view from, std::string_view to) {
    if (from == to)
        return {};
    const Layer *user = layerOf(from);
    const Layer *used = layerOf(to);
    if (!user || !used)
        return {};  // reported once, for the target itself
    const std::string_view module = moduleOf(from);
    const std::string_view other = moduleOf(to);
    if (!module.empty() && !other.empty() && module != other)
        return "modules never know each other";
    if (user == used && user->name == "platform_host")
        return {};  // the two hosts share files
    if (user != used && has(user->mayInclude, used->name))
        return {};
    return std::string(user->name) + " may not know " + std::string(used->name);
}

}  // namespace pimloft::test
