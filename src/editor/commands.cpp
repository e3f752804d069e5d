#include "editor/commands.h"

#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/tool_icon.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int buttonSide = 330;
constexpr int buttonPitch = 345;
constexpr int groupGap = 150;
constexpr int firstButton = 60;
const QColor separatorColour(0xd8, 0xd0, 0xc2);

struct Button {
    QString key, toolTip;
};

const std::vector<std::vector<Button>>& buttonGroups() {
    static const std::vector<std::vector<Button>> groups{
        {{u"wk"_s, u"从文件打开图片"_s}, {u"sk"_s, u"从图册打开图片"_s}},
        {{u"ty"_s, u"第一张"_s}, {u"sy"_s, u"上一张"_s}, {u"xy"_s, u"下一张"_s}, {u"hy"_s, u"最后一张"_s}},
        {{u"sf"_s, u"缩放"_s},
         {u"cj"_s, u"裁剪"_s},
         {u"xz"_s, u"旋转"_s},
         {u"fs"_s, u"水平翻转"_s},
         {u"fc"_s, u"垂直翻转"_s}},
        {{u"at"_s, u"按钮图片"_s}},
        {{u"bc"_s, u"保存"_s}, {u"lc"_s, u"另存为"_s}},
        {{u"cx"_s, u"撤消"_s}},
        {{u"ts"_s, u"打开提示"_s}, {u"gj"_s, u"显示工具条"_s}},
        {{u"bz"_s, u"帮助"_s}, {u"fh"_s, u"返回"_s}, {u"tc"_s, u"退出"_s}},
    };
    return groups;
}

QAction* item(QWidget* on, const QString& name, const QString& caption) {
    auto* made = new QAction(caption, on);
    made->setObjectName(name);
    on->addAction(made);
    return made;
}

QMenu* menuUnder(QAction* parent, QMenuBar* bar) {
    auto* menu = new QMenu(bar);
    menu->setObjectName(parent->objectName());
    parent->setMenu(menu);
    return menu;
}

}  // namespace

Commands::Commands(EditorState& state, QMenuBar* bar, QWidget* form) : QObject(form), state_(state), form_(form) {
    makeMenus(bar);
    makeToolBar();
}

void Commands::makeMenus(QMenuBar* bar) {
    mnuDk = item(bar, u"mnuDk"_s, u"打开(&D)"_s);
    QMenu* opening = menuUnder(mnuDk, bar);
    mnuCw = item(opening, u"mnuCw"_s, u"从文件"_s);
    mnuCs = item(opening, u"mnuCs"_s, u"从图册"_s);
    connect(opening, &QMenu::aboutToShow, this, &Commands::menuOpens);

    mnuQh = item(bar, u"mnuQh"_s, u"切换(&Q)"_s);
    QMenu* stepping = menuUnder(mnuQh, bar);
    mnuTy = item(stepping, u"mnuTy"_s, u"第一张"_s);
    mnuSy = item(stepping, u"mnuSy"_s, u"上一张"_s);
    mnuXy = item(stepping, u"mnuXy"_s, u"下一张"_s);
    mnuHy = item(stepping, u"mnuHy"_s, u"最后一张"_s);

    mnuCl = item(bar, u"mnuCl"_s, u"处理(&L)"_s);
    processing_ = menuUnder(mnuCl, bar);
    mnuSf = item(processing_, u"mnuSf"_s, u"缩 放"_s);
    mnuCj = item(processing_, u"mnuCj"_s, u"裁 剪"_s);
    mnuXz = item(processing_, u"mnuXz"_s, u"旋 转"_s);
    mnuFs = item(processing_, u"mnuFs"_s, u"水平翻转"_s);
    mnuFc = item(processing_, u"mnuFc"_s, u"垂直翻转"_s);
    connect(processing_, &QMenu::aboutToShow, this, &Commands::menuOpens);
    refuseWithoutPicture(mnuCl);

    mnuAt = item(bar, u"mnuAt"_s, u"按钮图片(&A)"_s);
    mnuB0 = item(bar, u"mnuB0"_s, u"保存(&B)"_s);
    saving_ = menuUnder(mnuB0, bar);
    mnuBc = item(saving_, u"mnuBc"_s, u"保  存"_s);
    mnuLc = item(saving_, u"mnuLc"_s, u"另存为"_s);
    refuseWithoutPicture(mnuB0);
    mnuCx = item(bar, u"mnuCx"_s, u"撤消(&C)"_s);
    for (QAction* later : {mnuQh, mnuCl, mnuAt, mnuB0, mnuCx}) later->setVisible(false);

    mnuGj = item(bar, u"mnuGj"_s, u"工具(&G)"_s);
    QMenu* tools = menuUnder(mnuGj, bar);
    mnuTg = item(tools, u"mnuTg"_s, u"关闭提示"_s);
    mnuGx = item(tools, u"mnuGx"_s, u"显示工具条"_s);
    mnuBz = item(bar, u"mnuBz"_s, u"帮助(&Z)"_s);
    mnuFh = item(bar, u"mnuFh"_s, u"返回(&F)"_s);
    mnuGb = item(bar, u"mnuGb"_s, u"退出(&T)"_s);
}

