// SPDX-License-Identifier: MIT
#include "support/scenario.h"

#include <QFile>

namespace pimloft::test {

std::vector<Scenario> readScenarios(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    std::vector<Scenario> scenarios;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.trimmed().isEmpty() || line.startsWith(u'#'))
            continue;
        if (line.startsWith(QStringLiteral("== ")))
            scenarios.push_back({line.mid(3), {}});
        else if (!scenarios.empty())
            scenarios.back().lines << line;
    }
    return scenarios;
}

void PrintTo(const Scenario &scenario, std::ostream *out) {
    *out << scenario.title.toStdString();
}

std::string scenarioName(const testing::TestParamInfo<Scenario> &info) {
    QString name;
    bool startsWord = true;
    for (const QChar character : info.param.title) {
        if (character.isLetterOrNumber())
            name += startsWord ? character.toUpper() : character;
        startsWord = !character.isLetterOrNumber();
    }
    return name.toStdString();
}

}  // namespace pimloft::test
