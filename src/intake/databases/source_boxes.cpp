#include "intake/databases/source_boxes.h"

#include "platform/desktop/message_box.h"
#include "settings/frame/name_lists.h"

using namespace Qt::Literals::StringLiterals;

std::optional<int> askCodePage(QWidget* parent, const ReadingNotes& notes, const QString& promise) {
    if (notes.samples().isEmpty()) return {};
    QStringList chinese, western;
    for (const ReadingNotes::Sample& sample : notes.samples()) {
        chinese << sample.chinese;
        western << sample.western;
    }
    const QString text =
        u"这个数据库没有说明其中的文字用的是哪种编码。同样的文字，按两种编码读出来是：\n\n"
        "中文：%1\n\n西文：%2\n\n读得通的是哪一种？%3"_s.arg(chinese.join(u" / "_s), western.join(u" / "_s), promise);
    constexpr int isChinese = 0, isWestern = 1;
    const int answer = choose(parent, text, {u"中文"_s, u"西文"_s}, isChinese, isWestern);
    constexpr int gbk = 936, latin = 1252;
    return answer == isChinese ? gbk : latin;
}

void sayDamage(QWidget* parent, const ReadingNotes& notes) {
    QStringList parts;
    if (notes.isCatalogueDamaged()) parts << u"表的目录有损坏，可能有些表没有列出。"_s;
    if (!notes.unreadableTables().isEmpty()) parts << u"这些表不能读取：%1。"_s.arg(someOf(notes.unreadableTables()));
    if (parts.isEmpty()) return;
    say(parent, u"这个数据库有损坏的地方。\n\n"_s + parts.join(u'\n') + u"\n\n其余的表可以使用。"_s,
        BoxIcon::information);
}

void sayDamage(QWidget* parent, const QString& table, const ReadableRows& rows, int listed) {
    if (rows.areAll()) return;
    say(parent,
        u"源表“%1”有损坏的地方：\n\n%2。\n\n右边列出的 %3 条记录可以录入；录入时遇到损坏的图片会先询问，完成后一起列出。"_s
            .arg(table, someOf(rows.missing(), 8, u"；\n"_s))
            .arg(listed),
        BoxIcon::information);
}
