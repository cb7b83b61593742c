// SPDX-License-Identifier: MIT
#include "platform/filemanager/accessible_reader.h"

#include "platform/background.h"
#include "platform/filemanager/bus_call.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>
#include <array>
#include <utility>

namespace pimloft {

namespace {

constexpr char accessible[] = "org.a11y.atspi.Accessible";
const QString connectionName = QStringLiteral("pimloft-accessibility");
constexpr char root[] = "/org/a11y/atspi/accessible/root";

/// A window of a file manager has about a hundred elements beside its files.
constexpr std::size_t mostNodes = 800;

/// What holds the files, or nothing of interest.
constexpr std::array closed = {
    AccessibleRole::icon,      AccessibleRole::image,   AccessibleRole::label,     AccessibleRole::list,
    AccessibleRole::menu,      AccessibleRole::menuBar, AccessibleRole::popupMenu, AccessibleRole::scrollBar,
    AccessibleRole::statusBar, AccessibleRole::table,   AccessibleRole::tree,      AccessibleRole::treeTable,
};

bool isNamed(AccessibleRole role) {
    return role == AccessibleRole::toggleButton || role == AccessibleRole::checkBox ||
           role == AccessibleRole::radioButton;
}

bool isTyped(AccessibleRole role) {
    return role == AccessibleRole::text || role == AccessibleRole::entry;
}

std::uint64_t states(const QVariantList &answer) {
    const auto words = qdbus_cast<QList<uint>>(answer.value(0));
    return std::uint64_t(words.value(0)) | std::uint64_t(words.value(1)) << 32;
}

}  // namespace

/// What is known so far, and how many answers are still on their way.
struct AccessibleReader::Reading {
    std::uint64_t id;
    ProcessId process;
    QString title;
    Done done;
    AccessibleTree tree = {};
    Elements elements = {};  ///< of the nodes
    int open = 0;
};

AccessibleReader::AccessibleReader(QDBusConnection session) : session_(std::move(session)) {
}

bool AccessibleReader::isCurrent(const Reading &reading) const {
    return reading.id == reading_;
}

void AccessibleReader::read(ProcessId process, const QString &title, Done done) {
    const auto reading = std::make_shared<Reading>(Reading{++reading_, process, title, std::move(done)});
    connectToBus([this, reading] {
        if (!isCurrent(*reading))
            return;
        if (bus_.isConnected())
            findProgram(reading);
        else
            reading->done(std::nullopt);
    });
}

void AccessibleReader::connectToBus(std::function<void()> then) {
    if (bus_.isConnected()) {
        then();
        return;
    }
    waiting_.push_back(std::move(then));
    if (std::exchange(isConnecting_, true))
        return;
    // Where no program has asked for that bus yet, it starts now.
    callBus(session_,
            {QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"), QStringLiteral("org.a11y.Bus"),
             QStringLiteral("GetAddress"), true},
            {}, this, [this](const QDBusMessage &answer) {
                const QString address = answer.arguments().value(0).toString();
                if (answer.type() != QDBusMessage::ReplyMessage || address.isEmpty())
                    return connected();
                // Making a connection waits for the bus.
                inBackground(
                    this,
                    [address] {
                        QDBusConnection::disconnectFromBus(connectionName);
                        return QDBusConnection::connectToBus(address, connectionName);
                    },
                    [this](const QDBusConnection &bus) {
                        bus_ = bus;
                        connected();
                    });
            });
}

void AccessibleReader::connected() {
    isConnecting_ = false;
    for (const auto &then : std::exchange(waiting_, {}))
        then();
}

void AccessibleReader::ask(const Shared &reading, const Element &element, const char *interface,
                           const char *method, const QVariantList &arguments,
                           std::function<void(const QVariantList &)> answered) {
    ++reading->open;
    callBus(bus_, {element.service, element.path, QLatin1String(interface), QLatin1String(method)}, arguments,
            this, [this, reading, answered = std::move(answered)](const QDBusMessage &answer) {
                if (!isCurrent(*reading))
                    return;
                if (answer.type() == QDBusMessage::ReplyMessage)
                    answered(answer.arguments());
                if (--reading->open == 0)
                    reading->done(reading->tree.empty() ? std::nullopt : std::optional(reading->tree));
            });
}

void AccessibleReader::askProperty(const Shared &reading, const Element &element, const char *name,
                                   std::function<void(const QVariant &)> answered) {
    ask(reading, element, "org.freedesktop.DBus.Properties", "Get",
        {QLatin1String(accessible), QLatin1String(name)},
        [answered = std::move(answered)](const QVariantList &answer) {
            answered(qvariant_cast<QDBusVariant>(answer.value(0)).variant());
        });
}

void AccessibleReader::askChildren(const Shared &reading, const Element &element,
                                   std::function<void(Elements)> answered) {
    ask(reading, element, accessible, "GetChildren", {},
        [answered = std::move(answered)](const QVariantList &answer) {
            Elements children;
            const auto list = answer.value(0).value<QDBusArgument>();
            if (list.currentType() != QDBusArgument::ArrayType)
                return;
            list.beginArray();
            while (!list.atEnd()) {
                QString service;
                QDBusObjectPath path;
                list.beginStructure();
                list >> service >> path;
                list.endStructure();
                children.push_back({service, path.path()});
            }
            list.endArray();
            answered(std::move(children));
        });
}

void AccessibleReader::findProgram(const Shared &reading) {
    const Element registry{QStringLiteral("org.a11y.atspi.Registry"), QLatin1String(root)};
    askChildren(reading, registry, [this, reading](const Elements &programs) {
        for (const Element &program : programs)
            ask(reading, {QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus")},
                "org.freedesktop.DBus", "GetConnectionUnixProcessID", {program.service},
                [this, reading, program](const QVariantList &answer) {
                    if (ProcessId(answer.value(0).toUInt()) == reading->process)
                        findWindow(reading, program);
                });
    });
}

void AccessibleReader::findWindow(const Shared &reading, const Element &program) {
    askChildren(reading, program, [this, reading](const Elements &windows) {
        const auto asked = std::make_shared<int>(2 * int(windows.size()));
        // A process may be on the bus more than once, each time with other windows.
        const auto known = std::make_shared<AccessibleTree>(windows.size());
        for (std::size_t i = 0; i < windows.size(); ++i) {
            const auto learned = [this, reading, windows, known, asked] {
                if (--*asked == 0)
                    chooseWindow(reading, windows, *known);
            };
            ask(reading, windows[i], accessible, "GetState", {},
                [known, i, learned](const QVariantList &answer) {
                    (*known)[i].states = states(answer);
                    learned();
                });
            askProperty(reading, windows[i], "Name", [known, i, learned](const QVariant &name) {
                (*known)[i].name = name.toString();
                learned();
            });
        }
    });
}

void AccessibleReader::chooseWindow(const Shared &reading, const Elements &windows,
                                    const AccessibleTree &known) {
    for (const bool byTitle : {false, true}) {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < windows.size(); ++i) {
            const AccessibleNode &window = known[i];
            if (byTitle ? window.name == reading->title : window.has(AccessibleNode::active))
                found.push_back(i);
        }
        if (found.size() == 1) {
            add(reading, windows[found.front()], -1);
            return;
        }
    }
}

void AccessibleReader::add(const Shared &reading, const Element &element, int parent) {
    if (reading->tree.size() >= mostNodes)
        return;
    const int node = int(reading->tree.size());
    reading->tree.push_back({.parent = parent});
    reading->elements.push_back(element);
    ask(reading, element, accessible, "GetState", {}, [this, reading, node](const QVariantList &state) {
        reading->tree[std::size_t(node)].states = states(state);
        ask(reading, reading->elements[std::size_t(node)], accessible, "GetRole", {},
            [this, reading, node](const QVariantList &role) {
                reading->tree[std::size_t(node)].role = AccessibleRole(role.value(0).toUInt());
                learn(reading, node);
            });
    });
}

void AccessibleReader::learn(const Shared &reading, int node) {
    const AccessibleNode &known = reading->tree[std::size_t(node)];
    const Element element = reading->elements[std::size_t(node)];
    if (isNamed(known.role)) {
        askProperty(reading, element, "Name", [reading, node](const QVariant &name) {
            reading->tree[std::size_t(node)].name = name.toString();
        });
        return;
    }
    if (isTyped(known.role)) {
        ask(reading, element, "org.a11y.atspi.Text", "GetText", {0, -1},
            [reading, node](const QVariantList &text) {
                reading->tree[std::size_t(node)].text = text.value(0).toString();
            });
        return;
    }
    const bool isClosed = std::find(closed.begin(), closed.end(), known.role) != closed.end();
    if (isClosed || !known.has(AccessibleNode::showing))
        return;
    askChildren(reading, element, [this, reading, node](const Elements &children) {
        for (const Element &child : children)
            add(reading, child, node);
    });
}

}  // namespace pimloft
