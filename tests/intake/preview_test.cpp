#include "../support/run_all.h"
#include "intake_window.h"
#include "platform/base/files.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The panel with its shared controls on a bare frame; the grid's data stand on the album tc01.
class Bench {
  public:
    explicit Bench(int page) {
        controls.form = &form;
        controls.sstFz = make<TabControl>(&form, u"sstFz"_s);
        for (int i = 0; i < 4; ++i) controls.sstFz->addPage(QString::number(i));
        place(controls.sstFz, 0, 0, 9600, 6840);
        controls.sstFz->setCurrentIndex(page);
        controls.cboBm = make<QComboBox>(&form, u"cboBm"_s);
        controls.cboBm->addItem(u"tc01 旅行"_s);
        controls.datBj = make<DataControl>(&form, u"datBj"_s);
        controls.datBj->hide();
        controls.datBj->useDatabase(mekTp::catalogue);
        controls.datBj->setDatabaseName(mekTp::cataloguePath());
        show(u"SELECT * FROM tc01 ORDER BY [序号]"_s);
        state.albumTable = u"tc01"_s;
        panel = std::make_unique<PreviewPanel>(controls, state);
        for (int i = 0; i < 5; ++i) panel->makeOpener(i, controls.sstFz->page(page))->resize(20, 10);
        panel->recordNumber = [this] { return controls.datBj->Recordset().Fields(u"序号"_s).Value().toText(); };
        panel->recordBeingEdited = [this] { return edited; };
        panel->buttonBeingEdited = [this] { return edited; };
        panel->storeButtonPicture = [this] { ++stored; };
        form.resize(640, 480);
        form.show();
        answerBoxesWith([this](const BoxText& box) {
            said << box.text;
            return answer;
        });
        answerFileDialogsWith([this](const FileQuestion&) { return picked; });
    }
    ~Bench() {
        answerBoxesWith({});
        answerFileDialogsWith({});
    }

