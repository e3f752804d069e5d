#include "bin/frm_hs.h"

#include "../support/found.h"
#include "../support/sample_catalogue.h"
#include "bin/bin_room.h"
#include "bin/bin_words.h"
#include "catalogue/album_directory.h"
#include "catalogue/selection_buttons.h"
#include "platform/desktop/message_box.h"

#include <QtWidgets/QtWidgets>

using namespace Qt::Literals::StringLiterals;

namespace {

void remove(const QString& table, const QString& where, BinKind kind = BinKind::deleted) {
    Recordset found = mekTp::catalogue.OpenRecordset(u"SELECT * FROM %1 WHERE %2"_s.arg(table, where));
    removeIntoBin(mekTp::catalogue, table, found, kind);
}

/// The open bin, with its message boxes kept and answered.
struct Window {
    Window() {
        answerBoxesWith([this](const BoxText& box) {
            boxes << box.text;
            return answer;
        });
        bin = new frmHs(mekTp::catalogue, &parent);
        QObject::connect(bin, &frmHs::restored, &parent, [this] { ++restored; });
        bin->show();
    }
    ~Window() { answerBoxesWith({}); }

    template <typename Control = QPushButton>
    Control& get(const QString& name) const {
        return *found<Control>(bin, name);
    }
    QTableView& list() const { return get<QTableView>(u"lstHs"_s); }
    void click(const QString& name) const { QTest::mouseClick(&get(name), Qt::LeftButton); }
    QString label(const QString& name) const { return get<QLabel>(name).text(); }
    QString line(int row) const {
        QStringList texts;
        for (int column = 1; column < BinModel::columns; ++column)
            if (column != BinModel::removed) texts << list().model()->index(row, column).data().toString();
        return texts.join(u'|');
    }
    int rows() const { return list().model()->rowCount(); }

    QWidget parent;
    QPointer<frmHs> bin;
    QStringList boxes;
    bool answer = true;
    int restored = 0;
};

class TestFrmHs : public OpenedSampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void listsTheNewestFirstWithPictures() {
        remove(u"tc01"_s, u"序号 = 3"_s);
        remove(u"tcan"_s, u"编号 = '2'"_s, BinKind::button);
        deleteAlbum(mekTp::catalogue, u"tc02"_s);
        const Window window;
        QCOMPARE(window.rows(), 3);
        QCOMPARE(window.line(0), u"图册 空册（tc02）|空册备注|删除图册|"_s);
        QVERIFY(window.line(1).startsWith(u"按钮 人物（编号 2）||按钮|"_s));
        QVERIFY(window.line(2).startsWith(u"旅行（tc01），序号 3|编号 12，图片3|删除|"_s));
        QVERIFY(window.label(u"lblHs"_s).startsWith(u"1 张图片、1 个图册、1 个按钮，"_s));
        const QModelIndex picture = window.list().model()->index(2, 0);
        QTRY_VERIFY(!picture.data(Qt::DecorationRole).value<QPixmap>().isNull());
        QVERIFY(window.list().model()->index(0, 0).data(Qt::DecorationRole).isNull());
        QVERIFY(!window.get(u"cmdHy"_s).isEnabled() && !window.get(u"cmdQc"_s).isEnabled());
    }

