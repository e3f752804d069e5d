#include "intake/browsing/browser_panel.h"
#include "panel_bench.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/text_box.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The panel in a folder of its own.
class Bench : public PanelBench {
  public:
    explicit Bench(BrowseMode mode) : PanelBench(mode < BrowseMode::targetFolder ? 1 : 3) {
        const int page = sstFz->currentIndex();
        panel = std::make_unique<BrowserPanel>(frame, flow);
        panel->serve(page, {[mode] { return mode; }, [page] { return page == 3; }});
        panel->showOn(page, 170, 720);
        panel->mlcl();
        form.show();
    }

    QString echo() const { return panel->echo(); }
    DirList& folders() { return get<DirList>(u"dir1"_s); }
    FileList& files() { return get<FileList>(u"fil1"_s); }
    QString listed() { return folders().Path(); }
    TextBox& newName() { return get<TextBox>(u"txtJm"_s); }

    GuidedFlow flow;
    std::unique_ptr<BrowserPanel> panel;
};

class TestBrowser : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void layout_data() {
        QTest::addColumn<BrowseMode>("mode");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("hidden");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("heading");
        const QString pictures = u"*.jpg;*.bmp"_s, databases = u"*.mdb"_s;
        QTest::newRow("pictures") << BrowseMode::pictureFiles << u"lblB0 lblB1(0) fil1 txtMl"_s
                                  << u"cmdMj cmdMs cmdMq cmdMx lbl7"_s << pictures << u"        请选择文件"_s;
        QTest::newRow("source database") << BrowseMode::sourceDatabase << u"fil1"_s
                                         << u"cmdMj cmdMs cmdMq cmdMx lblB0 lblB1(0) lbl7 txtMl"_s << databases
                                         << u"      请设置来源数据表"_s;
        QTest::newRow("target folder") << BrowseMode::targetFolder << u"cmdMj cmdMs cmdMq cmdMx lbl7 txtMl"_s
                                       << u"lblB0 lblB1(0) fil1"_s << pictures << u"      请设置目标数据表"_s;
        QTest::newRow("target database") << BrowseMode::targetDatabase << u"fil1 lbl7"_s
                                         << u"cmdMj cmdMs cmdMq cmdMx lblB0 lblB1(0) txtMl"_s << databases
                                         << u"      请设置目标数据表"_s;
    }
    void layout() {
        QFETCH(BrowseMode, mode);
        QFETCH(QString, shown);
        QFETCH(QString, hidden);
        Bench bench(mode);
        for (const QString& name : shown.split(u' ')) QVERIFY2(bench.get<QWidget>(name).isVisible(), qPrintable(name));
        for (const QString& name : hidden.split(u' '))
            QVERIFY2(!bench.get<QWidget>(name).isVisible(), qPrintable(name));
        QTEST(bench.files().Pattern(), "pattern");
        QTEST(bench.label(u"lblB1(0)"_s), "heading");
        const bool forPictures = mode == BrowseMode::pictureFiles;
        QCOMPARE(bench.twips(u"dir1"_s).height(), forPictures ? 2610 : 2190);
        QCOMPARE(bench.twips(u"fil1"_s).topLeft(), forPictures ? QPoint(405, 3390) : QPoint(405, 2655));
        QCOMPARE(bench.label(u"lblB1(1)"_s),
                 u"      请选择确定图片"_s + (mode < BrowseMode::targetFolder ? u"来源路径"_s : u"保存路径"_s));
    }

    void listsKeepStepUntilThePanelIsClosed() {
        Bench bench(BrowseMode::targetFolder);
        const QString path = bench.path(u"内 #'夹"_s);
        QDir().mkdir(path);
        bench.folders().setPath(path);
        for (const QString& shown : {bench.files().Path(), bench.panel->folder(), bench.echo(), bench.listed()})
            QCOMPARE(shown, path);
        QVERIFY(bench.button(u"cmdMq"_s).isEnabled());
        QCOMPARE(bench.flow.step(), 3);

        bench.work.begin();
        bench.click(u"cmdMx"_s);
        QVERIFY(!bench.work.isUnderWay() && !bench.panel->ground()->isVisible());
        QCOMPARE(bench.flow.step(), 3);
    }

    void makesFolders() {
        Bench bench(BrowseMode::targetFolder);
        const QString path = bench.path(u"新 '夹#"_s);
        bench.folders().setPath(bench.catalogue.folder());
        bench.click(u"cmdMj"_s);
        QVERIFY(bench.newName().isVisible());
        QCOMPARE(bench.button(u"cmdMj"_s).text(), u"新建确定"_s);
        QCOMPARE(bench.button(u"cmdMs"_s).text(), u"新建撤消"_s);
        QCOMPARE(bench.flow.step(), 5);
        bench.click(u"cmdMj"_s);
        bench.newName().setText(u"新 '夹#"_s);
        bench.click(u"cmdMj"_s);
        QVERIFY(QDir(path).exists());
        QCOMPARE(bench.button(u"cmdMj"_s).text(), u"新建文件夹"_s);
        QVERIFY(!bench.newName().isVisible());
        QVERIFY(!bench.folders().findItems(u"新 '夹#"_s, Qt::MatchContains).isEmpty());

        bench.click(u"cmdMj"_s);
        bench.newName().setText(u"新 '夹#"_s);
        bench.click(u"cmdMj"_s);
        QCOMPARE(bench.said,
                 (QStringList{u"请填写文件夹名称！"_s,
                              u"如果确认建立["_s + path + u"]文件夹，\n\n请按“确定”按钮；否则按“取消”。"_s,
                              u"["_s + path + u"]文件夹已建立！"_s, u"["_s + path + u"]文件夹已存在，不能建立！"_s}));
    }

    void changesItsMind() {
        Bench bench(BrowseMode::targetFolder);
        bench.folders().setPath(bench.catalogue.folder());
        bench.click(u"cmdMj"_s);
        bench.newName().setText(u"a"_s);
        bench.answer = false;
        bench.click(u"cmdMj"_s);
        QVERIFY(!QDir(bench.path(u"a"_s)).exists());
        QVERIFY(!bench.newName().isVisible());
        bench.click(u"cmdMj"_s);
        bench.click(u"cmdMs"_s);
        QCOMPARE(bench.button(u"cmdMs"_s).text(), u"删除文件夹"_s);
        QVERIFY(bench.label(u"lblTs"_s).startsWith(u"操作提示：在左侧目录框中选择“目标文件夹”"_s));
    }

    void deletesFolders() {
        Bench bench(BrowseMode::targetFolder);
        const QString path = bench.path(u"旧"_s);
        QDir().mkdir(path);
        bench.folders().setPath(path);
        const QString question = u"如果要删除["_s + path + u"]文件夹，\n\n   请按“确定”；否则按“取消”。"_s;
        const QString refusal = u"不能删除此文件夹（目录），可能其中有文件。"_s;
        bench.answer = false;
        bench.click(u"cmdMs"_s);
        bench.answer = true;
        bench.write(u"旧/x"_s, "text");
        bench.click(u"cmdMs"_s);
        QVERIFY(QFile::remove(path + u"/x"_s));
        bench.click(u"cmdMs"_s);
        QCOMPARE(bench.said, (QStringList{question, refusal, question, refusal, question,
                                          u"["_s + path + u"]文件夹（目录）已删除。"_s}));
        QVERIFY(!QDir(path).exists());
        QCOMPARE(bench.listed(), bench.catalogue.folder());
    }

    void folderThatIsGone() {
        Bench bench(BrowseMode::targetFolder);
        const QString path = bench.path(u"去"_s);
        QDir().mkdir(path);
        bench.folders().setPath(bench.catalogue.folder());
        QDir().rmdir(path);
        Q_EMIT bench.folders().itemDoubleClicked(bench.folders().findItems(u"去"_s, Qt::MatchContains).last());
        QCOMPARE(bench.said.size(), 1);
        QVERIFY(bench.said.first().contains(path));
        QCOMPARE(bench.listed(), bench.catalogue.folder());
    }

    void driveThatIsNotReady() {
        Bench bench(BrowseMode::targetFolder);
        const QString folder = bench.catalogue.folder();
        bench.folders().setPath(folder);
        const QSignalSpy changes(bench.panel.get(), &BrowserPanel::folderChanged);
        auto& drv1 = bench.get<DriveList>(u"drv1"_s);
        const QString drive = drv1.currentText();
        drv1.addItem(bench.path(u"无"_s));
        drv1.setCurrentIndex(drv1.count() - 1);
        QCOMPARE(drv1.currentText(), drive);
        for (const QString& shown : {bench.listed(), bench.echo(), bench.panel->folder()}) QCOMPARE(shown, folder);
        QVERIFY(changes.isEmpty() && bench.said.isEmpty());
    }
};

const Registered<TestBrowser> registered;

}  // namespace

#include "browser_test.moc"
