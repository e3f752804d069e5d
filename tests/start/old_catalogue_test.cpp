#include "jet_maker/old_catalogue.h"

#include "../platform/database/jet_files.h"
#include "../support/disk_faults.h"
#include "../support/sample_catalogue.h"
#include "platform/base/file_lock.h"
#include "platform/desktop/message_box.h"
#include "start/start_up.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::Literals::StringLiterals;

/// The start of the program beside a catalogue of an older format. Boxes get answers in their turn; the window of the
/// report is closed by its button.
class TestOldCatalogue : public SampleTest {
    Q_OBJECT

    std::unique_ptr<JetFiles> jets_;
    QTimer hand_;
    QStringList answers_, said_, reported_;
    bool losesRights_ = false;  ///< With the first box.
    std::optional<PlainUser> user_;
    QByteArray old_;

    QString file(const QString& name) const { return sample_->file(name); }
    /// But for journals, which are empty between two changes.
    QStringList files() const {
        QStringList names = QDir(sample_->folder()).entryList(QDir::Files, QDir::Name);
        names.removeIf(
            [this](const QString& name) { return name.endsWith(u"-journal") && QFileInfo(file(name)).size() == 0; });
        return names;
    }

    void put(const QList<jet::Table>& tables) { put(jet::database(tables)); }
    void put(const QByteArray& old) {
        old_ = old;
        writeFile(file(u"lunq.mdb"_s), old);
    }

    static QList<jet::Table> tables() {
        return jet::oldCatalogueTables(
            {.albums = {{u"tc00"_s, u"演示"_s, {pictureBytes({40, 30}, Qt::red)}},
                        {u"tc01"_s, u"旅行"_s, {pictureBytes({40, 30}, Qt::blue), QByteArray("x")}}},
             .buttonPicture = pictureBytes({100, 75}, Qt::green)});
    }

