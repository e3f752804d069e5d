#include "intake/browsing/picture_files.h"
#include "intake_window.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A folder with pictures of two formats in it and below it.
class MixedFolder : public IntakeWindow {
  public:
    MixedFolder() {
        mekTp::openCatalogue();  // with what is remembered
        open();
        tabs().setCurrentIndex(1);
        addAll({u"1.jpg"_s, u"10.jpg"_s});
        add(u"2.PNG"_s, {60, 45}, "PNG");
        addBytes(u"3.png"_s, "no picture");
        for (const QString& folder : {u"10"_s, u"2"_s, u"2/内"_s}) QDir(pictures.path()).mkdir(folder);
        add(u"2/b.jpg"_s);
        add(u"10/a.jpg"_s);
        add(u"2/内/c"_s, {60, 45}, "PNG");
        QFile::link(pictures.path(), path(u"2/内/round"_s));
    }

    void tick(const QString& name) const {
        QTest::mouseClick(&get<QCheckBox>(name), Qt::LeftButton, {}, QPoint(8, get<QWidget>(name).height() / 2));
    }
    /// From another program; tells whether the window takes them. `next` is what the person does right after it.
    bool drop(const QStringList& names, const std::function<void()>& next = {}) const {
        QMimeData files;
        QList<QUrl> urls;
        for (const QString& name : names) urls << QUrl::fromLocalFile(path(name));
        files.setUrls(urls);
        return offer(files, next);
    }
    bool offer(const QMimeData& data, const std::function<void()>& next = {}) const {
        QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(form.get(), &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent dropped(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(form.get(), &dropped);
        if (next) QMetaObject::invokeMethod(form.get(), next, Qt::QueuedConnection);
        QCoreApplication::processEvents();
        return true;
    }
    bool isTicked(const QString& name) const { return get<QCheckBox>(name).isChecked(); }
    QStringList listed() const { return linesOf(files()); }
};

/// A person who types names into the box that asks for them, one after the other; an empty one is Esc.
class NameTyping {
  public:
    NameTyping(const QStringList& names, QStringList& proposed) : names_(names), proposed_(proposed) {
        QObject::connect(&clock_, &QTimer::timeout, [this] { type(); });
        clock_.start(5);
    }

  private:
    void type() {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || names_.isEmpty()) return;
        auto* box = dialog->findChild<QLineEdit*>();
        proposed_ << box->text();
        const QString name = names_.takeFirst();
        if (!name.isEmpty()) {
            box->selectAll();
            box->insert(name);
        }
        QTest::keyClick(box, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    }

    QStringList names_;
    QStringList& proposed_;
    QTimer clock_;
};

class TestOtherFormats : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    /// The engine's locks on a file go when any descriptor of it in this process is closed.
    void aLookAtTheOpenAlbumLeavesItsLocks() {
        const SampleCatalogue catalogue;
        const QString link = catalogue.file(u"photo"_s);
        QVERIFY(QFile::link(mekTp::cataloguePath(), link));
        const int album = open(QFile::encodeName(mekTp::cataloguePath()).constData(), O_RDWR | O_CLOEXEC);
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_len = 1;
        QCOMPARE(fcntl(album, F_SETLK, &lock), 0);
        QVERIFY(!isPictureByContent(mekTp::cataloguePath()) && !isPictureByContent(link));
        const pid_t other = fork();
        if (other == 0) _exit(fcntl(album, F_GETLK, &lock) == 0 && lock.l_type == F_WRLCK ? 0 : 1);
        int status = 1;
        waitpid(other, &status, 0);
        close(album);
        QCOMPARE(status, 0);
    }

    void listedByContentAndKeptAsJpeg() {
        MixedFolder window;
        window.expect({.hidden = u"chkGs chkZw chkPz chkSm"_s});
        window.prepare(u"tc02"_s, 1);
        window.expect({.shown = u"chkGs chkZw chkPz chkSm"_s, .unchecked = u"chkGs chkZw chkPz chkSm"_s});
        QCOMPARE(window.listed(), (QStringList{u"1.jpg"_s, u"10.jpg"_s}));
        window.clickFile(u"1.jpg"_s);
        window.tick(u"chkGs"_s);
        QCOMPARE(window.listed(), (QStringList{u"1.jpg"_s, u"2.PNG"_s, u"10.jpg"_s}));
        QVERIFY(window.echo().isEmpty() && !window.isEnabled(u"cmdLr"_s));
        const QByteArray file = window.bytesOf(u"2.PNG"_s);
        window.clickFile(u"2.PNG"_s);
        window.click(u"cmdCk(1)"_s);
        QCOMPARE(window.get<ImageBox>(u"imgWj"_s).picture().pixels(), QSize(60, 45));
        window.click(u"cmdCg"_s);
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said().last(), entered(1));
        QVERIFY(stored(u"tc02"_s, 1).startsWith("\xff\xd8"));
        QCOMPARE(window.bytesOf(u"2.PNG"_s), file);
        window.option(u"optYl(1)"_s);
        window.expect({.hidden = u"chkGs chkZw chkPz chkSm"_s});
    }

