#include "intake_window.h"
#include "platform/picture/picture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// 照片1 and 照片2 in the encoding of old Chinese systems.
const QByteArray oldFirst =
                     "\xD5\xD5\xC6\xAC"
                     "1",
                 oldSecond =
                     "\xD5\xD5\xC6\xAC"
                     "2";

/// Files that are taken in with care: pictures that end early, and names that are no text to the system.
class TestDoubtfulFiles : public QObject {
    Q_OBJECT

    /// A photograph of which the lower part is missing.
    static void addTruncated(const IntakeWindow& window, const QString& name) {
        window.add(name, {400, 300});
        const QByteArray bytes = window.bytesOf(name);
        window.addBytes(name, bytes.first(bytes.size() * 2 / 3));
    }

    /// Answers the box with 也录入 and 不录入 by its place, every other one with 确定.
    static void answerLeftOut(IntakeWindow& window, std::function<int(const BoxText&)> answer) {
        chooseInBoxesWith([&window, answer = std::move(answer)](const BoxText& box) {
            window.boxes << box;
            return box.answers.contains(u"也录入"_s) ? answer(box) : 0;
        });
    }

    std::optional<IntakeWindow> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void truncatedPicturesStayOut() {
        const std::tuple<int, bool> cases[] = {{1, false}, {1, true}, {0, false}, {0, true}};
        for (const auto& [way, taken] : cases) {
            init();
            window_->addAll({u"1.jpg"_s, u"3.jpg"_s, u"5.jpg"_s});
            addTruncated(*window_, u"2.jpg"_s);
            addTruncated(*window_, u"4.jpg"_s);
            // The last row has not the highest number.
            putValue(u"SELECT * FROM tc01 WHERE 序号 = 9"_s, u"序号"_s, 20);
            const QByteArray second = stored(u"tc01"_s, 2);
            // Enter leaves them out, as Escape does.
            answerLeftOut(*window_, [taken = taken](const BoxText& box) { return taken ? 0 : box.onEnter; });
            window_->prepare(u"tc01"_s, way);
            window_->enterAll();

            QCOMPARE(window_->boxes.size(), 3);
            const BoxText& box = window_->boxes[1];
            QVERIFY2(box.text.startsWith(u"其中 2 个文件不完整：2.jpg、4.jpg\n"_s), qPrintable(box.text));
            QCOMPARE(box.answers, (QStringList{u"也录入"_s, u"不录入"_s}));
            QVERIFY(box.onEnter == 1 && box.onEscape == 1);
            QCOMPARE(window_->said().last(), entered(taken ? 5 : 3));
            QCOMPARE(window_->label(u"lblJd"_s), taken ? u"已录入 5 张"_s : u"已录入 3 张，2 张没有录入"_s);
            if (way == 0) {
                QCOMPARE(stored(u"tc01"_s, 2) == second, !taken);
                QVERIFY(!taken || stored(u"tc01"_s, 2).startsWith(window_->bytesOf(u"2.jpg"_s)));
                continue;
            }
            const QStringList numbers{u"21"_s, u"22"_s, u"23"_s, u"24"_s, u"25"_s};
            QCOMPARE(numbersOf(u"tc01"_s).mid(10), numbers.first(taken ? 5 : 3));
            const QStringList files{u"1.jpg"_s, u"3.jpg"_s, u"5.jpg"_s, u"2.jpg"_s, u"4.jpg"_s};
            for (qsizetype i = 0; i < (taken ? 5 : 3); ++i)
                QVERIFY(stored(u"tc01"_s, numbers[i].toInt()).startsWith(window_->bytesOf(files[i])));
        }
    }

    void aSingleTruncatedPicture() {
        for (const bool taken : {false, true}) {
            init();
            addTruncated(*window_, u"1.jpg"_s);
            window_->answer = true;
            answerLeftOut(*window_, [taken](const BoxText&) { return taken ? 0 : 1; });
            window_->prepare(u"tc02"_s, 1);
            window_->enterAll();
            QCOMPARE(window_->said().last(), entered(taken ? 1 : 0));
            QCOMPARE(numbersOf(u"tc02"_s).size(), taken ? 1 : 0);
        }
    }

    void nothingIsAskedAfterAFailure() {
        addTruncated(*window_, u"1.jpg"_s);
        window_->addBytes(u"2.jpg"_s, "no picture");
        const QStringList said = window_->enterInto(u"tc02"_s, 1);
        QCOMPARE(said.size(), 2);
        QVERIFY2(said[0].startsWith(u"文件“2.jpg”没有录入："_s), qPrintable(said[0]));
        QCOMPARE(said[1], entered(0));
        QCOMPARE(window_->report()[1], u"1.jpg|图片不完整，没有录入|"_s);
    }

