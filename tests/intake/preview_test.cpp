#include "intake/preview/preview_panel.h"
#include "intake_window.h"
#include "panel_bench.h"
#include "platform/base/files.h"

using namespace Qt::Literals::StringLiterals;

namespace {

bool near(int one, int other) {
    return std::abs(one - other) <= 15;
}

/// The panel with its shared controls; the grid's data stand on the album tc01.
class Bench : public PanelBench {
  public:
    explicit Bench(int page) : PanelBench(page) {
        get<QComboBox>(u"cboBm"_s).setEditText(u"tc01 旅行"_s);
        show(u"SELECT * FROM tc01 ORDER BY [序号]"_s);
        panel = std::make_unique<PreviewPanel>(frame);
        QWidget* ground = sstFz->page(page);
        for (const PreviewOpener opener : {intakeRecordOpener, intakeFileOpener, transferOpener})
            panel->makeOpener(opener, ground)->resize(20, 10);
        PictureTaker taker{.isEditing = [this] { return edited; },
                           .caption = [] { return u"tc01 图片： 序号 1 编号 "_s; }};
        panel->makeOpener(recordOpener, ground, taker)->resize(20, 10);
        taker.store = [this](const QString&) { ++kept; };
        panel->makeOpener(buttonOpener, ground, taker)->resize(20, 10);
        panel->pickedFile = [this] { return filePicked; };
        form.show();
        answerFileDialogsWith([this](const FileQuestion&) { return picked; });
    }
    ~Bench() { answerFileDialogsWith({}); }

    void show(const QString& source) { grid.list(source); }
    /// Shows the record of that number.
    void showNumber(int number) {
        grid.findFirst(u"序号 = %1"_s.arg(number));
        if (panel->isOpen())
            panel->showRecord();
        else
            panel->cmdCkClick(sstFz->currentIndex() == 1 ? intakeRecordOpener : recordOpener);
    }
    /// A new picture file.
    QString draw(const QString& name, QSize pixels, const char* format = "JPG") const {
        writePicture(path(name), pixels, Qt::red, format);
        return path(name);
    }
    ImageBox& image() { return get<ImageBox>(u"imgWj"_s); }
    QString line() { return label(u"lblWj"_s); }
    QGroupBox& group() { return get<QGroupBox>(u"fraCk"_s); }
    int widthInTwips(const QString& name) { return twips(name).width(); }
    void load(const QString& path) {
        picked = path;
        click(u"cmdAz"_s);
    }

    std::unique_ptr<PreviewPanel> panel;
    QString picked;      ///< In the file dialog.
    QString filePicked;  ///< In the list of files.
    bool edited = true;
    int kept = 0;
};

class TestPreview : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void opens() {
        const std::tuple<int, QSize, bool> cases[] = {{0, QSize(4935, 5745), false},
                                                      {1, QSize(4305, 5745), false},
                                                      {2, QSize(4800, 3480), true},
                                                      {3, QSize(4305, 5745), false},
                                                      {4, QSize(4290, 5835), true}};
        for (const auto& [index, size, takesIn] : cases) {
            Bench bench(2);
            bench.filePicked = bench.draw(u"a.jpg"_s, {80, 60});
            bench.panel->cmdCkClick(static_cast<PreviewOpener>(index));
            QVERIFY(bench.panel->isOpen());
            const QRect frame = bench.twips(u"fraCk"_s);
            QVERIFY(near(frame.width(), size.width()) && near(frame.height(), size.height()));
            QCOMPARE(bench.button(u"cmdAz"_s).isVisible(), takesIn);
            QCOMPARE(bench.button(u"cmdAq"_s).isVisible(), takesIn);
            QVERIFY(!takesIn || !bench.button(u"cmdAq"_s).isEnabled());
            QVERIFY(!bench.button(element(u"cmdCk"_s, index)).isEnabled());
            QVERIFY(!bench.image().picture().isNull());
            QVERIFY(bench.group().rect().contains(bench.image().geometry()));
            QVERIFY(bench.group().rect().contains(bench.button(u"cmdCg"_s).geometry()));
            bench.click(u"cmdCg"_s);
            QVERIFY(!bench.panel->isOpen() && bench.button(element(u"cmdCk"_s, index)).isEnabled());
        }
    }

