// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

namespace pimloft {

class Instance;
class LocalInstance;

/// The running instance as other programs and scripts find it on the session bus: the object
/// /app/pimloft/Pimloft under the name app.pimloft.Pimloft. Main thread.
///
/// Of several logins that share a bus the first has the name.
class InstanceOnBus : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.pimloft.Pimloft")

public:
    /// Asks for the name and does not wait for it. A bus that is not connected is left alone.
    InstanceOnBus(Instance &instance, QDBusConnection bus);
    ~InstanceOnBus() override;

public slots:
    // Named as the bus names its methods.
    void OpenPopover();
    void OpenSettings();
    void Quit();
    QString Doctor();

private:
    Instance &instance_;
    QDBusConnection bus_;
};

/// Takes commands on the bus too, for as long as `instance` lives, if the name is free there; does not wait
/// for it. Main thread.
void publish(LocalInstance &instance, const QDBusConnection &bus);

}  // namespace pimloft
