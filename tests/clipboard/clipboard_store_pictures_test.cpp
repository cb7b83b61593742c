// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_store.h"

#include "entries.h"
#include "platform/fake_desktop.h"
#include "support/qt_printers.h"

#include <QBuffer>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// A store that holds one good picture below one that breaks off.
class StoreOfPictures : public testing::Test {
protected:
    StoreOfPictures() {
        store.add(good);
        store.add(broken);
    }

    static QByteArray png() {
        QBuffer buffer;
        QImage(QSize(300, 200), QImage::Format_RGB32).save(&buffer, "PNG");
        return buffer.data();
    }
    std::optional<QImage> thumbnail(const ClipboardItem &item) {
        return store.thumbnails().thumbnail(item.id, std::get<ImageContent>(item.content).bytes);
    }
    /// Asks for the thumbnail and waits for it.
    void decode(const ClipboardItem &item) {
        EXPECT_FALSE(thumbnail(item));
        EXPECT_TRUE(decoded.wait());
    }

    FakeDesktop desktop;
    QTemporaryDir folder;
    ClipboardStore store{desktop.preferences, folder.path()};
    const ClipboardItem good = test::entry(ImageContent{png()});
    const ClipboardItem broken = test::entry(ImageContent{png().left(60)});
    QSignalSpy decoded{&store.thumbnails(), &Thumbnails::decoded};
    QSignalSpy changed{&store, &ClipboardStore::itemsChanged};
};

TEST_F(StoreOfPictures, forgetsThePictureOfWhatIsRemovedAndKeepsTheOthers) {
    decode(good);
    decode(broken);
    store.remove(broken);
    EXPECT_TRUE(thumbnail(good));
    EXPECT_FALSE(thumbnail(broken));
}

TEST_F(StoreOfPictures, keepsNoPictureThatIsRemovedWhileItIsDecoded) {
    store.preview(good);
    ASSERT_FALSE(store.thumbnails().isEmpty());
    store.remove(good);
    EXPECT_TRUE(store.thumbnails().isEmpty());
    decode(broken);
    EXPECT_EQ(decoded.count(), 1);
}

TEST_F(StoreOfPictures, tellsNoChangeOfAPreviewThatNobodyHasSeen) {
    changed.clear();
    decode(broken);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(store.preview(broken), QStringLiteral("Image (60 bytes)"));
}

TEST_F(StoreOfPictures, tellsThatAPictureIsBrokenOnceItHasBeenDecoded) {
    changed.clear();
    EXPECT_EQ(store.preview(good), QStringLiteral("Image 300\u00D7200"));
    EXPECT_EQ(store.preview(broken), QStringLiteral("Image 300\u00D7200")) << "nobody waits for a decoder";
    ASSERT_TRUE(changed.wait());
    EXPECT_EQ(store.preview(good), QStringLiteral("Image 300\u00D7200"));
    EXPECT_EQ(store.preview(broken), QStringLiteral("Image (60 bytes)"));
    store.setSearchQuery(QStringLiteral("60 bytes"));
    EXPECT_EQ(store.filteredItems().size(), 1u);
}

}  // namespace
}  // namespace pimloft