/// Without a picture the item has no menu to open (see `szan`): it reports instead.
void Commands::refuseWithoutPicture(QAction* parent) {
    connect(parent, &QAction::triggered, this, guarded(form_, [this] {
                if (!state_.isOpen) say(form_, u"请先打开图片！"_s, BoxIcon::information);
            }));
}

void Commands::makeToolBar() {
    tlb1 = make<ToolBar>(form_, u"tlb1"_s, [](const QString& key) { return toolIcon(key); });
    int left = firstButton;
    for (const auto& group : buttonGroups()) {
        if (left > firstButton) {
            auto* line = new LineBox(tlb1);
            line->setColor(separatorColour);
            line->setEnds(left + groupGap / 2 - 15, 60, left + groupGap / 2 - 15, 270);
            left += groupGap;
        }
        for (const auto& [key, toolTip] : group) {
            tlb1->add(key, toolTip, left, 0, buttonSide, buttonSide);
            left += buttonPitch;
        }
    }
}

/// The processing commands. In the empty window the parents of menus stay clickable: they say what to do first.
void Commands::szan(bool on) {
    for (const QString& key : {u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s})
        tlb1->setEnabled(key, state_.editState.startsWith(u'k'));
    setEnabled(mnuSf, u"sf"_s, on);
    setEnabled(mnuCj, u"cj"_s, on);
    setEnabled(mnuXz, u"xz"_s, on);
    setEnabled(mnuFs, u"fs"_s, on);
    setEnabled(mnuFc, u"fc"_s, on);
    tlb1->setEnabled(u"at"_s, on);
    mnuAt->setEnabled(on || !state_.isOpen);
    mnuCl->setEnabled(on || !state_.isOpen);
    mnuCl->setMenu(state_.isOpen ? processing_ : nullptr);
    mnuB0->setMenu(state_.isOpen ? saving_ : nullptr);
}

void Commands::showPictureMenus() {
    for (QAction* action : {mnuCx, mnuLc, mnuCl, mnuAt, mnuB0}) action->setVisible(true);
}

void Commands::setEnabled(QAction* item, const QString& key, bool on) {
    item->setEnabled(on);
    tlb1->setEnabled(key, on);
}

void Commands::onCommand(QAction* item, const QString& key, const std::function<void()>& handler) {
    connect(item, &QAction::triggered, this, guarded(form_, handler));
    connect(tlb1->button(key), &QToolButton::clicked, this, guarded(form_, handler));
}

void Commands::showToggle(QAction* item, const QString& key, const QString& caption, const QString& image) {
    item->setText(caption);
    tlb1->setImage(key, image);
    tlb1->setToolTip(key, caption);
}
