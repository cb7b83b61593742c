// SPDX-License-Identifier: MIT
#include "app/settings_keys.h"
#include "clipboard/clipboard_store.h"
#include "entries.h"
#include "platform/fake_desktop.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

namespace pimloft {
namespace {

/// The store's rules once more, as plainly as they can be said.
struct Model {
    std::vector<ClipboardItem> items;
    qint64 limit = 50;

    void add(const ClipboardItem &item) {
        if (!items.empty() && items.front().content == item.content)
            return;
        std::vector<ClipboardItem> all{item};
        for (const ClipboardItem &each : items)
            if (each.isPinned || !(each.content == item.content))
                all.push_back(each);
        qint64 room = limit == 0 ? 50 : limit;
        for (const ClipboardItem &each : all)
            room -= each.isPinned ? 1 : 0;
        items.clear();
        for (const ClipboardItem &each : all)
            if (each.isPinned || room-- > 0)
                items.push_back(each);
    }
    void togglePin(const QUuid &id) {
        for (ClipboardItem &each : items)
            if (each.id == id)
                each.isPinned = !each.isPinned;
    }
    void remove(const QUuid &id) {
        std::erase_if(items, [&](const ClipboardItem &each) { return each.id == id; });
    }
    void removeAll() {
        std::erase_if(items, [](const ClipboardItem &each) { return !each.isPinned; });
    }
    std::vector<QUuid> found(const QString &query) const {
        std::vector<QUuid> ids;
        for (const ClipboardItem &each : items)
            if (query.isEmpty() || each.preview().toLower().contains(query.toLower()) ||
                each.sourceApp.toLower().contains(query.toLower()))
                ids.push_back(each.id);
        return ids;
    }
};

class RandomUser {
public:
    RandomUser(unsigned seed, const QString &folder) : random_(seed), folder_(folder) {
        store_.emplace(desktop_.preferences, folder_);
    }

    void doSomething() {
        switch (number(20)) {
        case 0:
            return pin();
        case 1:
            return removeOne();
        case 2:
            if (number(20) == 0)
                return clear();
            return changeLimit();
        case 3:
            return search();
        case 4:
            if (number(50) == 0)
                store_.emplace(desktop_.preferences, folder_);
            return;
        default:
            return copy();
        }
    }

    void compare() const {
        ASSERT_TRUE(test::areTheSame(store_->items(), model_.items))
            << test::summary(store_->items()) << "\ninstead of\n"
            << test::summary(model_.items);
    }
    void compareWithDisk() const {
        store_->saveToDisk();
        const ClipboardStore reloaded(desktop_.preferences, folder_);
        ASSERT_TRUE(test::areTheSame(reloaded.items(), model_.items));
    }

private:
    int number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    ClipboardContent content() {
        const QString word = QStringLiteral("Word %1").arg(number(80));
        switch (number(8)) {
        case 0:
            return ImageContent{test::noise(number(300), unsigned(number(5)))};
        case 1:
            return HtmlContent{QStringLiteral("<b>") + word};
        case 2:
            return FileURLContent{QUrl::fromLocalFile(QStringLiteral("/tmp/%1").arg(word))};
        case 3:
            return RichTextContent{word.toUtf8()};
        default:
            return TextContent{word};
        }
    }
    void copy() {
        ClipboardItem item = test::entry(content());
        item.sourceApp = QStringLiteral("App %1").arg(number(5));
        item.timestamp.seconds = number(1'000'000'000) / 1000.0;
        item.isPinned = number(30) == 0;
        store_->add(item);
        model_.add(item);
    }
    ClipboardItem someItem() {
        if (model_.items.empty() || number(10) == 0)
            return test::text(QStringLiteral("gone"));
        return model_.items[std::size_t(number(int(model_.items.size())))];
    }
    void pin() {
        const ClipboardItem item = someItem();
        store_->togglePin(item);
        model_.togglePin(item.id);
    }
    void removeOne() {
        const ClipboardItem item = someItem();
        store_->remove(item);
        model_.remove(item.id);
    }
    void clear() {
        store_->removeAll();
        model_.removeAll();
    }
    void changeLimit() {
        model_.limit = number(4) == 0 ? 0 : number(30);
        desktop_.preferences.stored[SettingsKeys::clipboardMaxItems] = model_.limit;
    }
    void search() {
        const QString query = QStringLiteral("WORD %1").arg(number(10));
        store_->setSearchQuery(number(5) == 0 ? QStringLiteral("app 3") : query);
        std::vector<QUuid> ids;
        for (const ClipboardItem *item : store_->filteredItems())
            ids.push_back(item->id);
        ASSERT_EQ(ids, model_.found(store_->searchQuery()));
    }

    std::mt19937 random_;
    const QString folder_;
    mutable FakeDesktop desktop_;
    mutable std::optional<ClipboardStore> store_;
    Model model_;
};

/// Ten users, so that they can be tried at the same time: 100,000 steps in all.
class ClipboardStoreProperty : public testing::TestWithParam<int> {};

TEST_P(ClipboardStoreProperty, holdsAndKeepsWhatTheRulesSayWhateverTheUserDoes) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    // Each step is saved: on a RAM disk where there is one.
    const QString shared = QStringLiteral("/dev/shm/pimloft-test-XXXXXX");
    const QTemporaryDir memory(shared);
    const QTemporaryDir disk;
    RandomUser user(seed, memory.isValid() ? memory.path() : disk.path());
    for (int step = 0; step < 10'000; ++step) {
        user.doSomething();
        user.compare();
        if (step % 500 == 0)
            user.compareWithDisk();
        if (testing::Test::HasFatalFailure())
            return;
    }
    user.compareWithDisk();
}

INSTANTIATE_TEST_SUITE_P(Users, ClipboardStoreProperty, testing::Range(0, 10));

}  // namespace
}  // namespace pimloft
