#include "editor/commands.h"

#include "editor/operations/operation.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int buttonSide = 330;
constexpr int buttonPitch = 345;
constexpr int groupGap = 150;
constexpr int firstButton = 60;
const QStringList steppingKeys{u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s};

struct Command {
    QString key, item, caption, toolTip;
};

/// Buttons side by side. Their items are in a menu of their own; without a name for that, in the menu bar.
struct Group {
    QString menu, caption;
    std::vector<Command> commands;
};

std::vector<Command> processing() {
    std::vector<Command> commands;
    for (const Operation* operation : operations())
        commands.push_back({operation->key, operation->item, operation->caption, operation->toolTip});
    return commands;
}

/// Menus and tool bar from left to right.
std::vector<Group> groups() {
    return {
        {u"mnuDk"_s,
         u"打开(&D)"_s,
         {{u"wk"_s, u"mnuCw"_s, u"从文件"_s, u"从文件打开图片"_s},
          {u"sk"_s, u"mnuCs"_s, u"从图册"_s, u"从图册打开图片"_s}}},
        {u"mnuQh"_s,
         u"切换(&Q)"_s,
         {{u"ty"_s, u"mnuTy"_s, u"第一张"_s, u"第一张"_s},
          {u"sy"_s, u"mnuSy"_s, u"上一张"_s, u"上一张"_s},
          {u"xy"_s, u"mnuXy"_s, u"下一张"_s, u"下一张"_s},
          {u"hy"_s, u"mnuHy"_s, u"最后一张"_s, u"最后一张"_s}}},
        {u"mnuCl"_s, u"处理(&L)"_s, processing()},
        {{}, {}, {{u"at"_s, u"mnuAt"_s, u"按钮图片(&A)"_s, u"按钮图片"_s}}},
        {u"mnuB0"_s,
         u"保存(&B)"_s,
         {{u"bc"_s, u"mnuBc"_s, u"保  存"_s, u"保存"_s}, {u"lc"_s, u"mnuLc"_s, u"另存为"_s, u"另存为"_s}}},
        {{}, {}, {{u"cx"_s, u"mnuCx"_s, u"撤消(&C)"_s, u"撤消"_s}}},
        {u"mnuGj"_s,
         u"工具(&G)"_s,
         {{u"ts"_s, u"mnuTg"_s, u"关闭提示"_s, u"打开提示"_s},
          {u"gj"_s, u"mnuGx"_s, u"显示工具条"_s, u"显示工具条"_s}}},
        {{},
         {},
         {{u"bz"_s, u"mnuBz"_s, u"帮助(&Z)"_s, u"帮助"_s},
          {u"fh"_s, u"mnuFh"_s, u"返回(&F)"_s, u"返回"_s},
          {u"tc"_s, u"mnuGb"_s, u"退出(&T)"_s, u"退出"_s}}},
    };
}

QAction* addItem(QWidget* on, const QString& name, const QString& caption) {
    auto* made = new QAction(caption, on);
    made->setObjectName(name);
    on->addAction(made);
    return made;
}

}  // namespace

Commands::Commands(const Document& document, QMenuBar* bar, ToolBar* tlb1, QWidget* form)
    : QObject(form), document_(document), tlb1_(tlb1), form_(form) {
    make(bar);
    for (QAction* parent : {mnuCl_, mnuB0_}) refuseWithoutPicture(parent);
    for (QAction* later : {mnuQh_, mnuCl_, items_[u"at"_s], mnuB0_, items_[u"cx"_s]}) later->setVisible(false);
}

void Commands::make(QMenuBar* bar) {
    int left = firstButton;
    for (const auto& [menu, caption, commands] : groups()) {
        QWidget* on = bar;
        if (!menu.isEmpty()) on = menuUnder(addItem(bar, menu, caption), bar);
        if (left > firstButton) {
            addGap(left);
            left += groupGap;
        }
        for (const Command& command : commands) {
            items_[command.key] = addItem(on, command.item, command.caption);
            tlb1_->add(command.key, command.toolTip, left, 0, buttonSide, buttonSide);
            left += buttonPitch;
        }
    }
}

void Commands::addGap(int left) {
    auto* line = new LineBox(tlb1_);
    line->setColor(theme::worn().line);
    line->setEnds(left + groupGap / 2 - 15, 60, left + groupGap / 2 - 15, 270);
}

QMenu* Commands::menuUnder(QAction* parent, QMenuBar* bar) {
    auto* menu = new QMenu(bar);
    const QString name = parent->objectName();
    menu->setObjectName(name);
    parent->setMenu(menu);
    if (name == u"mnuDk" || name == u"mnuCl") connect(menu, &QMenu::aboutToShow, this, &Commands::menuOpens);
    if (name == u"mnuQh") mnuQh_ = parent;
    if (name == u"mnuCl") {
        mnuCl_ = parent;
        processing_ = menu;
    }
    if (name == u"mnuB0") {
        mnuB0_ = parent;
        saving_ = menu;
    }
    return menu;
}

/// Without a picture the item has no menu to open (see `szan`): it reports instead.
void Commands::refuseWithoutPicture(QAction* parent) {
    connect(parent, &QAction::triggered, this, guarded(form_, [this] {
                if (!document_.isOpen()) say(form_, u"请先打开图片！"_s, BoxIcon::information);
            }));
}

/// In the empty window the parents of menus stay clickable: they say what to do first.
void Commands::szan(bool on) {
    const bool isOpen = document_.isOpen();
    for (const QString& key : steppingKeys) tlb1_->setEnabled(key, document_.state() == EditState::fromAlbum);
    for (const Operation* operation : operations()) enable(operation->key, on);
    tlb1_->setEnabled(u"at"_s, on);
    enableItem(u"at"_s, on || !isOpen);
    mnuCl_->setEnabled(on || !isOpen);
    mnuCl_->setMenu(isOpen ? processing_ : nullptr);
    mnuB0_->setMenu(isOpen ? saving_ : nullptr);
}

void Commands::showOpened() {
    for (QAction* item : {mnuCl_, items_[u"at"_s], mnuB0_, items_[u"cx"_s]}) item->setVisible(true);
    mnuQh_->setVisible(document_.isFromAlbum());
    enable(u"bc"_s, false);
    szan(true);
    for (const QString& key : {u"lc"_s, u"cx"_s}) tlb1_->setEnabled(key, true);
}

void Commands::showNothingOpen() {
    szan(false);
    mnuQh_->setVisible(false);
    enable(u"bc"_s, false);
    for (const QString& key : steppingKeys + QStringList{u"lc"_s, u"cx"_s}) tlb1_->setEnabled(key, false);
}

void Commands::enable(const QString& key, bool on) {
    enableItem(key, on);
    tlb1_->setEnabled(key, on);
}

void Commands::onCommand(const QString& key, const std::function<void()>& handler) {
    connect(items_[key], &QAction::triggered, this, guarded(form_, handler));
    connect(tlb1_->button(key), &QToolButton::clicked, this, guarded(form_, handler));
}

void Commands::showToggle(const QString& key, const QString& caption, const QString& image) {
    items_[key]->setText(caption);
    tlb1_->setImage(key, image);
    tlb1_->setToolTip(key, caption);
}
