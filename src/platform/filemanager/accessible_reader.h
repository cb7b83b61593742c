// SPDX-License-Identifier: MIT
#pragma once

#include "platform/filemanager/accessible_tree.h"
#include "platform/windows/windows.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <optional>

namespace pimloft {

/// Reads the elements of other programs' windows from the bus on which they tell of them to programs for
/// blind people. Not every program is there. Main thread; waits for nobody.
class AccessibleReader : public QObject {
    Q_OBJECT

public:
    explicit AccessibleReader(QDBusConnection session);

    /// Connects to that bus, so that the first reading has it. Programs may need a moment to come to it.
    void prepare() {
        connectToBus([] {});
    }

    using Done = std::function<void(std::optional<AccessibleTree>)>;

    /// Reads what the process's active window consists of, but not what its lists and menus hold. `title`
    /// decides where no window says that it is active. Ends an earlier reading, whose `done` is not called
    /// then.
    void read(ProcessId process, const QString &title, Done done);
    void stop() { ++reading_; }

private:
    struct Element {
        QString service, path;
    };
    using Elements = std::vector<Element>;
    struct Reading;
    using Shared = std::shared_ptr<Reading>;

    void connectToBus(std::function<void()> then);
    void connected();
    void findProgram(const Shared &reading);
    void findWindow(const Shared &reading, const Element &program);
    void chooseWindow(const Shared &reading, const Elements &windows, const AccessibleTree &known);
    void add(const Shared &reading, const Element &element, int parent);
    void learn(const Shared &reading, int node);
    void ask(const Shared &reading, const Element &element, const char *interface, const char *method,
             const QVariantList &arguments, std::function<void(const QVariantList &)> answered);
    void askProperty(const Shared &reading, const Element &element, const char *name,
                     std::function<void(const QVariant &)> answered);
    void askChildren(const Shared &reading, const Element &element, std::function<void(Elements)> answered);
    bool isCurrent(const Reading &reading) const;

    QDBusConnection session_;
    bool isConnecting_ = false;
    std::vector<std::function<void()>> waiting_;  ///< for the connection
    QDBusConnection bus_{QString()};
    std::uint64_t reading_ = 0;
};

}  // namespace pimloft
