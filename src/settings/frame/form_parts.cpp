#include "settings/frame/form_parts.h"

#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

QGroupBox* makeGroup(TabControl* sstFz, int page, const QString& name, const QString& caption, const QRect& twips,
                     const Growth& growth) {
    auto* group = make<QGroupBox>(sstFz->page(page), name, caption);
    sstFz->putOn(page, group, twips.x(), twips.y(), twips.width(), twips.height());
    letGrow(group, growth);
    return group;
}

QLabel* makeCaption(QWidget* group, const QString& text, int left, int top, int width) {
    auto* label = new QLabel(text, group);
    place(label, left, top, width, rowHeight);
    return label;
}

QPushButton* makeButton(QWidget* group, const QString& name, const QString& caption, int left, int top, int width) {
    auto* button = make<QPushButton>(group, name, caption);
    place(button, left, top, width, rowHeight);
    letGrow(button, movesRight);
    return button;
}

QString lengthFault(const QString& caption, const TextBox& box) {
    if (!box.isTooLong()) return {};
    return u"%1太长：有 %2 个字，最多 %3 个。"_s.arg(caption).arg(box.text().size()).arg(box.typingLimit());
}

void limitTyping(TextBox* box, const Recordset& records, const QString& column) {
    attempt([&] { box->setTypingLimit(records.Fields(column).Size()); });
}

bool mayBeLeft(QWidget* form, const QString& text, const std::function<bool()>& store) {
    switch (askAboutUnsaved(form, text)) {
        case Unsaved::save:
            return store();
        case Unsaved::discard:
            return true;
        case Unsaved::keepEditing:
            break;
    }
    return false;
}

void makeDisplayOnly(TextBox* box) {
    box->setLocked(true);
    QPalette palette = box->palette();
    palette.setColor(QPalette::Text, QColor(128, 128, 128));
    box->setPalette(palette);
}
