#include "start/start_up.h"

#include "../support/disk_faults.h"
#include "../support/sample_catalogue.h"
#include "jet_maker/jet_maker.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"
#include "start/program.h"
#include "start/ways_out.h"

#include <SQLiteCpp/Database.h>
#include <sys/stat.h>

#include <QApplication>
#include <QPushButton>
#include <QWidget>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString chooses = u"选择其他像册…"_s, leaves = u"退出"_s, rescues = u"取出完好的部分"_s, restores = u"恢复…"_s;

QString runOn(const QString& path, const char* sql) {
    SQLite::Database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(sql);
    return path;
}

QWidget* mainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == u"frmTp" && window->isVisible()) return window;
    return nullptr;
}

/// The program from its start to its first window, with the answers that boxes get in their turn.
class TestStartUp : public SampleTest {
    Q_OBJECT

    QStringList said_, answers_, files_;

    QString catalogue() const { return sample_->file(u"lunq.mdb"_s); }
    QString file(const QString& name) const { return sample_->file(name); }

    /// Whether the main window has come up, and what its title says then.
    QString titleAfterStart() {
        said_.clear();
        StartUp startUp;
        if (!startUp.isReady()) return u"(ended)"_s;
        QString title;
        {
            Program program;
            startUp.start(program);
            const bool shown = QTest::qWaitFor([] { return mainWindow() != nullptr; });
            title = shown ? mainWindow()->windowTitle() : u"(no window)"_s;
        }
        mekTp::catalogue = {};
        return title;
    }

  private Q_SLOTS:
    void init() {
        SampleTest::init();
        changeRow(u"tcsz"_s, {{u"像册标题"_s, u"我的像册"_s}});
        mekTp::catalogue = {};
        QVERIFY(QFile::copy(catalogue(), file(u"good.mdb"_s)));
        answers_.clear();
        files_.clear();
        chooseInBoxesWith([this](const BoxText& box) {
            said_ << box.text;
            if (box.answers.size() == 1) return 0;
            const QStringList plain{chooses, leaves}, swap{u"换上"_s, u"先不换"_s};
            const bool isOurs = box.answers == plain || box.answers == QStringList{rescues, restores} + plain;
            if (!(isOurs || box.answers == swap) || box.onEscape != box.answers.size() - 1) qFatal("another box");
            return int(box.answers.indexOf(answers_.isEmpty() ? leaves : answers_.takeFirst()));
        });
        answerFileDialogsWith(
            [this](const FileQuestion&) { return files_.isEmpty() ? QString() : files_.takeFirst(); });
    }

    void cleanup() {
        chooseInBoxesWith({});
        answerFileDialogsWith({});
        mekTp::setCataloguePath({});
        SampleTest::cleanup();
    }

