// SPDX-License-Identifier: MIT
#include "finderfix/file_template.h"

#include <QCoreApplication>

namespace pimloft {

namespace {

struct Row {
    const char *rawValue;
    const char *title;
    const char *icon;
    const char *content;
    bool isExecutable = false;
};

constexpr std::array rows = {
    Row{"txt", QT_TRANSLATE_NOOP("FileTemplate", "Text File"), "doc.text", ""},
    Row{"md", QT_TRANSLATE_NOOP("FileTemplate", "Markdown File"), "doc.richtext", ""},
    Row{"html", QT_TRANSLATE_NOOP("FileTemplate", "HTML File"), "chevron.left.forwardslash.chevron.right",
        "<!DOCTYPE html>\n"
        "<html>\n"
        "<head>\n"
        "    <meta charset=\"utf-8\">\n"
        "    <title></title>\n"
        "</head>\n"
        "<body>\n"
        "\n"
        "</body>\n"
        "</html>\n"},
    Row{"py", QT_TRANSLATE_NOOP("FileTemplate", "Python Script"), "terminal", "#!/usr/bin/env python3\n",
        true},
    Row{"sh", QT_TRANSLATE_NOOP("FileTemplate", "Shell Script"), "terminal.fill", "#!/bin/sh\n", true},
};
static_assert(rows.size() == allFileTemplates.size());

const Row &row(FileTemplate kind) {
    return rows[std::size_t(kind)];
}

}  // namespace

QString rawValue(FileTemplate kind) {
    return QString::fromLatin1(row(kind).rawValue);
}

QString title(FileTemplate kind) {
    return QCoreApplication::translate("FileTemplate", row(kind).title);
}

QString icon(FileTemplate kind) {
    return QString::fromLatin1(row(kind).icon);
}

NewFileKind newFile(FileTemplate kind) {
    // A file keeps its name whatever language the user reads.
    return {.name = QByteArray(row(kind).title) + '.' + rawValue(kind).toUtf8(),
            .content = row(kind).content,
            .isExecutable = row(kind).isExecutable};
}

}  // namespace pimloft
