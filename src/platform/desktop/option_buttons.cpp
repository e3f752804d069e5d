#include "platform/desktop/option_buttons.h"

#include <QButtonGroup>

void groupOptions(std::span<QRadioButton* const> options) {
    auto* group = new QButtonGroup(options.front());
    for (QRadioButton* option : options) group->addButton(option);
}

void clearOption(QRadioButton* option) {
    QButtonGroup* group = option->group();
    group->setExclusive(false);
    option->setChecked(false);
    group->setExclusive(true);
}

void clearOptions(std::span<QRadioButton* const> options) {
    for (QRadioButton* option : options) clearOption(option);
}
