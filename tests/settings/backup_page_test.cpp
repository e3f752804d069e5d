#include "../support/run_all.h"
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

QString contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
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
        QVERIFY(contentOf(bf.filePath()).contains(other) && !contentOf(bf.filePath()).contains(folder));
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
            const QString script = contentOf(window.catalogue.file(u"bf.sh"_s));
            savePath(window, QString(path).replace(u"%1"_s, window.catalogue.folder()));
            QCOMPARE(window.boxes.size(), 1);
            QVERIFY2(window.boxes.first().text.contains(named), qPrintable(window.boxes.first().text));
            QCOMPARE(storedPath(), good);
            QCOMPARE(contentOf(window.catalogue.file(u"bf.sh"_s)), script);
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

        window.answer = true;
        QVERIFY(!QFile::exists(backup));
        window.click(u"cmdBk"_s);
        QTRY_VERIFY(QFile::exists(backup));
        QCOMPARE(OpenDatabase(backup).OpenRecordset(u"tcan"_s).rowCount(), 4);

        QVERIFY(QFile::remove(window.catalogue.file(u"bf.sh"_s)));
        window.said();
        window.click(u"cmdBk"_s);
        QVERIFY(window.boxes.last().text.contains(u"不存在，请重新编辑并保存备份路径"_s));
    }
};

const Registered<TestBackupPage> registered;

}  // namespace

#include "backup_page_test.moc"
