// SPDX-License-Identifier: MIT
#include "finderfix/file_template.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(FileTemplate, theseAreAllOfThemInTheirOrder) {
    QStringList rows;
    for (const FileTemplate kind : allFileTemplates)
        rows << rawValue(kind) + QStringLiteral(" | ") + title(kind) + QStringLiteral(" | ") + icon(kind);
    EXPECT_EQ(rows.join(QLatin1Char('\n')).toStdString(),
              "txt | Text File | doc.text\n"
              "md | Markdown File | doc.richtext\n"
              "html | HTML File | chevron.left.forwardslash.chevron.right\n"
              "py | Python Script | terminal\n"
              "sh | Shell Script | terminal.fill");
}

TEST(FileTemplate, aNewFileHasTheTitleAndTheExtension) {
    EXPECT_EQ(newFile(FileTemplate::text).name, "Text File.txt");
    EXPECT_EQ(newFile(FileTemplate::text).content, "");
    EXPECT_EQ(newFile(FileTemplate::shell).name, "Shell Script.sh");
}

TEST(FileTemplate, scriptsCanBeRunAndNothingElseCan) {
    for (const FileTemplate kind : allFileTemplates) {
        EXPECT_EQ(newFile(kind).isExecutable, kind == FileTemplate::python || kind == FileTemplate::shell);
        EXPECT_EQ(newFile(kind).content.startsWith("#!"), newFile(kind).isExecutable);
    }
}

}  // namespace
}  // namespace pimloft
