#include "start/damage_notice.h"

#include "../support/failure_of.h"
#include "../support/sample_catalogue.h"
#include "platform/desktop/message_box.h"
#include "settings/backup/backup_files.h"
#include "start/ways_out.h"

#include <thread>

using namespace Qt::Literals::StringLiterals;

class TestDamageNotice : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void wayBackIsNamed() {
        const QString backup = sample_->file(u"备份 it's/lunq.mdb"_s), script = restoreScriptPath(backup);
        QVERIFY(rescueOfCatalogue().backup.isEmpty());
        const QString bare = damageText(rescueOfCatalogue());
        QVERIFY(bare.contains(mekTp::cataloguePath()) && bare.contains(u"备份路径没有设置"_s));

        changeRow(u"tcsz"_s, {{u"备份路径"_s, backup}});
        makeBackupFolders(backup);
        writeBackupScripts(placesOfBackup(backup));
        const QString missing = damageText(rescueOfCatalogue());
        QVERIFY(missing.contains(u"备份路径是“%1”，但那里现在没有备份"_s.arg(backup)) && missing.contains(script));

        QFile copy(backup);
        QVERIFY(copy.open(QIODevice::WriteOnly) &&
                copy.setFileTime(QDateTime(QDate(2026, 3, 4), QTime(5, 6)), QFileDevice::FileModificationTime));
        // The settings are in the damaged file: the script beside the program knows the place too.
        for (const bool readable : {true, false}) {
            if (!readable) mekTp::catalogue = {};
            const QString whole = damageText(rescueOfCatalogue());
            QVERIFY2(whole.contains(u"备份在“%1”，是 2026-03-04 05:06 的"_s.arg(backup)), qPrintable(whole));
            QVERIFY(whole.contains(u"运行“%1”，用备份恢复"_s.arg(script)));
        }
        const QString journal = mekTp::cataloguePath() + u"-journal"_s;
        QVERIFY(!damageText(rescueOfCatalogue()).contains(journal));
        QVERIFY(QFile::remove(script));
        QVERIFY(damageText(rescueOfCatalogue()).contains(u"那一份复制到“"_s + mekTp::cataloguePath()));
        QVERIFY(!damageText(rescueOfCatalogue()).contains(journal));
        writeFile(journal, "the way back");
        QVERIFY(damageText(rescueOfCatalogue()).contains(u"旁边的“%1”与损坏的文件一起移走"_s.arg(journal)));
    }

    /// Whoever goes on reading changes nothing any more, in no thread, until the file is opened anew.
    void readerChangesNothing() {
        QStringList answers;
        chooseInBoxesWith([&](const BoxText& box) {
            answers = box.answers;
            return box.onEscape;
        });
        offerWaysOut();
        chooseInBoxesWith({});
        QCOMPARE(answers, (QStringList{u"取出完好的部分"_s, u"恢复…"_s, u"继续只读"_s}));
        QVERIFY(!isWayOutPlanned());
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"tc01"_s).rowCount(), 10);
        QString there;
        const QString here = failureOf([] { addRow(u"tc01"_s, {{u"序号"_s, 11}}); });
        std::thread([&] {
            there = failureOf([] { OpenDatabase(mekTp::cataloguePath()).Execute(u"DELETE FROM tc01"_s); });
        }).join();
        QVERIFY2(here.contains(u"只能读取") && there.contains(u"只能读取"), qPrintable(here + there));
        mekTp::catalogue = {};
        mekTp::openCatalogue();
        addRow(u"tc01"_s, {{u"序号"_s, 11}});
    }

    void onlyOurOwnKindIsLookedThrough() {
        QVERIFY(isCatalogueCheckable());
        mekTp::catalogue = {};
        QVERIFY(isCatalogueCheckable());
        for (const auto& [content, isChecked] :
             {std::pair{QByteArray("\0\1\0\0", 4) + "Standard Jet DB and a password", false},
              {QByteArray("xxx"), true}}) {
            writeFile(mekTp::cataloguePath(), content);
            QCOMPARE(isCatalogueCheckable(), isChecked);
        }
    }
};

const Registered<TestDamageNotice> registered;

#include "damage_notice_test.moc"
