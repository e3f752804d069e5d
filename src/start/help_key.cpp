#include "start/help_key.h"

#include "platform/desktop/message_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Section {
    QString place;  ///< A window, or a page of frmSz.
    /// Names of controls there, or of what they are in; those of an array without their numbers. Empty: all others.
    QStringList controls;
    QString heading;
};

const std::vector<Section>& sections() {
    static const std::vector<Section> all{
        {u"frmHs"_s, {}, u"3.1.3 恢复删除了的图片"_s},
        {u"frmHy"_s, {}, u"3.2.5 图册备份设置"_s},
        {u"frmQh"_s, {}, u"3.2.5 图册备份设置"_s},
        {u"frmJy"_s, {}, u"3.2.5 图册备份设置"_s},
        {u"page0"_s, {u"Frame2"_s}, u"3.2.1 建立新图册"_s},
        {u"page0"_s, {u"fra3"_s}, u"3.2.2 分图册的备注与删除"_s},
        {u"page0"_s, {u"Frame1"_s}, u"3.2.3 图册主标题与显示选项"_s},
        {u"page0"_s, {u"fraAs"_s, u"fraCk"_s}, u"3.2.4 图片选择按钮设置"_s},
        {u"page0"_s, {u"Frame3"_s}, u"3.2.5 图册备份设置"_s},
        {u"page0"_s, {}, u"3.2 《图册设置》页面的设置"_s},
        {u"page1"_s, {u"fieldLines"_s, u"lstSb"_s, u"lstDy"_s, u"msgBm"_s}, u"3.3.2 从数据库录入"_s},
        {u"page1"_s, {u"picMl"_s}, u"3.3.1 从文件录入"_s},
        {u"page1"_s, {}, u"3.3 《图片录入》页面的设置"_s},
        {u"page2"_s, {u"Frame8"_s, u"lstBh"_s, u"optBs"_s}, u"3.4.2 只看一部分记录"_s},
        {u"page2"_s, {u"fraCk"_s, u"cmdCk"_s}, u"3.4.3 查看和更换图片"_s},
        {u"page2"_s, {u"Frame9"_s}, u"3.4.1 修改一条图片记录"_s},
        {u"page2"_s, {u"optP1"_s, u"cmdJh"_s, u"cmdS1"_s}, u"3.4.4 重排序号"_s},
        {u"page2"_s, {}, u"3.4 《图册编辑》页面的设置"_s},
        {u"page3"_s, {u"fieldLines"_s, u"lstSb"_s, u"lstDy"_s, u"cmdFz"_s, u"cmdYd"_s}, u"3.5.2 转存到图册或数据库"_s},
        {u"page3"_s, {u"picMl"_s, u"cmdWj"_s, u"fraWm"_s}, u"3.5.3 转存为图片文件"_s},
        {u"page3"_s, {u"msgBm"_s, u"cmdBh"_s, u"cmdQb"_s, u"cmdXb"_s, u"cmdQq"_s}, u"3.5.1 先选要转存的图片"_s},
        {u"page3"_s, {}, u"3.5 《图片转存》页面的设置"_s},
        {u"frmSz"_s, {u"sstFz"_s}, u"3.1.1 四个页面与提示行"_s},
        {u"frmSz"_s, {}, u"3.1 软件设置窗口概述"_s},
        {u"frmTp"_s, {u"imgAn"_s, u"imgSy"_s, u"imgXy"_s}, u"4.1.2 左边的图画按钮"_s},
        {u"frmTp"_s, {u"txtYh"_s, u"txtLs"_s, u"lstLs"_s}, u"4.1.3 翻页与每页张数"_s},
        {u"frmTp"_s, {u"txtXh"_s, u"txtXx"_s, u"lstXh"_s, u"picRq"_s}, u"4.1.4 按序号和日期选择"_s},
        {u"frmTp"_s, {u"chkBq"_s}, u"4.1.5 图片上的标签"_s},
        {u"frmTp"_s, {u"imgXs"_s, u"img0"_s, u"txtB0"_s}, u"4.1.6 看大图与原始大小"_s},
        {u"frmTp"_s, {u"picYc"_s}, u"4.1.7 幻灯播放"_s},
        {u"frmTp"_s, {}, u"4.1 主窗口的使用"_s},
        {u"frmQp"_s, {}, u"4.1.6 看大图与原始大小"_s},
        {u"frmPs"_s, {u"cboFa"_s, u"imgXs"_s}, u"4.2.1 选择方案"_s},
        {u"frmPs"_s, {u"txtYs"_s}, u"4.2.2 调配自己的颜色"_s},
        {u"frmPs"_s, {}, u"4.2 窗口颜色配置"_s},
        {u"frmCl"_s, {u"picCs"_s}, u"4.3.1 打开要处理的图片"_s},
        {u"frmCl"_s, {u"picAn"_s, u"datAn"_s}, u"4.3.4 制作按钮图片"_s},
        {u"frmCl"_s, {}, u"4.3 图片处理窗口的使用"_s},
        {u"frmBz"_s, {}, u"4.4.2 目录的用法"_s},
        {u"frmGy"_s, {}, u"4.4.3 关于本软件"_s},
    };
    return all;
}

