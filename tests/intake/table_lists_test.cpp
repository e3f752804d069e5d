#include "../support/run_all.h"
#include "database_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Which tables lstSb offers as a source. The offer of targets is tested with the transfer.
class TestTableLists : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void ofTheCatalogueOnlyAlbums() {
        DatabaseWindow window;
        mekTp::catalogue.Execute(createAlbumSql(u"海边照片"_s));
        QVERIFY(QFile::remove(window.path(u"源库.mdb"_s)) &&
                QFile::link(mekTp::cataloguePath(), window.path(u"源库.mdb"_s)));
        window.chooseFile(u"tc01"_s, 1);
        QCOMPARE(window.linesOf(u"lstSb"_s), (QStringList{u"tc00"_s, u"tc01"_s, u"tc02"_s, u"海边照片"_s}));
        window.mapAll(u"tc01"_s, 1, u"海边照片"_s);
        QCOMPARE(window.mapping(), albumFields);
    }

    void ofAnotherDatabaseAll() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc30"_s, 1, 0);
        for (const QString& table : {u"tcan"_s, u"MSysObjects"_s, u"照片"_s})
            window.source.Execute(u"CREATE TABLE "_s + table + u" ([序号] LONG)"_s);
        window.chooseFile(u"tc01"_s, 1);
        QCOMPARE(window.linesOf(u"lstSb"_s), (QStringList{u"tc30"_s, u"tcan"_s, u"照片"_s}));
    }
};

const Registered<TestTableLists> registered;

}  // namespace

#include "table_lists_test.moc"
