#include "catalogue_maker/chapters.h"
#include "platform/base/error.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray partOfManual(const QString& name) {
    QFile file(u":/catalogue/"_s + name);
    if (!file.open(QIODevice::ReadOnly)) throw Error(u"程序中缺少帮助文本。"_s);
    return file.readAll();
}

}  // namespace

void fillHelpContents(const Database& database) {
    // The first three characters are the chapter; number, a blank and title are a heading in the manual.
    const std::vector<std::pair<QString, QString>> entries{
        {u"1"_s, u"需要什么样的计算机"_s},
        {u"1.1.1"_s, u"一条命令装好并启动"_s},
        {u"1.1.2"_s, u"数据放在哪里"_s},
        {u"2"_s, u"第一次启动看到什么"_s},
        {u"2"_s, u"同时只能打开一个"_s},
        {u"2"_s, u"从旧版搬来"_s},
        {u"3"_s, u"头一回用，照这三步做"_s},
        {u"3.1.1"_s, u"四个页面与提示行"_s},
        {u"3.1.2"_s, u"按钮文字就是下一步"_s},
        {u"3.2.1"_s, u"建立新图册"_s},
        {u"3.2.2"_s, u"分图册的备注与删除"_s},
        {u"3.2.3"_s, u"图册主标题与显示选项"_s},
        {u"3.2.4"_s, u"图片选择按钮设置"_s},
        {u"3.2.5"_s, u"图册备份设置"_s},
        {u"3.3.1"_s, u"从文件录入"_s},
        {u"3.3.2"_s, u"从数据库录入"_s},
        {u"3.4.1"_s, u"修改一条图片记录"_s},
        {u"3.4.2"_s, u"只看一部分记录"_s},
        {u"3.4.3"_s, u"查看和更换图片"_s},
        {u"3.4.4"_s, u"重排序号"_s},
        {u"3.5.1"_s, u"先选要转存的图片"_s},
        {u"3.5.2"_s, u"转存到图册或数据库"_s},
        {u"3.5.3"_s, u"转存为图片文件"_s},
        {u"4"_s, u"一张表看懂常用操作"_s},
        {u"4.1.1"_s, u"打开与关闭图册"_s},
        {u"4.1.2"_s, u"左边的图画按钮"_s},
        {u"4.1.3"_s, u"翻页与每页张数"_s},
        {u"4.1.4"_s, u"按序号和日期选择"_s},
        {u"4.1.5"_s, u"图片上的标签"_s},
        {u"4.1.6"_s, u"看大图与原始大小"_s},
        {u"4.1.7"_s, u"幻灯播放"_s},
        {u"4.2.1"_s, u"选择方案"_s},
        {u"4.2.2"_s, u"调配自己的颜色"_s},
        {u"4.3.1"_s, u"打开要处理的图片"_s},
        {u"4.3.2"_s, u"缩放"_s},
        {u"4.3.3"_s, u"裁剪"_s},
        {u"4.3.4"_s, u"制作按钮图片"_s},
        {u"4.3.5"_s, u"旋转与翻转"_s},
        {u"4.3.6"_s, u"撤消"_s},
        {u"4.3.7"_s, u"保存与另存为"_s},
        {u"4.4.1"_s, u"怎样打开"_s},
        {u"4.4.2"_s, u"目录的用法"_s},
        {u"4.4.3"_s, u"关于本软件"_s},
        {u"附注：一"_s, u"常见问题"_s},
        {u"附注：二"_s, u"键盘一览"_s},
        {u"附注：三"_s, u"几个词的意思"_s},
        {u"附注：四"_s, u"照片是您自己的"_s},
    };
    for (const auto& [number, title] : entries) addRow(database, u"tcbz"_s, {{u"编号"_s, number}, {u"标题"_s, title}});
}

QString manualText() {
    QString text = QString::fromUtf8(partOfManual(u"manual.html"_s));
    // The manual is one text in the catalogue, its pictures included.
    static const QRegularExpression source(u"src=\"(pictures/[a-z0-9]+\\.jpg)\""_s);
    for (auto found = source.match(text); found.hasMatch(); found = source.match(text)) {
        const QByteArray picture = partOfManual(found.captured(1)).toBase64();
        text.replace(found.capturedStart(), found.capturedLength(),
                     u"src=\"data:image/jpeg;base64,"_s + QString::fromLatin1(picture) + u'"');
    }
    return text;
}