    /// A copy that was being prepared is in nobody's way; a proved one takes the place that was made for it.
    void killedRestoreComesToItsEnd() {
        const QString prepared = file(u"lunq.mdb.restore"_s);
        writeFile(prepared, contentOf(catalogue()).first(20'000));
        QCOMPARE(titleAfterStart(), u" 我的像册"_s);
        QVERIFY(!QFileInfo::exists(prepared));
        QVERIFY(QFile::rename(catalogue(), prepared));
        QCOMPARE(titleAfterStart(), u" 我的像册"_s);
        QVERIFY(QFileInfo::exists(catalogue()) && !QFileInfo::exists(prepared));
    }

    void goodOrMissingCatalogueStartsWithoutAWord() {
        QCOMPARE(titleAfterStart(), u" 我的像册"_s);
        QCOMPARE(said_, QStringList());
        QVERIFY(QFile::remove(catalogue()));
        QVERIFY(titleAfterStart().contains(u"览忆集苑"));
        QCOMPARE(said_, QStringList());
    }

    void everyObstacleIsTold() {
        const QByteArray good = contentOf(catalogue());
        const auto put = [&](const QByteArray& bytes) { writeFile(catalogue(), bytes); };
        const std::pair<QString, std::function<void()>> cases[] = {
            {u"由更新的版本建立"_s, [&] { put(good), runOn(catalogue(), "PRAGMA user_version = 99"); }},
            {u"它是其他软件的数据库"_s,
             [&] { QFile::remove(catalogue()), runOn(catalogue(), "CREATE TABLE notes (text)"); }},
            {u"有损坏的地方"_s, [&] { put(good.left(good.size() / 2)); }},
            {u"有损坏的地方"_s, [&] { put({}); }},
            {u"有损坏的地方"_s, [&] { put(QByteArray(50'000, 'x')); }},
            {u"它不完整"_s, [&] { put(QByteArray("\0\1\0\0Standard Jet DB\0\1", 21) + QByteArray(5000, '\0')); }},
            {u"它是一个文件夹"_s, [&] { QVERIFY(QFile::remove(catalogue()) && QDir().mkpath(catalogue())); }},
            {u"所指的“%1”不存在"_s.arg(file(u"away.mdb"_s)),
             [&] { QVERIFY(QDir().rmdir(catalogue()) && QFile::link(file(u"away.mdb"_s), catalogue())); }},
            {u"设备或管道"_s,
             [&] {
                 QCOMPARE(mkfifo(qPrintable(file(u"pipe"_s)), 0600), 0);
                 QVERIFY(QFile::remove(catalogue()) && QFile::link(file(u"pipe"_s), catalogue()));
             }},
        };
        for (const auto& [reason, arrange] : cases) {
            arrange();
            QCOMPARE(titleAfterStart(), u"(ended)"_s);
            QCOMPARE(said_.size(), 1);
            QVERIFY2(said_[0].contains(reason) && said_[0].contains(catalogue()), qPrintable(said_[0]));

            answers_ = QStringList{chooses};
            files_ = QStringList{file(u"good.mdb"_s)};
            QCOMPARE(titleAfterStart(), u" 我的像册"_s);
            QCOMPARE(said_.size(), 1);
            mekTp::setCataloguePath({});
        }
    }

    void passwordIsTold() {
        const jet::Table table{u"tc01"_s, {{u"序号"_s, jet::Type::longInteger}}, {{1}}};
        writeFile(catalogue(), jet::database({table}, {jet::Version::jet4, 936, u"p"_s}));
        QCOMPARE(titleAfterStart(), u"(ended)"_s);
        QVERIFY2(said_.value(0).contains(u"密码"), qPrintable(said_.value(0)));
    }

    void missingRightsAreTold() {
        QVERIFY(QFile::setPermissions(sample_->folder(), QFile::Permissions(0x7755)));
        QVERIFY(QFile::setPermissions(catalogue(), {}));
        const PlainUser user;
        QCOMPARE(titleAfterStart(), u"(ended)"_s);
        QVERIFY2(said_.value(0).contains(u"没有访问权限"), qPrintable(said_.value(0)));
    }

    /// What is chosen is looked at like the first one; a dialog that is cancelled leads back to the question.
    void chosenFileIsLookedAtToo() {
        writeFile(catalogue(), "spoilt");
        writeFile(file(u"also.mdb"_s), "spoilt too");
        answers_ = QStringList{chooses, chooses, chooses, leaves};
        files_ = QStringList{QString(), file(u"also.mdb"_s), QString()};
        QCOMPARE(titleAfterStart(), u"(ended)"_s);
        QCOMPARE(said_.size(), 4);
        QVERIFY(said_[1].contains(catalogue()) && said_[2].contains(file(u"also.mdb"_s)));
        QCOMPARE(contentOf(catalogue()) + contentOf(file(u"also.mdb"_s)), QByteArray("spoiltspoilt too"));
    }

    /// The locks follow the choice: they are on the chosen catalogue, in whatever folder, and no longer on the first.
    void chosenCatalogueIsKeptToOneCopy() {
        QVERIFY(QDir(sample_->folder()).mkdir(u"elsewhere"_s));
        const QString other = file(u"elsewhere/album.mdb"_s), lock = file(u"elsewhere/lunq.lock"_s);
        QVERIFY(QFile::copy(file(u"good.mdb"_s), other));
        writeFile(catalogue(), "spoilt");
        auto first = std::make_unique<SingleCopy>(other, lock);
        QVERIFY(first->isOnly());
        answers_ = QStringList{chooses, chooses, leaves};
        files_ = QStringList{other, QString()};
        QCOMPARE(titleAfterStart(), u"(ended)"_s);
        QVERIFY2(said_.value(1).contains(u"“%1”已由本软件打开"_s.arg(other)), qPrintable(said_.value(1)));
        QCOMPARE(mekTp::cataloguePath(), catalogue());

        first.reset();
        answers_ = QStringList{chooses};
        files_ = QStringList{other};
        StartUp startUp;
        QVERIFY(startUp.isReady());
        QCOMPARE(mekTp::cataloguePath(), other);
        QVERIFY(!SingleCopy(other, lock).isOnly());
        QVERIFY(SingleCopy(catalogue(), file(u"lunq.lock"_s)).isOnly());
        mekTp::catalogue = {};
    }

    /// The damaged file keeps its bytes under a name of its own; the new one is beside it until the person wants it.
    void wholePartsTakeThePlace() {
        QVERIFY(QDir(sample_->folder()).mkdir(u"fresh"_s) &&
                QFile::copy(file(u"good.mdb"_s), file(u"fresh/lunq.mdb"_s)));
        QByteArray bytes = contentOf(catalogue());
        bytes.replace(16 + 5, 3,
                      QByteArray(3, '\xff'));  // fractions of the payload: the engine takes it for no database
        writeFile(catalogue(), bytes);
        answers_ = QStringList{rescues, leaves};
        QCOMPARE(titleAfterStart(), u"(ended)"_s);
        QVERIFY2(said_.value(1).contains(u"没有能读取的"), qPrintable(said_.value(1)));
        QCOMPARE(contentOf(catalogue()), bytes);
        QVERIFY(QDir(sample_->folder()).entryList({u"lunq-*"_s}).isEmpty());

        QVERIFY(QFile::remove(catalogue()) && QFile::copy(file(u"good.mdb"_s), catalogue()));
        for (const bool isInPlace : {false, true}) {
            answers_ = QStringList{isInPlace ? u"换上"_s : u"先不换"_s};
            mekTp::setCataloguePath({});
            QCOMPARE(takeOutWhole(), isInPlace);
            QCOMPARE(QDir(sample_->folder()).entryList({u"lunq-取出-*.mdb"_s}).size(), 1);
            QCOMPARE(QDir(sample_->folder()).entryList({u"lunq-损坏-*.mdb"_s}).size(), isInPlace ? 1 : 0);
            QCOMPARE(QDir(sample_->folder()).entryList({u"lunq-取出中*"_s, u"lunq-取出好*"_s}).size(), 0);
        }
        QCOMPARE(titleAfterStart(), u" 我的像册"_s);
    }

    void backupIsRestoredAtTheStart() {
        writeFile(catalogue(), "spoilt");
        QVERIFY(QFile::copy(file(u"good.mdb"_s), file(u"lunq-2026-11-22-1645.mdb"_s)));
        QTimer hand;
        connect(&hand, &QTimer::timeout, this, [] {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (window->objectName() == u"frmHy" && window->isVisible())
                    QTest::mouseClick(window->findChild<QPushButton*>(u"cmdQf"_s), Qt::LeftButton);
        });
        hand.start(5);
        answers_ = QStringList{restores};
        QCOMPARE(titleAfterStart(), u" 我的像册"_s);
        QVERIFY2(said_.value(1).contains(u"已经恢复"), qPrintable(said_.value(1)));
    }

    void secondCopyIsTold() {
        SingleCopy first(catalogue(), file(u"lunq.lock"_s));
        QVERIFY(first.isOnly());
        QCOMPARE(titleAfterStart(), u"(ended)"_s);
        QCOMPARE(said_, QStringList(u"本软件已在运行，不能重复打开！按任意键继续。"_s));
    }
};

const Registered<TestStartUp> registered;

}  // namespace

#include "start_up_test.moc"