    void choicesAreRemembered() {
        MixedFolder window;
        window.prepare(u"tc02"_s, 1);
        for (const QString& name : {u"chkGs"_s, u"chkPz"_s, u"chkSm"_s, u"chkZw"_s}) window.tick(name);
        window.open();
        window.tabs().setCurrentIndex(1);
        for (const QString& name : {u"chkGs"_s, u"chkPz"_s, u"chkSm"_s}) QVERIFY(window.isTicked(name));
        QVERIFY(!window.isTicked(u"chkZw"_s));
        window.prepare(u"tc02"_s, 1);
        QCOMPARE(window.listed().size(), 3);
        QTest::mouseClick(&window.get<QCheckBox>(u"chkZd"_s), Qt::LeftButton, {}, QPoint(8, 10));
        window.expect({.enabled = u"chkSm"_s, .disabled = u"chkPz"_s});  // no 日期 is filled in
    }

    void foldersBelow() {
        MixedFolder window;
        window.prepare(u"tc02"_s, 1);
        window.tick(u"chkZw"_s);
        window.expect({.disabled = u"fil1 cmdQx cmdLr"_s});
        const QStringList byEnding{u"1.jpg"_s, u"2/b.jpg"_s, u"10.jpg"_s, u"10/a.jpg"_s};
        QTRY_COMPARE(window.listed(), byEnding);
        window.expect({.shown = u"lblGy"_s, .enabled = u"fil1 cmdQx"_s, .disabled = u"cmdLr"_s});
        QCOMPARE(window.label(u"lblGy"_s), u"该文件夹（目录）共有图片4张"_s);
        window.enterAll();
        QCOMPARE(window.said().last(), entered(4));
        QCOMPARE(window.listed(), byEnding);

        window.option(u"optYl(0)"_s);
        window.tick(u"chkGs"_s);
        QTRY_COMPARE(window.listed().size(), 6);
        QVERIFY(window.listed().contains(u"2/内/c"_s));
        window.option(u"optCz(0)"_s);
        QVERIFY(!window.isTicked(u"chkZw"_s));
        window.expect({.disabled = u"chkZw"_s});
        QCOMPARE(window.listed(), (QStringList{u"1.jpg"_s, u"2.PNG"_s, u"10.jpg"_s}));
        window.option(u"optCz(1)"_s);
        window.expect({.enabled = u"chkZw"_s});
    }

    /// What is not wanted any more never comes.
    void aSearchIsGivenUp() {
        MixedFolder window;
        window.prepare(u"tc02"_s, 1);
        window.tick(u"chkZw"_s);
        window.tick(u"chkZw"_s);
        QCOMPARE(window.listed(), (QStringList{u"1.jpg"_s, u"10.jpg"_s}));
        window.tick(u"chkZw"_s);
        window.enterFolder(u"10"_s);
        QTRY_COMPARE(window.listed(), QStringList{u"a.jpg"_s});
        window.enterFolder(u"2"_s);
        window.tabs().setCurrentIndex(2);
        QTest::qWait(50);
        QVERIFY(window.listed().isEmpty());
        window.tabs().setCurrentIndex(1);
        QTRY_COMPARE(window.listed().size(), 4);  // a link leads to the folder above
        const QString folder = window.path(u"."_s);
        int questions = 0;
        QCOMPARE(picturesBelow(folder, ListedFiles::byContent, [&](qsizetype) { return ++questions < 2; }),
                 QStringList());
        QCOMPARE(questions, 2);
    }

    void droppedFilesBecomeTheSelection() {
        MixedFolder window;
        window.tabs().setCurrentIndex(0);
        QVERIFY(window.drop({u"1.jpg"_s}));
        QCOMPARE(window.said(), QStringList{u"请先选择要录入的图册，然后才能继续！"_s});
        window.choose(u"cboBm"_s, u"tc02"_s);
        window.drop({u"10.jpg"_s, u"1.jpg"_s});
        QVERIFY(window.checked(u"optYl(0)"_s) && window.checked(u"optCz(1)"_s) && window.said().isEmpty());
        QCOMPARE(window.echo(), u"1.jpg;10.jpg等共2条"_s);
        window.drop({u"2.PNG"_s, u"3.png"_s});
        QCOMPARE(window.said(), QStringList{u"这些文件不是可以录入的图片：3.png"_s});
        QCOMPARE(window.echo(), u"2.PNG"_s);
        QVERIFY(window.isTicked(u"chkGs"_s));
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said().last(), entered(1));
        window.drop({u"10.jpg"_s, u"1.jpg"_s});  // 2.PNG is between them
        QCOMPARE(window.echo(), u"1.jpg;10.jpg等共2条"_s);

