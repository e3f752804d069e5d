#include "platform/desktop/toolkit_texts.h"

#include <QHash>

using namespace Qt::Literals::StringLiterals;

namespace {

/// By the text as the toolkit has it. A text means the same in all its contexts.
const QHash<QByteArray, QString>& texts() {
    static const QHash<QByteArray, QString> all{
        // Buttons of dialogs
        {"OK", u"确定"_s},
        {"&OK", u"确定(&O)"_s},
        {"Cancel", u"取消"_s},
        {"&Cancel", u"取消(&C)"_s},
        {"Save", u"保存"_s},
        {"&Save", u"保存(&S)"_s},
        {"Open", u"打开"_s},
        {"&Open", u"打开(&O)"_s},
        {"&Choose", u"选择(&C)"_s},
        {"Close", u"关闭"_s},
        {"&Yes", u"是(&Y)"_s},
        {"&No", u"否(&N)"_s},
        {"Discard", u"不保存"_s},
        {"Apply", u"应用"_s},
        {"Reset", u"重置"_s},
        {"Help", u"帮助"_s},
        {"Retry", u"重试"_s},
        {"Ignore", u"忽略"_s},
        {"Abort", u"中止"_s},
        // Choosing files
        {"Look in:", u"查找范围："_s},
        {"File &name:", u"文件名(&N)："_s},
        {"Files of type:", u"文件类型："_s},
        {"Directory:", u"文件夹："_s},
        {"Back", u"后退"_s},
        {"Go back", u"后退"_s},
        {"Forward", u"前进"_s},
        {"Go forward", u"前进"_s},
        {"Parent Directory", u"上级文件夹"_s},
        {"Go to the parent directory", u"到上级文件夹"_s},
        {"Create New Folder", u"新建文件夹"_s},
        {"Create a New Folder", u"新建文件夹"_s},
        {"New Folder", u"新文件夹"_s},
        {"&New Folder", u"新建文件夹(&N)"_s},
        {"List View", u"列表"_s},
        {"Change to list view mode", u"按列表显示"_s},
        {"Detail View", u"详细资料"_s},
        {"Change to detail view mode", u"显示详细资料"_s},
        {"&Rename", u"改名(&R)"_s},
        {"&Delete", u"删除(&D)"_s},
        {"Show &hidden files", u"显示隐藏文件(&H)"_s},
        {"Sidebar", u"常用位置"_s},
        {"Computer", u"计算机"_s},
        {"Name", u"名称"_s},
        {"Size", u"大小"_s},
        {"Type", u"类型"_s},
        {"Kind", u"类型"_s},
        {"Date Modified", u"修改日期"_s},
        {"Folder", u"文件夹"_s},
        {"Drive", u"磁盘"_s},
        {"File", u"文件"_s},
        {"%1 File", u"%1 文件"_s},
        {"%1 already exists.\nDo you want to replace it?", u"%1 已存在。\n要覆盖它吗？"_s},
        {"%1\nFile not found.\nPlease verify the correct file name was given.",
         u"没有文件 %1。\n请看看文件名是否写对了。"_s},
        {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
         u"没有文件夹 %1。\n请看看名称是否写对了。"_s},
        {"Are you sure you want to delete '%1'?", u"确实要删除“%1”吗？"_s},
        {"'%1' is write protected.\nDo you want to delete it anyway?", u"“%1”是写保护的。\n还是要删除它吗？"_s},
        {"Could not delete directory.", u"文件夹不能删除。"_s},
        // Choosing colours
        {"Select Color", u"选择颜色"_s},
        {"&Basic colors", u"基本颜色(&B)"_s},
        {"&Custom colors", u"自定义颜色(&C)"_s},
        {"&Add to Custom Colors", u"添加到自定义颜色(&A)"_s},
        {"&Pick Screen Color", u"取屏幕上的颜色(&P)"_s},
        {"Cursor at %1, %2\nPress ESC to cancel", u"光标在 %1，%2\n按 Esc 取消"_s},
        {"Hu&e:", u"色调(&E)："_s},
        {"&Sat:", u"饱和度(&S)："_s},
        {"&Val:", u"亮度(&V)："_s},
        {"&Red:", u"红(&R)："_s},
        {"&Green:", u"绿(&G)："_s},
        {"Bl&ue:", u"蓝(&U)："_s},
        // Menus of text boxes
        {"&Undo", u"撤消(&U)"_s},
        {"&Redo", u"重做(&R)"_s},
        {"Cu&t", u"剪切(&T)"_s},
        {"&Copy", u"复制(&C)"_s},
        {"&Paste", u"粘贴(&P)"_s},
        {"Delete", u"删除"_s},
        {"Select All", u"全部选中"_s},
        {"Copy &Link Location", u"复制链接地址(&L)"_s},
        // Menus of scroll bars
        {"Scroll here", u"滚动到这里"_s},
        {"Top", u"最上面"_s},
        {"Bottom", u"最下面"_s},
        {"Left edge", u"最左边"_s},
        {"Right edge", u"最右边"_s},
        {"Page up", u"上一屏"_s},
        {"Page down", u"下一屏"_s},
        {"Page left", u"左边一屏"_s},
        {"Page right", u"右边一屏"_s},
        {"Scroll up", u"向上滚动"_s},
        {"Scroll down", u"向下滚动"_s},
        {"Scroll left", u"向左滚动"_s},
        {"Scroll right", u"向右滚动"_s},
    };
    return all;
}

}  // namespace

QString ToolkitTexts::translate(const char* context, const char* text, const char*, int) const {
    return context != nullptr && context[0] == 'Q' && text != nullptr ? texts().value(text) : QString();
}
