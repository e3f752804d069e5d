#include "platform/desktop/elided_label.h"
#include "settings/backup/backup_files.h"
#include "settings_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Captions and enabled states of the group, as one text.
QString stateOf(const SettingsWindow& window) {
    QStringList state;
    for (const QString& name : {u"cmdBb"_s, u"cmdBk"_s, u"cmdBl"_s})
        state << window.caption(name) + (window.isEnabled(name) ? u""_s : u"(-)"_s);
    state << (window.box(u"txtBf"_s).isLocked() ? u"locked"_s : u"open"_s);
    return state.join(u", ");
}

/// Types a path and leaves the box, as a click on 保 存 does.
void savePath(const SettingsWindow& window, const QString& path) {
    window.click(u"cmdBb"_s);
    window.box(u"txtBf"_s).setText(path);
    window.click(u"cmdBb"_s);
}

QString storedPath() {
    return valueOf(u"tcsz"_s, u"备份路径"_s);
}

QString resultOf(const SettingsWindow& window) {
    return window.get<QLabel>(u"lblBf"_s).text();
}

/// A copy goes to the disk, for which others may be waiting too.
constexpr int patienceMs = 60'000;

bool endsWell(const SettingsWindow& window) {
    return QTest::qWaitFor([&] { return resultOf(window).endsWith(u"，完好"); }, patienceMs);
}

QString textOf(const QString& path) {
    return QString::fromUtf8(contentOf(path));
}

class TestBackupPage : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void states() {
        SettingsWindow window;
        QCOMPARE(stateOf(window), u"编 辑, 开始备份(-), 浏 览(-), locked"_s);
        window.click(u"cmdBb"_s);
        QCOMPARE(stateOf(window), u"保 存, 撤 消, 浏 览, open"_s);
        QVERIFY(window.box(u"txtBf"_s).hasFocus());
        window.box(u"txtBf"_s).setText(u"/nowhere"_s);
        window.click(u"cmdBk"_s);
        QCOMPARE(stateOf(window), u"编 辑, 开始备份(-), 浏 览, locked"_s);
        QCOMPARE(window.text(u"txtBf"_s), u"/nowhere/lunq.mdb"_s);
        QCOMPARE(storedPath(), QString());
        QVERIFY(!QFile::exists(window.catalogue.file(u"bf.sh"_s)));
        QVERIFY(window.boxes.isEmpty());

