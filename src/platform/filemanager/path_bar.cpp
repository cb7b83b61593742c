// SPDX-License-Identifier: MIT
#include "platform/filemanager/path_bar.h"

#include <QStringList>

#include <algorithm>
#include <map>

namespace pimloft {

namespace {

struct Button {
    QString name;
    bool isChecked;
};
using Bar = std::vector<Button>;

bool isText(AccessibleRole role) {
    return role == AccessibleRole::text || role == AccessibleRole::entry;
}

bool isPathButton(AccessibleRole role) {
    return role == AccessibleRole::toggleButton || role == AccessibleRole::checkBox ||
           role == AccessibleRole::radioButton;
}

/// Its button often has a picture only.
bool isRoot(const QString &name) {
    return name.isEmpty() || name == QLatin1String("/");
}

/// The buttons that stand beside each other, in the order of the tree.
std::vector<Bar> bars(const AccessibleTree &tree) {
    std::map<int, Bar> byParent;
    for (const AccessibleNode &node : tree)
        if (isPathButton(node.role))
            byParent[node.parent].push_back({node.name, node.has(AccessibleNode::checked)});
    std::vector<Bar> result;
    for (auto &entry : byParent)
        result.push_back(std::move(entry.second));
    return result;
}

QByteArray joined(const QByteArray &base, const QStringList &names) {
    QByteArray path = base;
    for (const QString &name : names)
        path += '/' + name.toUtf8();
    return path.isEmpty() ? QByteArrayLiteral("/") : path;
}

/// The path up to the pressed button. The bar may begin or end with the outermost folder, and may show
/// folders below the current one that were left before.
std::vector<QByteArray> pathsOf(Bar bar, const QByteArray &home) {
    const auto isChecked = [](const Button &each) { return each.isChecked; };
    if (std::count_if(bar.begin(), bar.end(), isChecked) != 1)
        return {};
    const QString homeName = QString::fromUtf8(home.mid(home.lastIndexOf('/') + 1));
    const auto isOutermost = [&](const Button &each) { return isRoot(each.name) || each.name == homeName; };
    if (!isRoot(bar.front().name) && (isRoot(bar.back().name) || !isOutermost(bar.front())))
        std::reverse(bar.begin(), bar.end());
    if (!isOutermost(bar.front()))
        return {};
    const QByteArray base = isRoot(bar.front().name) ? QByteArray() : home;
    bar.erase(std::find_if(bar.begin(), bar.end(), isChecked) + 1, bar.end());
    QStringList names;
    for (auto each = bar.begin() + 1; each != bar.end(); ++each)
        names << each->name;
    if (names.contains(QString()))
        return {};
    return {joined(base, names)};
}

QByteArray withoutSlash(QByteArray path) {
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

}  // namespace

bool hasFocusedText(const AccessibleTree &tree) {
    return std::any_of(tree.begin(), tree.end(), [](const AccessibleNode &node) {
        return isText(node.role) && node.has(AccessibleNode::focused);
    });
}

std::vector<QByteArray> pathsShown(const AccessibleTree &tree, const QByteArray &home) {
    std::vector<QByteArray> result;
    const auto add = [&result](const QByteArray &path) {
        if (std::find(result.begin(), result.end(), path) == result.end())
            result.push_back(path);
    };
    for (const Bar &bar : bars(tree))
        for (const QByteArray &path : pathsOf(bar, home))
            add(path);
    for (const AccessibleNode &node : tree)
        if (isText(node.role) && node.text.startsWith(u'/'))
            add(withoutSlash(node.text.toUtf8()));
    // A lonely button without a name is not often that of the root.
    std::stable_partition(result.begin(), result.end(),
                          [](const QByteArray &path) { return path != QByteArrayLiteral("/"); });
    return result;
}

std::vector<QByteArray> pathsInTitle(const QString &title) {
    if (!title.startsWith(u'/'))
        return {};
    std::vector<QByteArray> result{withoutSlash(title.toUtf8())};
    // The program's name may follow, after a dash of either kind.
    for (const char *dash : {" \xe2\x80\x94 ", " - "})
        if (const qsizetype at = title.lastIndexOf(QString::fromUtf8(dash)); at > 0)
            result.push_back(withoutSlash(title.left(at).toUtf8()));
    return result;
}

QByteArray folderByTitle(const std::vector<QByteArray> &folders, const QString &title) {
    if (folders.size() == 1)
        return folders.front();
    QByteArray result;
    for (const QByteArray &folder : folders) {
        const QString name = QString::fromUtf8(folder.mid(folder.lastIndexOf('/') + 1));
        const bool isNamed = !name.isEmpty() && title.startsWith(name) &&
                             (title.size() == name.size() || title.at(name.size()) == u' ');
        if (isNamed && !result.isEmpty())
            return {};
        if (isNamed)
            result = folder;
    }
    return result;
}

}  // namespace pimloft
