// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace pimloft {

class CustomTemplates;
class PimloftModule;
class TemplatesMenuService;

/// Keeps the built-in kinds and the user's templates in the file managers' menus for new files, for as long
/// as the feature is switched on. It needs no permission, and its entries stay when the program ends. Main
/// thread.
class NewFileMenu : public QObject {
    Q_OBJECT

public:
    /// Follows `module` from now on.
    NewFileMenu(const PimloftModule &module, CustomTemplates &templates, TemplatesMenuService &menu);

private:
    void update();

    const PimloftModule &module_;
    CustomTemplates &templates_;
    TemplatesMenuService &menu_;
};

}  // namespace pimloft
