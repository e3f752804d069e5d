#include "catalogue/fixed_tables.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

struct FixedTable {
    QString name;
    QString columns;
};

const std::array tables{
    FixedTable{u"tcbm"_s, u"[序号] LONG,[表名] TEXT(4),[标题] TEXT(16),[备注] TEXT(255)"_s},
    // 图册 joins the names of all albums that offer the button, so it grows with them
    FixedTable{u"tcan"_s, u"[序号] LONG,[编号] TEXT(1),[名称] TEXT(20),[图册] MEMO,[图片] LONGBINARY"_s},
    FixedTable{u"tcsz"_s,
               u"[当前像册] TEXT(10),[显示标签] YESNO,[全屏显示] YESNO,[像册标题] TEXT(50),[颜色] TEXT(10),"
               u"[幻灯延时] LONG,[幻灯循环] YESNO,[帮助] MEMO,[封面] LONGBINARY,[备份路径] MEMO,[处理工具条] YESNO,"
               u"[处理提示] YESNO"_s},
    FixedTable{u"tcys"_s,
               u"[序号] TEXT(10),[方案名] TEXT(50),[窗体] TEXT(20),[外框] TEXT(20),[填充] TEXT(20),[内框] TEXT(20),"
               u"[主窗口] LONGBINARY"_s},
    FixedTable{u"tctb"_s, u"[文件名] TEXT(10),[图片] LONGBINARY"_s},
    FixedTable{u"pmtp"_s, u"[序号] LONG,[规格] TEXT(12),[图片] LONGBINARY"_s},
    FixedTable{u"tcbz"_s, u"[编号] TEXT(20),[标题] TEXT(100)"_s},
    FixedTable{
        u"tccx"_s,
        u"[编号] TEXT(10),[标签] MEMO,[图宽] SINGLE,[图高] SINGLE,[标题] MEMO,[参数] DOUBLE,[图片] LONGBINARY"_s},
};

}  // namespace

QStringList fixedTables() {
    QStringList names;
    for (const FixedTable& table : tables) names << table.name;
    return names;
}

void createFixedTables(const Database& database) {
    Transaction transaction(database);
    for (const FixedTable& table : tables)
        database.Execute(u"CREATE TABLE "_s + table.name + u" ("_s + table.columns + u')');
    transaction.commit();
}
