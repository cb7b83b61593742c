// SPDX-License-Identifier: MIT
#include "desktop/support/program.h"

#include <QFile>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace pimloft::test {

namespace {

std::unique_ptr<QProcess> makeProcess(const DesktopSession &session, const Variables &variables) {
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = session.environment();
    for (auto variable = variables.begin(); variable != variables.end(); ++variable)
        environment.insert(variable.key(), variable.value());
    process->setProcessEnvironment(environment);
    process->setProgram(QStringLiteral(PIMLOFT_PROGRAM));
    process->setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            _exit(1);
    });
    return process;
}

int exitCodeOf(const QProcess &process) {
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

}  // namespace

Program::Program(const DesktopSession &session, const QStringList &arguments, const Variables &variables)
    : session_(session), process_(makeProcess(session, variables)) {
    process_->setArguments(arguments);
    process_->setStandardOutputFile(folder_.filePath(QStringLiteral("output")));
    process_->setStandardErrorFile(folder_.filePath(QStringLiteral("complaints")));
    process_->start();
    if (!process_->waitForStarted())
        qFatal("%s cannot be started", PIMLOFT_PROGRAM);
}

Program::~Program() {
    if (!isRunning())
        return;
    process_->terminate();
    if (!process_->waitForFinished(3000)) {
        process_->kill();
        process_->waitForFinished(3000);
    }
}

bool Program::isReachable() const {
    QFile sockets(QStringLiteral("/proc/net/unix"));
    return isRunning() && sockets.open(QIODevice::ReadOnly) &&
           sockets.readAll().contains((session_.home() + QStringLiteral("/runtime/")).toUtf8());
}

bool Program::answers() const {
    return isRunning() && launch(session_, {QStringLiteral("--doctor")}).exitCode == 0;
}

void Program::signal(int number) {
    ::kill(pid(), number);
}

int Program::waitForEnd() {
    process_->waitForFinished(5000);
    return isRunning() ? -1 : exitCodeOf(*process_);
}

QString Program::read(const QString &name) const {
    QFile file(folder_.path() + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

Launch launch(const DesktopSession &session, const QStringList &arguments, const Variables &variables) {
    const auto process = makeProcess(session, variables);
    process->setArguments(arguments);
    process->start();
    if (!process->waitForFinished(15000)) {
        process->kill();
        process->waitForFinished();
    }
    return {exitCodeOf(*process), QString::fromUtf8(process->readAllStandardOutput()),
            QString::fromUtf8(process->readAllStandardError())};
}

}  // namespace pimloft::test