    void putsTheChosenBack() {
        for (int number = 1; number <= 3; ++number) remove(u"tc01"_s, u"序号 = %1"_s.arg(number));
        const Window window;
        window.list().selectRow(0);
        window.click(u"cmdHy"_s);
        QCOMPARE(window.restored, 1);
        QCOMPARE(window.label(u"lblJg"_s), u"已恢复 1 张"_s);
        QCOMPARE(window.rows(), 2);
        QTest::keyClick(&window.list(), Qt::Key_A, Qt::ControlModifier);
        window.click(u"cmdHy"_s);
        QCOMPARE(window.label(u"lblHs"_s), u"回收站是空的。"_s);
        QVERIFY(!window.get(u"cmdQk"_s).isEnabled());
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"tc01"_s).rowCount(), 10);
    }

    void removesForGoodWhenThatIsMeant() {
        deleteAlbum(mekTp::catalogue, u"tc01"_s);
        remove(u"tcan"_s, u"编号 = '2'"_s, BinKind::button);
        Window window;
        window.list().selectRow(1);  // the album, and with it all of its records
        window.answer = false;
        QTest::keyClick(&window.list(), Qt::Key_Delete);
        QVERIFY(window.boxes.takeFirst().startsWith(u"彻底删除 10 张图片、1 个图册（"_s));
        QCOMPARE(window.rows(), 12);
        window.answer = true;
        window.click(u"cmdQc"_s);
        QCOMPARE(window.rows(), 1);
        window.click(u"cmdQk"_s);
        QVERIFY(isBinEmpty(mekTp::catalogue));
        QCOMPARE(window.restored, 0);
    }

    void asksForAnotherCode() {
        for (const QString& code : {u"1"_s, u"2"_s}) {
            remove(u"tcan"_s, u"编号 = "_s + quoted(code), BinKind::button);
            addRow(u"tcan"_s, {{u"序号"_s, code.toInt() + 50}, {u"编号"_s, code}, {u"名称"_s, u"新"_s + code}});
        }
        Window window;
        window.list().selectAll();
        window.click(u"cmdHy"_s);
        QVERIFY(window.label(u"lblBm"_s).startsWith(u"按钮“风景”的编号“1”"_s));
        auto& txtBm = window.get<QLineEdit>(u"txtBm"_s);
        QTest::keyClicks(&txtBm, u"2"_s);
        QTest::keyClick(&txtBm, Qt::Key_Return);
        QCOMPARE(window.boxes, QStringList{u"编号“2”已有按钮“新2”在用，请另给一个。"_s});
        for (const QString& code : {u"x"_s, u"y"_s}) {
            txtBm.clear();
            QTest::keyClicks(&txtBm, code);
            window.click(u"cmdBm"_s);
        }
        QVERIFY(!txtBm.isVisible());
        QCOMPARE(nameOfCode(mekTp::catalogue, u"x"_s) + nameOfCode(mekTp::catalogue, u"y"_s), u"风景人物"_s);
        QCOMPARE(window.restored, 2);
    }

    void roomIsMadeOnlyWhenThatIsMeant() {
        BinRoom room(nullptr);
        qint64 free = 0;
        const auto whole = qScopeGuard([usual = BinRoom::free] { BinRoom::free = usual; });
        BinRoom::free = [&free] { return free; };
        QStringList boxes;
        bool answer = false;
        answerBoxesWith([&](const BoxText& box) {
            boxes << box.text;
            return answer;
        });
        room.offer();  // an empty bin has nothing to give
        for (int number = 1; number <= 3; ++number) remove(u"tc01"_s, u"序号 = %1"_s.arg(number));
        free = 2'000'000'000;
        room.offer();
        QVERIFY(boxes.isEmpty());
        free -= 1;
        room.offer();
        room.offer();  // refused once, it is not asked again
        QCOMPARE(boxes.size(), 1);
        QVERIFY(boxes[0].contains(u"1 张图片"_s));  // the oldest one is enough
        QCOMPARE(binItems(mekTp::catalogue).size(), 3U);
        free = 0;  // but when nothing can be written any more
        answer = true;
        room.offer();
        QCOMPARE(boxes.size(), 2);
        QVERIFY(isBinEmpty(mekTp::catalogue));
        answerBoxesWith({});
    }

    void saysWhatWasTakenAway_data() {
        QTest::addColumn<QString>("counts");  // items, albums, buttons
        QTest::addColumn<QString>("text");
        QTest::newRow("records") << u"12 0 0"_s << u"已删除 12 张"_s;
        QTest::newRow("an album") << u"1235 1 0"_s << u"已删除 1,234 张"_s;
        QTest::newRow("an empty album") << u"1 1 0"_s << u"已删除 1 个图册"_s;
        QTest::newRow("a button") << u"1 0 1"_s << u"已删除 1 个按钮"_s;
    }

    void saysWhatWasTakenAway() {
        QFETCH(const QString, counts);
        const QStringList numbers = counts.split(u' ');
        const BinTotals totals{numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt()};
        QTEST(removedText(totals, {}), "text");
        QVERIFY(removedText(totals, BinKind::moved).startsWith(u"已移走"_s));
        QVERIFY(removedText(totals, BinKind::replaced).startsWith(u"已替换"_s));
    }
};

const Registered<TestFrmHs> registered;

}  // namespace

#include "frm_hs_test.moc"