    void filesWithOddNamesComeIn() {
        window_->addOdd(oldFirst + ".jpg");
        window_->addOdd("caf\xE9.bmp", "BMP");
        window_->add(u"a.jpg"_s);
        window_->prepare(u"tc02"_s, 1);
        QCOMPARE(window_->label(u"lblGy"_s), u"该文件夹（目录）共有图片3张"_s);

        window_->clickFile(u"照片1.jpg"_s);
        QCOMPARE(window_->echo(), u"照片1.jpg"_s);
        window_->click(u"cmdCk(1)"_s);
        QVERIFY(window_->label(u"lblWj"_s).endsWith(u"照片1.jpg\n规格：60*45"_s));
        QCOMPARE(window_->get<ImageBox>(u"imgWj"_s).picture().pixels(), QSize(60, 45));
        window_->click(u"cmdCg"_s);
        window_->click(u"cmdLr"_s);
        QVERIFY(window_->said().first().contains(u"（从文件[照片1.jpg]追加"_s));
        QCOMPARE(valueOf(u"tc02"_s, u"规格"_s), u"60 * 45"_s);
        QCOMPARE(QDateTime::fromString(valueOf(u"tc02"_s, u"日期"_s), u"yyyy-MM-dd HH:mm:ss"_s).date(),
                 QDate::currentDate());
        QVERIFY(stored(u"tc02"_s, 1).startsWith("\xff\xd8"));

        // A BMP of such a name becomes a JPEG in the album alone: no file of another name appears beside it.
        const QStringList before = QDir(window_->pictures.path()).entryList(QDir::Files);
        window_->clickFile(u"caf‹E9›.bmp"_s);
        window_->click(u"cmdLr"_s);
        QCOMPARE(window_->said().last(), entered(1));
        QCOMPARE(LoadPicture(stored(u"tc02"_s, 2), u"2"_s).pixels(), QSize(60, 45));
        QVERIFY(stored(u"tc02"_s, 2).startsWith("\xff\xd8"));
        QCOMPARE(QDir(window_->pictures.path()).entryList(QDir::Files), before);
        QCOMPARE(window_->files().ListCount(), 3);
    }

    void databasesWithOddNamesAreRefusedInWords() {
        window_->addOdd(oldFirst + ".mdb");
        window_->addOdd(oldSecond + ".mdb");
        for (const int page : {1, 3}) {
            window_->tabs().setCurrentIndex(page);
            window_->choose(u"cboBm"_s, u"tc01"_s);
            if (page == 1) {
                window_->option(u"optYl(1)"_s);
                window_->option(u"optCz(1)"_s);
            } else {
                window_->clickRow(0);
                window_->option(u"optMb(1)"_s);
            }
            window_->get<DirList>(u"dir1"_s).setPath(window_->pictures.path());
            window_->clickFile(u"照片2.mdb"_s);
            const QStringList said = window_->said();
            QCOMPARE(said.size(), 1);
            QVERIFY2(said[0].startsWith(u"文件“照片2.mdb”的名称不是系统的编码"_s), qPrintable(said[0]));
            QVERIFY(window_->files().selectedItems().isEmpty());
            window_->expect({.hidden = u"lstSb"_s});
        }
    }

    void aFileThatIsGoneIsTold() {
        window_->addAll({u"it's \"1\".jpg"_s, u"2.jpg"_s});
        window_->addOdd(oldFirst + ".jpg");
        window_->prepare(u"tc02"_s, 1);
        window_->click(u"cmdQx"_s);
        QDir folder(window_->pictures.path());
        QVERIFY(QFile::remove(window_->path(u"it's \"1\".jpg"_s)));
        window_->click(u"cmdLr"_s);
        const QStringList said = window_->said();
        QVERIFY(said[1].contains(u"it's \"1\".jpg"_s) && said[1].contains(u"不存在"_s));
        // The list shows what is left.
        QCOMPARE(window_->files().ListCount(), 2);
        QVERIFY(window_->files().selectedItems().isEmpty());
        QCOMPARE(window_->echo(), QString());
        window_->expect({.disabled = u"cmdLr cmdCk(1)"_s});
    }
};

const Registered<TestDoubtfulFiles> registered;

}  // namespace

#include "doubtful_files_test.moc"