    void workReport() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() != u"frmBg" || !window->isVisible()) continue;
            const auto* list = window->findChild<QTableView*>(u"lstBg"_s);
            for (int row = 0; row < list->model()->rowCount(); ++row)
                reported_ << list->model()->index(row, 0).data().toString() + u'：' +
                                 list->model()->index(row, 2).data().toString();
            QTest::mouseClick(window->findChild<QPushButton*>(u"cmdBg"_s), Qt::LeftButton);
        }
    }

  private Q_SLOTS:
    void init() {
        jets_ = std::make_unique<JetFiles>();
        SampleTest::init();
        mekTp::catalogue = {};
        QVERIFY(QDir(sample_->folder()).mkdir(u"fresh"_s));
        QVERIFY(QFile::rename(file(u"lunq.mdb"_s), file(u"fresh/lunq.mdb"_s)));
        QFile::remove(file(u"lunq.mdb-journal"_s));  // empty
        put(tables());
        answers_.clear();
        said_.clear();
        reported_.clear();
        losesRights_ = false;
        chooseInBoxesWith([this](const BoxText& box) {
            said_ << box.text;
            if (losesRights_ && !user_) user_.emplace();
            if (box.answers.size() == 1) return 0;
            return int(box.answers.indexOf(answers_.isEmpty() ? u"退出"_s : answers_.takeFirst()));
        });
        connect(&hand_, &QTimer::timeout, this, &TestOldCatalogue::workReport, Qt::UniqueConnection);
        hand_.start(5);
    }
    void cleanup() {
        hand_.stop();
        chooseInBoxesWith({});
        user_.reset();
        mekTp::catalogue = {};
        mekTp::setCataloguePath({});
        SampleTest::cleanup();
        jets_.reset();
    }

    void itIsConvertedWhenThePersonWants() {
        QVERIFY(!StartUp().isReady());
        QVERIFY2(said_.value(0).contains(u"旧版的像册") && said_[0].contains(u"lunq-旧.mdb"),
                 qPrintable(said_.value(0)));
        QCOMPARE(files(), QStringList(u"lunq.mdb"_s));
        QCOMPARE(contentOf(file(u"lunq.mdb"_s)), old_);

        answers_ = QStringList{u"转换"_s};
        {
            StartUp startUp;
            QVERIFY(startUp.isReady());
            QVERIFY2(said_.last().startsWith(u"转换完成！  已转换 3 张"), qPrintable(said_.last()));
            QCOMPARE(reported_.value(0), u"tc01 序号＝2：图片不是 BMP 或 JPEG，按原样转换"_s);
            QCOMPARE(reported_.size(), 3);
            QVERIFY(mekTp::catalogue.isOpen() && mekTp::catalogue.isOurs());
            QCOMPARE(fieldOf(u"tcsz"_s, u"像册标题"_s).toText(), u"我的老像册"_s);
            QCOMPARE(FileLock().take(file(u"lunq.mdb"_s)), FileLock::Outcome::heldByAnother);
            mekTp::catalogue = {};
        }
        QCOMPARE(files(), (QStringList{u"lunq-旧.mdb"_s, u"lunq.mdb"_s}));
        QCOMPARE(contentOf(file(u"lunq-旧.mdb"_s)), old_);
        said_.clear();
        QVERIFY(StartUp().isReady());
        QCOMPARE(said_, QStringList());
    }

    /// Western texts among the Chinese ones of a file that says to be western: the person has a look.
    void doubtfulTextsAreShown() {
        QList<jet::Table> western = tables();
        for (jet::Table& table : western)
            for (jet::Column& column : table.columns)
                if (QStringList{u"序号"_s, u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s, u"图片"_s, u"备注"_s}.contains(
                        column.name))
                    column.name += u'X';
        // So many that the characters around them prove nothing.
        jet::Row text = jet::tableOf(western, u"tcbz"_s).rows[0];
        text[1] = QByteArray("caf\xe9");
        for (int row = 0; row < 8; ++row) jet::tableOf(western, u"tcbz"_s).rows << text;
        QByteArray bytes = jet::database(western, {.version = jet::Version::jet3});
        constexpr qsizetype place = 0x3C;
        for (const int at : {0, 1}) bytes[place + at] = char(bytes[place + at] ^ (936 ^ 1252) >> 8 * at);
        put(bytes);
        answers_ = QStringList{u"中文"_s, u"转换"_s};
        QVERIFY(!StartUp().isReady());
        QVERIFY2(said_.value(0).contains(u"读得通的是哪一种"), qPrintable(said_.value(0)));
        QVERIFY(said_.value(1).contains(u"旧版的像册"));
        // No column has the name of a picture: there is nothing to convert.
        QVERIFY2(said_.value(2).contains(u"没有一个图册能够读取"), qPrintable(said_.value(2)));
        QCOMPARE(files(), QStringList(u"lunq.mdb"_s));
    }

    void albumsAloneAreACatalogue() {
        QList<jet::Table> albums = tables();
        albums.removeIf([](const jet::Table& table) { return table.name == u"tcbm" || table.name == u"tcsz"; });
        put(albums);
        QVERIFY(!StartUp().isReady());
        QVERIFY2(said_.value(0).contains(u"旧版的像册"), qPrintable(said_.value(0)));
    }

    /// It is told why, and the question comes again.
    void obstaclesAreTold() {
        const std::pair<QString, std::function<void()>> cases[] = {
            {u"fresh/lunq.mdb"_s, [this] { QVERIFY(QFile::remove(file(u"fresh/lunq.mdb"_s))); }},
            {u"lunq.mdb-journal"_s,
             [this] {
                 jets_->write(u"x"_s, {});
                 writeFile(file(u"lunq.mdb-journal"_s), "way back");
             }},
        };
        for (const auto& [reason, arrange] : cases) {
            arrange();
            said_.clear();
            answers_ = QStringList{u"转换"_s};
            QVERIFY(!StartUp().isReady());
            QCOMPARE(said_.size(), 3);
            QVERIFY2(said_[1].contains(reason), qPrintable(said_[1]));
            QCOMPARE(contentOf(file(u"lunq.mdb"_s)), old_);
        }
    }

    void folderWithoutRightsIsTold() {
        QVERIFY(QFile::setPermissions(jets_->scratch.path(), QFile::Permissions(0x7777)));
        QVERIFY(QFile::setPermissions(sample_->folder(), QFile::Permissions(0x5555)));
        losesRights_ = true;  // behind the reading: a helper under the sanitizers needs them
        answers_ = QStringList{u"转换"_s};
        const bool isReady = StartUp().isReady();
        user_.reset();
        QVERIFY(!isReady);
        QVERIFY(QFile::setPermissions(sample_->folder(), QFile::Permissions(0x7777)));
        QVERIFY2(said_.value(1).contains(u"不能写入，不能转换"), qPrintable(said_.value(1)));
        QCOMPARE(files().filter(u"lunq-"_s), QStringList());  // but the lock, which cannot be removed either
        QCOMPARE(contentOf(file(u"lunq.mdb"_s)), old_);
    }

    /// By the button, in a catalogue that takes long enough.
    void conversionCanBeStopped() {
        QList<jet::Table> many = tables();
        jet::Table& album = jet::tableOf(many, u"tc01"_s);
        for (int number = 3; number < 3000; ++number) {
            album.rows << album.rows[0];
            album.rows.last()[0] = number;
        }
        put(many);
        answers_ = QStringList{u"转换"_s};
        connect(&hand_, &QTimer::timeout, this, [this] {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (window->objectName() == u"frmZh" && window->isVisible() &&
                    window->findChild<QLabel*>(u"lblJd"_s)->text().contains(u'/'))
                    QTest::mouseClick(window->findChild<QPushButton*>(u"cmdTz"_s), Qt::LeftButton);
        });
        QVERIFY(!StartUp().isReady());
        QCOMPARE(said_.size(), 2);  // the question, twice
        QCOMPARE(files(), QStringList(u"lunq.mdb"_s));
        QCOMPARE(contentOf(file(u"lunq.mdb"_s)), old_);
    }

    void finishedConversionTakesItsPlace() {
        QVERIFY(QFile::rename(file(u"lunq.mdb"_s), file(u"lunq-旧.mdb"_s)));
        QVERIFY(QFile::copy(file(u"fresh/lunq.mdb"_s), file(u"lunq-转换好.mdb"_s)));
        QVERIFY(QFile::remove(file(u"fresh/lunq.mdb"_s)));
        QVERIFY(StartUp().isReady());
        QCOMPARE(files(), (QStringList{u"lunq-旧.mdb"_s, u"lunq.mdb"_s}));
    }

    void otherJetDatabasesAreNoCatalogues() {
        put({{u"Kunden"_s, {{u"Name"_s, jet::Type::text, 20}}, {{u"x"_s}}}});
        QVERIFY(!StartUp().isReady());
        QVERIFY2(said_.value(0).contains(u"其他软件的数据库"), qPrintable(said_.value(0)));
    }
};

const Registered<TestOldCatalogue> registered;

#include "old_catalogue_test.moc"
