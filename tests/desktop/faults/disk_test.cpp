// SPDX-License-Identifier: MIT
// A disk that is full, and a home that cannot be written to.
#include "desktop/faults/fault_desk.h"
#include "desktop/support/first_run.h"

#include <QFile>

#include <csignal>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace pimloft::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const QString snapping = QStringLiteral("pimloft.windowsnap.enabled");
constexpr auto failed = "ClipboardStore: Failed to save: ";

class Disk : public FaultDesk {
protected:
    /// What it prints of itself, line by line.
    std::vector<std::string> said() {
        std::vector<std::string> lines;
        for (const QString &line : pimloft().output().split(u'\n', Qt::SkipEmptyParts))
            lines.push_back(line.toStdString());
        return lines;
    }
    void copyUnrecorded(const QByteArray &text) {
        const std::size_t before = said().size();
        copy(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard")}, text);
        EXPECT_TRUE(waitUntil([&] { return said().size() > before; })) << "it does not say so";
    }
    /// The newest entry is in the popup, and arrives where it is pasted, whatever is on the disk.
    void expectToPaste(const std::string &text) {
        openEditor(Editor::qt);
        openPopup();
        pasteRow(0);
        expectContent(text);
        closeLastWindow();
    }
    void flipSnapping() {
        openPanel();
        hands().tap(KEY_TAB);
        hands().tap(KEY_TAB);
        hands().tap(KEY_SPACE);
        letPimloftCatchUp();
        hands().tap(KEY_ESC);
        EXPECT_TRUE(waitUntil([this] { return !panelFrame(); }));
    }
    QJsonValue storedSnapping() { return storedPreferences(session()).value(snapping); }
};

class FullDisk : public Disk {
protected:
    void SetUp() override {
        Disk::SetUp();
        // It is to be told by the write, as on a disk that is full, and not by a signal.
        std::signal(SIGXFSZ, SIG_IGN);
        // The limit also holds for memory that is shared with a sound server, as no disk does.
        QFile client(pulseClient());
        ASSERT_TRUE(client.open(QIODevice::WriteOnly) &&
                    client.write("enable-shm = no\nautospawn = no\n") > 0);
    }
    void startWithoutSharedMemory() {
        startEverything({{QStringLiteral("PULSE_CLIENTCONFIG"), pulseClient()}});
    }
    QString pulseClient() { return session().home() + QStringLiteral("/pulse-client.conf"); }
    /// No file of the running program grows beyond that any more.
    void limit(rlim_t bytes) {
        const rlimit limit{bytes, RLIM_INFINITY};
        ASSERT_EQ(prlimit(pimloft().pid(), RLIMIT_FSIZE, &limit, nullptr), 0);
    }
};

TEST_F(FullDisk, costsNothingThatIsInMemoryAndIsMadeUpForWhenThereIsRoomAgain) {
    startWithoutSharedMemory();
    copyText("before");
    const QByteArray large = QByteArray("words and ").repeated(500) + "words";
    limit(4096);
    copyUnrecorded(large);
    EXPECT_THAT(said(), ElementsAre(StartsWith(failed)));
    EXPECT_THAT(history(), ElementsAre("text: before")) << "the file on the disk is another";
    copyUnrecorded("small");
    expectToPaste("small");
    EXPECT_EQ(dataFiles(),
              (QStringList{QStringLiteral("clipboard_history.json"), QStringLiteral("key_mappings.json")}));
    limit(RLIM_INFINITY);
    copyText("after");
    EXPECT_THAT(history(),
                ElementsAre("text: after", "text: small", "text: " + large.toStdString(), "text: before"));
    EXPECT_EQ(said().size(), 2u);
}

TEST_F(FullDisk, leavesTheSettingsOnItAndThoseInUse) {
    startWithoutSharedMemory();
    limit(16);
    flipSnapping();
    const xcb_window_t window = openWindow(Client::qt, QStringLiteral("Left alone"));
    const QRect frame = desktop().visibleFrame(window);
    hands().chord({KEY_LEFTMETA, KEY_LEFTCTRL, KEY_LEFT});
    letPimloftCatchUp();
    EXPECT_EQ(desktop().visibleFrame(window), frame) << "what was set does not hold";
    EXPECT_FALSE(storedPreferences(session()).isEmpty()) << "the file on the disk is torn";
    EXPECT_NE(storedSnapping(), QJsonValue(false));
    limit(RLIM_INFINITY);
    pimloft().signal(SIGTERM);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    EXPECT_EQ(storedSnapping(), QJsonValue(false));
}

class ReadOnlyHome : public Disk {
protected:
    void SetUp() override {
        Disk::SetUp();
        // Root's programs are bound by modes as well once they have not this right.
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
    }
    ~ReadOnlyHome() override { setMode(0700); }

    void setMode(mode_t mode) {
        for (const char *folder : {"/data/Pimloft", "/config/Pimloft", "/data", "/config"})
            chmod(QFile::encodeName(session().home() + QLatin1String(folder)).constData(), mode);
    }
};

TEST_F(ReadOnlyHome, holdsEverythingForThisRun) {
    setMode(0500);
    startEverything();
    copyUnrecorded("alpha");
    EXPECT_THAT(said(), ElementsAre(StartsWith(failed)));
    expectToPaste("alpha");
    flipSnapping();
    EXPECT_NE(storedSnapping(), QJsonValue(false));
    expectRemapping();
    setMode(0700);
    copyText("beta");
    EXPECT_THAT(history(), ElementsAre("text: beta", "text: alpha"));
}

TEST_F(ReadOnlyHome, mayBecomeSoWhileItRuns) {
    startEverything();
    copyText("alpha");
    setMode(0500);
    copyUnrecorded("beta");
    copyUnrecorded("gamma");
    EXPECT_THAT(said(), ElementsAre(StartsWith(failed), StartsWith(failed)));
    EXPECT_THAT(history(), ElementsAre("text: alpha"));
    setMode(0700);
    copyText("delta");
    EXPECT_THAT(history(), ElementsAre("text: delta", "text: gamma", "text: beta", "text: alpha"));
}

}  // namespace
}  // namespace pimloft::test
