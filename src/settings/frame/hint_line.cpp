#include "settings/frame/hint_line.h"

#include "platform/desktop/accessibility.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/theme.h"

#include <QLabel>

using namespace Qt::Literals::StringLiterals;

namespace {
const QColor hintColour(0, 0, 192);
const QColor captionColour(255, 0, 0);
}  // namespace

QString hintTail(int number, int count) {
    switch (number) {
        case 1:
            return u"先选择目标图册，然后“图片来源”，再“添加方式”"_s;
        case 2:
            return u"先选择源图册数据表，选完后再在左侧表格中点击要转存的记录，接着再确定“数据转存目标”"_s;
        case 3:
            return u"在左侧目录框中选择“目标数据库”，选完后再确定“目标数据表”"_s;
        case 4:
            return u"在左侧目录框中选择“目标文件夹”，选完后再按“确定”。也可按“新建文件夹”新建。"_s;
        case 5:
            return u"确定对应字段，即点击与目标表对应的源表字段文本框，在出现的列表框中选择或按“全部对应”。"_s;
        case 6:
            return u"请在右边表格中选择数据源要复制的记录，或者直接按“全部记录”按钮。"_s;
        case 7:
            return u"接受图片的数据表已经确定，请按“关闭本框”按钮关闭本框，再进行复制或移动图片。"_s;
        case 8:
            return u"共选中：%1条，按《录入图册》录入，按《取消》返回前步。"_s.arg(count);
        case 9:
            return u"请在文件列表框中选择要录入的图片文件或者直接按“选择全部”按钮。"_s;
        case 10:
            return u"请填入新建文件夹名称后按“新建确定”按钮完成新建或按“新建撤消”按钮撤消。"_s;
        case 11:
            return u"在左侧目录框中选择“来源数据库”，选完后再确定“来源数据表”"_s;
        case 20:
            return u"选择图册可重新开始。"_s;
        default:
            return {};
    }
}

HintLine::HintLine(TabControl* sstFz) : sstFz_(sstFz), lblTs(make<QLabel>(sstFz, u"lblTs"_s)) {
    letGrow(lblTs, widens);
}

void HintLine::putOn(int page) {
    sstFz_->putOn(page, lblTs, 225, 495, 9150, 210);
}

// Shows the numbered hint.
void HintLine::czts(int number, int count) {
    show(u"操作提示："_s + hintTail(number, count));
}

void HintLine::show(const QString& text) {
    kept_ = text;
    if (lblTs->text() == text) return;
    lblTs->setText(text);
    announce(lblTs);
}

void HintLine::showForCaption(const QString& text) {
    paint(text, captionColour);
}

void HintLine::showKept() {
    paint(kept_, hintColour);
}

void HintLine::paint(const QString& text, const QColor& colour) {
    if (lblTs->text() != text) {
        lblTs->setText(text);
        announce(lblTs);
    }
    const QColor ink = theme::adapted(colour);
    if (lblTs->palette().color(QPalette::WindowText) == ink) return;
    QPalette palette = lblTs->palette();
    palette.setColor(QPalette::WindowText, ink);
    lblTs->setPalette(palette);
}