        window.drop({u"1.jpg"_s, u"2/b.jpg"_s});
        QCOMPARE(window.said(), QStringList{u"一次可以拖入一个文件夹，或同一个文件夹里的文件。"_s});
        window.drop({u"2"_s});
        QVERIFY(window.echo().endsWith(u"(选择全部)共1条"_s));
        window.tick(u"chkZw"_s);
        window.drop({u"."_s});
        QTRY_VERIFY(window.echo().endsWith(u"(选择全部)共6条"_s));
        QCOMPARE(numbersOf(u"tc02"_s), QStringList{u"1"_s});
    }

    /// While what is below the folder is searched for, the person turns to something else.
    void aDroppedFolderIsForgotten() {
        MixedFolder window;
        const std::pair<const char*, std::function<void()>> ways[] = {
            {"another folder", [&] { window.enterFolder(u"10"_s); }},
            {"another page",
             [&] {
                 window.tabs().setCurrentIndex(2);
                 window.tabs().setCurrentIndex(1);
             }},
            {"the source", [&] { window.option(u"optYl(0)"_s); }},
            {"a step back", [&] { window.click(u"cmdQ1"_s); }},
        };
        for (const auto& [name, way] : ways) {
            window.prepare(u"tc02"_s, 1);
            if (!window.isTicked(u"chkZw"_s)) window.tick(u"chkZw"_s);
            window.drop({u"2"_s}, way);
            QTRY_VERIFY2(!window.listed().isEmpty(), name);
            QVERIFY2(window.files().selectedItems().isEmpty(), name);
            QVERIFY2(!window.enabled(u"cmdLr"_s), name);
        }
    }

    /// No file ends like a picture there.
    void aDroppedFolderOfOtherFormatsIsTaken() {
        for (const bool below : {false, true}) {
            MixedFolder window;
            window.prepare(u"tc02"_s, 1);
            if (below) window.tick(u"chkZw"_s);
            QVERIFY(QFile::remove(window.path(u"2/内/round"_s)));
            window.drop({u"2/内"_s});
            QTRY_VERIFY(window.echo().endsWith(u"(选择全部)共1条"_s));
            QVERIFY(window.isTicked(u"chkGs"_s) && window.said().isEmpty());
        }
    }

    /// As browsers drop them: with the address that they come from.
    void aPictureWithoutAFileAsksForItsName() {
        MixedFolder window;
        window.choose(u"cboBm"_s, u"tc02"_s);
        const QByteArray jpeg = pictureBytes({40, 30}, Qt::red);
        QMimeData picture;
        picture.setData(u"image/jpeg"_s, jpeg);
        picture.setUrls({QUrl(u"https://example.org/a%20b.webp"_s)});
        struct Case {
            QStringList typed;
            QString chosen;
        };
        for (const auto& [typed, chosen] : {Case{{u"鱼 1"_s}, u"鱼 1.jpg"_s},
                                            {{u"鱼 1"_s, u"a/b"_s, u"鱼 2"_s}, u"鱼 2.jpg"_s},
                                            {{QString()}, u"鱼 2.jpg"_s}}) {
            QStringList proposed;
            const NameTyping typing(typed, proposed);
            window.offer(picture);
            QTRY_COMPARE(proposed.size(), typed.size());
            QTRY_COMPARE(window.echo(), chosen);
            QCOMPARE(proposed.front(), u"a b"_s);
        }
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said().last(), entered(1));
        QCOMPARE(stored(u"tc02"_s, 1).first(jpeg.size()), jpeg);
    }

    void whatIsOnTheClipboardIsPasted() {
        MixedFolder window;
        window.choose(u"cboBm"_s, u"tc02"_s);
        QImage pixels({30, 20}, QImage::Format_RGB32);
        pixels.fill(Qt::green);
        QGuiApplication::clipboard()->setImage(pixels);
        QStringList proposed;
        const NameTyping typing({u"剪贴"_s}, proposed);
        QTest::keyClick(window.form.get(), Qt::Key_V, Qt::ControlModifier);
        QTRY_COMPARE(window.echo(), u"剪贴.png"_s);
        QCOMPARE(proposed, QStringList{u"图片"_s});
        QVERIFY(window.isTicked(u"chkGs"_s));
    }
};

const Registered<TestOtherFormats> registered;

}  // namespace

#include "other_formats_test.moc"
