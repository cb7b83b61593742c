// SPDX-License-Identifier: MIT
#pragma once

#include "app/page.h"
#include "app/view_host.h"

#include <QObject>
#include <QVariantList>

#include <memory>
#include <vector>

namespace pimloft {

class PimloftModule;

/// One page of the settings window. A value.
struct SettingsTab {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QUrl source READ source)
    Q_PROPERTY(QVariantMap properties READ properties)

public:
    QString title;
    QString symbol;
    Page page;

    QUrl source() const { return page.source; }
    QVariantMap properties() const { return page.properties; }
};

/// The settings window: the general page and those of the modules that have one. Which page is shown outlives
/// the window's view. Main thread.
class SettingsWindow : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList tabs READ tabs CONSTANT)
    Q_PROPERTY(int selectedTab READ selectedTab WRITE select NOTIFY selectedTabChanged)

public:
    /// The modules in the order of their pages. A module whose page this build lacks has no tab.
    SettingsWindow(ViewHost &views, const Page &general, const QList<PimloftModule *> &modules);
    ~SettingsWindow() override;

    /// Opens it, or brings it to the front.
    void open();
    void close();

    /// Shows another page; an index that there is none for changes nothing.
    Q_INVOKABLE void select(int index);
    /// The one after or before it, round the end.
    Q_INVOKABLE void selectNext();
    Q_INVOKABLE void selectPrevious();

    QVariantList tabs() const;
    int selectedTab() const { return int(selectedTab_); }

signals:
    void selectedTabChanged();

private:
    ViewHost &views_;
    std::vector<SettingsTab> tabs_;  ///< never empty: the general page is always there
    std::size_t selectedTab_ = 0;
    std::unique_ptr<ViewWindow> window_;
};

}  // namespace pimloft
