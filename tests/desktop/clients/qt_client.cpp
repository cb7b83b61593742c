// SPDX-License-Identifier: MIT
// A plain window with the window manager's title bar. Its title is the first argument; the second, "large",
// gives it a smallest size that no quarter of a test's screen offers.
#include <QApplication>
#include <QTextEdit>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextEdit window;
    window.setWindowTitle(arguments.value(1, QStringLiteral("Qt")));
    window.resize(640, 400);
    if (arguments.value(2) == QLatin1String("large"))
        window.setMinimumSize(900, 700);
    window.show();
    return QApplication::exec();
}
