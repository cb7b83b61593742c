// SPDX-License-Identifier: MIT
#include "faulty_calls.h"
#include "file_system.h"

#include "finderfix/file_mover.h"
#include "finderfix/unique_name.h"
#include "platform/files/linux_files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <map>
#include <random>
#include <set>

namespace pimloft {
namespace {

/// What a tree should hold: paths below the root, and the content of files; folders end with a slash.
class Model {
public:
    void add(const std::string &path, const std::string &content) { items_[path] = content; }
    bool has(const std::string &path) const { return items_.contains(path) || items_.contains(path + '/'); }

    std::vector<std::string> folders() const {
        std::vector<std::string> result;
        for (const auto &[path, content] : items_)
            if (path.ends_with('/'))
                result.push_back(path.substr(0, path.size() - 1));
        return result;
    }
    std::vector<std::string> all() const {
        std::vector<std::string> result;
        for (const auto &[path, content] : items_)
            if (path.find('/') != path.size() - 1)  // not the two volumes
                result.push_back(path.ends_with('/') ? path.substr(0, path.size() - 1) : path);
        return result;
    }

    /// False when the item would go into itself.
    bool move(const std::string &item, const std::string &folder) {
        const std::string name = item.substr(item.rfind('/') + 1);
        if ((folder + '/').starts_with(item + '/'))
            return false;
        std::string to;
        for (int number = 1; to.empty() || has(to); ++number)
            to = folder + '/' + uniqueName(QByteArray::fromStdString(name), number).toStdString();
        std::map<std::string, std::string> moved;
        std::erase_if(items_, [&](const auto &each) {
            const bool isIt = each.first == item || each.first.starts_with(item + '/');
            if (isIt)
                moved.emplace(to + each.first.substr(item.size()), each.second);
            return isIt;
        });
        items_.merge(moved);
        return true;
    }

    std::string text() const {
        std::set<std::string> lines;
        for (const auto &[path, content] : items_)
            lines.insert(path.ends_with('/') ? path : path + " = " + content);
        std::string result;
        for (const std::string &line : lines)
            result += line + '\n';
        return result;
    }

private:
    std::map<std::string, std::string> items_;
};

/// A tree with two pretended volumes, and the model of it.
class RandomMoves {
public:
    explicit RandomMoves(unsigned seed) : random_(seed) {
        for (const char *volume : {"one", "two"}) {
            test::makeFolder(at(volume));
            model.add(std::string(volume) + '/', "");
        }
        calls.fault = [this](const std::string &call, const std::string &name) {
            // Waiting for the disk proves nothing here.
            if (call == "fsync" || call == "syncfs")
                return 0;
            if (call == "renameat2" && name.starts_with('/') && crosses_)
                return EXDEV;
            return faults && call != "unlink" && call != "rmdir" && pick(40) == 0 ? EIO : 0;
        };
    }

    FileUrl at(const std::string &path) const { return root().appending(QByteArray::fromStdString(path)); }
    FileUrl root() const { return volumes_.there(); }
    std::size_t pick(std::size_t count) { return random_() % count; }
    template <typename T>
    const T &pick(const std::vector<T> &from) {
        return from[pick(from.size())];
    }

    void make() {
        static const std::vector<std::string> names = {"a",  "a.txt", "a 2.txt", "b.tar.gz",
                                                       ".c", "\xFF",  "d\n%"};
        const std::string path = pick(model.folders()) + '/' + pick(names);
        if (model.has(path) || model.all().size() > 60)
            return;
        if (pick(3) == 0) {
            test::makeFolder(at(path));
            model.add(path + '/', "");
        } else {
            const std::string content = std::to_string(random_());
            test::write(at(path), QByteArray::fromStdString(content));
            model.add(path, content);
        }
    }

    /// Moves anything anywhere. True where it came to what the model says.
    bool move() {
        if (model.all().empty())
            return true;
        const std::string item = pick(model.all());
        const std::string folder = pick(model.folders());
        crosses_ = item.substr(0, 3) != folder.substr(0, 3);
        const FileOutcome outcome = mover_.move(at(item), at(folder), [] { return false; });
        if (outcome && faults)
            return true;  // nothing may have happened
        return model.move(item, folder) == !outcome;
    }

    Model model;
    test::FaultyCalls calls;
    bool faults = false;

private:
    test::TwoVolumes volumes_;
    std::mt19937 random_;
    LinuxFiles files_{calls};
    const FileMover mover_{files_};
    bool crosses_ = false;
};

void expectThatTenThousandStepsComeToTheModel(bool faults) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    RandomMoves moves(seed);
    moves.faults = faults;
    for (int step = 0; step < 10'000; ++step) {
        if (step % 3 == 0)
            moves.make();
        else
            ASSERT_TRUE(moves.move()) << "step " << step;
        const bool isLookedAt = step % 100 == 99;
        ASSERT_TRUE(!isLookedAt || test::listing(moves.root()) == moves.model.text())
            << "step " << step << "\n"
            << test::listing(moves.root()) << "instead of\n"
            << moves.model.text();
    }
}

TEST(TenThousandRandomMoves, comeToWhatTheModelSays) {
    expectThatTenThousandStepsComeToTheModel(false);
}

TEST(TenThousandRandomMoves, withFaultsChangeNothingWhereTheyFail) {
    expectThatTenThousandStepsComeToTheModel(true);
}

}  // namespace
}  // namespace pimloft