    void show(const QString& source) {
        controls.datBj->setRecordSource(source);
        controls.datBj->Refresh();
    }
    void goTo(int number) { controls.datBj->findFirst(u"序号 = %1"_s.arg(number)); }
    template <typename Control>
    Control& get(const QString& name) {
        return *form.findChild<Control*>(name);
    }
    QPushButton& button(const QString& name) { return get<QPushButton>(name); }
    void click(const QString& name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
    ImageBox& image() { return get<ImageBox>(u"imgWj"_s); }
    QString line() { return get<QLabel>(u"lblWj"_s).text(); }
    QGroupBox& frame() { return get<QGroupBox>(u"fraCk"_s); }
    QRect twips(const QString& name) {
        const auto& control = get<QWidget>(name);
        return {leftOf(&control), topOf(&control), widthOf(&control), heightOf(&control)};
    }
    void load(const QString& path) {
        picked = path;
        click(u"cmdAz"_s);
    }

    SampleCatalogue catalogue;
    QWidget form;
    SharedControls controls;
    FormState state;
    std::unique_ptr<PreviewPanel> panel;
    QStringList said;
    QString picked;
    bool answer = true;
    bool edited = true;
    int stored = 0;
};

class TestPreview : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void opens_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("takesIn");
        QTest::newRow("record at intake") << 0 << QSize(4935, 5745) << false;
        QTest::newRow("file") << 1 << QSize(4305, 5745) << false;
        QTest::newRow("record") << 2 << QSize(4800, 3480) << true;
        QTest::newRow("record at transfer") << 3 << QSize(4305, 5745) << false;
        QTest::newRow("selection button") << 4 << QSize(4290, 5835) << true;
    }
    void opens() {
        QFETCH(int, index);
        QFETCH(bool, takesIn);
        Bench bench(2);
        bench.state.pickedFilePath = bench.catalogue.file(u"a.jpg"_s);
        writePicture(bench.state.pickedFilePath, {80, 60}, Qt::red);
        bench.panel->cmdCkClick(index);
        QVERIFY(bench.panel->isOpen());
        const QRect frame = bench.twips(u"fraCk"_s);
        const QSize size = *static_cast<QSize*>(QTest::qData("size", qMetaTypeId<QSize>()));
        QVERIFY(std::abs(frame.width() - size.width()) <= 15 && std::abs(frame.height() - size.height()) <= 15);
        QCOMPARE(bench.button(u"cmdAz"_s).isVisible(), takesIn);
        QCOMPARE(bench.button(u"cmdAq"_s).isVisible(), takesIn);
        QVERIFY(!takesIn || !bench.button(u"cmdAq"_s).isEnabled());
        QVERIFY(!bench.panel->cmdCk(index)->isEnabled());
        QVERIFY(!bench.image().picture().isNull());
        QVERIFY(bench.frame().rect().contains(bench.image().geometry()));
        QVERIFY(bench.frame().rect().contains(bench.button(u"cmdCg"_s).geometry()));
        bench.click(u"cmdCg"_s);
        QVERIFY(!bench.panel->isOpen() && bench.panel->cmdCk(index)->isEnabled());
    }

    void showsRecords() {
        Bench bench(1);
        bench.goTo(4);
        bench.panel->cmdCkClick(0);
        QCOMPARE(bench.line(), u"tc01 旅行 序号：4\n规格：100*50"_s);
        QVERIFY(std::abs(bench.twips(u"imgWj"_s).height() - 2000) <= 15);
        QVERIFY(bench.get<QCheckBox>(u"chkCk"_s).isEnabled());
        QTest::mouseClick(&bench.get<QCheckBox>(u"chkCk"_s), Qt::LeftButton);
        QCOMPARE(bench.image().size(), QSize(100, 50));

        putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"图片"_s, Variant());
        bench.goTo(5);
        bench.panel->chkCkClick();
        QVERIFY(bench.image().picture().isNull());
        QVERIFY(bench.line().startsWith(u"tc01 旅行 序号：5\n"_s));

        bench.goTo(4);
        bench.panel->chkCkClick();
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"图片"_s, QByteArray(""));
        bench.goTo(5);
        bench.panel->chkCkClick();
        QVERIFY(bench.image().picture().isNull());

        bench.show(u"SELECT * FROM tc02 ORDER BY [序号]"_s);
        bench.panel->chkCkClick();
        QCOMPARE(bench.line(), QString());
    }

    void fileThatIsNoPicture() {
        Bench bench(1);
        bench.panel->cmdCkClick(0);
        bench.state.previewMark = u"w"_s;
        bench.state.newPictureFile = bench.catalogue.file(u"none.jpg"_s);
        bench.panel->chkCkClick();
        QVERIFY(!bench.image().picture().isNull());
        QCOMPARE(bench.line(), u"图片文件："_s + bench.state.newPictureFile + u"\n规格：40*30"_s);
    }

    void largePicturesKeepToTheBox() {
        Bench bench(1);
        bench.state.pickedFilePath = bench.catalogue.file(u"a.jpg"_s);
        writePicture(bench.state.pickedFilePath, {1600, 1200}, Qt::red);
        bench.panel->cmdCkClick(1);
        QVERIFY(!bench.get<QCheckBox>(u"chkCk"_s).isEnabled());
        QVERIFY(std::abs(bench.image().width() - 267) <= 1 && bench.image().height() == 200);
        QVERIFY(bench.line().endsWith(u"规格：1600*1200"_s));
    }

    void enlarges() {
        Bench bench(2);
        bench.panel->cmdCkClick(2);
        QCOMPARE(bench.frame().title(), u"tc01 图片： 序号 1 编号 "_s);
        QTest::mouseDClick(&bench.image(), Qt::LeftButton);
        QVERIFY(std::abs(bench.twips(u"fraCk"_s).width() - 9200) <= 15);
        QVERIFY(std::abs(bench.twips(u"imgWj"_s).width() - 7600) <= 15);
        QVERIFY(bench.get<QLabel>(u"Label6"_s).isVisible());
        QTest::mouseDClick(&bench.image(), Qt::LeftButton);
        QVERIFY(std::abs(bench.twips(u"fraCk"_s).width() - 4805) <= 15);
        QVERIFY(std::abs(bench.twips(u"imgWj"_s).width() - 4000) <= 15);
        QTest::mouseDClick(&bench.image(), Qt::LeftButton);
        bench.click(u"cmdCg"_s);
        bench.panel->cmdCkClick(2);
        QVERIFY(std::abs(bench.twips(u"shpWj"_s).width() - 4095) <= 15);
    }

    void enlargesOnlyWhereRecordsAreEdited() {
        Bench bench(1);
        bench.panel->cmdCkClick(0);
        QTest::mouseDClick(&bench.image(), Qt::LeftButton);
        QVERIFY(bench.twips(u"fraCk"_s).width() < 5000);
    }

    void storesIntoTheRecord_data() {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("takeDate");
        QTest::newRow("one block exactly") << 16384 << true;
        QTest::newRow("several blocks and a remainder") << 40000 << false;
    }
    void storesIntoTheRecord() {
        QFETCH(int, length);
        QFETCH(bool, takeDate);
        Bench bench(2);
        bench.goTo(7);
        bench.panel->cmdCkClick(2);
        const QString path = bench.catalogue.file(u"新.jpg"_s);
        QByteArray bytes = pictureBytes({60, 45}, Qt::red);
        bytes.append(QByteArray(length - bytes.size(), 'x'));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == length);
        file.close();
        const QString oldDate = valueOf(u"SELECT * FROM tc01 WHERE 序号 = 7"_s, u"日期"_s);
        bench.load(path);
        QCOMPARE(bench.frame().title(), u"图片规格：\n60 * 45"_s);
        QVERIFY(bench.button(u"cmdAq"_s).isEnabled());
        bench.answer = takeDate;
        bench.click(u"cmdAq"_s);
        const QString newDate = Variant(FileDateTime(path)).toText();
        QCOMPARE(bench.said, QStringList{u"  所选图片日期是："_s + newDate + u"\n原有图片的日期是："_s + oldDate +
                                         u"\n\n如果要更改，请按《确定》；否则按《取消》。"_s});
        Recordset row = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = 7"_s);
        QCOMPARE(row.Fields(u"图片"_s).Value().toBytes(), bytes);
        QCOMPARE(row.Fields(u"规格"_s).Value().toText(), u"60 * 45"_s);
        QCOMPARE(row.Fields(u"日期"_s).Value().toText(), takeDate ? newDate : oldDate);
        QCOMPARE(bench.controls.datBj->Recordset().Fields(u"序号"_s).Value().toInteger(), 7);
        QVERIFY(!bench.panel->isOpen());
    }

    void storesNoPictureThatIsNone() {
        Bench bench(2);
        bench.panel->cmdCkClick(2);
        const QString path = bench.catalogue.file(u"x.jpg"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("text") == 4);
        file.close();
        const Variant old = mekTp::catalogue.OpenRecordset(u"tc01"_s).Fields(u"图片"_s).Value();
        bench.load(path);
        bench.click(u"cmdAq"_s);
        QCOMPARE(bench.said.size(), 1);
        QVERIFY(bench.said.first().contains(path));
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"tc01"_s).Fields(u"图片"_s).Value(), old);
        QCOMPARE(bench.controls.datBj->Recordset().EditMode(), Recordset::Mode::none);
    }

    void cancelledDialogShowsTheRecordAgain() {
        Bench bench(2);
        bench.panel->cmdCkClick(2);
        const QString path = bench.catalogue.file(u"a.jpg"_s);
        writePicture(path, {60, 45}, Qt::red);
        bench.edited = false;
        bench.load(path);
        QVERIFY(!bench.button(u"cmdAq"_s).isEnabled());
        bench.load({});
        QCOMPARE(bench.image().picture().pixels(), QSize(40, 30));
        QVERIFY(bench.button(u"cmdAz"_s).isEnabled());
        QCOMPARE(bench.state.previewMark, u"s"_s);
    }

    void buttonPictures() {
        Bench bench(0);
        bench.show(u"SELECT * FROM tcan ORDER BY [编号]"_s);
        bench.panel->cmdCkClick(4);
        const QString path = bench.catalogue.file(u"a.bmp"_s);
        writePicture(path, {106, 75}, Qt::red, "BMP");
        bench.load(path);
        QCOMPARE(bench.line(), u"图片规格：\n106 * 75"_s);
        bench.click(u"cmdAq"_s);
        QVERIFY(bench.said.last().startsWith(u"本图片的尺寸不适合作为按钮图片，(规格106*75 宽高比1.41)\n\n"_s));
        QVERIFY(bench.panel->isOpen() && !bench.button(u"cmdAq"_s).isEnabled());
        writePicture(path, {100, 75}, Qt::red, "BMP");
        bench.load(path);
        bench.click(u"cmdAq"_s);
        QCOMPARE(bench.stored, 1);
        QVERIFY(!bench.panel->isOpen());
    }
};

const Registered<TestPreview> registered;

}  // namespace

#include "preview_test.moc"
