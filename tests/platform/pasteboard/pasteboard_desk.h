// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/x11_pasteboard.h"
#include "requestor.h"
#include "support/desktop_session.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace pimloft {

inline std::string text(const PasteData &data) {
    switch (data.status) {
    case PasteData::present:
        return data.bytes.toStdString();
    case PasteData::absent:
        return "(absent)";
    case PasteData::tooLarge:
        return "(too large)";
    case PasteData::superseded:
        return "(superseded)";
    case PasteData::failed:
        break;
    }
    return "(failed)";
}

/// Ends a program that somebody no longer wants to run.
struct EndProgram {
    void operator()(QProcess *process) const {
        process->kill();
        process->waitForFinished();
        delete process;
    }
};
using Program = std::unique_ptr<QProcess, EndProgram>;

/// A clipboard and other programs that use it.
class PasteboardDesk : public testing::Test {
protected:
    static constexpr qsizetype large = 100 << 20;

    /// What a read comes to. Waits with the event loop.
    PasteData read(qint64 change, std::vector<PasteType> wanted, qsizetype cap = large) {
        std::optional<PasteData> result;
        pasteboard_.read(change, std::move(wanted), cap, &context_, [&result](PasteData data) {
            EXPECT_FALSE(result) << "answered twice";
            result = std::move(data);
        });
        EXPECT_FALSE(result) << "answered before the call returned";
        EXPECT_TRUE(test::waitUntil([&] { return result.has_value(); }, 20000));
        return result.value_or(PasteData{PasteData::failed, PasteType::plainText, {}});
    }
    PasteData read(std::vector<PasteType> wanted) {
        return read(pasteboard_.changeCount(), std::move(wanted));
    }
    std::string readText() { return text(read({PasteType::plainText})); }

    std::optional<PasteOrigin> origin(qint64 change) {
        std::optional<std::optional<PasteOrigin>> result;
        pasteboard_.origin(change, &context_, [&result](auto answer) { result = answer; });
        EXPECT_TRUE(test::waitUntil([&] { return result.has_value(); }, 20000));
        return result.value_or(std::nullopt);
    }

    bool countBecomes(qint64 count) {
        return test::waitUntil([&] { return pasteboard_.changeCount() == count; });
    }

    /// Returns when a copy that Qt has not made has been noticed, also by Qt: it copies and pastes at the
    /// time of the last event that it has seen, and the server refuses what is older than the last copy.
    void awaitCopy(const std::function<void()> &copy) {
        bool isSeen = false;
        const qint64 before = pasteboard_.changeCount();
        const auto seen = QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &context_,
                                           [&isSeen] { isSeen = true; });
        copy();
        EXPECT_TRUE(test::waitUntil([&] { return isSeen && pasteboard_.changeCount() > before; }))
            << "nothing is copied";
        QObject::disconnect(seen);
    }
    /// Counts as one copy.
    void letQtSeeACopy() {
        awaitCopy([this] { firstOwner_.own(); });
    }

    /// Another program copies. It ends with the answer, or when somebody else copies.
    Program copy(const QString &program, const QStringList &arguments, const QByteArray &input = {}) {
        Program process;
        awaitCopy([&] {
            process.reset(test::currentSession().start(program, arguments).release());
            if (!input.isEmpty()) {
                process->write(input);
                while (process->bytesToWrite() > 0)
                    process->waitForBytesWritten();
            }
            process->closeWriteChannel();
        });
        return process;
    }
    Program xclip(const QByteArray &content, const char *target = "UTF8_STRING") {
        const QString command = QStringLiteral("exec xclip -quiet -selection clipboard -t '%1' 2>/dev/null");
        return copy(QStringLiteral("sh"), {QStringLiteral("-c"), command.arg(QLatin1String(target))},
                    content);
    }
    /// See odd_owner.cpp.
    Program oddOwner(const char *behaviour) {
        return copy(QStringLiteral(TEST_PROGRAMS "/odd_owner"), {QString::fromLatin1(behaviour)});
    }

    X11Pasteboard pasteboard_{
        [](ProcessId process) { return QStringLiteral("process %1").arg(qint32(process)); }};
    QObject context_;

private:
    test::Requestor firstOwner_;  // lives on, as its end would be told like a copy
};

inline std::vector<PasteItem> plain(const QByteArray &text) {
    return {{PasteType::plainText, text}};
}

/// The most memory that this process ever had since `forgetPeak`, in bytes.
inline qint64 peakMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    const QByteArray all = status.readAll();
    const qsizetype at = all.indexOf("VmHWM:");
    return all.mid(at + 6, all.indexOf("kB", at) - at - 6).trimmed().toLongLong() * 1024;
}
inline void forgetPeak() {
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    EXPECT_TRUE(references.open(QIODevice::WriteOnly) && references.write("5") == 1);
}

}  // namespace pimloft