        // The page shows what is stored; what was begun stays open.
        window.click(u"cmdBb"_s);
        window.goToAnotherPageAndBack();
        QCOMPARE(window.text(u"txtBf"_s), QString());
        QCOMPARE(stateOf(window), u"保 存, 撤 消, 浏 览, open"_s);
    }

    void saving() {
        SettingsWindow window;
        const QString folder = window.catalogue.file(u"新 文件夹/it's $HOME"_s);
        savePath(window, folder);
        QCOMPARE(window.said(), QStringList());
        QCOMPARE(storedPath(), folder + u"/lunq.mdb"_s);
        QCOMPARE(stateOf(window), u"编 辑, 开始备份, 浏 览(-), locked"_s);
        const QFileInfo bf(window.catalogue.file(u"bf.sh"_s)), hf(folder + u"/hf.sh"_s);
        QVERIFY(bf.isExecutable() && hf.isExecutable());
        QVERIFY(!QFile::exists(folder + u"/lunq.mdb"_s));

        // A second path replaces bf.sh and leaves the old hf.sh to the old copy.
        const QString other = window.catalogue.file(u"other"_s);
        savePath(window, other + u'/');
        QCOMPARE(storedPath(), other + u"/lunq.mdb"_s);
        QVERIFY(textOf(bf.filePath()).contains(other) && !textOf(bf.filePath()).contains(folder));
        QVERIFY(QFile::exists(hf.filePath()) && QFile::exists(other + u"/hf.sh"_s));

        window.open();
        QCOMPARE(window.text(u"txtBf"_s), other + u"/lunq.mdb"_s);
        QCOMPARE(stateOf(window), u"编 辑, 开始备份, 浏 览(-), locked"_s);
        QVERIFY(QFile::remove(bf.filePath()));
        window.open();
        QCOMPARE(stateOf(window), u"编 辑, 开始备份(-), 浏 览(-), locked"_s);

        savePath(window, QString());
        QCOMPARE(storedPath(), QString());
        QCOMPARE(stateOf(window), u"编 辑, 开始备份(-), 浏 览(-), locked"_s);
        QCOMPARE(window.said(), QStringList());
    }

    void failedSavingChangesNothing() {
        for (const auto& [path, named] : {std::pair{u"/proc/backup/lunq.mdb"_s, u"/proc/backup/"_s},
                                          {u"/proc/lunq.mdb"_s, u"/proc/hf.sh"_s},
                                          {u"%1/lunq.mdb/sub/lunq.mdb"_s, u"lunq.mdb/"_s},  // a file in the way
                                          {u"%1/lunq.mdb"_s, u"就是图册数据库本身"_s},
                                          {u"bak/lunq.mdb"_s, u"不完整"_s}}) {
            SettingsWindow window;
            const QString good = window.catalogue.file(u"good/lunq.mdb"_s);
            savePath(window, good);
            const QString script = textOf(window.catalogue.file(u"bf.sh"_s));
            savePath(window, QString(path).replace(u"%1"_s, window.catalogue.folder()));
            QCOMPARE(window.boxes.size(), 1);
            QVERIFY2(window.boxes.first().text.contains(named), qPrintable(window.boxes.first().text));
            QCOMPARE(storedPath(), good);
            QCOMPARE(textOf(window.catalogue.file(u"bf.sh"_s)), script);
            QCOMPARE(stateOf(window), u"保 存, 撤 消, 浏 览, open"_s);
        }
    }

    void failedScriptChangesNothing() {
        SettingsWindow window;
        QVERIFY(QDir(window.catalogue.folder()).mkpath(u"bf.sh/full"_s));
        savePath(window, window.catalogue.file(u"bak"_s));
        QCOMPARE(window.boxes.size(), 1);
        QCOMPARE(window.boxes.first().title, u"错误提示"_s);
        QVERIFY(window.boxes.first().text.contains(u"bf.sh"_s));
        QCOMPARE(storedPath(), QString());
    }

    void browsing() {
        SettingsWindow window;
        QString title;
        answerFileDialogsWith([&](const FileQuestion& question) {
            title = question.title + question.filter;
            return window.picked;
        });
        window.click(u"cmdBb"_s);
        window.box(u"txtBf"_s).setText(u"/bak"_s);
        window.click(u"cmdBl"_s);
        QCOMPARE(title, u"设置数据库备份路径MDB文件|*.mdb"_s);
        QCOMPARE(window.text(u"txtBf"_s), u"/bak/lunq.mdb"_s);
        window.picked = u"/bak/old.mdb"_s;
        window.click(u"cmdBl"_s);
        QCOMPARE(window.text(u"txtBf"_s), window.picked);
    }

    /// A folder that is gone with its disk is no place to begin: the dialog opens in the home folder.
    void browsingFromAVanishedFolder() {
        SettingsWindow window;
        answerFileDialogsWith({});
        window.click(u"cmdBb"_s);
        window.box(u"txtBf"_s).setText(u"/no/such/disk/lunq.mdb"_s);
        QString begun;
        QTimer::singleShot(200, this, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            begun = dialog->directory().absolutePath();
            dialog->reject();
        });
        window.click(u"cmdBl"_s);
        QCOMPARE(begun, QDir::homePath());
        QCOMPARE(window.text(u"txtBf"_s), u"/no/such/disk/lunq.mdb"_s);
    }

    void startingAsksFirst() {
        SettingsWindow window;
        const QString backup = window.catalogue.file(u"bak/lunq.mdb"_s);
        savePath(window, backup);
        window.answer = false;
        window.click(u"cmdBk"_s);
        const BoxText box = window.boxes.value(0);
        QCOMPARE(box.title, u"备份数据库？"_s);
        QCOMPARE(box.text, u"如确实要备份数据库，请按“确定”按钮；否则按“取消”。"_s);
        QVERIFY(box.icon == BoxIcon::question && box.hasCancel());

        QVERIFY(!QFile::exists(backup));
        QVERIFY(resultOf(window).isEmpty());

        window.answer = true;
        window.said();
        window.click(u"cmdBk"_s);
        QCOMPARE(resultOf(window), u"正在备份…"_s);
        QVERIFY(endsWell(window));
        QVERIFY(resultOf(window).startsWith(u"上次备份："_s + QDate::currentDate().toString(u"yyyy-MM-dd")));
        QCOMPARE(OpenDatabase(backup).OpenRecordset(u"tcan"_s).rowCount(), 4);
        QCOMPARE(window.said().size(), 1);

        // The result stays with the path, and goes with it.
        const QString told = resultOf(window);
        window.open();
        QCOMPARE(resultOf(window), told);
        savePath(window, backup);
        QCOMPARE(resultOf(window), told);
        savePath(window, window.catalogue.file(u"other"_s));
        QCOMPARE(resultOf(window), QString());
    }

    void failureIsToldWithItsReason() {
        SettingsWindow window;
        const QString folder = window.catalogue.file(u"bak"_s);
        savePath(window, folder);
        const auto fails = [&](const QString& reason) {
            window.said();
            window.boxes.clear();
            window.click(u"cmdBk"_s);
            QTRY_COMPARE_WITH_TIMEOUT(window.boxes.size(), 2, patienceMs);
            QVERIFY2(window.boxes.last().text.contains(reason), qPrintable(window.boxes.last().text));
            QCOMPARE(window.boxes.last().title, u"错误提示"_s);
            QVERIFY2(resultOf(window).startsWith(u"上次备份："_s) && resultOf(window).contains(reason),
                     qPrintable(resultOf(window)));
            // Cut short, it still says when.
            const QString shown = dynamic_cast<ElidedLabel&>(window.get<QLabel>(u"lblBf"_s)).shownText();
            QVERIFY2(shown.startsWith(resultOf(window).left(21)) && shown.endsWith(u'…'), qPrintable(shown));
        };
        QLockFile other(folder + u"/lunq.mdb.lock"_s);
        QVERIFY(other.tryLock());
        fails(u"另一次备份正在进行"_s);
        other.unlock();
        // The disk is not there: nothing is made in its place.
        QVERIFY(QDir(folder).removeRecursively());
        fails(u"备份文件夹“%1/”不存在"_s.arg(folder));
        QVERIFY(!QFile::exists(folder));
        QVERIFY(QDir().mkpath(folder));
        window.boxes.clear();
        window.click(u"cmdBk"_s);
        QVERIFY(endsWell(window));
        QCOMPARE(window.boxes.size(), 1);
    }

    /// As after the program's folder was copied or renamed: the scripts name places of before.
    void scriptsFollowTheProgram() {
        SettingsWindow window;
        const QString backup = window.catalogue.file(u"bak/lunq.mdb"_s);
        savePath(window, backup);
        for (const QString& script : {window.catalogue.file(u"bf.sh"_s), window.catalogue.file(u"bak/hf.sh"_s)}) {
            const QString now = textOf(script), gone = window.catalogue.file(u"gone"_s);
            QFile file(script);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(QString(now).replace(window.catalogue.file(u"lunq.mdb"_s), gone + u"/lunq.mdb"_s).toUtf8());
            file.close();
            QVERIFY(textOf(script) != now);
            window.boxes.clear();
            window.click(u"cmdBk"_s);
            QVERIFY(endsWell(window));
            QCOMPARE(window.boxes.size(), 1);
            QVERIFY(textOf(script).startsWith(now));
        }
        QVERIFY(QFile::remove(window.catalogue.file(u"bf.sh"_s)));
        QVERIFY(QFile::remove(backup));
        window.click(u"cmdBk"_s);
        QVERIFY(endsWell(window));
        QVERIFY(QFile::exists(backup));
    }

    void backupOfAnotherProgramIsAskedAbout() {
        SettingsWindow window;
        const QString hf = window.catalogue.file(u"bak/hf.sh"_s), other = window.catalogue.file(u"another"_s);
        savePath(window, window.catalogue.file(u"bak"_s));
        QVERIFY(QDir().mkpath(other));
        BackupPlaces places = placesOfBackup(window.catalogue.file(u"bak/lunq.mdb"_s));
        places.catalogue = other + u"/lunq.mdb"_s;
        QFile file(hf);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(restoreScript(places).toUtf8()) > 0);
        file.close();
        const QString theirs = textOf(hf);
        int answer = 2, asked = 0;
        chooseInBoxesWith([&](const BoxText& box) {
            if (box.answers != QStringList{u"覆盖"_s, u"另选路径"_s, u"取消"_s}) return 0;
            ++asked;
            if (!box.text.contains(other) || box.onEnter != 2 || box.onEscape != 2) qFatal("another box");
            return answer;
        });
        for (answer = 2; answer > 0; --answer) {
            window.click(u"cmdBk"_s);
            QCOMPARE(textOf(hf), theirs);
            QCOMPARE(resultOf(window), QString());
        }
        QCOMPARE(asked, 2);
        QCOMPARE(stateOf(window), u"保 存, 撤 消, 浏 览, open"_s);
        window.click(u"cmdBb"_s);  // the same path again: saving replaces the script, too
        QCOMPARE(asked, 3);
        QVERIFY(textOf(hf) != theirs && stateOf(window).startsWith(u"编 辑"_s));
        window.click(u"cmdBk"_s);
        QVERIFY(endsWell(window));
        QCOMPARE(asked, 3);
    }
};

const Registered<TestBackupPage> registered;

}  // namespace

#include "backup_page_test.moc"
