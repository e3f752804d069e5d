#include "../support/damage.h"
#include "catalogue/backup_file.h"
#include "catalogue/picture_proof.h"
#include "settings/backup/backup_reminder.h"
#include "settings/backup/restore_swap.h"
#include "settings_window.h"

#include <filesystem>

using namespace Qt::Literals::StringLiterals;

/// The page with a backup place, and the windows that its buttons open.
class TestKeeping : public QObject {
    Q_OBJECT

    std::unique_ptr<SettingsWindow> window_;

    QString file(const QString& name) const { return window_->catalogue.file(name); }
    QString backup() const { return file(u"bak/lunq.mdb"_s); }
    QDialog* dialog(const QString& name) const { return window_->form->findChild<QDialog*>(name); }
    void clickIn(const QString& name, const QString& button) const {
        QTest::mouseClick(found<QPushButton>(dialog(name), button), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        waitForRun(window_->form.get());
    }
    QTableWidget* lines(const QString& dialogName, const QString& list) const {
        return found<QTableWidget>(dialog(dialogName), list);
    }
    QStringList columnIn(const QString& dialogName, const QString& list, int column) const {
        QStringList texts;
        const QTableWidget* table = lines(dialogName, list);
        for (int row = 0; row < table->rowCount(); ++row) texts << table->item(row, column)->text();
        return texts;
    }
    /// A proved catalogue with a copy at the place of backups.
    void makeBackup() {
        window_->click(u"cmdJy"_s);
        QDir().mkpath(file(u"bak"_s));
        behindTheBack(mekTp::cataloguePath(), u"VACUUM INTO '%1'"_s.arg(backup()));
        window_->said();
    }

  private Q_SLOTS:
    void init() {
        window_.reset();
        window_ = std::make_unique<SettingsWindow>();
        mekTp::openCatalogue();
        changeRow(u"tcsz"_s, {{u"备份路径"_s, backup()}});
    }
    void cleanupTestCase() { window_.reset(); }

    /// What is being typed meanwhile stays.
    void goodPictures() {
        window_->choose(u"cboFc"_s, u"tc01"_s);
        window_->click(u"cmdFc"_s);
        window_->box(u"txt1c"_s).setText(u"新的备注"_s);
        window_->click(u"cmdJy"_s);
        QCOMPARE(window_->text(u"txt1c"_s), u"新的备注"_s);
        QCOMPARE(window_->said(), QStringList(u"校验完成：13 张图片未变。"_s));
        QCOMPARE(window_->label(u"lblBf"_s), u"13 张图片未变，"_s + QDate::currentDate().toString(Qt::ISODate));
        QVERIFY(dialog(u"frmJy"_s) == nullptr);
    }

    /// One click brings back what a backup has.
    void damagedPicturesAreToldAndHealed() {
        makeBackup();
        const QByteArray good = fieldOf(u"SELECT * FROM tc01 WHERE 序号 = 4"_s, u"图片"_s).toBytes();
        rot(mekTp::cataloguePath(), u"tc01"_s, 4);
        addRow(u"tc02"_s, {{u"序号"_s, 1}, {u"图片"_s, QByteArray("no picture")}});
        window_->click(u"cmdJy"_s);
        QCOMPARE(window_->said(), QStringList(u"校验完成：12 张图片未变，2 张有损坏。"_s));
        QCOMPARE(columnIn(u"frmJy"_s, u"lstJy"_s, 1), QStringList({u"《旅行》4"_s, u"《空册》1"_s}));
        QCOMPARE(columnIn(u"frmJy"_s, u"lstJy"_s, 3), QStringList({u"备份中有：lunq.mdb"_s, u"没有"_s}));
        clickIn(u"frmJy"_s, u"cmdXf"_s);
        QCOMPARE(window_->said(), QStringList(u"1 张图片已经修复，与录入时相同。"_s));
        QCOMPARE(fieldOf(u"SELECT * FROM tc01 WHERE 序号 = 4"_s, u"图片"_s).toBytes(), good);
        QCOMPARE(columnIn(u"frmJy"_s, u"lstJy"_s, 1), QStringList(u"《空册》1"_s));
        clickIn(u"frmJy"_s, u"cmdJs"_s);
        QVERIFY(dialog(u"frmJy"_s) == nullptr);
        QVERIFY(window_->label(u"lblBf"_s).startsWith(u"14 张图片未变"_s));
    }

    /// Nothing is removed but what the person chooses, and never the newest.
    void listOfBackups() {
        makeBackup();
        QVERIFY(QFile::copy(backup(), file(u"bak/lunq-2020-01-02-0304.mdb"_s)));
        QVERIFY(QFile::copy(backup(), file(u"lunq-2021-01-02-0304.mdb"_s)));
        window_->click(u"cmdHy"_s);
        QCOMPARE(columnIn(u"frmHy"_s, u"lstHy"_s, 2), QStringList({u"13"_s, u"13"_s, u"13"_s}));
        QCOMPARE(columnIn(u"frmHy"_s, u"lstHy"_s, 4),
                 QStringList({u"最新的备份"_s, u"以前的备份"_s, u"恢复以前的图册数据库"_s}));
        const auto* removing = found<QPushButton>(dialog(u"frmHy"_s), u"cmdSc"_s);
        for (const int row : {0, 2, 1}) {
            lines(u"frmHy"_s, u"lstHy"_s)->selectRow(row);
            QCOMPARE(removing->isEnabled(), row != 0);
        }
        clickIn(u"frmHy"_s, u"cmdSc"_s);
        QVERIFY(!QFile::exists(file(u"bak/lunq-2020-01-02-0304.mdb"_s)));
        QCOMPARE(columnIn(u"frmHy"_s, u"lstHy"_s, 4), QStringList({u"最新的备份"_s, u"恢复以前的图册数据库"_s}));
        clickIn(u"frmHy"_s, u"cmdGb"_s);
        writeFile(file(u"lunq-损坏-20260102-0304.mdb"_s), "broken");
        window_->click(u"cmdHy"_s);
        QCOMPARE(columnIn(u"frmHy"_s, u"lstHy"_s, 4).last(), u"损坏的图册数据库"_s);
        lines(u"frmHy"_s, u"lstHy"_s)->selectRow(2);
        QVERIFY(!found<QPushButton>(dialog(u"frmHy"_s), u"cmdQf"_s)->isEnabled());
        clickIn(u"frmHy"_s, u"cmdSc"_s);
        QVERIFY(!QFile::exists(file(u"lunq-损坏-20260102-0304.mdb"_s)));
        clickIn(u"frmHy"_s, u"cmdGb"_s);
        QVERIFY(QDir(file(u"bak"_s)).removeRecursively());
        window_->click(u"cmdHy"_s);
        QVERIFY(found<QLabel>(dialog(u"frmHy"_s), u"lblHy"_s)->text().contains(u"可能没有接上"));
    }

    void albumsAndPicturesComeBack() {
        makeBackup();
        mekTp::catalogue.Execute(u"DROP TABLE tc01"_s);
        mekTp::catalogue.Execute(u"DELETE FROM tcbm WHERE 表名 = 'tc01'"_s);
        window_->click(u"cmdHy"_s);
        clickIn(u"frmHy"_s, u"cmdQh"_s);
        auto* albums = found<QListWidget>(dialog(u"frmQh"_s), u"lstTc"_s);
        QCOMPARE(albums->count(), 2);
        QCOMPARE(albums->currentItem()->text(), u"旅行（10）"_s);
        auto* pictures = found<QListView>(dialog(u"frmQh"_s), u"lstTp"_s);
        for (const int row : {1, 6})
            pictures->selectionModel()->select(pictures->model()->index(row, 0), QItemSelectionModel::Select);
        QCOMPARE(found<QLabel>(dialog(u"frmQh"_s), u"lblQh"_s)->text(), u"取回选中的 2 张图片。"_s);
        clickIn(u"frmQh"_s, u"cmdQh"_s);
        QCOMPARE(window_->said(), QStringList(u"已取回 2 张。"_s));
        QCOMPARE(columnOf(u"tc01"_s, u"序号"_s), QStringList({u"2"_s, u"7"_s}));
        QVERIFY(window_->lines(u"cboBm"_s).contains(u"tc01 旅行"_s));
    }

    /// The catalogue that goes stays beside the one that comes, whole.
    void wholeRestore() {
        makeBackup();
        mekTp::catalogue.Execute(u"DELETE FROM tc01"_s);
        window_->click(u"cmdHy"_s);
        clickIn(u"frmHy"_s, u"cmdQf"_s);
        QVERIFY(isRestorePlanned());
        QCOMPARE(window_->said().size(), 1);
        window_->form.reset();
        mekTp::catalogue = {};
        const QString kept = carryOutRestore();
        QVERIFY(!isRestorePlanned() && !QFile::exists(preparedRestorePath()));
        QVERIFY(QFileInfo(kept).path() == window_->catalogue.folder());
        QCOMPARE(OpenDatabase(kept).OpenRecordset(u"tc01"_s).rowCount(), 0);
        QCOMPARE(OpenDatabase(mekTp::cataloguePath()).OpenRecordset(u"tc01"_s).rowCount(), 10);
    }

    /// A journal that is not empty goes with its file. What cannot be exchanged stays.
    void exchangeOfFiles() {
        window_->form.reset();
        mekTp::catalogue = {};
        const QString catalogue = mekTp::cataloguePath();
        QVERIFY_THROWS_EXCEPTION(std::exception, carryOutRestore());
        QVERIFY(QFile::exists(catalogue));
        writeFile(catalogue + u"-journal"_s, "hot");
        writeFile(preparedRestorePath(), "new");
        const QString kept = carryOutRestore();
        QVERIFY(QFile::exists(kept + u"-journal"_s) && !QFile::exists(catalogue + u"-journal"_s));
        QCOMPARE(QFileInfo(catalogue).size(), 3);
        QVERIFY(QFile::remove(catalogue) && QFile::copy(kept, catalogue));
    }

    /// Of a damaged catalogue with a journal, for which all depends on their being together.
    void killWhileFilesAreExchanged() {
        window_->form.reset();
        mekTp::catalogue = {};
        const QString catalogue = mekTp::cataloguePath(), prepared = preparedRestorePath();
        const QString kept = datedPath(catalogue, QDateTime(QDate(2026, 11, 22), QTime(16, 45)));
        const QByteArray old = contentOf(catalogue);
        const auto journalOf = [](const QString& file) { return file + u"-journal"_s; };
        const auto isAsBefore = [&] {
            return contentOf(catalogue) == old && contentOf(journalOf(catalogue)) == "hot" &&
                   !QFile::exists(prepared) && !QFile::exists(kept) && !QFile::exists(journalOf(kept));
        };
        writeFile(journalOf(catalogue), "hot");
        writeFile(prepared, "half");
        resumeRestore();
        QVERIFY(isAsBefore());

        const QString aside = prepared + u".lunq-2026-11-22-1645.mdb-journal"_s;
        for (const bool hasSecondName : {false, true}) {
            QVERIFY(QFile::rename(journalOf(catalogue), aside));
            if (hasSecondName) std::filesystem::create_hard_link(catalogue.toStdString(), kept.toStdString());
            writeFile(prepared, old);
            resumeRestore();
            QVERIFY(isAsBefore());
        }
        // A disk without second names.
        for (const bool isWhole : {false, true}) {
            QVERIFY(QFile::rename(journalOf(catalogue), aside) && QFile::rename(catalogue, kept));
            writeFile(prepared, isWhole ? old : "half");
            resumeRestore();
            resumeRestore();
            if (!isWhole) QVERIFY(isAsBefore());
        }
        for (const bool isNamedAlready : {false, true}) {
            if (isNamedAlready) QVERIFY(QFile::rename(journalOf(kept), aside));
            resumeRestore();
            QVERIFY(contentOf(catalogue) == old && !QFile::exists(journalOf(catalogue)) && !QFile::exists(prepared));
            QVERIFY(contentOf(journalOf(kept)) == "hot" && !QFile::exists(aside));
        }
    }

    void reminder() {
        const QDate today(2026, 11, 22);
        const std::tuple<QDate, int, bool> cases[] = {{{}, 0, false},
                                                      {{}, 7, true},
                                                      {{2026, 11, 22}, 7, false},
                                                      {{2026, 11, 15}, 7, false},
                                                      {{2026, 11, 14}, 7, true},
                                                      {{2026, 11, 14}, 30, false},
                                                      {{2026, 11, 23}, 30, true},
                                                      {{2001, 1, 1}, 0, false}};
        for (const auto& [last, days, due] : cases) QCOMPARE(isBackupDue(last, today, days), due);
        remindOfBackup();
        QVERIFY(window_->boxes.isEmpty());
        window_->click(u"cmdHy"_s);
        auto* choice = found<QComboBox>(dialog(u"frmHy"_s), u"cboTx"_s);
        choice->setCurrentIndex(1);
        Q_EMIT choice->activated(1);
        remindOfBackup();
        QCOMPARE(window_->boxes.size(), 1);
        QVERIFY(window_->said().first().startsWith(u"图册数据库还没有完好的备份。"));
    }
};

const Registered<TestKeeping> registered;

#include "keeping_test.moc"
