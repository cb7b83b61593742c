// SPDX-License-Identifier: MIT
#include "app/process.h"

#include <QtGlobal>

#include <utility>

namespace pimloft {

namespace {
Process *running = nullptr;
}  // namespace

Process::Process(Platform platform, const Clock &clock, Dirs dirs)
    : platform_(platform), clock_(clock), dirs_(std::move(dirs)) {
    if (std::exchange(running, this))
        qFatal("A second Process beside the running one");
}

Process::~Process() {
    while (!instances_.empty()) {
        // Off the list first: an instance may still ask for others while it goes.
        const Instance newest = std::move(instances_.back());
        instances_.pop_back();
    }
    running = nullptr;
}

Process &Process::current() {
    if (!running)
        qFatal("A shared instance was asked for outside of the Process");
    return *running;
}

void *Process::find(std::type_index type) const {
    for (const Instance &instance : instances_)
        if (instance.type == type)
            return instance.object.get();
    return nullptr;
}

void *Process::keep(std::type_index type, std::shared_ptr<void> instance) {
    instances_.push_back({type, std::move(instance)});
    return instances_.back().object.get();
}

}  // namespace pimloft
