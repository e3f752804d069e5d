#include "../support/run_all.h"
#include "intake/browser_panel.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The panel on a bare frame of two pages, in a folder of its own.
class Bench {
  public:
    explicit Bench(BrowseMode mode) {
        controls.form = &form;
        controls.sstFz = make<TabControl>(&form, u"sstFz"_s);
        for (int i = 0; i < 4; ++i) controls.sstFz->addPage(QString::number(i));
        place(controls.sstFz, 0, 0, 9600, 6840);
        controls.lblTs = make<QLabel>(&form, u"lblTs"_s);
        form.resize(640, 480);
        panel = std::make_unique<BrowserPanel>(controls, state, hints());
        const bool onIntake = mode == BrowseMode::pictureFiles || mode == BrowseMode::sourceDatabase;
        panel->serve(onIntake ? 1 : 3, {[mode] { return mode; }, [onIntake] { return !onIntake; }});
        controls.sstFz->setCurrentIndex(onIntake ? 1 : 3);
        panel->showOn(onIntake ? 1 : 3, 170, 720);
        panel->mlcl();
        form.show();
        answerBoxesWith([this](const BoxText& box) {
            said << box.text;
            return answer;
        });
    }
    ~Bench() { answerBoxesWith({}); }

    HintLine& hints() {
        if (!hints_) hints_ = std::make_unique<HintLine>(controls.lblTs, state);
        return *hints_;
    }
    template <typename Control>
    Control& get(const QString& name) {
        return *form.findChild<Control*>(name);
    }
    QPushButton& button(const QString& name) { return get<QPushButton>(name); }
    void click(const QString& name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
    QString path(const QString& name) const { return folder.filePath(name); }
    QString echo() const { return panel->txtMl()->text(); }

    QTemporaryDir folder;
    QWidget form;
    SharedControls controls;
    FormState state;
    std::unique_ptr<BrowserPanel> panel;
    QStringList said;
    bool answer = true;

  private:
    std::unique_ptr<HintLine> hints_;
};

QRect twipsOf(const QWidget& control) {
    return {leftOf(&control), topOf(&control), widthOf(&control), heightOf(&control)};
}

class TestBrowser : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void layout_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QStringList>("shown");
        QTest::addColumn<QStringList>("hidden");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("heading");
        const QStringList folderButtons{u"cmdMj"_s, u"cmdMs"_s, u"cmdMq"_s, u"cmdMx"_s};
        const QStringList fileParts{u"lblB0"_s, u"lblB1(0)"_s};
        const QString pictures = u"*.jpg;*.bmp"_s, databases = u"*.mdb"_s;
        QTest::newRow("pictures") << int(BrowseMode::pictureFiles) << fileParts + QStringList{u"fil1"_s, u"txtMl"_s}
                                  << folderButtons + QStringList{u"lbl7"_s} << pictures << u"        请选择文件"_s;
        QTest::newRow("source database") << int(BrowseMode::sourceDatabase) << QStringList{u"fil1"_s}
                                         << folderButtons + fileParts + QStringList{u"lbl7"_s, u"txtMl"_s} << databases
                                         << u"      请设置来源数据表"_s;
        QTest::newRow("target folder") << int(BrowseMode::targetFolder)
                                       << folderButtons + QStringList{u"lbl7"_s, u"txtMl"_s}
                                       << fileParts + QStringList{u"fil1"_s} << pictures << u"      请设置目标数据表"_s;
        QTest::newRow("target database") << int(BrowseMode::targetDatabase) << QStringList{u"fil1"_s, u"lbl7"_s}
                                         << folderButtons + fileParts + QStringList{u"txtMl"_s} << databases
                                         << u"      请设置目标数据表"_s;
    }
    void layout() {
        QFETCH(int, mode);
        QFETCH(QStringList, shown);
        QFETCH(QStringList, hidden);
        Bench bench(static_cast<BrowseMode>(mode));
        for (const QString& name : shown) QVERIFY2(bench.get<QWidget>(name).isVisible(), qPrintable(name));
        for (const QString& name : hidden) QVERIFY2(!bench.get<QWidget>(name).isVisible(), qPrintable(name));
        QTEST(bench.panel->fil1()->Pattern(), "pattern");
        QTEST(bench.get<QLabel>(u"lblB1(0)"_s).text(), "heading");
        const bool forPictures = static_cast<BrowseMode>(mode) == BrowseMode::pictureFiles;
        QCOMPARE(twipsOf(*bench.panel->dir1()).height(), forPictures ? 2610 : 2190);
        QCOMPARE(twipsOf(*bench.panel->fil1()).topLeft(), forPictures ? QPoint(405, 3390) : QPoint(405, 2655));
        QCOMPARE(bench.get<QLabel>(u"lblB1(1)"_s).text(),
                 u"      请选择确定图片"_s + (mode < 2 ? u"来源路径"_s : u"保存路径"_s));
    }

    void listsKeepStep() {
        Bench bench(BrowseMode::targetFolder);
        QDir(bench.folder.path()).mkdir(u"内 #'夹"_s);
        bench.panel->dir1()->setPath(bench.path(u"内 #'夹"_s));
        QCOMPARE(bench.panel->fil1()->Path(), bench.path(u"内 #'夹"_s));
        QCOMPARE(bench.state.currentFolder, bench.path(u"内 #'夹"_s));
        QCOMPARE(bench.echo(), bench.path(u"内 #'夹"_s));
        QCOMPARE(bench.panel->dir1()->Path(), bench.path(u"内 #'夹"_s));
        QVERIFY(bench.button(u"cmdMq"_s).isEnabled());
        QCOMPARE(bench.state.intakeStep, 3);
    }

    void makesFolders() {
        Bench bench(BrowseMode::targetFolder);
        bench.panel->dir1()->setPath(bench.folder.path());
        bench.click(u"cmdMj"_s);
        QVERIFY(bench.get<TextBox>(u"txtJm"_s).isVisible());
        QCOMPARE(bench.button(u"cmdMj"_s).text(), u"新建确定"_s);
        QCOMPARE(bench.button(u"cmdMs"_s).text(), u"新建撤消"_s);
        QCOMPARE(bench.state.intakeStep, 5);
        bench.click(u"cmdMj"_s);
        QCOMPARE(bench.said, QStringList{u"请填写文件夹名称！"_s});

        const QString path = bench.path(u"新 '夹#"_s);
        bench.get<TextBox>(u"txtJm"_s).setText(u"新 '夹#"_s);
        bench.said.clear();
        bench.click(u"cmdMj"_s);
        QVERIFY(QDir(path).exists());
        QCOMPARE(bench.said, (QStringList{u"如果确认建立["_s + path + u"]文件夹，\n\n请按“确定”按钮；否则按“取消”。"_s,
                                          u"["_s + path + u"]文件夹已建立！"_s}));
        QCOMPARE(bench.button(u"cmdMj"_s).text(), u"新建文件夹"_s);
        QVERIFY(!bench.get<TextBox>(u"txtJm"_s).isVisible());
        QVERIFY(!bench.panel->dir1()->findItems(u"新 '夹#"_s, Qt::MatchContains).isEmpty());

        bench.said.clear();
        bench.click(u"cmdMj"_s);
        bench.get<TextBox>(u"txtJm"_s).setText(u"新 '夹#"_s);
        bench.click(u"cmdMj"_s);
        QCOMPARE(bench.said, QStringList{u"["_s + path + u"]文件夹已存在，不能建立！"_s});
    }

    void changesItsMind() {
        Bench bench(BrowseMode::targetFolder);
        bench.panel->dir1()->setPath(bench.folder.path());
        bench.click(u"cmdMj"_s);
        bench.get<TextBox>(u"txtJm"_s).setText(u"a"_s);
        bench.answer = false;
        bench.click(u"cmdMj"_s);
        QVERIFY(!QDir(bench.path(u"a"_s)).exists());
        QVERIFY(!bench.get<TextBox>(u"txtJm"_s).isVisible());
        bench.click(u"cmdMj"_s);
        bench.click(u"cmdMs"_s);
        QCOMPARE(bench.button(u"cmdMs"_s).text(), u"删除文件夹"_s);
        QVERIFY(bench.controls.lblTs->text().startsWith(u"操作提示：在左侧目录框中选择“目标文件夹”"_s));
    }

    void deletesFolders() {
        Bench bench(BrowseMode::targetFolder);
        const QString path = bench.path(u"旧"_s);
        QDir().mkdir(path);
        bench.panel->dir1()->setPath(path);
        const QString refusal = u"不能删除此文件夹（目录），可能其中有文件。"_s;
        bench.answer = false;
        bench.click(u"cmdMs"_s);
        QCOMPARE(bench.said,
                 (QStringList{u"如果要删除["_s + path + u"]文件夹，\n\n   请按“确定”；否则按“取消”。"_s, refusal}));
        bench.answer = true;
        QFile file(path + u"/x"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        bench.click(u"cmdMs"_s);
        QCOMPARE(bench.said.last(), refusal);
        QVERIFY(file.remove());
        bench.click(u"cmdMs"_s);
        QCOMPARE(bench.said.last(), u"["_s + path + u"]文件夹（目录）已删除。"_s);
        QVERIFY(!QDir(path).exists());
        QCOMPARE(bench.panel->dir1()->Path(), bench.folder.path());
    }

    void folderThatIsGone() {
        Bench bench(BrowseMode::targetFolder);
        const QString path = bench.path(u"去"_s);
        QDir().mkdir(path);
        bench.panel->dir1()->setPath(bench.folder.path());
        QDir().rmdir(path);
        auto lines = bench.panel->dir1()->findItems(u"去"_s, Qt::MatchContains);
        Q_EMIT bench.panel->dir1()->itemDoubleClicked(lines.last());
        QCOMPARE(bench.said.size(), 1);
        QVERIFY(bench.said.first().contains(path));
        QCOMPARE(bench.panel->dir1()->Path(), bench.folder.path());
    }

    void driveThatIsNotReady() {
        Bench bench(BrowseMode::targetFolder);
        bench.panel->dir1()->setPath(bench.folder.path());
        int folders = 0;
        connect(bench.panel.get(), &BrowserPanel::folderChanged, this, [&] { ++folders; });
        auto& drv1 = *bench.panel->drv1();
        const QString drive = drv1.currentText();
        drv1.addItem(bench.path(u"无"_s));
        drv1.setCurrentIndex(drv1.count() - 1);
        QCOMPARE(drv1.currentText(), drive);
        QCOMPARE(bench.panel->dir1()->Path(), bench.folder.path());
        QCOMPARE(bench.echo(), bench.folder.path());
        QCOMPARE(bench.state.currentFolder, bench.folder.path());
        QCOMPARE(folders, 0);
        QVERIFY(bench.said.isEmpty());
    }

    void closes() {
        Bench bench(BrowseMode::targetFolder);
        bench.state.pageFree = false;
        bench.click(u"cmdMx"_s);
        QVERIFY(!bench.panel->picMl()->isVisible());
        QVERIFY(bench.state.pageFree);
        QCOMPARE(bench.state.intakeStep, 3);
    }
};

const Registered<TestBrowser> registered;

}  // namespace

#include "browser_test.moc"
