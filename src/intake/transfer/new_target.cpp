#include "intake/transfer/new_target.h"

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/fixed_tables.h"
#include "catalogue/mektp.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

QString jetTargetText(const QString& jetFile, const QString& target, const QString& table) {
    return u"“%1”是其它软件或旧版的数据库（Jet 格式），只能从中录入图片，不能把图片转存进去。其中什么也没有改动。\n\n"
           "可以在它旁边新建一个图册库“%2”，其中有一个空图册“%3”，把图片转存到那里：请按《新建图册库》。\n\n"
           "如果它是旧版的像册，也可以先把它转换成新版：改名为 lunq.mdb 放在本软件旁边，启动时会询问；"
           "或在“图片录入”页以它为“数据库”，把其中的图册取到本像册来。"_s.arg(QDir::toNativeSeparators(jetFile),
                                                                              QFileInfo(target).fileName(), table);
}

QString newTargetPath(const QString& jetFile) {
    const QFileInfo file(jetFile);
    const QString start = file.dir().filePath(file.completeBaseName() + u"-新"_s);
    QString path = start + u".mdb"_s;
    for (int number = 2; QFileInfo::exists(path); ++number) path = start + QString::number(number) + u".mdb"_s;
    return path;
}

QString newTargetTable(const QString& sourceTable) {
    if (!isDemo(sourceTable)) return sourceTable;
    const QStringList albums = changeableAlbums(mekTp::catalogue);
    return albums.isEmpty() ? albumTableName(1) : albums.front();
}

void makeTarget(const QString& path, const QString& table, const QString& title) {
    const Database made = createDatabase(path);
    try {
        Transaction together(made);
        createFixedTables(made);
        made.Execute(createAlbumSql(table));
        Recordset albums = made.OpenRecordset(u"tcbm"_s);
        albums.AddNew();
        albums.Fields(u"序号"_s).SetValue(1);
        albums.Fields(u"表名"_s).SetValue(table);
        albums.Fields(u"标题"_s).SetValue(title);
        albums.Update();
        together.commit();
    } catch (...) {
        QFile::remove(path);
        throw;
    }
}
