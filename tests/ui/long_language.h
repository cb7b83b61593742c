// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

namespace pimloft::test {

/// A language in which everything takes 60 % more room.
class LongLanguage final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *comment, int n) const override;
};

}  // namespace pimloft::test
