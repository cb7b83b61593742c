// SPDX-License-Identifier: MIT
#pragma once

#include "base/clock.h"
#include "base/dirs.h"
#include "platform/platform.h"

#include <memory>
#include <typeindex>
#include <vector>

namespace pimloft {

class ViewHost;

/// What this run of the program was started with, and the owner of its shared instances. `main` makes one and
/// keeps it for as long as the QApplication runs. Main thread.
class Process {
public:
    Process(Platform platform, const Clock &clock, Dirs dirs);
    /// Destroys the shared instances, the newest first.
    ~Process();
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;

    /// The running one. Asking while there is none is a programming error and ends the program.
    static Process &current();

    const Platform &platform() const { return platform_; }
    const Clock &clock() const { return clock_; }
    const Dirs &dirs() const { return dirs_; }

    /// Who makes views; nothing while there is no user interface. Its owner takes it away before it goes.
    ViewHost *views() const { return views_; }
    void setViews(ViewHost *views) { views_ = views; }

    /// The one instance of T; `make` is called with this process when it is asked for the first time.
    template <typename T, typename Make>
    T &shared(Make make) {
        if (void *found = find(typeid(T)))
            return *static_cast<T *>(found);
        return *static_cast<T *>(keep(typeid(T), std::shared_ptr<T>(make(*this))));
    }

private:
    void *find(std::type_index type) const;
    void *keep(std::type_index type, std::shared_ptr<void> instance);

    struct Instance {
        std::type_index type;
        std::shared_ptr<void> object;
    };
    Platform platform_;
    const Clock &clock_;
    Dirs dirs_;
    ViewHost *views_ = nullptr;
    std::vector<Instance> instances_;  ///< in the order of their completion: dependencies first
};

}  // namespace pimloft
