#include "catalogue/album_rules.h"
#include "catalogue/fixed_tables.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"
#include "program_tour.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const auto sz = u"frmSz"_s;

/// The settings window as a person keeps his albums with it; each step is looked at from where it is used next.
class TestKeepingAlbums : public QObject {
    Q_OBJECT

    static void openPage(ProgramTour& tour, int page) {
        if (tour.window(sz) == nullptr) {
            tour.start();
            tour.leave(u"frmTp"_s, u"tlb1:bj"_s, sz);
        }
        tour.find<TabControl>(sz, u"sstFz"_s)->setCurrentIndex(page);
    }
    static QStringList column(const Database& database, const QString& source, const QString& name) {
        QStringList all;
        for (Recordset rows = database.OpenRecordset(source); !rows.Eof(); rows.MoveNext())
            all << rows.Fields(name).Value().textOr();
        return all;
    }
    static QStringList column(const QString& source, const QString& name) {
        return column(mekTp::catalogue, source, name);
    }
    static void browse(ProgramTour& tour, const QString& folder) {
        tour.find<DirList>(sz, u"dir1"_s)->setPath(QFileInfo(folder).path());
        tour.find<DirList>(sz, u"dir1"_s)->setPath(folder);
    }
    static void clickFile(ProgramTour& tour, const QString& name) {
        auto* files = tour.find<FileList>(sz, u"fil1"_s);
        const auto found = files->findItems(name, Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, files->visualItemRect(found.first()).center());
    }
    static void type(ProgramTour& tour, const QString& name, const QString& text) {
        tour.find<TextBox>(sz, name)->setText(text);
    }
    /// Another catalogue with two empty albums, one of a name that is known here too.
    static Database otherCatalogue(const QString& path) {
        const Database other = createDatabase(path);
        for (const QString& table : {u"tc02"_s, u"tc05"_s}) other.Execute(createAlbumSql(table));
        return other;
    }

  private Q_SLOTS:
    void aNewButtonCodesPicturesAndFiltersThem() {
        ProgramTour tour;
        tour.file = tour.catalogue.file(u"钮.jpg"_s);
        writePicture(tour.file, {100, 75}, Qt::darkYellow);
        openPage(tour, 0);
        tour.click(sz, u"cmdQu"_s);
        for (const auto& [box, text] :
             {std::pair(u"txtB1"_s, u"s"_s), {u"txtM1"_s, u"雪 '景"_s}, {u"txtC1"_s, u"tc01"_s}})
            type(tour, box, text);
        for (const QString& button : {u"cmdCk(4)"_s, u"cmdAz"_s, u"cmdAq"_s}) tour.click(sz, button);
        if (tour.find<QPushButton>(sz, u"cmdQu"_s)->text() == u"保 存") tour.click(sz, u"cmdQu"_s);
        QCOMPARE(column(u"SELECT * FROM tcan WHERE 编号 = 's'"_s, u"名称"_s), QStringList{u"雪 '景"_s});

        openPage(tour, 2);
        tour.chooseAlbum(sz, u"tc01 旅行"_s);
        tour.clickRow(sz, 2);
        tour.find<QCheckBox>(sz, u"chkLi"_s)->setChecked(true);
        tour.click(sz, u"cmdQd"_s);
        for (int i = 0; i < 4; ++i) {
            type(tour, u"txtBh"_s, u"s"_s);
            tour.click(sz, u"cmdQd"_s);
        }
        tour.click(sz, u"cmdSc"_s);
        QCOMPARE(column(u"SELECT * FROM tc01 WHERE InStr(编号,'s') > 0 ORDER BY [序号]"_s, u"序号"_s),
                 (QStringList{u"3"_s, u"4"_s, u"5"_s, u"6"_s}));

        tour.leave(sz, u"cmdFh"_s, u"frmTp"_s);
        tour.openInViewer(u"旅行"_s);
        for (int i = 0;; ++i) {
            auto* button = tour.window(u"frmTp"_s)->findChild<QWidget*>(u"imgAn(%1)"_s.arg(i));
            QVERIFY(button != nullptr && button->isVisible());
            if (button->toolTip() != u"雪 '景") continue;
            QTest::mouseClick(button, Qt::LeftButton);
            break;
        }
        QVERIFY(tour.anyLabelSays(u"frmTp"_s, u"共4张"_s));
    }

