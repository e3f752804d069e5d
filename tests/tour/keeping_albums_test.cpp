#include "catalogue/album_rules.h"
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

    std::optional<ProgramTour> tour_;

  private Q_SLOTS:
    void init() { tour_.emplace(); }

    void aNewButtonCodesPicturesAndFiltersThem() {
        tour_->file = tour_->catalogue.file(u"钮.jpg"_s);
        writePicture(tour_->file, {100, 75}, Qt::darkYellow);
        openPage(*tour_, 0);
        tour_->click(sz, u"cmdQu"_s);
        for (const auto& [box, text] :
             {std::pair(u"txtB1"_s, u"s"_s), {u"txtM1"_s, u"雪 '景"_s}, {u"txtC1"_s, u"tc01"_s}})
            type(*tour_, box, text);
        for (const QString& button : {u"cmdCk(4)"_s, u"cmdAz"_s, u"cmdAq"_s}) tour_->click(sz, button);
        if (tour_->find<QPushButton>(sz, u"cmdQu"_s)->text() == u"保 存") tour_->click(sz, u"cmdQu"_s);
        QCOMPARE(column(u"SELECT * FROM tcan WHERE 编号 = 's'"_s, u"名称"_s), QStringList{u"雪 '景"_s});

        openPage(*tour_, 2);
        tour_->chooseAlbum(sz, u"tc01 旅行"_s);
        tour_->clickRow(sz, 2);
        tour_->find<QCheckBox>(sz, u"chkLi"_s)->setChecked(true);
        tour_->click(sz, u"cmdQd"_s);
        for (int i = 0; i < 4; ++i) {
            type(*tour_, u"txtBh"_s, u"s"_s);
            tour_->click(sz, u"cmdQd"_s);
        }
        tour_->click(sz, u"cmdSc"_s);
        QCOMPARE(column(u"SELECT * FROM tc01 WHERE InStr(编号,'s') > 0 ORDER BY [序号]"_s, u"序号"_s),
                 (QStringList{u"3"_s, u"4"_s, u"5"_s, u"6"_s}));

        tour_->leave(sz, u"cmdFh"_s, u"frmTp"_s);
        tour_->openInViewer(u"旅行"_s);
        for (int i = 0;; ++i) {
            auto* button = tour_->window(u"frmTp"_s)->findChild<QWidget*>(u"imgAn(%1)"_s.arg(i));
            QVERIFY(button != nullptr && button->isVisible());
            if (button->toolTip() != u"雪 '景") continue;
            QTest::mouseClick(button, Qt::LeftButton);
            break;
        }
        QVERIFY(tour_->anyLabelSays(u"frmTp"_s, u"共4张"_s));
    }

    void renumberingByDateAndDeleting() {
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 1"_s, {{u"日期"_s, QDateTime(QDate(2020, 1, 1), QTime(8, 0))}});
        openPage(*tour_, 2);
        tour_->chooseAlbum(sz, u"tc01 旅行"_s);
        tour_->option(sz, u"optP1(1)"_s);
        tour_->click(sz, u"cmdJh"_s);
        QCOMPARE(tour_->said.last(), u"重新设置序号已经完成！"_s);
        QCOMPARE(column(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"备注"_s).last(), u"图片1"_s);
        tour_->clickRow(sz, 0);
        tour_->click(sz, u"cmdSc"_s);
        QCOMPARE(tour_->find<TextBox>(sz, u"txtXh"_s)->text(), u"2"_s);
        QCOMPARE(column(u"tc01"_s, u"序号"_s).size(), 9);
    }

    void rowsComeInFromAnotherCatalogue() {
        const QTemporaryDir folder;
        {
            const Database other = otherCatalogue(folder.filePath(u"别 的.mdb"_s));
            Recordset rows = other.OpenRecordset(u"tc05"_s);
            for (int i = 1; i <= 3; ++i) {
                addRow(
                    rows,
                    {{u"序号"_s, i}, {u"图片"_s, pictureBytes({30, 20}, Qt::gray)}, {u"备注"_s, u"外来%1"_s.arg(i)}});
            }
        }
        openPage(*tour_, 1);
        tour_->chooseAlbum(sz, u"tc02 空册"_s);
        tour_->option(sz, u"optYl(1)"_s);
        tour_->option(sz, u"optCz(1)"_s);
        browse(*tour_, folder.path());
        clickFile(*tour_, u"别 的.mdb"_s);
        tour_->chooseLine(sz, u"lstSb"_s, u"tc05"_s);
        tour_->click(sz, u"cmdQx"_s);  // all columns by their place
        tour_->click(sz, u"cmdQx"_s);  // all records
        tour_->click(sz, u"cmdLr"_s);
        QCOMPARE(tour_->said.last(), u"图片录入完成！  共录入：3张"_s);
        QCOMPARE(column(u"tc02"_s, u"备注"_s), (QStringList{u"外来1"_s, u"外来2"_s, u"外来3"_s}));
    }

    void picturesGoToAFolderAndToAnotherCatalogue() {
        const QTemporaryDir folder;
        const QString target = folder.filePath(u"目标.mdb"_s);
        otherCatalogue(target);
        openPage(*tour_, 3);
        tour_->chooseAlbum(sz, u"tc01 旅行"_s);
        tour_->click(sz, u"cmdQb"_s);
        tour_->option(sz, u"optMb(0)"_s);
        browse(*tour_, folder.path());
        tour_->click(sz, u"cmdMq"_s);
        tour_->click(sz, u"cmdWj"_s);
        QCOMPARE(tour_->said.last(), u"选定的图片已全部转换成文件，共10条"_s);
        QCOMPARE(QDir(folder.path()).entryList({u"*.jpg"_s}).size(), 10);
        QCOMPARE(LoadPicture(folder.filePath(u"24.jpg"_s)).pixels(), QSize(100, 50));

        tour_->chooseAlbum(sz, u"tc01 旅行"_s);
        for (int row = 0; row < 5; ++row) tour_->clickRow(sz, row);
        tour_->option(sz, u"optMb(1)"_s);
        browse(*tour_, folder.path());
        clickFile(*tour_, u"目标.mdb"_s);
        tour_->chooseLine(sz, u"lstSb"_s, u"tc02"_s);
        tour_->click(sz, u"cmdQx"_s);  // all columns by their place
        tour_->click(sz, u"cmdLr"_s);  // the panel closes
        tour_->click(sz, u"cmdYd"_s);
        QCOMPARE(tour_->said.last(), u"图册《旅行》中的 5 张图片已复制完成！"_s);
        QCOMPARE(column(u"tc01"_s, u"序号"_s), (QStringList{u"6"_s, u"7"_s, u"8"_s, u"9"_s, u"10"_s}));
        QCOMPARE(column(OpenDatabase(target), u"tc02"_s, u"备注"_s),
                 (QStringList{u"图片1"_s, u"图片2"_s, u"图片3"_s, u"图片4"_s, u"图片5"_s}));
    }
};

const Registered<TestKeepingAlbums> registered;

}  // namespace

#include "keeping_albums_test.moc"
