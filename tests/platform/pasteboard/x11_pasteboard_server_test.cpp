// SPDX-License-Identifier: MIT
// Servers that lack something, or go away.
#include "pasteboard_desk.h"

namespace pimloft {
namespace {

/// A second server beside the test's own, to which everything connects that is made meanwhile.
class X11PasteboardServer : public testing::Test {
protected:
    ~X11PasteboardServer() override {
        qputenv("DISPLAY", test::currentSession().display().toUtf8());
        qputenv(
            "DBUS_SESSION_BUS_ADDRESS",
            test::currentSession().environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")).toUtf8());
    }

    void open(const QStringList &serverArguments) {
        test::DesktopSession::Options options;
        options.serverArguments = serverArguments;
        session_ = std::make_unique<test::DesktopSession>(options);
        pasteboard_ = std::make_unique<X11Pasteboard>([](ProcessId) { return std::nullopt; });
    }
    /// What a read comes to.
    std::string readText() {
        std::string result;
        pasteboard_->read(pasteboard_->changeCount(), {PasteType::plainText}, 100, &context_,
                          [&](PasteData data) { result = text(data); });
        EXPECT_TRUE(test::waitUntil([&] { return !result.empty(); }));
        return result;
    }

    std::unique_ptr<test::DesktopSession> session_;
    std::unique_ptr<X11Pasteboard> pasteboard_;
    QObject context_;
};

TEST_F(X11PasteboardServer, mayNotTellWhoseContentItIs) {
    open({QStringLiteral("-extension"), QStringLiteral("X-Resource")});
    pasteboard_->write(plain("own"));
    std::optional<PasteOrigin> origin;
    pasteboard_->origin(1, &context_, [&](auto answer) { origin = answer; });
    EXPECT_TRUE(test::waitUntil([&] { return origin.has_value(); }));
    EXPECT_EQ(origin, PasteOrigin());
}

TEST_F(X11PasteboardServer, leavesAQuietClipboardBehindWhenItGoesAway) {
    open({});
    pasteboard_->write(plain("own"));
    EXPECT_EQ(readText(), "own");
    session_.reset();
    EXPECT_EQ(readText(), "(failed)");
    EXPECT_EQ(pasteboard_->write(plain("later")), 2);
    pasteboard_->offerAsPrimary();
    EXPECT_EQ(readText(), "(failed)");
}

}  // namespace
}  // namespace pimloft
