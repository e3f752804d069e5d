#include "editor/editor_texts.h"

#include "catalogue/album_rules.h"
#include "platform/base/conversion.h"
#include "platform/base/twips.h"

#include <QHash>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr char16_t fullWidthForms = 0xff01, lastFullWidthForm = 0xff5e;
constexpr int fullWidthOffset = fullWidthForms - u'!';

/// As a Chinese keyboard gives them, signs and digits can be as wide as a Chinese character.
QString withPlainSigns(QString text) {
    for (QChar& sign : text) {
        if (sign >= fullWidthForms && sign <= lastFullWidthForm) sign = QChar(sign.unicode() - fullWidthOffset);
        if (sign == u'。') sign = u'.';
    }
    return text;
}

}  // namespace

QString hintFor(const QString& code) {
    static const QString choose =
        u"先选择图册，再在右边筛选，或直接按左边表格中相应记录选择。完成按“确定”，放弃选择按“取消”。"_s;
    static const QString loaded =
        u"如果进行编辑操作请按相应菜单，也可重新打开图片。进行编辑操作只要不保存，不会对原有图片产生影响。"_s;
    static const QString done =
        u"按“保存”菜单，保存现在显示的图片(“保存”将覆盖原同名文件，“另存为”不覆盖)。也可继续进行其它编辑操作。"_s;
    static const QHash<QString, QString> hints = {
        {u"w0"_s, choose},
        {u"k0"_s, choose},
        {u"w1"_s, loaded},
        {u"k1"_s, loaded},
        {u"s1"_s, u"在对话框中填入缩放倍数，然后按“确定”或者回车显示缩放结果。缩放倍数可为整数或一、二位小数。"_s},
        {u"s2"_s, done},
        {u"c2"_s, done},
        {u"x2"_s, done},
        {u"p1"_s, done},
        {u"z1"_s, done},
        {u"c1"_s,
         u"选择裁剪范围即用鼠标左键在范围的左上角向右下角拖动，完成后松开左键。按对话框中“确定”或回车显示裁剪结果。"_s},
        {u"x1"_s,
         u"在对话框中填入旋转角度，然后按“确定”或者回车显示旋转结果。旋转角度按反时针。旋转完成需要较长时间。"_s},
        {u"a1"_s,
         u"先确定裁剪方式：“固定尺寸”从点击处选择100＊75像素；“固定比例”拖动鼠标总自动保持固定长宽比为4/3。"_s},
        {u"a2"_s, u"在对话框中按“显示”按钮，查看裁剪效果，并准备进行下一步。"_s},
        {u"a3"_s, u"在对话框中选择保存位置，然后在出现的对话框中进行相应操作后按“确定”按钮可进入保存操作。"_s},
        {u"c20"_s, u"在对话框中按“确定”按钮，查看裁剪效果，并准备进行下一步。"_s},
    };
    return hints.value(code);
}

int hintWidth(const QString& text) {
    return wzcd(text) * 90 + 60;
}

QString kilobytes1024Text(qint64 bytes) {
    return thousandsText(double(bytes) / 1024, 3);
}

double factorFromText(const QString& text) {
    const QString plain = withPlainSigns(text).trimmed();
    return numericValue(plain) / (plain.endsWith(u'%') ? 100 : 1);
}

double angleFromText(const QString& text) {
    return numericValue(withPlainSigns(text));
}

QString fileSourceLine(const QString& path, qint64 bytes, QSize hiMetric) {
    return u"[从文件读出] "_s + path + u"  大小："_s + kilobytes1024Text(bytes) + u"KB  规格："_s +
           QString::number(pixelsFromHiMetric(hiMetric.width())) + u" * "_s +
           QString::number(pixelsFromHiMetric(hiMetric.height()));
}

QString albumSourceLine(const QString& table, Recordset& record) {
    QString line = u"[从图册读出] 图册名："_s + table;
    for (const QString& column : {u"序号"_s, u"编号"_s, u"大小"_s, u"规格"_s}) {
        const FieldValue value = record.Fields(column).Value();
        if (!value.isNull()) line += u' ' + column + u"："_s + value.toText();
    }
    return line;
}

int pictureTwips(int hiMetric, int pixels) {
    const int twips = roundHalfEven(hiMetric / 1.7638);
    return pixelsFromTwips(twips) == pixels ? twips : twipsFromPixels(pixels);
}
