// SPDX-License-Identifier: MIT
#include "finderfix/new_file_menu.h"

#include "app/pimloft_module.h"
#include "finderfix/custom_templates.h"
#include "finderfix/file_template.h"

namespace pimloft {

NewFileMenu::NewFileMenu(const PimloftModule &module, CustomTemplates &templates, TemplatesMenuService &menu)
    : module_(module), templates_(templates), menu_(menu) {
    connect(&module, &PimloftModule::isEnabledChanged, this, &NewFileMenu::update);
    connect(&templates, &CustomTemplates::changed, this, [this] {
        if (module_.isEnabled())
            update();
    });
    update();
}

void NewFileMenu::update() {
    if (!module_.isEnabled())
        return menu_.withdraw();
    std::vector<NewFileKind> kinds;
    for (const FileTemplate kind : allFileTemplates)
        kinds.push_back(newFile(kind));
    menu_.offer(std::move(kinds), templates_.read());
}

}  // namespace pimloft