    void renumberingByDateAndDeleting() {
        ProgramTour tour;
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 1"_s, {{u"日期"_s, QDateTime(QDate(2020, 1, 1), QTime(8, 0))}});
        openPage(tour, 2);
        tour.chooseAlbum(sz, u"tc01 旅行"_s);
        tour.option(sz, u"optP1(1)"_s);
        tour.click(sz, u"cmdJh"_s);
        QCOMPARE(tour.said.last(), u"重新设置序号已经完成！"_s);
        QCOMPARE(column(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"备注"_s).last(), u"图片1"_s);
        tour.clickRow(sz, 0);
        tour.click(sz, u"cmdSc"_s);
        QCOMPARE(tour.find<TextBox>(sz, u"txtXh"_s)->text(), u"2"_s);
        QCOMPARE(column(u"tc01"_s, u"序号"_s).size(), 9);
    }

    void rowsComeInFromAnotherCatalogue() {
        ProgramTour tour;
        const QTemporaryDir folder;
        {
            const Database other = otherCatalogue(folder.filePath(u"别 的.mdb"_s));
            Recordset rows = other.OpenRecordset(u"tc05"_s);
            for (int i = 1; i <= 3; ++i) {
                rows.AddNew();
                rows.Fields(u"序号"_s).SetValue(i);
                rows.Fields(u"图片"_s).SetValue(pictureBytes({30, 20}, Qt::gray));
                rows.Fields(u"备注"_s).SetValue(u"外来%1"_s.arg(i));
                rows.Update();
            }
        }
        openPage(tour, 1);
        tour.chooseAlbum(sz, u"tc02 空册"_s);
        tour.option(sz, u"optYl(1)"_s);
        tour.option(sz, u"optCz(1)"_s);
        browse(tour, folder.path());
        clickFile(tour, u"别 的.mdb"_s);
        tour.chooseLine(sz, u"lstSb"_s, u"tc05"_s);
        tour.click(sz, u"cmdQx"_s);  // all columns by their place
        tour.click(sz, u"cmdQx"_s);  // all records
        tour.click(sz, u"cmdLr"_s);
        QCOMPARE(tour.said.last(), u"图片录入完成！  共录入：3张"_s);
        QCOMPARE(column(u"tc02"_s, u"备注"_s), (QStringList{u"外来1"_s, u"外来2"_s, u"外来3"_s}));
    }

    void picturesGoToAFolderAndToAnotherCatalogue() {
        ProgramTour tour;
        const QTemporaryDir folder;
        const QString target = folder.filePath(u"目标.mdb"_s);
        otherCatalogue(target);
        openPage(tour, 3);
        tour.chooseAlbum(sz, u"tc01 旅行"_s);
        tour.click(sz, u"cmdQb"_s);
        tour.option(sz, u"optMb(0)"_s);
        browse(tour, folder.path());
        tour.click(sz, u"cmdMq"_s);
        tour.click(sz, u"cmdWj"_s);
        QCOMPARE(tour.said.last(), u"选定的图片已全部转换成文件，共10条"_s);
        QCOMPARE(QDir(folder.path()).entryList({u"*.jpg"_s}).size(), 10);
        QCOMPARE(LoadPicture(folder.filePath(u"24.jpg"_s)).pixels(), QSize(100, 50));

        tour.chooseAlbum(sz, u"tc01 旅行"_s);
        for (int row = 0; row < 5; ++row) tour.clickRow(sz, row);
        tour.option(sz, u"optMb(1)"_s);
        browse(tour, folder.path());
        clickFile(tour, u"目标.mdb"_s);
        tour.chooseLine(sz, u"lstSb"_s, u"tc02"_s);
        tour.click(sz, u"cmdQx"_s);  // all columns by their place
        tour.click(sz, u"cmdLr"_s);  // the panel closes
        tour.click(sz, u"cmdYd"_s);
        QCOMPARE(tour.said.last(), u"图册《旅行》中的 5 张图片已复制完成！"_s);
        QCOMPARE(column(u"tc01"_s, u"序号"_s), (QStringList{u"6"_s, u"7"_s, u"8"_s, u"9"_s, u"10"_s}));
        QCOMPARE(column(OpenDatabase(target), u"tc02"_s, u"备注"_s),
                 (QStringList{u"图片1"_s, u"图片2"_s, u"图片3"_s, u"图片4"_s, u"图片5"_s}));
    }
};

const Registered<TestKeepingAlbums> registered;

}  // namespace

#include "keeping_albums_test.moc"
