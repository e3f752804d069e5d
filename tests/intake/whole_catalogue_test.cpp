#include "../platform/database/jet_files.h"
#include "catalogue/album_directory.h"
#include "catalogue/selection_buttons.h"
#include "database_window.h"
#include "jet_maker/old_catalogue.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// An old catalogue as source on the page 图片录入: all of it joins the open one by one button.
class TestWholeCatalogue : public QObject {
    Q_OBJECT

    std::unique_ptr<JetFiles> jets_;
    std::unique_ptr<DatabaseWindow> window_;
    QList<QByteArray> pictures_;
    QByteArray old_;

    QStringList asked_;
    QString answer_;

    /// In the open catalogue "1" is 风景 too, "a" is 无图, and "b" is free.
    void choose() {
        jet::OldCatalogue old{.albums = {{u"tc00"_s, u"演示"_s, pictures_},
                                         {u"tc01"_s, u"旅行"_s, pictures_},
                                         {u"tc05"_s, u"生日"_s, pictures_.mid(1)}},
                              .buttonPicture = pictureBytes({100, 75}, Qt::green)};
        QList<jet::Table> tables = jet::oldCatalogueTables(old);
        jet::tableOf(tables, u"tcan"_s).rows << jet::Row{4, u"b"_s, u"同学"_s, u"tc05"_s, QVariant()};
        old_ = jet::database(tables);
        window_->addBytes(u"旧像册.mdb"_s, old_);
        window_->chooseFile(u"tc02"_s, 1);
        window_->clickFile(u"旧像册.mdb"_s);
    }

    void join() {
        asked_.clear();
        chooseInBoxesWith([this](const BoxText& box) {
            asked_ << box.text;
            const auto place = box.answers.indexOf(answer_);
            return place < 0 ? 0 : int(place);
        });
        window_->click(u"cmdZx"_s);
        QTRY_VERIFY2(!asked_.isEmpty() && (asked_.last().contains(u"转换完成") || answer_ == u"取消"),
                     qPrintable(asked_.join(u'\n')));
        chooseInBoxesWith({});
    }

    static QString codesOf(const QString& table) {
        return valueOf(u"SELECT * FROM "_s + table + u" WHERE 序号 = 1"_s, u"编号"_s);
    }

  private Q_SLOTS:
    void init() {
        jets_ = std::make_unique<JetFiles>();
        window_ = std::make_unique<DatabaseWindow>();
        pictures_ = {pictureBytes({60, 45}, Qt::red), pictureBytes({60, 45}, Qt::blue), QByteArray()};
        choose();
    }
    void cleanup() {
        window_.reset();
        jets_.reset();
    }

    void buttonIsThereForOldCataloguesAlone() {
        QVERIFY(window_->shown(u"cmdZx"_s));
        window_->clickFile(u"源库.mdb"_s);
        QVERIFY(!window_->shown(u"cmdZx"_s));
    }

    void albumsJoinUnderFreeNames() {
        answer_ = u"另给编号"_s;
        join();
        QCOMPARE(asked_.size(), 3);
        QVERIFY2(asked_[1].contains(u"“a”：这里是“无图”，旧像册里是“家人”"_s) && !asked_[1].contains(u"风景"),
                 qPrintable(asked_[1]));
        const Database& catalogue = mekTp::catalogue;
        const auto first = findAlbum(catalogue, u"tc03"_s), second = findAlbum(catalogue, u"tc05"_s);
        QVERIFY(first && second);
        QCOMPARE(first->title, u"旅行2"_s);  // that of tc01 is taken
        QCOMPARE(second->title, u"生日"_s);
        QCOMPARE(catalogue.OpenRecordset(u"tc03"_s).rowCount(), 3);
        QCOMPARE(catalogue.OpenRecordset(u"tc05"_s).rowCount(), 2);
        QCOMPARE(stored(u"tc03"_s, 1), pictures_[0]);
        QCOMPARE(stored(u"tc05"_s, 1), pictures_[1]);
        QCOMPARE(valueOf(u"SELECT * FROM tc03 WHERE 序号 = 2"_s, u"备注"_s), u"tc012"_s);
        QCOMPARE(codesOf(u"tc03"_s), u"10"_s);  // "a" is "0" now
        QCOMPARE(nameOfCode(catalogue, u"0"_s), u"家人"_s);
        QCOMPARE(nameOfCode(catalogue, u"a"_s), u"无图"_s);
        QCOMPARE(nameOfCode(catalogue, u"b"_s), u"同学"_s);
        for (const auto& [code, albums] :
             {std::pair{u"v"_s, u"tc03tc05"_s}, {u"1"_s, u"tc03tc05"_s}, {u"b"_s, u"tc05"_s}})
            QVERIFY2(buttonsWithCode(catalogue, code).Fields(u"图册"_s).Value().textOr().endsWith(albums),
                     qPrintable(code));
        QVERIFY(window_->get<QComboBox>(u"cboBm"_s).findText(u"tc05 生日"_s) >= 0);
        QVERIFY(window_->get<QComboBox>(u"cboBm"_s).currentText().startsWith(u"tc02"_s));
        QVERIFY(!window_->shown(u"cmdZx"_s));
        QCOMPARE(contentOf(window_->path(u"旧像册.mdb"_s)), old_);
    }

    /// The person is told before which albums are there already.
    void secondJoiningTellsOfTheFirst() {
        answer_ = u"另给编号"_s;
        join();
        changeRow(u"SELECT * FROM tc05 WHERE 序号 = 2"_s, {{u"备注"_s, u"我写的"_s}});
        choose();
        answer_ = u"接着加入"_s;
        join();
        QVERIFY2(asked_[1].contains(u"tc03《旅行2》：3 条，完整"_s) && !asked_[1].contains(u"tc05"_s),
                 qPrintable(asked_[1]));
        QVERIFY(!findAlbum(mekTp::catalogue, u"tc06"_s) && findTitle(mekTp::catalogue, u"生日2"_s));
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 名称 = '家人'"_s).rowCount(), 1);
        choose();
        answer_ = u"全部加入"_s;
        join();
        QVERIFY2(asked_[1].contains(u"tc04《生日2》：2 条，完整"_s), qPrintable(asked_[1]));
        QVERIFY(findTitle(mekTp::catalogue, u"旅行3"_s));
        QVERIFY(window_->get<QComboBox>(u"cboBm"_s).findText(u"tc03 旅行2"_s) >= 0);
    }

    void ownButtonsMayServe() {
        answer_ = u"用现有的"_s;
        join();
        QCOMPARE(codesOf(u"tc03"_s), u"1a"_s);
        QCOMPARE(nameOfCode(mekTp::catalogue, u"a"_s), u"无图"_s);
        QVERIFY(buttonsWithCode(mekTp::catalogue, u"0"_s).Eof());
    }

    void nothingChangesWhenItIsCancelled() {
        answer_ = u"取消"_s;
        join();
        QVERIFY(!findAlbum(mekTp::catalogue, u"tc05"_s));
        QVERIFY(window_->shown(u"cmdZx"_s));
    }
};

const Registered<TestWholeCatalogue> registered;

}  // namespace

#include "whole_catalogue_test.moc"