    void showsRecords() {
        Bench bench(1);
        bench.showNumber(4);
        QCOMPARE(bench.line(), u"tc01 旅行 序号：4\n规格：100*50"_s);
        QVERIFY(near(bench.twips(u"imgWj"_s).height(), 2000));
        QVERIFY(bench.get<QCheckBox>(u"chkCk"_s).isEnabled());
        QTest::mouseClick(&bench.get<QCheckBox>(u"chkCk"_s), Qt::LeftButton);
        QCOMPARE(bench.image().size(), QSize(100, 50));

        for (const FieldValue& nothing : {FieldValue(), FieldValue(QByteArray(""))}) {
            putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"图片"_s, nothing);
            bench.showNumber(5);
            QVERIFY(bench.image().picture().isNull());
            QCOMPARE(bench.line(), u"tc01 旅行 序号：5\n这条记录没有图片"_s);
            QVERIFY(bench.get<QLabel>(u"lblKt"_s).isVisible() && !bench.get<QCheckBox>(u"chkCk"_s).isEnabled());
            bench.showNumber(4);
            QVERIFY(!bench.image().picture().isNull() && !bench.get<QLabel>(u"lblKt"_s).isVisible());
        }
        // Bytes that are no picture do not leave the picture of another record standing.
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"图片"_s, QByteArray("text"));
        bench.showNumber(5);
        QCOMPARE(bench.line(), u"tc01 旅行 序号：5\n这条记录的数据不是图片，不能显示"_s);
        QVERIFY(bench.image().picture().isNull());
        bench.show(u"SELECT * FROM tc02 ORDER BY [序号]"_s);
        bench.panel->showRecord();
        QCOMPARE(bench.line(), QString());
        QVERIFY(!bench.get<QCheckBox>(u"chkCk"_s).isEnabled());
    }

    void fileThatIsNoPicture() {
        Bench bench(1);
        bench.panel->cmdCkClick(intakeRecordOpener);
        bench.panel->showFile(bench.path(u"none.jpg"_s));
        QVERIFY(!bench.image().picture().isNull());
        QCOMPARE(bench.line(), u"图片文件："_s + bench.path(u"none.jpg"_s) + u"\n规格：40*30"_s);
    }

    void fileThatIsNoPictureAfterNone() {
        Bench bench(2);
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"图片"_s, FieldValue());
        bench.showNumber(5);
        bench.write(u"x.jpg"_s, "text");
        bench.load(bench.path(u"x.jpg"_s));
        QCOMPARE(bench.group().title(), u"图片规格：\n文件不是图片，不能显示"_s);
        QVERIFY(bench.line().endsWith(u"\n文件不是图片，不能显示"_s));
    }

    void largePicturesKeepToTheBox() {
        Bench bench(1);
        bench.filePicked = bench.draw(u"a.jpg"_s, {1600, 1200});
        bench.panel->cmdCkClick(intakeFileOpener);
        QVERIFY(!bench.get<QCheckBox>(u"chkCk"_s).isEnabled());
        QVERIFY(std::abs(bench.image().width() - 267) <= 1 && bench.image().height() == 200);
        QVERIFY(bench.line().endsWith(u"规格：1600*1200"_s));
    }

    void enlarges() {
        Bench bench(2);
        bench.panel->cmdCkClick(recordOpener);
        QCOMPARE(bench.group().title(), u"tc01 图片： 序号 1 编号 "_s);
        QTest::mouseDClick(&bench.image(), Qt::LeftButton);
        QVERIFY(near(bench.widthInTwips(u"fraCk"_s), 9200) && near(bench.widthInTwips(u"imgWj"_s), 7600));
        QVERIFY(bench.get<QLabel>(u"Label6"_s).isVisible());
        QTest::mouseDClick(&bench.image(), Qt::LeftButton);
        QVERIFY(near(bench.widthInTwips(u"fraCk"_s), 4805) && near(bench.widthInTwips(u"imgWj"_s), 4000));
        QTest::mouseDClick(&bench.image(), Qt::LeftButton);
        bench.click(u"cmdCg"_s);
        bench.panel->cmdCkClick(recordOpener);
        QVERIFY(near(bench.widthInTwips(u"shpWj"_s), 4095));
    }

    void isDraggedByItsTitle() {
        Bench bench(2);
        bench.panel->cmdCkClick(recordOpener);
        QWidget& frame = bench.group();
        const QPoint place = frame.pos();
        const auto drag = [&](const QPoint& from, const QPoint& by) {
            QTest::mousePress(&frame, Qt::LeftButton, {}, from);
            QTest::mouseMove(&frame, from + by);
            QTest::mouseRelease(&frame, Qt::LeftButton, {}, from);
            QTest::mouseMove(&frame, from + QPoint(5, 5));
        };
        drag({30, 8}, {70, -40});
        QCOMPARE(frame.pos(), place + QPoint(70, -40));
        drag({4, 100}, {50, 50});
        QCOMPARE(frame.pos(), place + QPoint(70, -40));
        drag({30, 8}, {4000, 4000});  // it stays on the page
        QCOMPARE(frame.geometry().bottomRight(), frame.parentWidget()->rect().bottomRight());
        // Another record moves it nowhere; opened anew it is back.
        bench.showNumber(4);
        QCOMPARE(frame.geometry().bottomRight(), frame.parentWidget()->rect().bottomRight());
        bench.click(u"cmdCg"_s);
        bench.panel->cmdCkClick(recordOpener);
        QCOMPARE(frame.pos(), place);
    }

    void enlargesOnlyWhereRecordsAreEdited() {
        Bench bench(1);
        bench.panel->cmdCkClick(intakeRecordOpener);
        QTest::mouseDClick(&bench.image(), Qt::LeftButton);
        QVERIFY(bench.widthInTwips(u"fraCk"_s) < 5000);
    }

    void storesIntoTheRecord() {
        const std::tuple<int, bool> cases[] = {{16384, true}, {40000, false}};
        for (const auto& [length, takeDate] : cases) {
            Bench bench(2);
            bench.showNumber(7);
            QByteArray bytes = pictureBytes({60, 45}, Qt::red);
            bytes.append(QByteArray(length - bytes.size(), 'x'));
            bench.write(u"新.jpg"_s, bytes);
            bench.write(u"ls.jpg"_s, "somebody's own");
            const QString oldDate = ofNumber(7, u"日期"_s);
            bench.load(bench.path(u"新.jpg"_s));
            QCOMPARE(bench.group().title(), u"图片规格：\n60 * 45"_s);
            const QImage seen = bench.group().grab().toImage();
            bench.group().setTitle(u"图片规格：60 * 45"_s);
            QCOMPARE(bench.group().grab().toImage(), seen);  // there is room for one line
            QVERIFY(bench.button(u"cmdAq"_s).isEnabled() && bench.form.focusWidget() == &bench.button(u"cmdAq"_s));
            bench.answer = takeDate;
            bench.click(u"cmdAq"_s);
            const QString newDate = FieldValue(FileDateTime(bench.picked)).toText();
            QCOMPARE(bench.said, QStringList{u"  所选图片日期是："_s + newDate + u"\n原有图片的日期是："_s + oldDate +
                                             u"\n\n如果要更改，请按《确定》；否则按《取消》。"_s});
            QCOMPARE(stored(u"tc01"_s, 7), bytes);
            QCOMPARE(ofNumber(7, u"规格"_s), u"60 * 45"_s);
            QCOMPARE(ofNumber(7, u"日期"_s), takeDate ? newDate : oldDate);
            QCOMPARE(bench.grid.records().Fields(u"序号"_s).Value().toInteger(), 7);
            QVERIFY(!bench.panel->isOpen());
            QCOMPARE(contentOf(bench.path(u"ls.jpg"_s)), QByteArray("somebody's own"));
        }
    }

    void storesNoPictureThatIsNone() {
        Bench bench(2);
        bench.panel->cmdCkClick(recordOpener);
        const QByteArray old = stored(u"tc01"_s, 1);
        bench.write(u"x.jpg"_s, "text");
        bench.load(bench.path(u"x.jpg"_s));
        bench.click(u"cmdAq"_s);
        QCOMPARE(bench.said.size(), 1);
        QVERIFY(bench.said.first().contains(bench.picked));
        QCOMPARE(stored(u"tc01"_s, 1), old);
        QCOMPARE(bench.grid.records().EditMode(), Recordset::Mode::none);
    }

    void cancelledDialogShowsTheRecordAgain() {
        Bench bench(2);
        bench.panel->cmdCkClick(recordOpener);
        bench.edited = false;
        bench.load(bench.draw(u"a.jpg"_s, {60, 45}));
        QVERIFY(!bench.button(u"cmdAq"_s).isEnabled());
        bench.load({});
        QCOMPARE(bench.image().picture().pixels(), QSize(40, 30));
        QVERIFY(bench.button(u"cmdAz"_s).isEnabled());
        QCOMPARE(bench.panel->loadedFile(), QString());
    }

    void buttonPictures() {
        Bench bench(0);
        bench.show(u"SELECT * FROM tcan ORDER BY [编号]"_s);
        bench.panel->cmdCkClick(buttonOpener);
        bench.load(bench.draw(u"a.bmp"_s, {106, 75}, "BMP"));
        QCOMPARE(bench.line(), u"图片规格：\n106 * 75"_s);
        bench.click(u"cmdAq"_s);
        QVERIFY(bench.said.last().startsWith(u"本图片的尺寸不适合作为按钮图片，(规格106*75 宽高比1.41)\n\n"_s));
        QVERIFY(bench.panel->isOpen() && !bench.button(u"cmdAq"_s).isEnabled());
        bench.load(bench.draw(u"a.bmp"_s, {100, 75}, "BMP"));
        bench.click(u"cmdAq"_s);
        QCOMPARE(bench.kept, 1);
        QVERIFY(!bench.panel->isOpen());
    }
};

const Registered<TestPreview> registered;

}  // namespace

#include "preview_test.moc"
