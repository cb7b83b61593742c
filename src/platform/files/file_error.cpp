// SPDX-License-Identifier: MIT
#include "platform/files/file_error.h"

#include "base/atomic_file.h"

#include <QCoreApplication>

#include <cerrno>

namespace pimloft {

namespace {

constexpr struct {
    int number;
    FileProblem problem;
} problems[] = {
    {EEXIST, FileProblem::exists},       {EXDEV, FileProblem::otherVolume},
    {EACCES, FileProblem::noPermission}, {EPERM, FileProblem::noPermission},
    {ENOSPC, FileProblem::noSpace},      {EDQUOT, FileProblem::noSpace},
    {ECANCELED, FileProblem::cancelled},
};

}  // namespace

FileError fileError(int number) {
    for (const auto &each : problems)
        if (each.number == number)
            return {each.problem, errorText(number)};
    return {FileProblem::other, errorText(number)};
}

FileOutcome fileOutcome(int number) {
    return number ? std::optional(fileError(number)) : std::nullopt;
}

FileError intoItself() {
    return {FileProblem::other,
            QCoreApplication::translate("Files", "A folder cannot be moved into itself.")};
}

}  // namespace pimloft