/// Innermost first, without the numbers of arrays.
QStringList namesUpwards(const QWidget* control) {
    QStringList names;
    for (; control != nullptr; control = control->parentWidget()) names << control->objectName().section(u'(', 0, 0);
    return names;
}

bool isChosen(const QWidget* window, const QString& option) {
    const auto* button = window->findChild<QAbstractButton*>(option);
    return button != nullptr && button->isChecked();
}

/// Files are browsed for pictures, and for databases.
QString sectionAboutBrowsing(const QWidget* window, const QStringList& names) {
    if (names.contains(u"page1"_s) && isChosen(window, u"optYl(1)"_s)) return u"3.3.2 从数据库录入"_s;
    if (names.contains(u"page3"_s) && isChosen(window, u"optMb(1)"_s)) return u"3.5.2 转存到图册或数据库"_s;
    return {};
}

/// What the dialog of the editor asks for tells which operation it belongs to.
QString sectionAboutOperation(const QWidget* control) {
    const auto* question = control->window()->findChild<QLabel*>(u"lblCq"_s);
    if (question == nullptr) return {};
    for (const auto& [word, heading] :
         {std::pair(u"缩放"_s, u"4.3.2 缩放"_s), {u"裁剪"_s, u"4.3.3 裁剪"_s}, {u"旋转"_s, u"4.3.5 旋转与翻转"_s}})
        if (question->text().contains(word)) return heading;
    return {};
}

bool isBoxOpen() {
    const QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && modal->windowModality() == Qt::ApplicationModal;
}

}  // namespace

QString sectionAbout(const QWidget* control) {
    const QStringList names = namesUpwards(control);
    if (names.contains(u"picCq"))
        if (const QString heading = sectionAboutOperation(control); !heading.isEmpty()) return heading;
    if (names.contains(u"picMl"))
        if (const QString heading = sectionAboutBrowsing(control->window(), names); !heading.isEmpty()) return heading;
    for (const auto& [place, controls, heading] : sections()) {
        const bool isAbout = controls.isEmpty() || std::ranges::any_of(controls, [&names](const QString& name) {
                                 return names.contains(name);
                             });
        if (names.contains(place) && isAbout) return heading;
    }
    return {};
}

HelpKey::HelpKey(Windows& windows) : windows_(windows) {
    qApp->installEventFilter(this);
}

/// While a box waits for an answer, nobody could read in another window.
bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    const auto* control = qobject_cast<QWidget*>(watched);
    if (event->type() != QEvent::KeyPress || control == nullptr) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier || isBoxOpen()) return false;
    const QString section = sectionAbout(control);
    if (section.isEmpty()) return false;
    runHandler(nullptr, [&] { windows_.showHelp(section); });
    return true;
}
