// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_engine.h"
#include "clipboard/clipboard_popup_controller.h"
#include "clipboard/clipboard_store.h"

#include "page_session.h"

#include <QBuffer>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QTemporaryDir>

namespace pimloft::test {

/// A history with its popup, on the desktop and with the views of a page session. `panels` shows the popup.
class HistorySession {
public:
    HistorySession(PageSession &session, PanelService &panels)
        : store(session.desktop.preferences, folder_.path()),
          engine(session.desktop.pasteboard, session.desktop.workspace, session.desktop.keys, store,
                 session.desktop.preferences, session.clock),
          controller(store, engine,
                     {session.desktop.displays, session.desktop.mouse, panels, session.desktop.workspace,
                      session.clock},
                     [&session] { return &session.views(); }) {}

    /// Puts an entry on top that was copied so many seconds ago.
    void add(const ClipboardContent &content, const char *source = "Notes", int secondsAgo = 330,
             bool isPinned = false) {
        store.add({.id = QUuid::createUuid(),
                   .content = content,
                   .sourceApp = QString::fromUtf8(source),
                   .sourceAppBundleID = {},
                   .timestamp = ReferenceTime::from(QDateTime::currentDateTimeUtc().addSecs(-secondsAgo)),
                   .isPinned = isPinned});
    }
    void addText(const char *text, const char *source = "Notes", int secondsAgo = 330,
                 bool isPinned = false) {
        add(TextContent{QString::fromUtf8(text)}, source, secondsAgo, isPinned);
    }

    /// A picture as a PNG: a landscape in evening colours.
    static QByteArray landscape(QSize size) {
        QImage picture(size, QImage::Format_RGB32);
        QPainter painter(&picture);
        QLinearGradient sky(0, 0, 0, size.height());
        sky.setColorAt(0, 0x27325f);
        sky.setColorAt(0.6, 0xf08a5d);
        sky.setColorAt(1, 0xffd08a);
        painter.fillRect(picture.rect(), sky);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0x1f, 0x2a, 0x44));
        painter.drawEllipse(QPointF(size.width() * 0.25, size.height() * 1.25), size.width() * 0.5,
                            size.height() * 0.6);
        painter.setBrush(QColor(0x16, 0x1d, 0x33));
        painter.drawEllipse(QPointF(size.width() * 0.8, size.height() * 1.3), size.width() * 0.5,
                            size.height() * 0.55);
        painter.end();
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        return buffer.data();
    }

private:
    QTemporaryDir folder_;

public:
    ClipboardStore store;
    ClipboardEngine engine;
    ClipboardPopupController controller;
};

}  // namespace pimloft::test
